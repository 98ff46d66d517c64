#pragma once

#include "shared/Screens.h"
#include "shared/SelectionValues.h"
#include "store/Records.h"

/** What tells the records of one kind of names, and the screens about them, from the others. */
template <class Record>
struct NameKind;

template <>
struct NameKind<Authors> {
    static constexpr auto name = Authors::Keys::name;
    static constexpr auto get = &Authors::name;
    static constexpr auto set = &Authors::setName;
    static constexpr auto ofQuotes = Event::Keys::author;
    static constexpr auto chosen = &SelectionValues::chosenAuthorName;
    static constexpr const char* noun = "Author";
    static constexpr QLatin1String unwindToList = unwinds::toAuthorNames;
};

template <>
struct NameKind<Sources> {
    static constexpr auto name = Sources::Keys::name;
    static constexpr auto get = &Sources::name;
    static constexpr auto set = &Sources::setName;
    static constexpr auto ofQuotes = Event::Keys::source;
    static constexpr auto chosen = &SelectionValues::chosenSourceName;
    static constexpr const char* noun = "Source";
    static constexpr QLatin1String unwindToList = unwinds::toSourceNames;
};

template <>
struct NameKind<Topics> {
    static constexpr auto name = Topics::Keys::topic;
    static constexpr auto get = &Topics::topic;
    static constexpr auto set = &Topics::setTopic;
    static constexpr auto ofQuotes = Event::Keys::category;
    static constexpr auto chosen = &SelectionValues::chosenTopicName;
    static constexpr const char* noun = "Topic";
    static constexpr QLatin1String unwindToList = unwinds::toTopicNames;
};

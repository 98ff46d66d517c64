#pragma once

#include "store/FetchRequest.h"
#include "store/ManagedObject.h"

#include <QLatin1String>

/** A quote. Every attribute may be absent. */
class Event final : public ManagedObject {
public:
    static constexpr QLatin1String entityName{"Event"};
    static constexpr std::size_t entity = 0; ///< its place in the schema
    struct Keys {
        static constexpr TextKey<Event> quote{0};
        static constexpr TextKey<Event> author{1};
        static constexpr TextKey<Event> source{2};
        static constexpr TextKey<Event> category{3};
        static constexpr DateKey<Event> timestamp{4};
    };
    using ManagedObject::ManagedObject;

    static FetchRequest<Event> fetchRequest() { return {}; }

    /** The text of any of the text attributes. */
    std::optional<QString> value(TextKey<Event> key) const { return text(key.attribute); }
    /** The bytes of any of the text attributes as the store has them, which is in UTF-8 unless it
     * was damaged; valid until the next change. */
    std::optional<QByteArrayView> utf8(TextKey<Event> key) const {
        return ManagedObject::utf8(key.attribute);
    }
    std::optional<QString> quote() const { return text(Keys::quote.attribute); }
    std::optional<QString> author() const { return text(Keys::author.attribute); }
    std::optional<QString> source() const { return text(Keys::source.attribute); }
    std::optional<QString> category() const { return text(Keys::category.attribute); }
    std::optional<Date> timestamp() const { return date(Keys::timestamp.attribute); }

    void setQuote(const std::optional<QString>& quote) { setText(Keys::quote.attribute, quote); }
    void setAuthor(const std::optional<QString>& author) {
        setText(Keys::author.attribute, author);
    }
    void setSource(const std::optional<QString>& source) {
        setText(Keys::source.attribute, source);
    }
    void setCategory(const std::optional<QString>& category) {
        setText(Keys::category.attribute, category);
    }
    void setTimestamp(std::optional<Date> timestamp) {
        setDate(Keys::timestamp.attribute, timestamp);
    }
};

/** The name of an author. */
class Authors final : public ManagedObject {
public:
    static constexpr QLatin1String entityName{"Authors"};
    static constexpr std::size_t entity = 1; ///< its place in the schema
    struct Keys {
        static constexpr TextKey<Authors> name{0};
    };
    using ManagedObject::ManagedObject;

    static FetchRequest<Authors> fetchRequest() { return {}; }

    std::optional<QString> name() const { return text(Keys::name.attribute); }
    void setName(const std::optional<QString>& name) { setText(Keys::name.attribute, name); }
};

/** The name of a source. */
class Sources final : public ManagedObject {
public:
    static constexpr QLatin1String entityName{"Sources"};
    static constexpr std::size_t entity = 2; ///< its place in the schema
    struct Keys {
        static constexpr TextKey<Sources> name{0};
    };
    using ManagedObject::ManagedObject;

    static FetchRequest<Sources> fetchRequest() { return {}; }

    std::optional<QString> name() const { return text(Keys::name.attribute); }
    void setName(const std::optional<QString>& name) { setText(Keys::name.attribute, name); }
};

/** The name of a topic. */
class Topics final : public ManagedObject {
public:
    static constexpr QLatin1String entityName{"Topics"};
    static constexpr std::size_t entity = 3; ///< its place in the schema
    struct Keys {
        static constexpr TextKey<Topics> topic{0};
    };
    using ManagedObject::ManagedObject;

    static FetchRequest<Topics> fetchRequest() { return {}; }

    std::optional<QString> topic() const { return text(Keys::topic.attribute); }
    void setTopic(const std::optional<QString>& topic) { setText(Keys::topic.attribute, topic); }
};

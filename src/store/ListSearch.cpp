#include "store/ListSearch.h"

#include "store/EntityTable.h"

#include <algorithm>
#include <iterator>

QStringList matching(const QStringList& list, const QString& searchText) {
    const QString wanted = folded(searchText);
    QStringList result;
    std::copy_if(list.begin(), list.end(), std::back_inserter(result), [&](const QString& text) {
        return !text.isEmpty() && folded(text).contains(wanted);
    });
    return result;
}

std::vector<Event*> matching(const std::vector<Event*>& list, TextKey<Event> key,
                             const QString& searchText) {
    std::vector<Event*> result;
    if (list.empty())
        return result;
    const auto contains =
        EntityTable::of(*list.front()).containing(key.attribute, folded(searchText));
    std::copy_if(list.begin(), list.end(), std::back_inserter(result),
                 [&](const Event* event) { return contains(EntityTable::rowOf(*event)); });
    return result;
}

bool prepareSearch(const std::vector<Event*>& list) {
    constexpr qsizetype someBytes = 1 << 20;
    return !list.empty() &&
           EntityTable::of(*list.front()).foldSome(Event::Keys::quote.attribute, someBytes);
}

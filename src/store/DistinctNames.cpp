#include "store/DistinctNames.h"

#include "store/EntityTable.h"

#include <algorithm>
#include <iterator>

QStringList distinctNames(const std::vector<Event*>& list, TextKey<Event> key) {
    if (list.empty())
        return {};
    std::vector<Row> rows;
    rows.reserve(list.size());
    std::transform(list.begin(), list.end(), std::back_inserter(rows),
                   [](const Event* quote) { return EntityTable::rowOf(*quote); });
    return EntityTable::of(*list.front()).distinctNames(key.attribute, rows);
}

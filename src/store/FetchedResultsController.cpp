#include "store/FetchedResultsController.h"

#include <unordered_map>

namespace {

using Places = std::unordered_map<const ManagedObject*, int>;

Places placesIn(const std::vector<const ManagedObject*>& list) {
    Places places;
    for (int row = 0; row < int(list.size()); ++row)
        places.emplace(list[std::size_t(row)], row);
    return places;
}

/** For each record of a list, how many records that stayed as they are come before it. */
Places steadyRecordsBefore(const std::vector<const ManagedObject*>& list, const Places& other) {
    Places counts;
    int steady = 0;
    for (const ManagedObject* record : list) {
        counts.emplace(record, steady);
        if (other.contains(record) && !record->hasChanges())
            ++steady;
    }
    return counts;
}

} // namespace

std::vector<FetchedResultsChange> changesBetween(const std::vector<const ManagedObject*>& before,
                                                 const std::vector<const ManagedObject*>& after) {
    using Type = FetchedResultsChangeType;
    const Places formerRows = placesIn(before);
    const Places newRows = placesIn(after);
    const Places formerCounts = steadyRecordsBefore(before, newRows);
    const Places newCounts = steadyRecordsBefore(after, formerRows);
    std::vector<FetchedResultsChange> changes;
    for (const ManagedObject* record : before) {
        const int row = formerRows.at(record);
        const auto place = newRows.find(record);
        if (place == newRows.end())
            changes.push_back({row, Type::Delete, {}});
        else if (!record->hasChanges())
            continue;
        else if (formerCounts.at(record) != newCounts.at(record))
            changes.push_back({row, Type::Move, place->second});
        else
            changes.push_back({row, Type::Update, {}});
    }
    for (const ManagedObject* record : after) {
        if (!formerRows.contains(record))
            changes.push_back({{}, Type::Insert, newRows.at(record)});
    }
    return changes;
}

#pragma once

#include "store/ManagedObjectContext.h"

#include <QLoggingCategory>

#include <utility>
#include <vector>

Q_DECLARE_LOGGING_CATEGORY(lcApp)

/** All records of one kind in an order; none, with a note in the log, when they cannot be read. */
template <class Record>
std::vector<Record*> sortedRecords(ManagedObjectContext& context,
                                   const std::vector<SortDescriptor<Record>>& order) {
    auto request = Record::fetchRequest();
    request.returnsObjectsAsFaults = false;
    request.sortDescriptors = order;
    auto result = context.fetch(request);
    if (result.error)
        qCWarning(lcApp) << result.error->description;
    return std::move(result.records);
}

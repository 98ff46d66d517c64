#pragma once

#include "store/ManagedObjectContext.h"

#include <QLoggingCategory>

#include <optional>
#include <utility>
#include <vector>

/** A room's category, as Q_LOGGING_CATEGORY makes it. */
using Log = const QLoggingCategory& (*)();

/** What a save, say, ended with goes to the log, if anything, and the program goes on. */
inline void logError(const std::optional<StoreError>& error, Log log) {
    if (error)
        qCWarning(log) << error->description;
}

/** What is asked for; nothing, with a note in the log, when it cannot be read. */
template <class Record>
std::vector<Record*> fetchOrLog(ManagedObjectContext& context, const FetchRequest<Record>& request,
                                Log log) {
    auto result = context.fetch(request);
    logError(result.error, log);
    return std::move(result.records);
}

/** All records of one kind in an order. */
template <class Record>
std::vector<Record*> sortedRecords(ManagedObjectContext& context,
                                   const std::vector<SortDescriptor<Record>>& order, Log log) {
    auto request = Record::fetchRequest();
    request.returnsObjectsAsFaults = false;
    request.sortDescriptors = order;
    return fetchOrLog(context, request, log);
}

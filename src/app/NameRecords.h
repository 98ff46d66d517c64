#pragma once

#include "app/FetchOrLog.h"

#include <QStringList>

Q_DECLARE_LOGGING_CATEGORY(lcApp)

/** The distinct texts of one attribute of all quotes, ascending. A quote without it is a fatal
 * error; a fetch that fails is logged and gives none. */
QStringList namesOfAllQuotes(ManagedObjectContext& context, TextKey<Event> key);

/** Inserts a record for each name, in order. All are written in one transaction; a failure is
 * logged. */
template <class Record>
void insertNames(ManagedObjectContext& context, const QStringList& names) {
    SaveGroup group(context);
    for (const QString& name : names) {
        context.insert<Record>()->setName(name);
        logError(context.save(), lcApp);
    }
    logError(group.finish(), lcApp);
}

#pragma once

#include "store/ManagedObjectContext.h"

#include <QStringList>

/** A line for each record, sorted; throws the StoreError when the store cannot be read. */
QStringList contentsOf(ManagedObjectContext& context);

/** What SQLite's own check says of a store's file that nothing has open: "ok". */
QString integrityOf(const QString& path);

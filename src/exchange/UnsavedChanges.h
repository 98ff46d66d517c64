#pragma once

#include "store/ManagedObjectContext.h"

#include <QString>

/**
 * Keeps what no store takes when the program ends: writes the quotes and topics that are not saved
 * as a collection file, which Import reads, into a folder. Says for the user what was kept and
 * where, and what was not; nothing when all is saved.
 */
QString keepUnsavedChanges(ManagedObjectContext& context, const QString& folder,
                           const QString& day);

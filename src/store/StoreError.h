#pragma once

#include <QString>

/** Why the store could not be opened, read or written. */
struct StoreError {
    QString description; ///< a sentence that names the file
    QString userInfo; ///< details for a report, such as "{path = /a/Lantern.sqlite, sqlite = 26}"

    /** "Unresolved error <description>, <userInfo>" */
    QString unresolved() const {
        return QStringLiteral("Unresolved error %1, %2").arg(description, userInfo);
    }
};

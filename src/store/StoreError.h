#pragma once

#include <QString>

/** Why the store could not be opened, read or written. */
struct StoreError {
    enum class Cause {
        Other,
        Damage, ///< what the file holds is not what was written
        Loss,   ///< another program has moved, replaced or deleted the file
        Space,  ///< the disk is full
    };

    QString description; ///< a sentence that names the file
    QString userInfo; ///< details for a report, such as "{path = /a/Lantern.sqlite, sqlite = 26}"
    QString reason = {}; ///< the end of the sentence, such as "disk I/O error"
    Cause cause = Cause::Other;

    /** "Unresolved error <description>, <userInfo>" */
    QString unresolved() const {
        return QStringLiteral("Unresolved error %1, %2").arg(description, userInfo);
    }
};

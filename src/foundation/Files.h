#pragma once

#include <QByteArray>
#include <QFileDevice>
#include <QString>

#include <optional>

constexpr auto ownerFile = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr auto everyonesFile = ownerFile | QFileDevice::ReadGroup | QFileDevice::WriteGroup |
                               QFileDevice::ReadOther | QFileDevice::WriteOther;

/** Why a file could not be written, in words for the user. */
struct WriteFailure {
    QString description;
};

/**
 * Writes a file whole or not at all; an older file gives way to it. A link at its place is
 * replaced, never followed. When this returns without failure, the bytes are on disk. The umask
 * takes from the permissions.
 */
std::optional<WriteFailure>
writeFileAtomically(const QString& path, const QByteArray& bytes,
                    QFileDevice::Permissions permissions = everyonesFile);

/** The same for a file that does not outlive the program: it does not wait for the disk. */
std::optional<WriteFailure> writeTemporaryFile(const QString& path, const QByteArray& bytes);

/** Whether all of a file is on disk. */
bool isSynced(const QString& path);

/** Makes an empty file for its owner alone, in the place of what is there. */
bool makeEmptyFile(const QString& path);

/** Makes a folder, and those above it that are missing, for their owner alone whatever the umask,
 * so that a power cut does not take them. Returns 0 or an errno. */
int makeOwnFolder(const QString& path);

/** Has the disk keep the names in a folder through a power cut, where the folder can be read. */
void syncFolder(const QString& path);

/** The folder of the user's files that a variable such as XDG_DATA_HOME names, or one in the home
 * folder. Relative ones count as none, as the standard of these variables says; nothing when there
 * is no home either. */
std::optional<QString> userFolder(const char* variable, const QString& belowHome);

/** The user's documents folder; the home folder while there is none. */
QString documentsFolder();

/** The bytes of a regular file that belongs to this user and is no link; nothing of any other. */
std::optional<QByteArray> readOwnFile(const QString& path);

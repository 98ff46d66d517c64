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

/** Has the disk keep the names in a folder through a power cut, where the folder can be read. */
void syncFolder(const QString& path);

/** The user's documents folder; the home folder while there is none. */
QString documentsFolder();

/** The bytes of a regular file that belongs to this user and is no link; nothing of any other. */
std::optional<QByteArray> readOwnFile(const QString& path);

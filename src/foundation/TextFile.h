#pragma once

#include <QByteArray>
#include <QString>

#include <variant>

/** Why a file could not be read, in words for the log. */
struct ReadFailure {
    QString description;
};

/**
 * Reads a whole regular file as text, detecting its encoding. Anything but a regular file (a
 * folder, a pipe, a device) is a failure, and never blocks.
 */
std::variant<QString, ReadFailure> readTextFile(const QString& path);

/**
 * Decodes bytes of unknown encoding: a byte-order mark decides, else UTF-16 by the place of its
 * zero bytes (which a text in UTF-8 may have some of), else UTF-8 where the bytes are valid UTF-8,
 * else what ICU's detector finds, with Windows-1252 where it finds nothing. Bytes that the encoding
 * does not know become U+FFFD.
 */
QString decodeText(const QByteArray& bytes);

#pragma once

#include <QFile>

#include <optional>
#include <stdexcept>

/** What a file holds; nothing when there is none. */
inline std::optional<QByteArray> contents(const QString& path) {
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

inline void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("the test cannot write its file");
}

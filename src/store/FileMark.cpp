#include "store/FileMark.h"

#include <QFile>

std::optional<FileMark> markOf(const QString& path) {
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return FileMark{status.st_dev, status.st_ino, status.st_size, status.st_mtim};
}

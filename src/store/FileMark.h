#pragma once

#include <QString>

#include <optional>
#include <sys/stat.h>

/** What tells that a file is the same as before, and, but for its time, that nobody wrote to it. */
struct FileMark {
    dev_t device;
    ino_t number;
    off_t size;
    timespec changed;

    bool isSameFile(const FileMark& other) const {
        return device == other.device && number == other.number;
    }
    bool operator==(const FileMark& other) const {
        return isSameFile(other) && size == other.size && changed.tv_sec == other.changed.tv_sec &&
               changed.tv_nsec == other.changed.tv_nsec;
    }
};

/** Nothing when there is no such file. Does not open it. */
std::optional<FileMark> markOf(const QString& path);

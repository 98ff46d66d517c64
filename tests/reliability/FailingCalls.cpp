#include "reliability/FailingCalls.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace {

thread_local FailingCalls* failing = nullptr;

int openFile(const char* path, int flags, std::va_list arguments) {
    const bool hasMode = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    const auto mode = hasMode ? va_arg(arguments, mode_t) : 0;
    return FailingCalls::strikes("open", path)
               ? -1
               : int(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

} // namespace

FailingCalls::FailingCalls(std::string folder, int call, int error, bool keepsFailing)
    : m_folder(std::move(folder))
    , m_countdown(call)
    , m_error(error)
    , m_keepsFailing(keepsFailing) {
    failing = this;
}

FailingCalls::~FailingCalls() {
    failing = nullptr;
}

bool FailingCalls::strikes(const char* kind, const std::string& path) {
    if (failing == nullptr || !path.starts_with(failing->m_folder))
        return false;
    if (path.find('/', failing->m_folder.size() + 1) == std::string::npos)
        ++failing->m_counts[kind];
    if (failing->m_hasFailed ? !failing->m_keepsFailing : --failing->m_countdown > 0)
        return false;
    failing->m_hasFailed = true;
    errno = failing->m_error;
    return true;
}

bool FailingCalls::strikes(const char* kind, int descriptor) {
    if (failing == nullptr)
        return false;
    std::error_code isNoFile;
    return strikes(
        kind, std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), isNoFile)
                  .string());
}

extern "C" {

int open(const char* path, int flags, ...) {
    std::va_list arguments;
    va_start(arguments, flags);
    const int file = openFile(path, flags, arguments);
    va_end(arguments);
    return file;
}

int open64(const char* path, int flags, ...) {
    std::va_list arguments;
    va_start(arguments, flags);
    const int file = openFile(path, flags, arguments);
    va_end(arguments);
    return file;
}

ssize_t write(int file, const void* bytes, std::size_t count) {
    if (FailingCalls::strikes("write", file)) {
        const int reason = errno;
        ::syscall(SYS_write, file, bytes, count / 2);
        errno = reason;
        return -1;
    }
    return ::syscall(SYS_write, file, bytes, count);
}

int fsync(int file) {
    struct stat status {};
    ::fstat(file, &status);
    return FailingCalls::strikes(S_ISDIR(status.st_mode) ? "sync of a folder" : "sync", file)
               ? -1
               : int(::syscall(SYS_fsync, file));
}

int fdatasync(int file) {
    return FailingCalls::strikes("sync", file) ? -1 : int(::syscall(SYS_fdatasync, file));
}

int rename(const char* from, const char* to) noexcept {
    return FailingCalls::strikes("move", to) ? -1 : int(::syscall(SYS_rename, from, to));
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    return FailingCalls::strikes("link", to)
               ? -1
               : int(::syscall(SYS_linkat, fromFolder, from, toFolder, to, flags));
}
}

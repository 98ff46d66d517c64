#include "reliability/FailingCalls.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/syscall.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace {

thread_local FailingCalls* failing = nullptr;

int openFile(const char* path, int flags, std::va_list arguments) {
    const bool hasMode = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    const auto mode = hasMode ? va_arg(arguments, mode_t) : 0;
    return FailingCalls::strikes(path) ? -1
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

bool FailingCalls::strikes(const std::string& path) {
    if (failing == nullptr || !path.starts_with(failing->m_folder))
        return false;
    if (failing->m_hasFailed ? !failing->m_keepsFailing : --failing->m_countdown > 0)
        return false;
    failing->m_hasFailed = true;
    errno = failing->m_error;
    return true;
}

bool FailingCalls::strikes(int descriptor) {
    if (failing == nullptr)
        return false;
    std::error_code isNoFile;
    return strikes(
        std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), isNoFile)
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
    if (FailingCalls::strikes(file)) {
        const int reason = errno;
        ::syscall(SYS_write, file, bytes, count / 2);
        errno = reason;
        return -1;
    }
    return ::syscall(SYS_write, file, bytes, count);
}

int fsync(int file) {
    return FailingCalls::strikes(file) ? -1 : int(::syscall(SYS_fsync, file));
}

int fdatasync(int file) {
    return FailingCalls::strikes(file) ? -1 : int(::syscall(SYS_fdatasync, file));
}

int rename(const char* from, const char* to) noexcept {
    return FailingCalls::strikes(to) ? -1 : int(::syscall(SYS_rename, from, to));
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    return FailingCalls::strikes(to)
               ? -1
               : int(::syscall(SYS_linkat, fromFolder, from, toFolder, to, flags));
}
}

#include "foundation/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUuid>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::optional<WriteFailure> write(const QString& path, const QByteArray& bytes,
                                  QFileDevice::Permissions permissions, bool isToLast) {
    const auto failure = [&path](const QString& reason) {
        return WriteFailure{QStringLiteral("\"%1\" cannot be written: %2.").arg(path, reason)};
    };
    // Not QSaveFile, which writes to where a link at the path leads.
    QFile file(QFileInfo(path).path() + QStringLiteral("/.Lantern-") +
               QUuid::createUuid().toString(QUuid::Id128));
    // Unbuffered, since to remove a file with bytes left to write would try them again, and then
    // leave it.
    if (!file.open(QFile::NewOnly | QFile::WriteOnly | QFile::Unbuffered, permissions))
        return failure(file.errorString());
    if (file.write(bytes) != bytes.size() || (isToLast && ::fsync(file.handle()) != 0)) {
        const QString reason =
            file.error() == QFile::NoError ? qt_error_string(errno) : file.errorString();
        file.remove();
        return failure(reason);
    }
    file.close();
    if (std::rename(QFile::encodeName(file.fileName()).constData(),
                    QFile::encodeName(path).constData()) != 0) {
        const QString reason = qt_error_string(errno);
        file.remove();
        return failure(reason);
    }
    if (isToLast)
        syncFolder(QFileInfo(path).path());
    return std::nullopt;
}

} // namespace

std::optional<WriteFailure> writeFileAtomically(const QString& path, const QByteArray& bytes,
                                                QFileDevice::Permissions permissions) {
    return write(path, bytes, permissions, true);
}

std::optional<WriteFailure> writeTemporaryFile(const QString& path, const QByteArray& bytes) {
    return write(path, bytes, ownerFile, false);
}

bool isSynced(const QString& path) {
    const int file = ::open(QFile::encodeName(path).constData(), O_RDWR | O_NOFOLLOW | O_CLOEXEC);
    if (file < 0)
        return false;
    const bool result = ::fsync(file) == 0;
    ::close(file);
    return result;
}

bool makeEmptyFile(const QString& path) {
    QFile::remove(path);
    const int file =
        ::open(QFile::encodeName(path).constData(),
               O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0)
        return false;
    const bool isPrivate = ::fchmod(file, S_IRUSR | S_IWUSR) == 0;
    ::close(file);
    return isPrivate;
}

int makeOwnFolder(const QString& path) {
    const QFileInfo folder(path);
    if (path.isEmpty() || folder.isDir())
        return 0;
    if (folder.exists())
        return ENOTDIR;
    const QString parent = folder.path();
    if (const int failed = makeOwnFolder(parent); failed != 0)
        return failed;
    const QByteArray name = QFile::encodeName(path);
    // Another start of the program may make it at the same time.
    if (::mkdir(name.constData(), S_IRWXU) != 0)
        return errno == EEXIST && QFileInfo(path).isDir() ? 0 : errno;
    if (::chmod(name.constData(), S_IRWXU) != 0)
        return errno;
    syncFolder(parent);
    return 0;
}

void syncFolder(const QString& path) {
    const int folder =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    ::fsync(folder);
    ::close(folder);
}

std::optional<QString> userFolder(const char* variable, const QString& belowHome) {
    // Not QStandardPaths, which takes relative folders, and the root for the home that is missing.
    const QString chosen = qEnvironmentVariable(variable);
    if (QDir::isAbsolutePath(chosen))
        return chosen;
    const QString home = qEnvironmentVariable("HOME");
    return QDir::isAbsolutePath(home) ? std::optional(home + u'/' + belowHome) : std::nullopt;
}

QString documentsFolder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

std::optional<QByteArray> readOwnFile(const QString& path) {
    // Without O_NONBLOCK, opening a pipe would wait for its writer.
    const int descriptor =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return std::nullopt;
    QFile file;
    file.open(descriptor, QFile::ReadOnly, QFile::AutoCloseHandle);
    struct stat status {};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_uid != ::geteuid())
        return std::nullopt;
    const QByteArray bytes = file.readAll();
    if (file.error() != QFile::NoError)
        return std::nullopt;
    return bytes;
}

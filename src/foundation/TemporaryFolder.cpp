#include "foundation/TemporaryFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <ctime>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

int openFolder(const QString& path) {
    return ::open(QFile::encodeName(path).constData(),
                  O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
}

void removeIfLeft(const QString& path) {
    const int folder = openFolder(path);
    if (folder < 0)
        return;
    // One that was just made may not be locked yet.
    constexpr std::time_t young = 60;
    struct stat status {};
    if (::fstat(folder, &status) == 0 && status.st_uid == ::geteuid() &&
        status.st_mtime < std::time(nullptr) - young && ::flock(folder, LOCK_EX | LOCK_NB) == 0)
        QDir(path).removeRecursively();
    ::close(folder);
}

QString makeFolder() {
    const QDir place(QDir::tempPath());
    for (const QString& name : place.entryList({QStringLiteral("Lantern-??????")}, QDir::Dirs))
        removeIfLeft(place.filePath(name));
    QTemporaryDir made(place.filePath(QStringLiteral("Lantern-XXXXXX")));
    made.setAutoRemove(false);
    return made.path();
}

} // namespace

TemporaryFolder::TemporaryFolder()
    : m_path(makeFolder())
    , m_lock(openFolder(m_path)) {
    if (m_lock >= 0)
        ::flock(m_lock, LOCK_EX | LOCK_NB);
}

TemporaryFolder::~TemporaryFolder() {
    if (!m_path.isEmpty())
        QDir(m_path).removeRecursively();
    if (m_lock >= 0)
        ::close(m_lock);
}

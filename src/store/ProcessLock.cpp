#include "store/ProcessLock.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <map>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

std::variant<std::shared_ptr<ProcessLock>, int> ProcessLock::take(const QString& folder,
                                                                  const QString& name) {
    static std::map<QString, std::weak_ptr<ProcessLock>> taken;
    const QString path = QStringLiteral("%1/%2.sqlite-lock").arg(folder, name);
    auto& shared = taken[path];
    if (auto lock = shared.lock())
        return lock;

    const int descriptor = ::open(QFile::encodeName(path).constData(),
                                  O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor < 0)
        return errno;
    std::shared_ptr<ProcessLock> lock(new ProcessLock(descriptor));
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0)
        return errno;
    shared = lock;
    return lock;
}

ProcessLock::~ProcessLock() {
    ::close(m_descriptor);
}

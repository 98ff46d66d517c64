#include "Attachments.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {

QString folderOfAttachments() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/Lantern/Attachments");
}

void makePrivate(const QDir& folder) {
    folder.mkpath(QStringLiteral("."));
    QFile::setPermissions(folder.path(), ownerFile | QFile::ExeOwner);
}

} // namespace

std::variant<QStringList, WriteFailure> writeAttachments(const MailMessage& message) {
    QStringList paths;
    const QDir folder(folderOfAttachments());
    if (!message.attachments.empty())
        makePrivate(folder);
    for (const MailAttachment& attachment : message.attachments) {
        // A folder for each: a mail program may not have read the last one of this name yet.
        QTemporaryDir own(folder.filePath(QStringLiteral("XXXXXX")));
        own.setAutoRemove(false);
        const QString path = own.filePath(QFileInfo(attachment.fileName).fileName());
        if (auto failure = writeTemporaryFile(path, attachment.data))
            return *failure;
        paths.append(path);
    }
    return paths;
}

void sweepAttachments() {
    constexpr int days = 7;
    const QDateTime old = QDateTime::currentDateTime().addDays(-days);
    const QDir folder(folderOfAttachments());
    for (const QFileInfo& entry :
         folder.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks)) {
        if (entry.lastModified() < old)
            QDir(entry.filePath()).removeRecursively();
    }
}

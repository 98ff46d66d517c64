#include "FolderContents.h"

#include <QDir>

void FolderContents::setPath(const QString& path) {
    const QDir folder(path);
    beginResetModel();
    m_path = folder.absolutePath();
    m_entries = folder.entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot,
                                     QDir::Name | QDir::IgnoreCase | QDir::DirsFirst);
    endResetModel();
    Q_EMIT pathChanged();
}

QString FolderContents::parentPath() const {
    QDir folder(m_path);
    return folder.cdUp() ? folder.path() : QString();
}

int FolderContents::rowOf(const QString& path) const {
    for (int row = 0; row < count(); ++row) {
        if (pathOf(row) == path)
            return row;
    }
    return -1;
}

int FolderContents::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant FolderContents::data(const QModelIndex& index, int role) const {
    const QFileInfo& entry = m_entries.at(index.row());
    switch (role) {
    case FileNameRole:
        return entry.fileName();
    case IsFolderRole:
        return entry.isDir();
    default:
        return {};
    }
}

QHash<int, QByteArray> FolderContents::roleNames() const {
    return {{FileNameRole, "fileName"}, {IsFolderRole, "fileIsDir"}};
}

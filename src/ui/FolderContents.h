#pragma once

#include <QAbstractListModel>
#include <QFileInfo>
#include <QList>
#include <QUrl>
#include <qqml.h>

/** What stands in a folder: its folders, then its files, each by name without regard to case.
 * Hidden ones are left out. */
class FolderContents : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString path READ path WRITE setPath NOTIFY pathChanged)
    Q_PROPERTY(int count READ count NOTIFY pathChanged)

public:
    enum Role { FileNameRole = Qt::UserRole, IsFolderRole };

    QString path() const { return m_path; }
    void setPath(const QString& path);
    int count() const { return int(m_entries.size()); }

    Q_INVOKABLE bool isFolder(int row) const { return m_entries.at(row).isDir(); }
    Q_INVOKABLE QString pathOf(int row) const { return m_entries.at(row).filePath(); }
    Q_INVOKABLE QUrl urlOf(int row) const { return QUrl::fromLocalFile(pathOf(row)); }
    /** The folder that this one is in; empty where there is none. */
    Q_INVOKABLE QString parentPath() const;
    /** The row of a file or folder; -1 when it is not here. */
    Q_INVOKABLE int rowOf(const QString& path) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void pathChanged();

private:
    QString m_path;
    QList<QFileInfo> m_entries;
};

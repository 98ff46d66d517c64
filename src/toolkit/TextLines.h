#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

/** The lines of a text as rows; role "line" gives the beginning of a line, as much as any screen
 * can show of it. */
class TextLines : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Text views make their lines")

public:
    using QAbstractListModel::QAbstractListModel;

    void setText(const QString& text);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    QString m_text;
    QList<qsizetype> m_starts;
};

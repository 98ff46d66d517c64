#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

/** How a text view breaks lines that are too long for it. */
enum class LineBreakMode { WordWrapping, TruncatingTail };

/** The lines of a text as rows, each no longer than a screen: a longer line is cut off in role
 * "line", or where lines are to be wrapped takes more rows. */
class TextLines : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Text views make their lines")

public:
    using QAbstractListModel::QAbstractListModel;

    void setText(const QString& text, LineBreakMode mode);

    /** The text of some rows as it stands, line ends between them included. */
    Q_INVOKABLE QString textOfRows(int first, int last) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    /** Where the row after this one begins. */
    qsizetype endOf(int row) const;

    QString m_text;
    QList<qsizetype> m_starts;
};

#pragma once

#include "toolkit/TableView.h"

/** The standard row of a title and, under it, a detail. */
class SubtitleTableViewCell : public TableViewCell {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Tables make their cells")
    Q_PROPERTY(Label* textLabel MEMBER textLabel CONSTANT)
    Q_PROPERTY(Label* detailTextLabel MEMBER detailTextLabel CONSTANT)

public:
    SubtitleTableViewCell(QObject* parent, const QString& reuseIdentifier);

    Label* const textLabel;
    Label* const detailTextLabel;
};

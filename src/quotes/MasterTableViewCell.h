#pragma once

#include "toolkit/TableView.h"

/** A row of the quote list: two lines of text. */
class MasterTableViewCell : public TableViewCell {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Tables make their cells")
    Q_PROPERTY(Label* TextLabel MEMBER TextLabel CONSTANT)
    Q_PROPERTY(Label* DetailTextLabel MEMBER DetailTextLabel CONSTANT)

public:
    MasterTableViewCell(QObject* parent, const QString& reuseIdentifier);

    Label* const TextLabel;
    Label* const DetailTextLabel;
};

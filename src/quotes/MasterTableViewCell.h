#pragma once

#include "toolkit/TableView.h"

/** A row of the quote list: two lines of text. */
class MasterTableViewCell : public TableViewCell {
    Q_OBJECT

public:
    MasterTableViewCell(QObject* parent, const QString& reuseIdentifier);

    Label* const TextLabel;
    Label* const DetailTextLabel;
};

#include "MasterTableViewCell.h"

MasterTableViewCell::MasterTableViewCell(QObject* parent, const QString& reuseIdentifier)
    : TableViewCell(parent, reuseIdentifier)
    , TextLabel(new Label(this))
    , DetailTextLabel(new Label(this)) {}

#include "MasterTableViewCell.h"

MasterTableViewCell::MasterTableViewCell(QObject* parent, const QString& reuseIdentifier)
    : TableViewCell(parent, reuseIdentifier)
    , TextLabel(addLabel())
    , DetailTextLabel(addLabel()) {}

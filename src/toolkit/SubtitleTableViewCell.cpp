#include "SubtitleTableViewCell.h"

SubtitleTableViewCell::SubtitleTableViewCell(QObject* parent, const QString& reuseIdentifier)
    : TableViewCell(parent, reuseIdentifier)
    , textLabel(addLabel())
    , detailTextLabel(addLabel()) {}

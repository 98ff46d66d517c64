#include "SubtitleTableViewCell.h"

SubtitleTableViewCell::SubtitleTableViewCell(QObject* parent, const QString& reuseIdentifier)
    : TableViewCell(parent, reuseIdentifier)
    , textLabel(new Label(this))
    , detailTextLabel(new Label(this)) {}

#pragma once

#include "toolkit/TableView.h"

/** The standard row of a title and, under it, a detail. */
class SubtitleTableViewCell : public TableViewCell {
    Q_OBJECT

public:
    SubtitleTableViewCell(QObject* parent, const QString& reuseIdentifier);

    Label* const textLabel;
    Label* const detailTextLabel;
};

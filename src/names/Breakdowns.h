#pragma once

#include "names/Breakdown.h"

/** A row of the quotes of one topic. */
class TopicBreakdownTableViewCell : public TableViewCell {
    Q_OBJECT

public:
    using TableViewCell::TableViewCell;

    Label* const TopicLabel = addLabel();
    Label* const SourceLabel = addLabel();
    Label* const AuthorLabel = addLabel();
};

/** A row of the quotes of one source. */
class SourceBreakdownTableViewCell : public TableViewCell {
    Q_OBJECT

public:
    using TableViewCell::TableViewCell;

    Label* const SourceLabel = addLabel();
    Label* const TopicLabel = addLabel();
    Label* const AuthorLabel = addLabel();
};

/** A row of the quotes of one author. */
class AuthorBreakdownTableViewCell : public TableViewCell {
    Q_OBJECT

public:
    using TableViewCell::TableViewCell;

    Label* const TopicLabel = addLabel();
    Label* const SourceLabel = addLabel();
    Label* const AuthorLabel = addLabel();
};

/** The quotes of one topic. */
class TopicBreakdownTableViewController : public TableViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")

public:
    explicit TopicBreakdownTableViewController(AppDelegate& application);

    Breakdown quotes;

    TableViewCell* cellForRowAtIndexPath(int row) override;
    double heightForRowAtIndexPath(int row) const override;
    void segmentedControlActionWithSender(SegmentedControl& sender);
};

/** The quotes of one source. */
class SourceBreakdownTableViewController : public TableViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")

public:
    explicit SourceBreakdownTableViewController(AppDelegate& application);

    Breakdown quotes;

    TableViewCell* cellForRowAtIndexPath(int row) override;
};

/** The quotes of one author. */
class AuthorBreakdownTableViewController : public TableViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")

public:
    explicit AuthorBreakdownTableViewController(AppDelegate& application);

    Breakdown quotes;

    TableViewCell* cellForRowAtIndexPath(int row) override;
};

#pragma once

#include "names/NameList.h"

/** A row of the list of authors. */
class AuthorTableViewCell : public TableViewCell {
    Q_OBJECT

public:
    using TableViewCell::TableViewCell;

    Label* const AuthorLabel = addLabel();
    Label* const CountLabel = addLabel();
};

/** A row of the list of sources. */
class SourceTableViewCell : public TableViewCell {
    Q_OBJECT

public:
    using TableViewCell::TableViewCell;

    Label* const SourceLabel = addLabel();
    Label* const CountLabel = addLabel();
};

/** A row of the list of topics. */
class TopicTableViewCell : public TableViewCell {
    Q_OBJECT

public:
    using TableViewCell::TableViewCell;

    Label* const TopicLabel = addLabel();
    Label* const CountLabel = addLabel();
};

/** Every author of the quotes, with the number of each one's quotes. */
class AuthorTableViewController : public TableViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")

public:
    explicit AuthorTableViewController(AppDelegate& application);

    NameList list;
    std::int64_t& NumberOfAuthors = list.numberOfQuotes;
    QStringList& AuthorList = list.names;
    QStringList& FilteredAuthorList = list.filteredNames;

    TableViewCell* cellForRowAtIndexPath(int row) override;
    Q_INVOKABLE void unwindToAuthorTableViewWithSegue(Segue* segue);
};

/** Every source of the quotes, with the number of each one's quotes. */
class SourceTableViewController : public TableViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")

public:
    explicit SourceTableViewController(AppDelegate& application);

    NameList list;
    std::int64_t& NumberOfSources = list.numberOfQuotes;
    QStringList& SourceList = list.names;
    QStringList& FilteredSourceList = list.filteredNames;

    TableViewCell* cellForRowAtIndexPath(int row) override;
    Q_INVOKABLE void unwindToSourceTableViewWithSegue(Segue* segue);
};

/** Every topic of the quotes, with the number of each one's quotes. */
class TopicTableViewController : public TableViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")

public:
    explicit TopicTableViewController(AppDelegate& application);

    NameList list;
    std::int64_t& NumberOfTopics = list.numberOfQuotes;
    QStringList& TopicList = list.names;
    QStringList& FilteredTopicList = list.filteredNames;

    TableViewCell* cellForRowAtIndexPath(int row) override;
    Q_INVOKABLE void unwindToTopicTableViewWithSegue(Segue* segue);
};

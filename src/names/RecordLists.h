#pragma once

#include "names/NameRecordList.h"

/** A row of the list of author names. */
class NewAuthorTableViewCell : public TableViewCell {
    Q_OBJECT

public:
    using TableViewCell::TableViewCell;

    Label* const NameLabel = addLabel();
};

/** A row of the list of source names. */
class NewSourceTableViewCell : public TableViewCell {
    Q_OBJECT

public:
    using TableViewCell::TableViewCell;

    Label* const NameLabel = addLabel();
};

/** The author names that the pickers offer. */
class NewAuthorTableViewController : public TableViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")

public:
    explicit NewAuthorTableViewController(AppDelegate& application);

    NameRecordList<Authors> list;
    std::vector<Authors*>& AuthorList = list.records;
    QStringList& NewAuthorsList = list.namesOfQuotes;
    ManagedObjectContext*& managedObjectContext = list.managedObjectContext;

    TableViewCell* cellForRowAtIndexPath(int row) override;
    Q_INVOKABLE void unwindToAuthorListWithSegue(Segue* segue);
};

/** The source names that the pickers offer. */
class NewSourceTableViewController : public TableViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")

public:
    explicit NewSourceTableViewController(AppDelegate& application);

    NameRecordList<Sources> list;
    std::vector<Sources*>& SourceList = list.records;
    QStringList& SourcesList = list.namesOfQuotes;
    QStringList& SourceStringList = list.presentNames;
    ManagedObjectContext*& managedObjectContext = list.managedObjectContext;

    void viewWillDisappear() override;
    TableViewCell* cellForRowAtIndexPath(int row) override;
    QString titleForHeaderInSection(int section) const override;
    Q_INVOKABLE void unwindToSourceListWithSegue(Segue* segue);
};

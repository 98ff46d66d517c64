#pragma once

#include "toolkit/TableView.h"
#include "toolkit/ViewController.h"

#include <vector>

/** A screen that is one table; it is the table's data source and delegate. */
class TableViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")
    Q_PROPERTY(TableView* tableView READ tableView CONSTANT)

public:
    TableViewController();

    TableView* tableView() { return &m_tableView; }
    const TableView& tableView() const { return m_tableView; }

    /** The segue that follows the choice of a row; empty where none does. */
    QString rowSegue;
    bool clearsSelectionOnViewWillAppear = true;

    void viewWillAppear() override;

    virtual int numberOfSectionsInTableView() const { return 1; }
    virtual int numberOfRowsInSection(int section) const = 0;
    virtual TableViewCell* cellForRowAtIndexPath(int row) = 0;
    virtual double heightForRowAtIndexPath(int row) const; ///< points; negative: as its content
    virtual QString titleForHeaderInSection(int section) const;
    virtual void willDisplayHeaderView(Label& header, int section) const;
    virtual void didSelectRowAtIndexPath(int row);
    virtual bool canEditRowAtIndexPath(int row) const;
    virtual std::vector<ContextualAction>
    trailingSwipeActionsConfigurationForRowAtIndexPath(int row);
    virtual void commitEditingStyle(EditingStyle style, int row);

private:
    TableView m_tableView;
};

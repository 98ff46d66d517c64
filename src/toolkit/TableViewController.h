#pragma once

#include "toolkit/TableView.h"
#include "toolkit/ViewController.h"

#include <vector>

/** A screen that is one table, which it fills itself or has a delegate fill that it holds. */
class TableViewController : public ViewController, public TableViewDelegate {
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

    /** What answers for the table in the place of each method that the screen does not have. */
    void setDelegate(TableViewDelegate& delegate) { m_delegate = &delegate; }

    int numberOfRowsInSection(int section) const override;
    TableViewCell* cellForRowAtIndexPath(int row) override;
    double heightForRowAtIndexPath(int row) const override;
    QString titleForHeaderInSection(int section) const override;
    Label* viewForHeaderInSection(int section) override;
    void willDisplayHeaderView(Label& header, int section) const override;
    void didSelectRowAtIndexPath(int row) override;
    bool canEditRowAtIndexPath(int row) const override;
    std::vector<ContextualAction>
    trailingSwipeActionsConfigurationForRowAtIndexPath(int row) override;
    void commitEditingStyle(EditingStyle style, int row) override;

private:
    TableViewDelegate m_emptyTable;
    TableViewDelegate* m_delegate = &m_emptyTable;
    TableView m_tableView;
};

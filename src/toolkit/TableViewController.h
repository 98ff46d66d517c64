#pragma once

#include "toolkit/TableView.h"
#include "toolkit/ViewController.h"

#include <vector>

/** What table screens of one shape have in common: a value that each of them holds, and that
 * answers in the place of each method that the screen does not have. */
class SharedTableScreen : public TableViewDelegate {
public:
    virtual void viewDidLoad() {}
    virtual void viewWillAppear() {}
    virtual void viewWillDisappear() {}
    virtual void prepareForSegue(Segue& /*segue*/) {}
};

/** A screen that is one table, which it fills itself or shares the filling of. */
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

    void setShared(SharedTableScreen& shared) { m_shared = &shared; }

    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewWillDisappear() override;
    void prepareForSegue(Segue& segue, QObject* sender) override;

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
    SharedTableScreen m_nothingShared;
    SharedTableScreen* m_shared = &m_nothingShared;
    TableView m_tableView;
};

#pragma once

#include "app/AppDelegate.h"
#include "store/FetchedResultsController.h"
#include "toolkit/TableViewController.h"

#include <memory>
#include <vector>

/** A row of the list of topic names. */
class TapicTableViewCell : public TableViewCell {
    Q_OBJECT

public:
    using TableViewCell::TableViewCell;

    Label* const TopicLabel = addLabel();
};

/** The topic names that the pickers offer. */
class TopicTableTableViewController : public TableViewController,
                                      public FetchedResultsControllerDelegate {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")

public:
    explicit TopicTableTableViewController(AppDelegate& application);

    std::vector<Topics*> TopicList;
    ManagedObjectContext* managedObjectContext = nullptr;
    std::unique_ptr<FetchedResultsController<Topics>> _fetchedResultsController;

    void viewDidLoad() override;
    void viewWillAppear() override;
    Q_INVOKABLE void unwindToTopicListWithSegue(Segue* segue);

    int numberOfRowsInSection(int section) const override;
    double heightForRowAtIndexPath(int row) const override;
    QString titleForHeaderInSection(int section) const override;
    Label* viewForHeaderInSection(int section) override;
    void willDisplayHeaderView(Label& header, int section) const override;
    TableViewCell* cellForRowAtIndexPath(int row) override;
    void didSelectRowAtIndexPath(int row) override;
    bool canEditRowAtIndexPath(int row) const override;
    std::vector<ContextualAction>
    trailingSwipeActionsConfigurationForRowAtIndexPath(int row) override;
    void commitEditingStyle(EditingStyle style, int row) override;

    void controllerWillChangeContent() override;
    void didChangeObject(std::optional<int> row, FetchedResultsChangeType type,
                         std::optional<int> newRow) override;
    void controllerDidChangeContent() override;

private:
    void load();
    FetchedResultsController<Topics>& fetchedResultsController();

    AppDelegate& m_application;
};

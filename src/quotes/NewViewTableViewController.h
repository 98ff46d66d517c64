#pragma once

#include "app/AppDelegate.h"
#include "store/Records.h"
#include "toolkit/TableViewController.h"

#include <vector>

/** All quotes in the order of their topics, to read. */
class NewViewTableViewController : public TableViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")

public:
    explicit NewViewTableViewController(AppDelegate& application);

    std::vector<Event*> unfilteredEvent;

    void viewDidLoad() override;
    int numberOfRowsInSection(int section) const override;
    TableViewCell* cellForRowAtIndexPath(int row) override;
    bool canEditRowAtIndexPath(int row) const override;
    void didSelectRowAtIndexPath(int row) override;

private:
    const Event& quoteAt(int row) const;

    AppDelegate& m_application;
};

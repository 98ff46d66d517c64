#pragma once

#include "app/AppDelegate.h"
#include "store/Records.h"
#include "toolkit/SegmentedControl.h"
#include "toolkit/TableViewController.h"

#include <optional>
#include <vector>

/** The list of all quotes, sorted by topic, author or source, and searched by these or the text. */
class MasterViewController : public TableViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")

public:
    explicit MasterViewController(AppDelegate& application);

    ManagedObjectContext& context;
    SegmentedControl* const segment;
    SearchController* const searchController;
    std::vector<Event*> QuoteList;
    std::vector<Event*> FilteredQuoteList;
    std::optional<bool> SortAsc;

    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewWillDisappear() override;
    void prepareForSegue(Segue& segue, QObject* sender) override;

    void SortButtonTapped();
    void segmentedControlActionWithSender(SegmentedControl& sender);
    void updateSearchResultsForSearchController(SearchController& controller);
    Q_INVOKABLE void unwindToMainList(Segue* segue);
    Q_INVOKABLE void unwindToMenu(Segue* segue);

    int numberOfRowsInSection(int section) const override;
    double heightForRowAtIndexPath(int row) const override;
    QString titleForHeaderInSection(int section) const override;
    void willDisplayHeaderView(Label& header, int section) const override;
    TableViewCell* cellForRowAtIndexPath(int row) override;
    void didSelectRowAtIndexPath(int row) override;
    bool canEditRowAtIndexPath(int row) const override;
    std::vector<ContextualAction>
    trailingSwipeActionsConfigurationForRowAtIndexPath(int row) override;
    void commitEditingStyle(EditingStyle style, int row) override;

private:
    enum Segment { Topic, Author, Source, Quote };

    void refresh();
    /** While nothing else is to be done. */
    void prepareSearchOfQuotes();
    void deleteQuote(int row);
    /** A refresh brings back the quotes of the whole list, not those of a search. */
    void putBackInSearch(Event& quote, int row);
    bool isSearchTextEmpty() const;
    std::vector<Event*>& shownList();
    Event& quoteAt(int row);

    AppDelegate& m_application;
};

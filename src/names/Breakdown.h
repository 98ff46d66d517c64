#pragma once

#include "app/AppDelegate.h"
#include "store/Records.h"
#include "toolkit/SegmentedControl.h"
#include "toolkit/TableViewController.h"

#include <array>
#include <optional>
#include <vector>

/** What tells one breakdown of the quotes from the others. */
struct BreakdownKind {
    /** The field whose value the quotes of a group share, and the shared values that name the
     * group: the first to this screen, all to those that it leads to. */
    TextKey<Event> field;
    std::vector<QString SelectionValues::*> group;
    /** By segment: the field that is searched and sorted by first; the other one sorts next. */
    std::array<TextKey<Event>, 2> segmentFields;
    QStringList segmentTitles;
    QString searchPlaceholder;
    QString countSuffix;
    QString searchCountSuffix;
    QString callingScreen;
    /** What a refresh before the screen has loaded does: sorts descending, or not at all. */
    bool sortsWhenUnset = false;
    bool buttonsAreSymbols = false;
};

/** The quotes of one author, source or topic, sorted and searched by the two other fields: what the
 * three breakdowns have in common. */
class Breakdown : public SharedTableScreen {
public:
    Breakdown(TableViewController& screen, AppDelegate& application, BreakdownKind kind);

    BarButtonItem* const SortButton;
    BarButtonItem* const PrintButton;
    SearchController* const searchController;
    ManagedObjectContext& context;
    SegmentedControl* const segment;
    std::vector<Event*> QuoteList;
    std::vector<Event*> FilteredQuoteList;
    std::optional<bool> SortAsc;

    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewWillDisappear() override { searchController->dismiss(); }
    void prepareForSegue(Segue& segue) override;
    void refresh();
    void SortData();
    void updateSearchResultsForSearchController(SearchController& controller);

    /** Shows a quote in a row. What the quote does not have stays as the row showed it before. */
    void show(int row, TableViewCell& cell, Label& topic, Label& source, Label& author);

    int numberOfRowsInSection(int section) const override;
    QString titleForHeaderInSection(int section) const override;
    void willDisplayHeaderView(Label& header, int section) const override;
    void didSelectRowAtIndexPath(int row) override;

private:
    bool isSearching() const;
    const std::vector<Event*>& shownList() const;
    Event& quoteAt(int row) const;
    QString group() const;

    TableViewController& m_screen;
    AppDelegate& m_application;
    BreakdownKind m_kind;
    std::optional<QString> m_group; ///< from the loading on
};

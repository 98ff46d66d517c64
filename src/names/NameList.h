#pragma once

#include "app/AppDelegate.h"
#include "store/Records.h"
#include "toolkit/TableViewController.h"

#include <cstdint>
#include <optional>
#include <vector>

/** What tells one list of the names in quotes from the others. */
struct NameListKind {
    TextKey<Event> field;
    QString searchLabel;
    QString searchPlaceholder;
    QString countSuffix;
    /** Which shared values the choice of a name sets. */
    std::vector<QString SelectionValues::*> chosen;
};

/** The distinct values of one field of the quotes, sorted and searched, each with the number of its
 * quotes: what the lists of authors, sources and topics have in common. */
class NameList : public SharedTableScreen {
public:
    NameList(TableViewController& screen, AppDelegate& application, NameListKind kind);

    BarButtonItem* const SortButton;
    SearchController* const searchController;
    std::vector<Event*> QuoteList;
    std::int64_t numberOfQuotes = 0; ///< of the last load
    QStringList names;
    QStringList filteredNames;
    std::optional<bool> SortAsc;

    void viewDidLoad() override;
    void viewWillAppear() override { load(); }
    void viewWillDisappear() override { searchController->dismiss(); }
    /** Adds the names that are new. Those whose last quote has gone stay for the screen's life. */
    void load();
    void SortData();
    /** The way out for the first screen of a stack. */
    void UnwindSegue();
    void updateSearchResultsForSearchController(SearchController& controller);

    /** Shows a name and the number of its quotes in a row. */
    void show(int row, TableViewCell& cell, Label& nameLabel, Label& countLabel);

    int numberOfRowsInSection(int section) const override;
    QString titleForHeaderInSection(int section) const override;
    void willDisplayHeaderView(Label& header, int section) const override;
    void didSelectRowAtIndexPath(int row) override;

private:
    const QStringList& shownNames() const;
    const QString& nameAt(int row) const;
    std::int16_t quoteCount(const QString& name) const;

    TableViewController& m_screen;
    AppDelegate& m_application;
    NameListKind m_kind;
};

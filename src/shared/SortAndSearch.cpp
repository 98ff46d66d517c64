#include "SortAndSearch.h"

#include "foundation/FatalError.h"

void installSearch(TableViewController& screen, SearchController& search,
                   const QString& placeholder, std::function<void(SearchController&)> update) {
    search.searchResultsUpdater = std::move(update);
    search.hidesNavigationBarDuringPresentation = false;
    search.obscuresBackgroundDuringPresentation = false;
    search.searchBar()->setPlaceholder(placeholder);
    screen.tableView()->setSearchController(&search);
}

void showSymbol(BarButtonItem& item, const QString& symbol, const SystemVersion& version) {
    if (version >= SystemVersion{13, 0})
        item.setImage(symbol);
}

void reverse(std::optional<bool>& ascending) {
    if (!ascending)
        fatalError(QStringLiteral("A list was sorted before it was loaded"));
    ascending = !*ascending;
}

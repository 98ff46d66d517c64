#include "NameList.h"

#include "app/FetchOrLog.h"
#include "foundation/FatalError.h"
#include "shared/CommonLook.h"
#include "shared/Screens.h"
#include "shared/SortAndSearch.h"
#include "store/DistinctNames.h"
#include "store/ListSearch.h"
#include "store/TextOrder.h"

#include <QLoggingCategory>
#include <QSet>

#include <algorithm>
#include <limits>
#include <utility>

Q_LOGGING_CATEGORY(lcNames, "lantern.names")

namespace {

void sortNames(QStringList& names, bool ascending) {
    const auto precedes = [](const QString& left, const QString& right) {
        return compareByCodePoint(left, right) < 0;
    };
    // The names of a fetch are in order already.
    if (!std::is_sorted(names.begin(), names.end(), precedes))
        std::sort(names.begin(), names.end(), precedes);
    if (!ascending)
        std::reverse(names.begin(), names.end());
}

} // namespace

NameList::NameList(TableViewController& screen, AppDelegate& application, NameListKind kind)
    : SortButton(new BarButtonItem(&screen, QStringLiteral("Sort"), [this] { SortData(); }))
    , searchController(new SearchController(&screen, kind.searchLabel))
    , m_screen(screen)
    , m_application(application)
    , m_kind(std::move(kind)) {
    screen.setShared(*this);
}

void NameList::viewDidLoad() {
    SortAsc = true;
    installSearch(m_screen, *searchController, m_kind.searchPlaceholder,
                  [this](auto& controller) { updateSearchResultsForSearchController(controller); });
    load();
    showSymbol(*SortButton, QStringLiteral("arrow.up.arrow.down"),
               m_application.services.environment.systemVersion);
    load();
}

void NameList::load() {
    auto request = Event::fetchRequest();
    request.returnsObjectsAsFaults = false;
    request.sortDescriptors = {{m_kind.field, true}};
    QuoteList = fetchOrLog(m_application.persistentContainer().viewContext(), request, lcNames);
    numberOfQuotes = std::int64_t(QuoteList.size());

    QStringList current = distinctNames(QuoteList, m_kind.field);
    const QSet<QString> isCurrent(current.begin(), current.end());
    std::copy_if(names.begin(), names.end(), std::back_inserter(current),
                 [&](const QString& name) { return !isCurrent.contains(name); });
    sortNames(current, SortAsc.value_or(false));
    names = std::move(current);
    m_screen.tableView()->reloadData();
}

void NameList::SortData() {
    reverse(SortAsc);
    if (searchController->searchBar()->text() == QString()) {
        load();
        return;
    }
    sortNames(filteredNames, *SortAsc);
    m_screen.tableView()->reloadData();
}

void NameList::UnwindSegue() {
    m_screen.performSegue(unwinds::toMainMenu, &m_screen);
}

void NameList::updateSearchResultsForSearchController(SearchController& controller) {
    const auto text = controller.searchBar()->text();
    if (!text)
        return;
    filteredNames = text->isEmpty() ? names : matching(names, *text);
    m_screen.tableView()->reloadData();
}

void NameList::show(int row, TableViewCell& cell, Label& nameLabel, Label& countLabel) {
    styleRow(cell);
    const QString& name = nameAt(row);
    nameLabel.setText(name);
    countLabel.setText(QString::number(quoteCount(name)));
}

int NameList::numberOfRowsInSection(int /*section*/) const {
    return int(shownNames().size());
}

QString NameList::titleForHeaderInSection(int /*section*/) const {
    return QString::number(shownNames().size()) + m_kind.countSuffix;
}

void NameList::willDisplayHeaderView(Label& header, int /*section*/) const {
    header.setCentered(true);
}

void NameList::didSelectRowAtIndexPath(int row) {
    for (const auto value : m_kind.chosen)
        m_application.services.selection.*value = nameAt(row);
}

const QStringList& NameList::shownNames() const {
    const auto text = searchController->searchBar()->text();
    return text && text->isEmpty() ? names : filteredNames;
}

const QString& NameList::nameAt(int row) const {
    const QStringList& shown = shownNames();
    if (row < 0 || row >= shown.size())
        fatalError(QStringLiteral("The list of names has no row %1").arg(row));
    return shown.at(row);
}

std::int16_t NameList::quoteCount(const QString& name) const {
    auto request = Event::fetchRequest();
    request.predicate = m_kind.field == name;
    const auto count = m_application.persistentContainer().viewContext().count(request);
    if (!std::in_range<std::int16_t>(count))
        fatalError(QStringLiteral("More quotes than can be counted have the name \"%1\"")
                       .arg(name.left(200)));
    return std::int16_t(count);
}

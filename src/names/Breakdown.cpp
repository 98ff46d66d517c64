#include "Breakdown.h"

#include "app/FetchOrLog.h"
#include "foundation/FatalError.h"
#include "quotes/ChosenQuote.h"
#include "quotes/DetailViewController.h"
#include "shared/CommonLook.h"
#include "shared/Screens.h"
#include "shared/SortAndSearch.h"
#include "store/ListSearch.h"

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcNames)

namespace {

void setIfPresent(Label& label, const std::optional<QString>& text) {
    if (text)
        label.setText(*text);
}

} // namespace

Breakdown::Breakdown(TableViewController& screen, AppDelegate& application, BreakdownKind kind)
    : SortButton(new BarButtonItem(&screen, QStringLiteral("Sort"), [this] { SortData(); }))
    , PrintButton(
          new BarButtonItem(&screen, QStringLiteral("Print"),
                            [&screen] { screen.performSegue(scenes::printQuotes, &screen); }))
    , searchController(new SearchController(&screen, QStringLiteral("Search quotes")))
    , context(application.persistentContainer().viewContext())
    , segment(new SegmentedControl(&screen, kind.segmentTitles))
    , m_screen(screen)
    , m_application(application)
    , m_kind(std::move(kind)) {
    screen.setShared(*this);
}

void Breakdown::viewDidLoad() {
    m_group = group();
    SortAsc = true;
    styleTitleSegments(*segment);
    segment->setSelectedIndex(0);
    m_screen.navigationItem()->setTitleView(segment);
    m_screen.navigationItem()->setPrompt(group());
    installSearch(m_screen, *searchController, m_kind.searchPlaceholder,
                  [this](auto& controller) { updateSearchResultsForSearchController(controller); });
    refresh();
    if (m_kind.buttonsAreSymbols) {
        const SystemVersion& version = m_application.services.environment.systemVersion;
        showSymbol(*PrintButton, QStringLiteral("printer"), version);
        showSymbol(*SortButton, QStringLiteral("arrow.up.arrow.down"), version);
    }
}

// The lists that a quote's detail leads to choose other groups; this one stays what it was.
void Breakdown::viewWillAppear() {
    for (const auto value : m_kind.group)
        m_application.services.selection.*value = group();
}

void Breakdown::refresh() {
    auto request = Event::fetchRequest();
    request.returnsObjectsAsFaults = false;
    const auto index = std::size_t(segment->selectedIndex());
    if (index < m_kind.segmentFields.size() && (SortAsc || m_kind.sortsWhenUnset)) {
        const bool ascending = SortAsc.value_or(false);
        request.sortDescriptors = {{m_kind.segmentFields.at(index), ascending},
                                   {m_kind.segmentFields.at(1 - index), ascending}};
    }
    request.predicate = m_kind.field == group();
    QuoteList = fetchOrLog(context, request, lcNames);
    m_screen.tableView()->reloadData();
}

void Breakdown::SortData() {
    reverse(SortAsc);
    refresh();
}

void Breakdown::updateSearchResultsForSearchController(SearchController& controller) {
    const auto text = controller.searchBar()->text();
    if (!text)
        return;
    const auto index = std::size_t(segment->selectedIndex());
    if (text->isEmpty())
        FilteredQuoteList = QuoteList;
    else if (index < m_kind.segmentFields.size())
        FilteredQuoteList = matching(QuoteList, m_kind.segmentFields.at(index), *text);
    m_screen.tableView()->reloadData();
}

void Breakdown::prepareForSegue(Segue& segue) {
    SelectionValues& selection = m_application.services.selection;
    selection.callingScreen = m_kind.callingScreen;
    const int row = m_screen.tableView()->selectedRow();
    if (row < 0)
        return;
    Event& quote = quoteAt(row);
    auto* detail = qobject_cast<DetailViewController*>(&segue.destination());
    if (!detail)
        fatalError(QStringLiteral("A chosen quote leads to another screen than its detail"));
    detail->detailItem = &quote;
    selection.selectedTopic = required(quote, quote.category(), "topic");
}

void Breakdown::show(int row, TableViewCell& cell, Label& topic, Label& source, Label& author) {
    styleRow(cell);
    const Event& quote = quoteAt(row);
    setIfPresent(topic, quote.category());
    setIfPresent(source, quote.source());
    setIfPresent(author, quote.author());
}

int Breakdown::numberOfRowsInSection(int /*section*/) const {
    return int(shownList().size());
}

QString Breakdown::titleForHeaderInSection(int /*section*/) const {
    return QString::number(shownList().size()) +
           (isSearching() ? m_kind.searchCountSuffix : m_kind.countSuffix);
}

void Breakdown::willDisplayHeaderView(Label& header, int /*section*/) const {
    header.setCentered(true);
}

void Breakdown::didSelectRowAtIndexPath(int row) {
    chooseQuote(quoteAt(row), m_application.services.selection, formatUtc);
}

bool Breakdown::isSearching() const {
    return !searchController->searchBar()->text().value_or(QString()).isEmpty();
}

const std::vector<Event*>& Breakdown::shownList() const {
    return isSearching() ? FilteredQuoteList : QuoteList;
}

Event& Breakdown::quoteAt(int row) const {
    const auto& shown = shownList();
    if (row < 0 || std::size_t(row) >= shown.size())
        fatalError(QStringLiteral("The list of quotes has no row %1").arg(row));
    return *shown[std::size_t(row)];
}

QString Breakdown::group() const {
    return m_group.value_or(m_application.services.selection.*m_kind.group.front());
}

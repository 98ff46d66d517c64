#include "MasterViewController.h"

#include "app/FetchOrLog.h"
#include "app/Undo.h"
#include "foundation/FatalError.h"
#include "quotes/MasterTableViewCell.h"
#include "shared/CommonLook.h"
#include "shared/Screens.h"
#include "shared/SortAndSearch.h"
#include "store/ListSearch.h"

#include <QLoggingCategory>
#include <QPointer>

#include <algorithm>
#include <array>

Q_LOGGING_CATEGORY(lcQuotes, "lantern.quotes")

namespace {

const std::array searchKeys{Event::Keys::category, Event::Keys::author, Event::Keys::source,
                            Event::Keys::quote};

std::vector<SortDescriptor<Event>> sortDescriptors(int segment, bool ascending) {
    const SortDescriptor<Event> category{Event::Keys::category, ascending};
    const SortDescriptor<Event> author{Event::Keys::author, ascending};
    const SortDescriptor<Event> source{Event::Keys::source, ascending};
    switch (segment) {
    case 0:
        return {category, author, source};
    case 1:
        return {author, category, source};
    case 2:
        return {source, category, author};
    default:
        return {};
    }
}

QString orEmpty(const std::optional<QString>& text) {
    return text.value_or(QLatin1String(""));
}

} // namespace

MasterViewController::MasterViewController(AppDelegate& application)
    : context(application.persistentContainer().viewContext())
    , segment(new SegmentedControl(this, {QStringLiteral("Topic"), QStringLiteral("Author"),
                                          QStringLiteral("Source"), QStringLiteral("Quote")}))
    , searchController(new SearchController(this, QStringLiteral("Search quotes")))
    , m_application(application) {
    connect(segment, &SegmentedControl::valueChanged, this,
            [this] { segmentedControlActionWithSender(*segment); });
    connect(&application.services.notes, &Notes::undone, this, &MasterViewController::refresh);
}

void MasterViewController::viewDidLoad() {
    m_application.services.selection.callingScreen = callers::quotes;
    SortAsc = true;
    styleTitleSegments(*segment);
    segment->setSelectedIndex(Topic);
    navigationItem()->setTitleView(segment);
    installSearch(*this, *searchController, QStringLiteral("Sorted/Search by Topic"),
                  [this](auto& controller) { updateSearchResultsForSearchController(controller); });
    refresh();
}

void MasterViewController::viewWillAppear() {
    TableViewController::viewWillAppear();
    refresh();
}

void MasterViewController::viewWillDisappear() {
    searchController->dismiss();
}

void MasterViewController::prepareForSegue(Segue& /*segue*/, QObject* /*sender*/) {
    m_application.services.selection.callingScreen = callers::chosenQuote;
}

void MasterViewController::SortButtonTapped() {
    reverse(SortAsc);
    refresh();
}

void MasterViewController::segmentedControlActionWithSender(SegmentedControl& sender) {
    static const std::array placeholders{
        QStringLiteral("Sorted/Search by Topic"), QStringLiteral("Sorted/Search by Author"),
        QStringLiteral("Sorted/Search by Source"), QStringLiteral("Search by Quote")};
    const auto index = std::size_t(sender.selectedIndex());
    if (index < placeholders.size())
        searchController->searchBar()->setPlaceholder(placeholders.at(index));
    refresh();
    prepareSearchOfQuotes();
}

void MasterViewController::updateSearchResultsForSearchController(SearchController& controller) {
    const auto text = controller.searchBar()->text();
    if (!text)
        return;
    const auto index = std::size_t(segment->selectedIndex());
    // An earlier result stays as it is through refreshes; only a change of the text renews it.
    if (text->isEmpty())
        FilteredQuoteList = QuoteList;
    else if (index < searchKeys.size())
        FilteredQuoteList = matching(QuoteList, searchKeys.at(index), *text);
    tableView()->reloadData();
}

void MasterViewController::unwindToMainList(Segue* /*segue*/) {
    refresh();
}

void MasterViewController::unwindToMenu(Segue* /*segue*/) {
    tableView()->reloadData();
}

int MasterViewController::numberOfRowsInSection(int /*section*/) const {
    const auto text = searchController->searchBar()->text();
    return int(text && text->isEmpty() ? QuoteList.size() : FilteredQuoteList.size());
}

double MasterViewController::heightForRowAtIndexPath(int /*row*/) const {
    return 60;
}

QString MasterViewController::titleForHeaderInSection(int /*section*/) const {
    const auto text = searchController->searchBar()->text();
    if (text && text->isEmpty())
        return QStringLiteral("# of Quotes = %1").arg(QuoteList.size());
    return QStringLiteral("# of Quotes in your search = %1").arg(FilteredQuoteList.size());
}

void MasterViewController::willDisplayHeaderView(Label& header, int /*section*/) const {
    header.setCentered(true);
    header.setBoldSystemFont(13);
    header.setTextColor(red);
}

TableViewCell* MasterViewController::cellForRowAtIndexPath(int row) {
    auto* cell = tableView()->dequeueReusableCell<MasterTableViewCell>(QStringLiteral("Cell"));
    styleRow(*cell);
    const Event& quote = quoteAt(row);
    const QString category = orEmpty(quote.category());
    const QString author = orEmpty(quote.author());
    const QString source = orEmpty(quote.source());
    switch (segment->selectedIndex()) {
    case Quote:
        // Without a search the rows keep what they showed before.
        if (isSearchTextEmpty())
            break;
        [[fallthrough]];
    case Topic:
        cell->TextLabel->setText(QStringLiteral("Topic: "), category);
        cell->DetailTextLabel->setText(QStringLiteral("Source: ") + source +
                                       QStringLiteral("  Author:  ") + author);
        break;
    case Author:
        cell->TextLabel->setText(QStringLiteral("Author: "), author);
        cell->DetailTextLabel->setText(QStringLiteral("Topic: ") + category +
                                       QStringLiteral(" Source: ") + source);
        break;
    case Source:
        cell->TextLabel->setText(QStringLiteral("Source: "), source);
        cell->DetailTextLabel->setText(QStringLiteral("Topic: ") + category +
                                       QStringLiteral(" Author: ") + author);
        break;
    default:
        break;
    }
    return cell;
}

void MasterViewController::didSelectRowAtIndexPath(int row) {
    const Event& quote = quoteAt(row);
    SelectionValues& selection = m_application.services.selection;
    selection.selectedAuthor = orEmpty(quote.author());
    selection.selectedTopic = orEmpty(quote.category());
    selection.selectedSource = orEmpty(quote.source());
    selection.selectedDate = quote.timestamp();
    selection.selectedQuoteText = orEmpty(quote.quote());
    selection.searchText = orEmpty(searchController->searchBar()->text());
}

bool MasterViewController::canEditRowAtIndexPath(int /*row*/) const {
    return true;
}

std::vector<ContextualAction>
MasterViewController::trailingSwipeActionsConfigurationForRowAtIndexPath(int row) {
    return {{QStringLiteral("delete"), true, [this, row] { deleteQuote(row); }}};
}

void MasterViewController::commitEditingStyle(EditingStyle style, int row) {
    if (style == EditingStyle::Delete)
        tableView()->deleteRow(row);
}

void MasterViewController::refresh() {
    auto request = Event::fetchRequest();
    request.returnsObjectsAsFaults = false;
    if (SortAsc)
        request.sortDescriptors = sortDescriptors(segment->selectedIndex(), *SortAsc);
    QuoteList = fetchOrLog(m_application.persistentContainer().viewContext(), request, lcQuotes);
    tableView()->reloadData();
}

void MasterViewController::deleteQuote(int row) {
    Event& quote = quoteAt(row);
    context.deleteObject(quote);
    m_application.saveContext();
    auto& shown = shownList();
    shown.erase(shown.begin() + row);
    tableView()->deleteRow(row);
    const auto search = searchController->searchBar()->text();
    offerUndo(m_application, quote, QStringLiteral("Quote"), quote.quote(),
              [screen = QPointer(this), &quote, row, search] {
                  if (screen && screen->searchController->searchBar()->text() == search)
                      screen->putBackInSearch(quote, row);
              });
}

// Who chooses this segment is about to search; who does not is spared the memory.
void MasterViewController::prepareSearchOfQuotes() {
    m_application.services.mainQueue.after(0, [screen = QPointer(this)] {
        if (screen && screen->segment->selectedIndex() == Quote && prepareSearch(screen->QuoteList))
            screen->prepareSearchOfQuotes();
    });
}

void MasterViewController::putBackInSearch(Event& quote, int row) {
    auto& found = FilteredQuoteList;
    if (isSearchTextEmpty() || std::ranges::find(found, &quote) != found.end())
        return;
    found.insert(found.begin() + std::min<std::ptrdiff_t>(row, std::ssize(found)), &quote);
}

bool MasterViewController::isSearchTextEmpty() const {
    return orEmpty(searchController->searchBar()->text()).isEmpty();
}

std::vector<Event*>& MasterViewController::shownList() {
    return isSearchTextEmpty() ? QuoteList : FilteredQuoteList;
}

Event& MasterViewController::quoteAt(int row) {
    auto& shown = shownList();
    if (row < 0 || std::size_t(row) >= shown.size())
        fatalError(QStringLiteral("The quote list has no row %1").arg(row));
    return *shown[std::size_t(row)];
}

#include "Breakdowns.h"

#include "shared/Screens.h"

TopicBreakdownTableViewController::TopicBreakdownTableViewController(AppDelegate& application)
    : quotes(*this, application,
             {.field = Event::Keys::category,
              .group = {&SelectionValues::selectedTopic},
              .segmentFields = {Event::Keys::author, Event::Keys::source},
              .segmentTitles = {QStringLiteral("Author"), QStringLiteral("Source")},
              .searchPlaceholder = QStringLiteral("Sort and Search by Author"),
              .countSuffix = QStringLiteral(" Topic(s)"),
              .searchCountSuffix = QStringLiteral(" Topic(s)"),
              .callingScreen = callers::topicBreakdown,
              .sortsWhenUnset = true}) {
    connect(quotes.segment, &SegmentedControl::valueChanged, this,
            [this] { segmentedControlActionWithSender(*quotes.segment); });
}

TableViewCell* TopicBreakdownTableViewController::cellForRowAtIndexPath(int row) {
    auto* cell =
        tableView()->dequeueReusableCell<TopicBreakdownTableViewCell>(QStringLiteral("Cell"));
    quotes.show(row, *cell, *cell->TopicLabel, *cell->SourceLabel, *cell->AuthorLabel);
    return cell;
}

double TopicBreakdownTableViewController::heightForRowAtIndexPath(int /*row*/) const {
    return 96;
}

void TopicBreakdownTableViewController::segmentedControlActionWithSender(SegmentedControl& sender) {
    const int index = sender.selectedIndex();
    if (index != 0 && index != 1)
        return;
    quotes.searchController->searchBar()->setPlaceholder(
        index == 0 ? QStringLiteral("Sort and Search by Author")
                   : QStringLiteral("Sort and Search by Source"));
    quotes.refresh();
}

SourceBreakdownTableViewController::SourceBreakdownTableViewController(AppDelegate& application)
    : quotes(*this, application,
             {.field = Event::Keys::source,
              .group = {&SelectionValues::chosenSourceName, &SelectionValues::selectedSource},
              .segmentFields = {Event::Keys::category, Event::Keys::author},
              .segmentTitles = {QStringLiteral("Topic"), QStringLiteral("Author")},
              .searchPlaceholder = QStringLiteral("Sort and Search by Topic"),
              .countSuffix = QStringLiteral(" Source(s): "),
              .searchCountSuffix = QStringLiteral(" Source(s)"),
              .callingScreen = callers::sourceBreakdown,
              .buttonsAreSymbols = true}) {}

TableViewCell* SourceBreakdownTableViewController::cellForRowAtIndexPath(int row) {
    auto* cell =
        tableView()->dequeueReusableCell<SourceBreakdownTableViewCell>(QStringLiteral("Cell"));
    quotes.show(row, *cell, *cell->TopicLabel, *cell->SourceLabel, *cell->AuthorLabel);
    return cell;
}

AuthorBreakdownTableViewController::AuthorBreakdownTableViewController(AppDelegate& application)
    : quotes(*this, application,
             {.field = Event::Keys::author,
              .group = {&SelectionValues::chosenAuthorName, &SelectionValues::selectedAuthor},
              .segmentFields = {Event::Keys::category, Event::Keys::source},
              .segmentTitles = {QStringLiteral("Topic"), QStringLiteral("Source")},
              .searchPlaceholder = QStringLiteral("Sort and Search by Topic"),
              .countSuffix = QStringLiteral(" Quote(s)"),
              .searchCountSuffix = QStringLiteral(" Quote(s)"),
              .callingScreen = callers::authorBreakdown,
              .buttonsAreSymbols = true}) {}

TableViewCell* AuthorBreakdownTableViewController::cellForRowAtIndexPath(int row) {
    auto* cell =
        tableView()->dequeueReusableCell<AuthorBreakdownTableViewCell>(QStringLiteral("Cell"));
    quotes.show(row, *cell, *cell->TopicLabel, *cell->SourceLabel, *cell->AuthorLabel);
    return cell;
}

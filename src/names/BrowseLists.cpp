#include "BrowseLists.h"

AuthorTableViewController::AuthorTableViewController(AppDelegate& application)
    : list(*this, application,
           {.field = Event::Keys::author,
            .searchLabel = QStringLiteral("Search authors"),
            .searchPlaceholder = QStringLiteral("Sort and Search by Author"),
            .countSuffix = QStringLiteral(" Author(s)"),
            .chosen = {&SelectionValues::chosenAuthorName, &SelectionValues::selectedAuthor}}) {}

TableViewCell* AuthorTableViewController::cellForRowAtIndexPath(int row) {
    auto* cell = tableView()->dequeueReusableCell<AuthorTableViewCell>(QStringLiteral("Cell"));
    list.show(row, *cell, *cell->AuthorLabel, *cell->CountLabel);
    return cell;
}

void AuthorTableViewController::unwindToAuthorTableViewWithSegue(Segue* /*segue*/) {
    tableView()->reloadData();
}

SourceTableViewController::SourceTableViewController(AppDelegate& application)
    : list(*this, application,
           {.field = Event::Keys::source,
            .searchLabel = QStringLiteral("Search sources"),
            .searchPlaceholder = QStringLiteral("Sort and Search by Source"),
            .countSuffix = QStringLiteral(" Source(s)"),
            .chosen = {&SelectionValues::chosenSourceName, &SelectionValues::selectedSource}}) {}

TableViewCell* SourceTableViewController::cellForRowAtIndexPath(int row) {
    auto* cell = tableView()->dequeueReusableCell<SourceTableViewCell>(QStringLiteral("Cell"));
    list.show(row, *cell, *cell->SourceLabel, *cell->CountLabel);
    return cell;
}

void SourceTableViewController::unwindToSourceTableViewWithSegue(Segue* /*segue*/) {
    tableView()->reloadData();
}

TopicTableViewController::TopicTableViewController(AppDelegate& application)
    : list(*this, application,
           {.field = Event::Keys::category,
            .searchLabel = QStringLiteral("Search topics"),
            .searchPlaceholder = QStringLiteral("Sort and Search by Topic"),
            .countSuffix = QStringLiteral(" Topic(s)"),
            .chosen = {&SelectionValues::selectedTopic}}) {}

TableViewCell* TopicTableViewController::cellForRowAtIndexPath(int row) {
    auto* cell = tableView()->dequeueReusableCell<TopicTableViewCell>(QStringLiteral("Cell"));
    list.show(row, *cell, *cell->TopicLabel, *cell->CountLabel);
    return cell;
}

void TopicTableViewController::unwindToTopicTableViewWithSegue(Segue* /*segue*/) {
    tableView()->reloadData();
}

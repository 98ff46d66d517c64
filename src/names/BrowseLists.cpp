#include "BrowseLists.h"

AuthorTableViewController::AuthorTableViewController(AppDelegate& application)
    : list(*this, application,
           {.field = Event::Keys::author,
            .searchLabel = QStringLiteral("Search authors"),
            .searchPlaceholder = QStringLiteral("Sort and Search by Author"),
            .countSuffix = QStringLiteral(" Author(s)"),
            .chosen = {&SelectionValues::chosenAuthorName, &SelectionValues::selectedAuthor}}) {}

void AuthorTableViewController::viewDidLoad() {
    list.viewDidLoad();
}

void AuthorTableViewController::viewWillAppear() {
    TableViewController::viewWillAppear();
    list.load();
}

void AuthorTableViewController::viewWillDisappear() {
    list.searchController->dismiss();
}

void AuthorTableViewController::UnwindSegue() {
    performSegue(QStringLiteral("unwindToMainMenu"), this);
}

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

void SourceTableViewController::viewDidLoad() {
    list.viewDidLoad();
}

void SourceTableViewController::viewWillAppear() {
    TableViewController::viewWillAppear();
    list.load();
}

void SourceTableViewController::viewWillDisappear() {
    list.searchController->dismiss();
}

void SourceTableViewController::UnwindSegue() {
    performSegue(QStringLiteral("unwindToMainMenu"), this);
}

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

void TopicTableViewController::viewDidLoad() {
    list.viewDidLoad();
}

void TopicTableViewController::viewWillAppear() {
    TableViewController::viewWillAppear();
    list.load();
}

void TopicTableViewController::viewWillDisappear() {
    list.searchController->dismiss();
}

void TopicTableViewController::UnwindSegue() {
    performSegue(QStringLiteral("unwindToMainMenu"), this);
}

TableViewCell* TopicTableViewController::cellForRowAtIndexPath(int row) {
    auto* cell = tableView()->dequeueReusableCell<TopicTableViewCell>(QStringLiteral("Cell"));
    list.show(row, *cell, *cell->TopicLabel, *cell->CountLabel);
    return cell;
}

void TopicTableViewController::unwindToTopicTableViewWithSegue(Segue* /*segue*/) {
    tableView()->reloadData();
}

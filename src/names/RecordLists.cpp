#include "RecordLists.h"

#include "shared/Screens.h"

NewAuthorTableViewController::NewAuthorTableViewController(AppDelegate& application)
    : list(*this, application, callers::authorNames, QStringLiteral("# Authors: = ")) {}

TableViewCell* NewAuthorTableViewController::cellForRowAtIndexPath(int row) {
    auto* cell = tableView()->dequeueReusableCell<NewAuthorTableViewCell>(QStringLiteral("Cell"));
    list.show(row, *cell, *cell->NameLabel);
    return cell;
}

void NewAuthorTableViewController::unwindToAuthorListWithSegue(Segue* /*segue*/) {
    list.load();
}

NewSourceTableViewController::NewSourceTableViewController(AppDelegate& application)
    : list(*this, application, callers::sourceNames, QStringLiteral("# Sources = ")) {}

void NewSourceTableViewController::viewWillDisappear() {
    SourceList.clear();
    SourceStringList.clear();
}

TableViewCell* NewSourceTableViewController::cellForRowAtIndexPath(int row) {
    auto* cell = tableView()->dequeueReusableCell<NewSourceTableViewCell>(QStringLiteral("Cell"));
    // While the screen slides away its rows are gone already.
    if (SourceList.empty())
        cell->NameLabel->setText({});
    else
        list.show(row, *cell, *cell->NameLabel);
    return cell;
}

QString NewSourceTableViewController::titleForHeaderInSection(int /*section*/) const {
    return QStringLiteral("# of Sources = %1").arg(SourceList.size());
}

void NewSourceTableViewController::unwindToSourceListWithSegue(Segue* /*segue*/) {
    list.load();
}

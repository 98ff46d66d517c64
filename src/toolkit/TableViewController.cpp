#include "TableViewController.h"

TableViewController::TableViewController()
    : m_tableView(*this) {}

void TableViewController::viewDidLoad() {
    m_shared->viewDidLoad();
}

void TableViewController::viewWillAppear() {
    if (clearsSelectionOnViewWillAppear)
        m_tableView.deselectRow();
    m_shared->viewWillAppear();
}

void TableViewController::viewWillDisappear() {
    m_shared->viewWillDisappear();
}

void TableViewController::prepareForSegue(Segue& segue, QObject* /*sender*/) {
    m_shared->prepareForSegue(segue);
}

int TableViewController::numberOfRowsInSection(int section) const {
    return m_shared->numberOfRowsInSection(section);
}

TableViewCell* TableViewController::cellForRowAtIndexPath(int row) {
    return m_shared->cellForRowAtIndexPath(row);
}

double TableViewController::heightForRowAtIndexPath(int row) const {
    return m_shared->heightForRowAtIndexPath(row);
}

QString TableViewController::titleForHeaderInSection(int section) const {
    return m_shared->titleForHeaderInSection(section);
}

Label* TableViewController::viewForHeaderInSection(int section) {
    return m_shared->viewForHeaderInSection(section);
}

void TableViewController::willDisplayHeaderView(Label& header, int section) const {
    m_shared->willDisplayHeaderView(header, section);
}

void TableViewController::didSelectRowAtIndexPath(int row) {
    m_shared->didSelectRowAtIndexPath(row);
}

bool TableViewController::canEditRowAtIndexPath(int row) const {
    return m_shared->canEditRowAtIndexPath(row);
}

std::vector<ContextualAction>
TableViewController::trailingSwipeActionsConfigurationForRowAtIndexPath(int row) {
    return m_shared->trailingSwipeActionsConfigurationForRowAtIndexPath(row);
}

void TableViewController::commitEditingStyle(EditingStyle style, int row) {
    m_shared->commitEditingStyle(style, row);
}

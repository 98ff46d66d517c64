#include "TableViewController.h"

TableViewController::TableViewController()
    : m_tableView(*this) {}

void TableViewController::viewWillAppear() {
    if (clearsSelectionOnViewWillAppear)
        m_tableView.deselectRow();
}

int TableViewController::numberOfRowsInSection(int section) const {
    return m_delegate->numberOfRowsInSection(section);
}

TableViewCell* TableViewController::cellForRowAtIndexPath(int row) {
    return m_delegate->cellForRowAtIndexPath(row);
}

double TableViewController::heightForRowAtIndexPath(int row) const {
    return m_delegate->heightForRowAtIndexPath(row);
}

QString TableViewController::titleForHeaderInSection(int section) const {
    return m_delegate->titleForHeaderInSection(section);
}

Label* TableViewController::viewForHeaderInSection(int section) {
    return m_delegate->viewForHeaderInSection(section);
}

void TableViewController::willDisplayHeaderView(Label& header, int section) const {
    m_delegate->willDisplayHeaderView(header, section);
}

void TableViewController::didSelectRowAtIndexPath(int row) {
    m_delegate->didSelectRowAtIndexPath(row);
}

bool TableViewController::canEditRowAtIndexPath(int row) const {
    return m_delegate->canEditRowAtIndexPath(row);
}

std::vector<ContextualAction>
TableViewController::trailingSwipeActionsConfigurationForRowAtIndexPath(int row) {
    return m_delegate->trailingSwipeActionsConfigurationForRowAtIndexPath(row);
}

void TableViewController::commitEditingStyle(EditingStyle style, int row) {
    m_delegate->commitEditingStyle(style, row);
}

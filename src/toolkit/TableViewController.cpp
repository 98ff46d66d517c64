#include "TableViewController.h"

TableViewController::TableViewController()
    : m_tableView(*this) {}

void TableViewController::viewWillAppear() {
    if (clearsSelectionOnViewWillAppear)
        m_tableView.deselectRow();
}

double TableViewController::heightForRowAtIndexPath(int /*row*/) const {
    return -1;
}

QString TableViewController::titleForHeaderInSection(int /*section*/) const {
    return {};
}

void TableViewController::willDisplayHeaderView(Label& /*header*/, int /*section*/) const {}

void TableViewController::didSelectRowAtIndexPath(int /*row*/) {}

bool TableViewController::canEditRowAtIndexPath(int /*row*/) const {
    return false;
}

std::vector<ContextualAction>
TableViewController::trailingSwipeActionsConfigurationForRowAtIndexPath(int /*row*/) {
    return {};
}

void TableViewController::commitEditingStyle(EditingStyle /*style*/, int /*row*/) {}

#include "TableView.h"

#include "toolkit/TableViewController.h"

#include <algorithm>
#include <ranges>
#include <utility>

TableViewCell::TableViewCell(QObject* parent, const QString& reuseIdentifier)
    : View(parent)
    , m_reuseIdentifier(reuseIdentifier) {}

Label* TableViewCell::addLabel() {
    auto* label = new Label(this);
    m_labels.append(label);
    return label;
}

int TableViewDelegate::numberOfRowsInSection(int /*section*/) const {
    return 0;
}

TableViewCell* TableViewDelegate::cellForRowAtIndexPath(int /*row*/) {
    return nullptr;
}

double TableViewDelegate::heightForRowAtIndexPath(int /*row*/) const {
    return -1;
}

QString TableViewDelegate::titleForHeaderInSection(int /*section*/) const {
    return {};
}

Label* TableViewDelegate::viewForHeaderInSection(int /*section*/) {
    return nullptr;
}

void TableViewDelegate::willDisplayHeaderView(Label& /*header*/, int /*section*/) const {}

void TableViewDelegate::didSelectRowAtIndexPath(int /*row*/) {}

bool TableViewDelegate::canEditRowAtIndexPath(int /*row*/) const {
    return false;
}

std::vector<ContextualAction>
TableViewDelegate::trailingSwipeActionsConfigurationForRowAtIndexPath(int /*row*/) {
    return {};
}

void TableViewDelegate::commitEditingStyle(EditingStyle /*style*/, int /*row*/) {}

TableView::TableView(TableViewController& controller)
    : m_controller(controller)
    , m_header(std::make_unique<Label>(nullptr)) {}

void TableView::setSearchController(SearchController* controller) {
    m_searchController = controller;
    Q_EMIT searchControllerChanged();
}

void TableView::reloadData() {
    if (m_openUpdates > 0) {
        m_reloadsAfterUpdates = true;
        return;
    }
    // Growing or shrinking at the end, rather than a reset, keeps the place in the list.
    const int count = m_controller.numberOfRowsInSection(0);
    if (count > m_rowCount) {
        beginInsertRows({}, m_rowCount, count - 1);
        m_rowCount = count;
        endInsertRows();
    } else if (count < m_rowCount) {
        beginRemoveRows({}, count, m_rowCount - 1);
        m_rowCount = count;
        endRemoveRows();
    }
    deselectRow();
    updateHeader();
    Q_EMIT reloaded();
}

void TableView::beginUpdates() {
    ++m_openUpdates;
}

void TableView::endUpdates() {
    if (--m_openUpdates > 0)
        return;
    for (const int row : std::ranges::reverse_view(std::exchange(m_deletions, {}))) {
        beginRemoveRows({}, row, row);
        --m_rowCount;
        endRemoveRows();
    }
    for (const int row : std::exchange(m_insertions, {})) {
        beginInsertRows({}, row, row);
        ++m_rowCount;
        endInsertRows();
    }
    deselectRow();
    updateHeader();
    if (std::exchange(m_reloadsAfterUpdates, false))
        reloadData();
}

void TableView::insertRow(int row) {
    beginUpdates();
    m_insertions.insert(row);
    endUpdates();
}

void TableView::deleteRow(int row) {
    beginUpdates();
    m_deletions.insert(row);
    endUpdates();
}

void TableView::moveRow(int from, int to) {
    beginUpdates();
    m_deletions.insert(from);
    m_insertions.insert(to);
    endUpdates();
}

TableViewCell* TableView::beginDisplaying(int row) {
    return m_controller.cellForRowAtIndexPath(row);
}

void TableView::endDisplaying(TableViewCell* cell) {
    if (cell)
        m_unused.push_back(cell);
}

double TableView::heightForRow(int row) const {
    return m_controller.heightForRowAtIndexPath(row);
}

bool TableView::rowsLeadOn() const {
    return !m_controller.rowSegue.isEmpty();
}

QStringList TableView::emptySteps() const {
    QStringList titles;
    for (const EmptyState::Step& step : m_emptyState.steps)
        titles.append(step.title);
    return titles;
}

void TableView::takeEmptyStep(int step) {
    m_emptyState.steps.at(std::size_t(step)).handler();
}

void TableView::selectRow(int row) {
    m_selectedRow = row;
    Q_EMIT selectedRowChanged();
    m_controller.didSelectRowAtIndexPath(row);
    if (!m_controller.rowSegue.isEmpty())
        m_controller.performSegue(m_controller.rowSegue, this);
}

void TableView::deselectRow() {
    if (m_selectedRow < 0)
        return;
    m_selectedRow = -1;
    Q_EMIT selectedRowChanged();
}

QStringList TableView::swipeActionTitles(int row) const {
    QStringList titles;
    if (m_controller.canEditRowAtIndexPath(row)) {
        for (const auto& action :
             m_controller.trailingSwipeActionsConfigurationForRowAtIndexPath(row))
            titles.append(action.title);
    }
    return titles;
}

void TableView::performSwipeAction(int row, int action) {
    const auto actions = m_controller.trailingSwipeActionsConfigurationForRowAtIndexPath(row);
    actions.at(std::size_t(action)).handler();
}

int TableView::rowBeginningWith(const QString& text) {
    for (int row = 0; row < m_rowCount; ++row) {
        TableViewCell* cell = beginDisplaying(row);
        const auto* label = cell && !cell->labels().isEmpty()
                                ? qobject_cast<const Label*>(cell->labels().constFirst())
                                : nullptr;
        const bool begins = label && label->text().startsWith(text, Qt::CaseInsensitive);
        endDisplaying(cell);
        if (begins)
            return row;
    }
    return -1;
}

int TableView::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rowCount;
}

QVariant TableView::data(const QModelIndex& /*index*/, int /*role*/) const {
    return {};
}

TableViewCell* TableView::takeUnused(const QString& identifier) {
    const auto found = std::find_if(m_unused.rbegin(), m_unused.rend(), [&](const auto* cell) {
        return cell->reuseIdentifier() == identifier;
    });
    if (found == m_unused.rend())
        return nullptr;
    TableViewCell* cell = *found;
    m_unused.erase(std::next(found).base());
    return cell;
}

void TableView::updateHeader() {
    if (Label* own = m_controller.viewForHeaderInSection(0)) {
        // Until the view has seen the change it shows the label that goes.
        const std::unique_ptr<Label> former = std::exchange(m_header, std::unique_ptr<Label>(own));
        Q_EMIT headerChanged();
        return;
    }
    m_header->setText(m_controller.titleForHeaderInSection(0));
    m_controller.willDisplayHeaderView(*m_header, 0);
}

#pragma once

#include "toolkit/Label.h"
#include "toolkit/SearchController.h"

#include <QAbstractListModel>
#include <QStringList>

#include <functional>
#include <vector>

class TableViewController;

/** One row on the screen. Rows that leave the screen are used again for those that enter it, and
 * come with what they showed before. */
class TableViewCell : public View {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Tables make their cells")
    Q_PROPERTY(QString reuseIdentifier READ reuseIdentifier CONSTANT)

public:
    TableViewCell(QObject* parent, const QString& reuseIdentifier);

    QString reuseIdentifier() const { return m_reuseIdentifier; }

private:
    QString m_reuseIdentifier;
};

/** What an edit of the table asks for at a row. */
enum class EditingStyle { None, Delete, Insert };

/** What a swipe over a row offers. */
struct ContextualAction {
    QString title;
    bool destructive = false;
    std::function<void()> handler;
};

/**
 * A list of rows in one section with a header, filled by its controller. As a model it has one
 * row per table row and no roles: a view that shows a row asks for its cell, and hands the cell
 * back when the row has left the screen.
 */
class TableView : public QAbstractListModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToolkitTableView)
    QML_UNCREATABLE("Table view controllers make their tables")
    Q_PROPERTY(
        SearchController* searchController READ searchController NOTIFY searchControllerChanged)
    Q_PROPERTY(Label* header READ header CONSTANT)
    Q_PROPERTY(int selectedRow READ selectedRow NOTIFY selectedRowChanged)

public:
    explicit TableView(TableViewController& controller);

    /** The search bar of this controller stands above the rows; null where there is none. */
    SearchController* searchController() const { return m_searchController; }
    void setSearchController(SearchController* controller);
    Label* header() { return &m_header; }

    /** Asks the controller for everything anew. The place in the list stays. */
    void reloadData();
    /** Takes one row away with the fade animation, after the controller's list has lost it. */
    void deleteRow(int row);

    /** An unused cell of this kind, or a new one. */
    template <class Cell>
    Cell* dequeueReusableCell(const QString& identifier) {
        if (TableViewCell* unused = takeUnused(identifier))
            return qobject_cast<Cell*>(unused);
        return new Cell(this, identifier);
    }

    Q_INVOKABLE TableViewCell* beginDisplaying(int row);
    Q_INVOKABLE void endDisplaying(TableViewCell* cell);
    /** Points; negative where the row is as high as its content. */
    Q_INVOKABLE double heightForRow(int row) const;

    int selectedRow() const { return m_selectedRow; } ///< -1 when none is
    /** What a tap on a row does. */
    Q_INVOKABLE void selectRow(int row);
    void deselectRow();

    Q_INVOKABLE QStringList swipeActionTitles(int row) const;
    Q_INVOKABLE void performSwipeAction(int row, int action);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

Q_SIGNALS:
    void searchControllerChanged();
    void selectedRowChanged();
    /** Every row on the screen must give its cell back and ask again. */
    void reloaded();

private:
    TableViewCell* takeUnused(const QString& identifier);
    void updateHeader();

    TableViewController& m_controller;
    SearchController* m_searchController = nullptr;
    Label m_header;
    std::vector<TableViewCell*> m_unused;
    int m_rowCount = 0;
    int m_selectedRow = -1;
};

#pragma once

#include "toolkit/Label.h"
#include "toolkit/SearchController.h"

#include <QAbstractListModel>
#include <QStringList>

#include <functional>
#include <memory>
#include <set>
#include <vector>

class TableViewController;

/** One row on the screen. Rows that leave the screen are used again for those that enter it, and
 * come with what they showed before. */
class TableViewCell : public View {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Tables make their cells")
    Q_PROPERTY(QString reuseIdentifier READ reuseIdentifier CONSTANT)
    Q_PROPERTY(QList<QObject*> labels READ labels CONSTANT)

public:
    TableViewCell(QObject* parent, const QString& reuseIdentifier);

    QString reuseIdentifier() const { return m_reuseIdentifier; }
    /** What the row says, in reading order. */
    QList<QObject*> labels() const { return m_labels; }

protected:
    Label* addLabel();

private:
    QString m_reuseIdentifier;
    QList<QObject*> m_labels;
};

/** What an edit of the table asks for at a row. */
enum class EditingStyle { None, Delete, Insert };

/** What a swipe over a row offers. */
struct ContextualAction {
    QString title;
    bool destructive = false;
    std::function<void()> handler;
};

/** What a table without rows says, and what it offers to do about it. */
struct EmptyState {
    struct Step {
        QString title;
        std::function<void()> handler;
    };

    QString heading;
    QString sentence;
    std::vector<Step> steps = {};
};

/** What fills a table, and is told of what happens in it: a table has no rows of its own. */
class TableViewDelegate {
public:
    virtual ~TableViewDelegate() = default;

    virtual int numberOfSectionsInTableView() const { return 1; }
    virtual int numberOfRowsInSection(int section) const;
    virtual TableViewCell* cellForRowAtIndexPath(int row);
    virtual double heightForRowAtIndexPath(int row) const; ///< points; negative: as its content
    virtual QString titleForHeaderInSection(int section) const;
    /** What stands in the place of the header's title; null where the title does. */
    virtual Label* viewForHeaderInSection(int section);
    virtual void willDisplayHeaderView(Label& header, int section) const;
    virtual void didSelectRowAtIndexPath(int row);
    virtual bool canEditRowAtIndexPath(int row) const;
    virtual std::vector<ContextualAction>
    trailingSwipeActionsConfigurationForRowAtIndexPath(int row);
    virtual void commitEditingStyle(EditingStyle style, int row);
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
    Q_PROPERTY(Label* header READ header NOTIFY headerChanged)
    /** Whether the choice of a row opens another screen. */
    Q_PROPERTY(bool rowsLeadOn READ rowsLeadOn CONSTANT)
    Q_PROPERTY(QString emptyHeading READ emptyHeading CONSTANT)
    Q_PROPERTY(QString emptySentence READ emptySentence CONSTANT)
    Q_PROPERTY(QStringList emptySteps READ emptySteps CONSTANT)
    Q_PROPERTY(int selectedRow READ selectedRow NOTIFY selectedRowChanged)

public:
    explicit TableView(TableViewController& controller);

    /** The search bar of this controller stands above the rows; null where there is none. */
    SearchController* searchController() const { return m_searchController; }
    void setSearchController(SearchController* controller);
    Label* header() const { return m_header.get(); }

    /** Asks the controller for everything anew. The place in the list stays. */
    void reloadData();
    /** Rows come and go with the fade animation, after the controller's list has them or has lost
     * them. Between beginUpdates and endUpdates, deletions count rows as they were before all
     * changes and insertions as they are after them. */
    void beginUpdates();
    void endUpdates();
    void insertRow(int row);
    void deleteRow(int row);
    void moveRow(int from, int to);

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

    bool rowsLeadOn() const;

    /** What shows in the place of the rows where there are none, before the table shows. */
    void setEmptyState(EmptyState state) { m_emptyState = std::move(state); }
    QString emptyHeading() const { return m_emptyState.heading; }
    QString emptySentence() const { return m_emptyState.sentence; }
    QStringList emptySteps() const;
    Q_INVOKABLE void takeEmptyStep(int step);

    int selectedRow() const { return m_selectedRow; } ///< -1 when none is
    /** What a tap on a row does. */
    Q_INVOKABLE void selectRow(int row);
    void deselectRow();

    Q_INVOKABLE QStringList swipeActionTitles(int row) const;
    Q_INVOKABLE void performSwipeAction(int row, int action);

    /** The first row whose text begins so, in whatever case; -1 when there is none. */
    Q_INVOKABLE int rowBeginningWith(const QString& text);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

Q_SIGNALS:
    void searchControllerChanged();
    void headerChanged();
    void selectedRowChanged();
    /** Every row on the screen must give its cell back and ask again. */
    void reloaded();

private:
    TableViewCell* takeUnused(const QString& identifier);
    void updateHeader();

    TableViewController& m_controller;
    SearchController* m_searchController = nullptr;
    std::unique_ptr<Label> m_header;
    EmptyState m_emptyState;
    std::vector<TableViewCell*> m_unused;
    int m_rowCount = 0;
    int m_selectedRow = -1;
    int m_openUpdates = 0;
    std::set<int> m_deletions;
    std::set<int> m_insertions;
    bool m_reloadsAfterUpdates = false;
};

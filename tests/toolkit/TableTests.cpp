#include "toolkit/TableViewController.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

class NameCell : public TableViewCell {
    Q_OBJECT

public:
    NameCell(QObject* parent, const QString& reuseIdentifier)
        : TableViewCell(parent, reuseIdentifier)
        , label(this) {}

    Label label;
};

/** A table of names, which leaves the label of a row called "-" as it is. */
class NameTable : public TableViewController {
    Q_OBJECT

public:
    QStringList names;
    int chosen = -1;

    int numberOfRowsInSection(int /*section*/) const override { return int(names.size()); }
    TableViewCell* cellForRowAtIndexPath(int row) override {
        auto* cell = tableView()->dequeueReusableCell<NameCell>(QStringLiteral("Cell"));
        if (names.at(row) != QStringLiteral("-"))
            cell->label.setText(names.at(row));
        return cell;
    }
    QString titleForHeaderInSection(int /*section*/) const override {
        return QStringLiteral("%1 names").arg(names.size());
    }
    void didSelectRowAtIndexPath(int row) override { chosen = row; }
    bool canEditRowAtIndexPath(int row) const override { return row > 0; }
    std::vector<ContextualAction>
    trailingSwipeActionsConfigurationForRowAtIndexPath(int row) override {
        return {{QStringLiteral("drop"), true, [this, row] {
                     names.removeAt(row);
                     tableView()->deleteRow(row);
                 }}};
    }
};

namespace {

QString shown(TableViewCell* cell) {
    return qobject_cast<NameCell*>(cell)->label.text();
}

class Table : public testing::Test {
protected:
    Table() {
        controller.names = {QStringLiteral("Ann"), QStringLiteral("Bea"), QStringLiteral("Cat")};
        table.reloadData();
    }

    NameTable controller;
    TableView& table = *controller.tableView();
};

TEST_F(Table, UsesCellsAgainWithWhatTheyShowed) {
    TableViewCell* first = table.beginDisplaying(0);
    TableViewCell* second = table.beginDisplaying(1);
    EXPECT_NE(first, second);
    EXPECT_EQ(shown(second), "Bea");
    controller.names[2] = QStringLiteral("-");
    table.endDisplaying(first);
    TableViewCell* third = table.beginDisplaying(2);
    EXPECT_EQ(third, first);
    EXPECT_EQ(shown(third), "Ann");
    EXPECT_EQ(shown(table.beginDisplaying(2)), "");
}

TEST_F(Table, ReloadsWithoutResettingTheModel) {
    const QSignalSpy resets(&table, &QAbstractItemModel::modelReset);
    const QSignalSpy inserted(&table, &QAbstractItemModel::rowsInserted);
    const QSignalSpy removed(&table, &QAbstractItemModel::rowsRemoved);
    controller.names.append(QStringLiteral("Dan"));
    table.reloadData();
    ASSERT_EQ(inserted.size(), 1);
    EXPECT_EQ(inserted.at(0).at(1), 3);
    EXPECT_EQ(table.header()->text(), "4 names");
    controller.names = {QStringLiteral("Eve")};
    table.reloadData();
    ASSERT_EQ(removed.size(), 1);
    EXPECT_EQ(removed.at(0).at(1), 1);
    EXPECT_EQ(removed.at(0).at(2), 3);
    EXPECT_EQ(table.rowCount(), 1);
    EXPECT_EQ(resets.size(), 0);
}

TEST_F(Table, SwipeActionTakesOneRowAwayAndCountsAnew) {
    EXPECT_EQ(table.swipeActionTitles(0), QStringList());
    EXPECT_EQ(table.swipeActionTitles(1), QStringList("drop"));
    const QSignalSpy removed(&table, &QAbstractItemModel::rowsRemoved);
    table.performSwipeAction(1, 0);
    EXPECT_EQ(removed.at(0).at(1), 1);
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_EQ(table.header()->text(), "2 names");
}

TEST_F(Table, ForgetsTheSelectionWhenItAppearsAgain) {
    const QSignalSpy segues(&controller, &ViewController::segueRequested);
    table.selectRow(2);
    EXPECT_EQ(controller.chosen, 2);
    EXPECT_EQ(segues.size(), 0);
    controller.rowSegue = QStringLiteral("open");
    table.selectRow(1);
    EXPECT_EQ(segues.at(0).at(0), "open");
    EXPECT_EQ(table.selectedRow(), 1);
    controller.viewWillAppear();
    EXPECT_EQ(table.selectedRow(), -1);
    controller.clearsSelectionOnViewWillAppear = false;
    table.selectRow(1);
    controller.viewWillAppear();
    EXPECT_EQ(table.selectedRow(), 1);
}

} // namespace

#include "TableTests.moc"

#include "Views.h"
#include "app/MainMenuViewController.h"
#include "exchange/PrintQuoteViewController.h"
#include "names/Breakdowns.h"
#include "names/BrowseLists.h"
#include "names/NameForms.h"
#include "names/RecordLists.h"
#include "names/TopicTableTableViewController.h"
#include "quotes/AddViewController.h"
#include "quotes/DetailViewController.h"
#include "quotes/NewViewTableViewController.h"
#include "toolkit/TabBarController.h"

#include <QAccessible>
#include <QTest>

namespace {

class NameViews : public Views {
protected:
    void tap(const char* name) { pilot->tap(QString::fromUtf8(name)); }

    /** Taps a second control before the first tap has come to anything. */
    void tapBoth(const char* first, const char* second) {
        const auto place = [this](const char* name) {
            const QQuickItem& item = pilot->find(QString::fromUtf8(name));
            return item.mapToScene(QPointF(item.width() / 2, item.height() / 2)).toPoint();
        };
        const QPoint places[] = {place(first), place(second)};
        for (const QPoint& tapped : places)
            QTest::mouseClick(&program.quickWindow(), Qt::LeftButton, {}, tapped, 30);
        pilot->settle();
    }

    void goBack(int screens = 1) {
        for (int i = 0; i < screens; ++i)
            tap("Back");
    }

    void addTopic(const char* topic) {
        context().insert<Topics>()->setTopic(QLatin1String(topic));
        program.application().saveContext();
    }
};

TEST_F(NameViews, AQuoteReachedThroughItsAuthorReturnsToTheAuthors) {
    addQuote(QStringLiteral("Ann"), QStringLiteral("b"), QStringLiteral("one"));
    addQuote(QStringLiteral("Ann"), QStringLiteral("a"), QStringLiteral("two"));
    addQuote(QStringLiteral("Bob"), QStringLiteral("a"), QStringLiteral("three"));
    open("Reference Lists");
    tap("Authors");
    tap("Search authors");
    pilot->type(QStringLiteral("AN"));
    EXPECT_EQ(top<AuthorTableViewController>().tableView()->header()->text(), "1 Author(s)");
    tap("Ann");
    EXPECT_EQ(top<AuthorBreakdownTableViewController>().tableView()->header()->text(),
              "2 Quote(s)");
    tap("b");
    EXPECT_EQ(top<DetailViewController>().QuoteTextView->text(), "one");
    tap("Save");
    EXPECT_EQ(top<AuthorTableViewController>().list.filteredNames, QStringList("Ann"));
    goBack(2);
    top<MainMenuViewController>();
}

TEST_F(NameViews, TabsHaveStacksOfTheirOwnAndOneWayOut) {
    addQuote(QStringLiteral("Ann"), QStringLiteral("Hope"), QStringLiteral("one"));
    const auto& tabs = open<TabBarController>("Quotes by Group");
    EXPECT_TRUE(program.navigation().isNavigationBarHidden());
    tap("Ann");
    tap("Topics");
    tap("Hope");
    tap("Authors");
    const auto onTop = [&] { return tabs.selectedViewController()->topViewController(); };
    EXPECT_TRUE(qobject_cast<AuthorBreakdownTableViewController*>(onTop()));
    tap("Hope"); // the one quote, by its topic
    EXPECT_TRUE(qobject_cast<DetailViewController*>(onTop()));
    goBack(2);
    EXPECT_TRUE(qobject_cast<AuthorTableViewController*>(onTop()));
    goBack();
    top<MainMenuViewController>();
    EXPECT_FALSE(program.navigation().isNavigationBarHidden());
}

TEST_F(NameViews, APairOfQuickTapsOpensOneScreenAndPressesNothingInIt) {
    addQuote(QStringLiteral("Ann"), QStringLiteral("Hope"), QStringLiteral("one"));
    addQuote(QStringLiteral("Bob"), QStringLiteral("Hope"), QStringLiteral("two"));
    open("Reference Lists");
    tap("Authors");
    tapBoth("Ann", "Bob");
    EXPECT_EQ(top<AuthorBreakdownTableViewController>().quotes.QuoteList.size(), 1U);
    EXPECT_EQ(program.application().services.selection.selectedAuthor, "Ann");
    goBack(3);
    open("Quote List");
    pilot->doubleClick(QStringLiteral("Add")); // under which "Save" comes in
    EXPECT_EQ(top<AddViewController>().presentedViewController(), nullptr);
    EXPECT_EQ(program.navigation().presentedViewController(), nullptr);
}

TEST_F(NameViews, PrintingWorksAfterAQuoteWasRead) {
    addQuote(QStringLiteral("Ann"), QStringLiteral("Hope"), QStringLiteral("one"));
    open("Reference Lists");
    tap("Topics");
    tap("Hope");
    tap("Hope");
    goBack();
    tap("Print");
    tap("Create File");
    EXPECT_EQ(
        top<PrintQuoteViewController>().FileTextView->text(),
        "Event Filtered by Topic\n\nTopic: Hope - Source: Source - Author: Ann - Quote: one\n\n");
    goBack();
    EXPECT_EQ(top<TopicBreakdownTableViewController>().tableView()->selectedRow(), -1);
}

TEST_F(NameViews, WhatIsLookedAtInBetweenChangesNeitherQuoteNorGroup) {
    addQuote(QStringLiteral("Ann"), QStringLiteral("Hope"), QStringLiteral("one"));
    addQuote(QStringLiteral("Bob"), QStringLiteral("Fear"), QStringLiteral("two"));
    open("Reference Lists");
    tap("Authors");
    tap("Ann");
    tap("Hope");
    tap("Author list");
    tap("Bob");
    tap("Fear");
    EXPECT_EQ(top<DetailViewController>().QuoteTextView->text(), "two");
    goBack(3);
    auto& detail = top<DetailViewController>();
    EXPECT_EQ(detail.QuoteTextView->text(), "one");
    goBack();
    auto& breakdown = top<AuthorBreakdownTableViewController>();
    breakdown.quotes.SortButton->press();
    EXPECT_EQ(breakdown.quotes.QuoteList.front()->author(), "Ann");
    tap("Print");
    tap("Create File");
    EXPECT_TRUE(
        top<PrintQuoteViewController>().FileTextView->text().contains(QLatin1String("Ann")));
}

TEST_F(NameViews, AFormThatOpenedANameListReturnsToWhoOpenedIt) {
    open<AddViewController>("Add New Quote");
    tap("Topic list");
    top<TopicTableTableViewController>();
    goBack();
    tap("Source list");
    top<NewSourceTableViewController>();
    goBack();
    tap("Author list");
    top<NewAuthorTableViewController>();
    tap("Add");
    tap("Author");
    pilot->type(QStringLiteral("Cid"));
    tap("Save");
    top<NewAuthorTableViewController>();
    goBack();
    auto& form = top<AddViewController>();
    form.AuthorTextField->setText(QStringLiteral("Cid"));
    form.CategoryTextField->setText(QStringLiteral("T"));
    form.SourceTextField->setText(QStringLiteral("S"));
    form.DateAddedTextField->setText(QStringLiteral("Mar 1, 2021"));
    tap("Save");
    top<MainMenuViewController>();
    EXPECT_EQ(quoteCount(), 1U);
}

TEST_F(NameViews, TopicsAreAddedEditedAndDeletedByKeyboard) {
    addTopic("b");
    addTopic("c");
    auto& list = open<TopicTableTableViewController>("Topics");
    tap("Add");
    pilot->type(QStringLiteral("a"));
    pilot->press(Qt::Key_Return);
    tap("Save");
    EXPECT_EQ(list.tableView()->header()->text(), "# Topics: = 3");
    pilot->list().forceActiveFocus();
    pilot->press(Qt::Key_Home);
    pilot->press(Qt::Key_Return);
    auto& form = top<EditTopicViewController>();
    EXPECT_EQ(form.TopicTextField->text(), "a");
    tap("Topic");
    pilot->press(Qt::Key_End);
    pilot->type(QStringLiteral("bc"));
    tap("Save");
    pilot->find(QStringLiteral("abc"));
    pilot->list().forceActiveFocus();
    pilot->press(Qt::Key_Home);
    pilot->press(Qt::Key_Down);
    pilot->press(Qt::Key_Delete);
    pilot->settle();
    EXPECT_FALSE(pilot->look(QStringLiteral("b")));
    EXPECT_EQ(list.tableView()->header()->text(), "# Topics: = 2");
    pilot->drag(pilot->find(QStringLiteral("c")), {-140, 0});
    tap("delete");
    EXPECT_TRUE(pilot->waitFor([&] { return !pilot->look(QStringLiteral("c")); }));
    EXPECT_EQ(context().fetch(Topics::fetchRequest()).records.size(), 1U);
}

TEST_F(NameViews, AQuoteByTopicIsReachedAndLeftByDragging) {
    for (int number = 100; number < 160; ++number)
        addQuote(QStringLiteral("A"), QString::number(number), QString::number(number));
    open("Quotes by Topic");
    const QQuickItem& rows = pilot->list();
    for (int drags = 0; drags < 3; ++drags)
        pilot->drag(rows, {0, -300});
    const double place = rows.property("contentY").toDouble();
    EXPECT_GT(place, 600);
    const auto shown = pilot->findAll(QStringLiteral("Source"));
    pilot->tap(*shown.at(shown.size() / 2));
    const QString text = top<DetailViewController>().QuoteTextView->text();
    EXPECT_GT(text.toInt(), 105);
    tap("Save"); // which stays here, and says so in a note that screen readers tell
    const QAccessibleInterface* note =
        QAccessible::queryAccessibleInterface(&pilot->find(QStringLiteral("Saved")));
    ASSERT_TRUE(note);
    EXPECT_EQ(note->role(), QAccessible::Notification);
    EXPECT_EQ(note->text(QAccessible::Name), "Saved");
    EXPECT_FALSE(pilot->find(QStringLiteral("Save")).isEnabled());
    EXPECT_TRUE(pilot->waitFor([&] { return !pilot->look(QStringLiteral("Saved")); }, 5000));
    pilot->drag(QPoint(3, 400), {300, 0}); // in from the left edge
    EXPECT_EQ(top<NewViewTableViewController>().unfilteredEvent.size(), 60U);
    EXPECT_NEAR(pilot->list().property("contentY").toDouble(), place, 1);
}

TEST_F(NameViews, RowsFitTheirTextAndBlankLinesKeepTheirPlace) {
    for (int i = 0; i < 2; ++i)
        addQuote(QStringLiteral("Ann"), QStringLiteral("T"), QStringLiteral("text"));
    context().fetch(Event::fetchRequest()).records.back()->setSource(std::nullopt); // blank
    open("Quotes by Topic");
    const double height = pilot->findAll(QStringLiteral("Source")).at(0)->height();
    EXPECT_NEAR(pilot->list().property("contentHeight").toDouble(), 2 * height, 1);
    goBack();
    const QString start = QStringLiteral("A name that begins as another one does ").repeated(3);
    for (const char* end : {"one", "two"})
        addQuote(start + QLatin1String(end), QStringLiteral("T"), QStringLiteral("text"));
    open("Reference Lists");
    tap("Authors");
    const auto expectWhole = [&] {
        const auto names = pilot->findAll(start);
        ASSERT_EQ(names.size(), 2);
        for (const QQuickItem* name : names)
            EXPECT_GT(name->height(), 60) << qPrintable(name->property("text").toString());
    };
    expectWhole();
    tap("Names");
    expectWhole();
}

TEST_F(NameViews, AListKeepsItsPlaceWhileANameIsLookedAt) {
    for (int author = 100; author < 200; ++author)
        addQuote(QString::number(author), QStringLiteral("T"), QStringLiteral("text"));
    open("Reference Lists");
    tap("Authors");
    QQuickItem* rows = &pilot->list();
    rows->setProperty("contentY", 2000);
    pilot->settle();
    tap("150");
    goBack();
    rows = &pilot->list();
    EXPECT_EQ(rows->property("contentY").toInt(), 2000);
    tap("Names");
    rows = &pilot->list();
    rows->setProperty("contentY", 1500);
    pilot->settle();
    pilot->drag(pilot->find(QStringLiteral("140")), {-140, 0});
    tap("delete");
    pilot->settle();
    EXPECT_EQ(rows->property("contentY").toInt(), 1500);
}

} // namespace

#include "quotes/ChosenQuote.h"
#include "quotes/NewViewTableViewController.h"
#include "support/TestApplication.h"
#include "toolkit/SubtitleTableViewCell.h"

#include <gtest/gtest.h>

namespace {

TEST(QuotesByTopic, ListsAllQuotesOnceByTopic) {
    TestApplication application;
    application.addQuote({.author = "Z", .category = "b", .source = "1"});
    application.addQuote({.category = "a", .source = "2"});
    application.addQuote({.author = "A", .category = "b"});
    NewViewTableViewController list(application.delegate);
    list.viewDidLoad();
    QStringList rows;
    for (int row = 0; row < list.numberOfRowsInSection(0); ++row) {
        auto* cell = qobject_cast<SubtitleTableViewCell*>(list.cellForRowAtIndexPath(row));
        rows.append(cell->textLabel->text() + QLatin1Char('|') + cell->detailTextLabel->text());
    }
    EXPECT_EQ(rows, QStringList({"2|a    ", "1|b    Z", "|b    A"}));
    EXPECT_TRUE(list.tableView()->swipeActionTitles(0).isEmpty());
    application.addQuote({});
    list.viewWillAppear();
    EXPECT_EQ(list.numberOfRowsInSection(0), 3);
}

TEST(QuotesByTopic, HandsOnACompleteQuoteOnly) {
    TestApplication application;
    const Date date{std::chrono::milliseconds(0)};
    application.addQuote(
        {.author = "A", .category = "T", .source = "S", .quote = "q", .timestamp = date});
    application.addQuote({.author = "B", .category = "U", .source = "S", .quote = "q"});
    NewViewTableViewController list(application.delegate);
    list.viewDidLoad();
    application.selection.callingScreen = QStringLiteral("Menu");
    list.didSelectRowAtIndexPath(0);
    EXPECT_EQ(application.selection.selectedDateText, "Jan 1, 1970");
    EXPECT_EQ(application.selection.selectedQuoteText, "q");
    EXPECT_EQ(application.selection.callingScreen, "Menu");
    EXPECT_EQ(fatalMessageOf([&] { list.didSelectRowAtIndexPath(1); }),
              lacks("date", QStringLiteral("q")));
    EXPECT_EQ(application.selection.selectedTopic, "U"); // what came before stays
    EXPECT_NE(fatalMessageOf([&] { list.didSelectRowAtIndexPath(2); }), "");
}

} // namespace

#include "quotes/MasterTableViewCell.h"
#include "quotes/MasterViewController.h"
#include "support/TestApplication.h"

#include <gtest/gtest.h>

namespace {

enum Segment { Topic, Author, Source, Quote };

class QuoteList : public testing::Test {
protected:
    void load() {
        list = std::make_unique<MasterViewController>(application.delegate);
        list->viewDidLoad();
    }

    void search(const char* text) {
        list->searchController->searchBar()->setText(QString::fromUtf8(text));
    }

    /** The first and second line of a row, as a new cell shows them. */
    QString row(int index) {
        auto* cell = qobject_cast<MasterTableViewCell*>(list->cellForRowAtIndexPath(index));
        return cell->TextLabel->text() + QStringLiteral(" / ") + cell->DetailTextLabel->text();
    }

    /** The texts of all shown quotes, in order. */
    QString shown() {
        QString texts;
        for (int index = 0; index < list->numberOfRowsInSection(0); ++index) {
            list->didSelectRowAtIndexPath(index);
            texts += application.selection.selectedQuoteText;
        }
        return texts;
    }

    QString countLine() const { return list->tableView()->header()->text(); }

    TestApplication application;
    std::unique_ptr<MasterViewController> list;
};

TEST_F(QuoteList, OfAnEmptyStoreCountsNothing) {
    load();
    EXPECT_EQ(list->numberOfRowsInSection(0), 0);
    EXPECT_EQ(countLine(), "# of Quotes = 0");
    EXPECT_TRUE(list->tableView()->header()->isBold());
    EXPECT_EQ(list->tableView()->header()->fontSize(), 13);
    EXPECT_EQ(list->tableView()->header()->textColor(), red);
    EXPECT_EQ(application.selection.callingScreen, "MainList");
}

TEST_F(QuoteList, SortsBySegmentInBothDirections) {
    // Upper case before lower case, absent first, beyond U+FFFF last; ties in the order of entry.
    application.addQuote({.author = "B", .category = "x", .source = "s", .quote = "1"});
    application.addQuote({.author = "a", .category = "X", .source = "t", .quote = "2"});
    application.addQuote({.author = "B", .category = "x", .source = "r", .quote = "3"});
    application.addQuote({.author = "B", .category = "x", .source = "s", .quote = "4"});
    application.addQuote({.author = "A", .category = "\U0001F600", .quote = "5"});
    application.addQuote({.author = "A", .category = "\uFFFD", .source = "", .quote = "6"});
    load();
    EXPECT_EQ(shown(), "231465");
    list->segment->choose(Author);
    EXPECT_EQ(shown(), "653142");
    list->segment->choose(Source);
    EXPECT_EQ(shown(), "563142");
    list->SortButtonTapped();
    EXPECT_EQ(shown(), "214365");
    list->SortButtonTapped();
    EXPECT_EQ(shown(), "563142");
    list->segment->choose(Quote);
    EXPECT_EQ(shown(), "123456");
}

TEST_F(QuoteList, BuildsRowsWithExactSeparators) {
    application.addQuote({.author = "A", .category = "T", .source = "S"});
    application.addQuote({});
    load();
    EXPECT_EQ(row(1), "Topic: T / Source: S  Author:  A");
    EXPECT_EQ(row(0), "Topic:  / Source:   Author:  ");
    list->segment->choose(Author);
    EXPECT_EQ(row(1), "Author: A / Topic: T Source: S");
    list->segment->choose(Source);
    EXPECT_EQ(row(1), "Source: S / Topic: T Author: A");

    TableViewCell* cell = list->tableView()->beginDisplaying(0);
    EXPECT_EQ(cell->reuseIdentifier(), "Cell");
    EXPECT_EQ(cell->cornerRadius(), 10);
    EXPECT_EQ(cell->borderWidth(), 2);
    EXPECT_EQ(cell->borderColor(), black);
    EXPECT_EQ(cell->backgroundColor(), Color::hsb(0.5, 0.06, 0.96));
    EXPECT_EQ(list->heightForRowAtIndexPath(0), 60);
}

TEST_F(QuoteList, LeavesRowsAsTheyWereInQuoteWithoutSearch) {
    application.addQuote({.author = "A", .category = "T", .source = "S", .quote = "text"});
    load();
    TableViewCell* cell = list->tableView()->beginDisplaying(0);
    list->segment->choose(Quote);
    list->tableView()->endDisplaying(cell);
    EXPECT_EQ(row(0), "Topic: T / Source: S  Author:  A");
    EXPECT_EQ(row(0), " / ");
    search("EX");
    EXPECT_EQ(row(0), "Topic: T / Source: S  Author:  A");
}

TEST_F(QuoteList, SearchesTheFieldOfTheSegmentInAnyCase) {
    application.addQuote({.author = "Ann", .category = "b", .source = "s", .quote = "1"});
    application.addQuote({.author = "ann", .category = "a", .source = "s", .quote = "2"});
    application.addQuote({.author = "Joanna", .category = "c", .source = "Ann", .quote = "3"});
    application.addQuote({.category = "Ann", .source = "s", .quote = "4"});
    application.addQuote({.author = "", .category = "Ann", .source = "s", .quote = "ANN"});
    load();
    list->segment->choose(Author);
    EXPECT_EQ(list->searchController->searchBar()->placeholder(), "Sorted/Search by Author");
    search("ANN");
    EXPECT_EQ(shown(), "132");
    EXPECT_EQ(countLine(), "# of Quotes in your search = 3");
    search("Ann ");
    EXPECT_EQ(shown(), "");
    search("");
    EXPECT_EQ(countLine(), "# of Quotes = 5");
    list->segment->choose(Quote);
    EXPECT_EQ(list->searchController->searchBar()->placeholder(), "Search by Quote");
    search("nn");
    EXPECT_EQ(shown(), "ANN");
}

TEST_F(QuoteList, KeepsTheEarlierSearchResultUntilTheTextChanges) {
    application.addQuote({.author = "Ann", .category = "hope", .quote = "1"});
    application.addQuote({.author = "Hope", .category = "love", .quote = "2"});
    load();
    search("hope");
    EXPECT_EQ(shown(), "1");
    list->segment->choose(Author);
    EXPECT_EQ(shown(), "1");
    application.addQuote({.author = "Hope", .category = "hope", .quote = "3"});
    list->SortButtonTapped();
    list->viewWillAppear();
    EXPECT_EQ(shown(), "1");
    search("hop");
    EXPECT_EQ(shown(), "23");
}

TEST_F(QuoteList, DeletesFromTheStoreAndTheShownListAlone) {
    application.addQuote({.category = "a", .quote = "1"});
    application.addQuote({.category = "ab", .quote = "2"});
    application.addQuote({.category = "b", .quote = "3"});
    load();
    search("a");
    list->tableView()->performSwipeAction(1, 0);
    EXPECT_EQ(list->tableView()->swipeActionTitles(0), QStringList("delete"));
    EXPECT_EQ(shown(), "1");
    EXPECT_EQ(countLine(), "# of Quotes in your search = 1");
    EXPECT_EQ(application.all<Event>().size(), 2);
    EXPECT_FALSE(application.context().hasChanges());
    // The other list still holds it.
    list->searchController->searchBar()->setText(QString());
    EXPECT_EQ(shown(), "123");
    list->viewWillAppear();
    EXPECT_EQ(shown(), "13");

    search("a");
    list->tableView()->performSwipeAction(0, 0);
    EXPECT_EQ(application.notes.undoable(), "Quote deleted: 1");
    EXPECT_EQ(shown(), "");
    application.notes.undo(); // what went last comes first
    EXPECT_EQ(shown(), "1");
    application.notes.undo();
    EXPECT_EQ(application.notes.undoable(), "");
    EXPECT_EQ(shown(), "12");
    EXPECT_FALSE(application.context().hasChanges());
    list->searchController->searchBar()->setText(QString());
    EXPECT_EQ(shown(), "123");
    list->tableView()->performSwipeAction(1, 0);

    list->commitEditingStyle(EditingStyle::Delete, 0);
    EXPECT_EQ(list->tableView()->rowCount(), 1);
    EXPECT_EQ(application.all<Event>().size(), 2);
}

TEST_F(QuoteList, HandsTheChosenQuoteOn) {
    const Date date{std::chrono::milliseconds(1234)};
    application.addQuote({.category = "T", .quote = "text"});
    application.addQuote({.author = "A", .category = "U", .source = "S", .timestamp = date});
    load();
    search("t");
    list->didSelectRowAtIndexPath(0);
    const SelectionValues& selection = application.selection;
    EXPECT_EQ(selection.selectedAuthor, "");
    EXPECT_EQ(selection.selectedTopic, "T");
    EXPECT_EQ(selection.selectedSource, "");
    EXPECT_EQ(selection.selectedQuoteText, "text");
    EXPECT_FALSE(selection.selectedDate.has_value());
    EXPECT_EQ(selection.searchText, "t");
    search("");
    list->didSelectRowAtIndexPath(1);
    EXPECT_EQ(selection.selectedAuthor, "A");
    EXPECT_EQ(selection.selectedQuoteText, "");
    EXPECT_EQ(selection.selectedDate, date);
    EXPECT_EQ(selection.searchText, "");
    Segue segue(QStringLiteral("any"), *list, *list);
    list->prepareForSegue(segue, nullptr);
    EXPECT_EQ(selection.callingScreen, "Master");
}

TEST_F(QuoteList, RefusesWhatCannotHappen) {
    application.addQuote({});
    list = std::make_unique<MasterViewController>(application.delegate);
    EXPECT_NE(fatalMessageOf([&] { list->SortButtonTapped(); }), "");
    list->viewDidLoad();
    EXPECT_EQ(fatalMessageOf([&] { list->didSelectRowAtIndexPath(1); }),
              "The quote list has no row 1");
    EXPECT_NE(fatalMessageOf([&] { list->cellForRowAtIndexPath(-1); }), "");
}

TEST_F(QuoteList, TakesAnAbsentSearchTextForTheSearchResult) {
    application.addQuote({.quote = "1"});
    load();
    list->searchController->searchBar()->setText(std::nullopt);
    list->tableView()->reloadData();
    EXPECT_EQ(list->numberOfRowsInSection(0), 0);
    EXPECT_EQ(countLine(), "# of Quotes in your search = 0");
}

TEST_F(QuoteList, ComesBackWithOrWithoutRefetching) {
    application.addQuote({.quote = "1"});
    load();
    application.addQuote({.quote = "2"});
    list->unwindToMenu(nullptr);
    EXPECT_EQ(shown(), "1");
    list->unwindToMainList(nullptr);
    EXPECT_EQ(shown(), "12");
    list->searchController->setActive(true);
    list->viewWillDisappear();
    EXPECT_FALSE(list->searchController->isActive());
}

} // namespace

#include "names/Breakdowns.h"
#include "quotes/ChosenQuote.h"
#include "quotes/DetailViewController.h"
#include "support/TestApplication.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

const Date someDate{1'615'125'909'000ms}; // 2021-03-07 14:05:09 UTC

class Breakdowns : public testing::Test {
protected:
    Breakdowns() {
        application.selection.selectedTopic = QStringLiteral("T");
        application.selection.chosenSourceName = QStringLiteral("S");
        application.selection.chosenAuthorName = QStringLiteral("A");
        add("A", "T", "S", "1");
        add("a", "T", "R", "2");
        add("A", "t", "S", "3");
        add("B", "T", "S", "4");
        add("A", "U", "Q", "5");
    }

    void add(const char* author, const char* category, const char* source, const char* quote) {
        application.addQuote({author, category, source, quote, someDate});
    }

    /** The texts of the shown quotes, in order. */
    QString shown(TableViewController& screen) {
        QString texts;
        for (int row = 0; row < screen.numberOfRowsInSection(0); ++row) {
            screen.didSelectRowAtIndexPath(row);
            texts += application.selection.selectedQuoteText;
        }
        return texts;
    }

    template <class Screen>
    QString shownBy(Screen& screen, int segment, const char* search = "") {
        screen.quotes.segment->choose(segment);
        screen.quotes.refresh();
        screen.quotes.searchController->searchBar()->setText(QLatin1String(search));
        return shown(screen);
    }

    static QString header(TableViewController& screen) {
        return screen.tableView()->header()->text();
    }

    TestApplication application;
};

TEST_F(Breakdowns, ListTheQuotesOfOneNameByTheOtherFields) {
    TopicBreakdownTableViewController topic(application.delegate);
    SourceBreakdownTableViewController source(application.delegate);
    AuthorBreakdownTableViewController author(application.delegate);
    for (TableViewController* screen :
         std::initializer_list<TableViewController*>{&topic, &source, &author})
        screen->loadViewIfNeeded();

    EXPECT_EQ(shownBy(topic, 0), "142"); // author, source: "A" "B" "a"
    EXPECT_EQ(shownBy(topic, 1), "214");
    EXPECT_EQ(shownBy(source, 0), "143"); // category, author
    EXPECT_EQ(shownBy(source, 1), "134");
    EXPECT_EQ(shownBy(author, 0), "153"); // category, source
    EXPECT_EQ(shownBy(author, 1), "513");
    topic.quotes.SortButton->press();
    EXPECT_EQ(shown(topic), "412");
    author.quotes.SortButton->press();
    EXPECT_EQ(shown(author), "315");

    EXPECT_EQ(topic.heightForRowAtIndexPath(0), 96);
    EXPECT_LT(source.heightForRowAtIndexPath(0), 0);
    EXPECT_EQ(topic.quotes.segment->items(), QStringList({"Author", "Source"}));
    EXPECT_EQ(source.quotes.segment->items(), QStringList({"Topic", "Author"}));
    EXPECT_EQ(author.quotes.segment->items(), QStringList({"Topic", "Source"}));
    EXPECT_EQ(topic.quotes.PrintButton->image(), "");
    EXPECT_EQ(source.quotes.PrintButton->image(), "printer");
    EXPECT_EQ(author.quotes.SortButton->image(), "arrow.up.arrow.down");
}

TEST_F(Breakdowns, SearchTheFieldOfTheSegmentAndCount) {
    TopicBreakdownTableViewController topic(application.delegate);
    SourceBreakdownTableViewController source(application.delegate);
    AuthorBreakdownTableViewController author(application.delegate);
    for (TableViewController* screen :
         std::initializer_list<TableViewController*>{&topic, &source, &author})
        screen->loadViewIfNeeded();
    EXPECT_EQ(header(topic), "3 Topic(s)");
    EXPECT_EQ(header(source), "3 Source(s): ");
    EXPECT_EQ(header(author), "3 Quote(s)");

    EXPECT_EQ(shownBy(topic, 0, "A"), "12");
    EXPECT_EQ(header(topic), "2 Topic(s)");
    EXPECT_EQ(shownBy(topic, 1, "r"), "2");
    EXPECT_EQ(shownBy(source, 0, "T"), "143");
    EXPECT_EQ(header(source), "3 Source(s)");
    EXPECT_EQ(shownBy(source, 1, "b"), "4");
    EXPECT_EQ(shownBy(author, 0, "u"), "5");
    EXPECT_EQ(header(author), "1 Quote(s)");
    EXPECT_EQ(shownBy(author, 1, "s"), "13");
}

TEST_F(Breakdowns, FollowTheirSegmentsInTheTopicAlone) {
    TopicBreakdownTableViewController topic(application.delegate);
    AuthorBreakdownTableViewController author(application.delegate);
    topic.segmentedControlActionWithSender(*topic.quotes.segment); // nothing is selected
    EXPECT_EQ(shown(topic), "");
    topic.quotes.segment->choose(0);
    EXPECT_EQ(shown(topic), "241"); // not loaded: descending
    author.quotes.segment->setSelectedIndex(0);
    author.quotes.refresh();
    EXPECT_EQ(shown(author), "135"); // not loaded: unsorted
    application.selection.selectedTopic = QStringLiteral("T");
    topic.loadViewIfNeeded();
    author.loadViewIfNeeded();
    const auto placeholder = [](const Breakdown& quotes) {
        return quotes.searchController->searchBar()->placeholder();
    };
    EXPECT_EQ(placeholder(topic.quotes), "Sort and Search by Author");
    topic.quotes.segment->choose(1);
    EXPECT_EQ(placeholder(topic.quotes), "Sort and Search by Source");
    EXPECT_EQ(shown(topic), "214");
    topic.quotes.segment->choose(0);
    EXPECT_EQ(placeholder(topic.quotes), "Sort and Search by Author");
    author.quotes.segment->choose(1);
    EXPECT_EQ(placeholder(author.quotes), "Sort and Search by Topic");
    EXPECT_EQ(shown(author), "153");
    author.quotes.SortData();
    EXPECT_EQ(shown(author), "315");
}

TEST_F(Breakdowns, ShowInARowWhatTheQuoteHas) {
    application.addQuote({.author = "A", .source = "P"});
    AuthorBreakdownTableViewController screen(application.delegate);
    screen.loadViewIfNeeded();
    const auto texts = [](TableViewCell* cell) {
        QString all;
        for (QObject* label : cell->labels())
            all += qobject_cast<Label*>(label)->text() + QLatin1Char('|');
        return all;
    };
    TableViewCell* cell = screen.tableView()->beginDisplaying(1);
    EXPECT_EQ(texts(cell), "T|S|A|");
    screen.tableView()->endDisplaying(cell);
    EXPECT_EQ(texts(screen.tableView()->beginDisplaying(0)), "T|P|A|"); // the topic of before
    SourceBreakdownTableViewController source(application.delegate);
    source.loadViewIfNeeded();
    EXPECT_EQ(texts(source.tableView()->beginDisplaying(0)), "S|T|A|");
}

TEST_F(Breakdowns, HandTheChosenQuoteToItsDetailAndNothingElse) {
    SourceBreakdownTableViewController screen(application.delegate);
    screen.loadViewIfNeeded();
    DetailViewController detail(application.delegate);
    AlertController print{QString(), QString()};
    Segue toPrint(QStringLiteral("PrintQuoteViewController"), screen, print);
    screen.prepareForSegue(toPrint, &screen);
    EXPECT_EQ(application.selection.callingScreen, "SourceBreakdown");

    screen.tableView()->selectRow(1);
    const SelectionValues& selection = application.selection;
    EXPECT_EQ(selection.selectedAuthor, "B");
    EXPECT_EQ(selection.selectedTopic, "T");
    EXPECT_EQ(selection.selectedSource, "S");
    EXPECT_EQ(selection.selectedDate, someDate);
    EXPECT_EQ(selection.selectedDateText, "2021-03-07 14:05:09 +0000");
    EXPECT_EQ(selection.selectedQuoteText, "4");
    Segue toDetail(QStringLiteral("DetailViewController"), screen, detail);
    screen.prepareForSegue(toDetail, &screen);
    EXPECT_EQ(detail.detailItem, screen.quotes.QuoteList.at(1));
    EXPECT_NE(fatalMessageOf([&] { screen.prepareForSegue(toPrint, &screen); }), "");
    // Coming back clears the selection, so that printing works again.
    screen.viewWillAppear();
    EXPECT_EQ(fatalMessageOf([&] { screen.prepareForSegue(toPrint, &screen); }), "");
}

TEST_F(Breakdowns, RequireEveryValueOfAChosenQuote) {
    application.addQuote({.author = "A0", .category = "T", .source = "S", .quote = "q"});
    TopicBreakdownTableViewController screen(application.delegate);
    screen.loadViewIfNeeded();
    EXPECT_EQ(fatalMessageOf([&] { screen.didSelectRowAtIndexPath(1); }),
              lacks("date", QStringLiteral("q")));
    EXPECT_EQ(application.selection.selectedAuthor, "A0");
}

TEST_F(Breakdowns, KeepTheirGroupWhateverWasChosenInBetween) {
    AuthorBreakdownTableViewController screen(application.delegate);
    screen.loadViewIfNeeded();
    application.selection.chosenAuthorName = QStringLiteral("B");
    application.selection.selectedAuthor = QStringLiteral("B");
    screen.viewWillAppear();
    EXPECT_EQ(application.selection.selectedAuthor, "A"); // which the print screen reads
    screen.quotes.SortData();
    EXPECT_EQ(shown(screen), "351");
}

} // namespace

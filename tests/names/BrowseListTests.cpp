#include "names/BrowseLists.h"
#include "support/TestApplication.h"

#include <gtest/gtest.h>

namespace {

class BrowseLists : public testing::Test {
protected:
    /** The rows of a list as "name count". */
    static QStringList rows(TableViewController& list) {
        QStringList rows;
        for (int row = 0; row < list.numberOfRowsInSection(0); ++row) {
            TableViewCell* cell = list.tableView()->beginDisplaying(row);
            QStringList texts;
            for (QObject* label : cell->labels())
                texts.append(qobject_cast<Label*>(label)->text());
            rows.append(texts.join(QLatin1Char(' ')));
            list.tableView()->endDisplaying(cell);
        }
        return rows;
    }

    static QString header(TableViewController& list) { return list.tableView()->header()->text(); }

    TestApplication application;
};

TEST_F(BrowseLists, CountTheQuotesOfEveryDistinctName) {
    // Composed and decomposed, upper and lower case are different names; beyond U+FFFF comes last.
    for (const char* author :
         {"Smith", "smith", "\U0001F600", "Smith", "\u00e9", "e\u0301", "\uff5e"})
        application.addQuote({.author = author, .category = "T", .source = ""});
    application.addQuote({.category = "U"});
    AuthorTableViewController authors(application.delegate);
    SourceTableViewController sources(application.delegate);
    TopicTableViewController topics(application.delegate);
    for (TableViewController* list :
         std::initializer_list<TableViewController*>{&authors, &sources, &topics})
        list->loadViewIfNeeded();

    EXPECT_EQ(rows(authors), QStringList({"Smith 2", "e\u0301 1", "smith 1", "\u00e9 1", "\uff5e 1",
                                          "\U0001F600 1"}));
    EXPECT_EQ(header(authors), "6 Author(s)");
    EXPECT_TRUE(authors.tableView()->header()->isCentered());
    EXPECT_EQ(rows(sources), QStringList(" 7"));
    EXPECT_EQ(header(sources), "1 Source(s)");
    EXPECT_EQ(rows(topics), QStringList({"T 7", "U 1"}));
    EXPECT_EQ(header(topics), "2 Topic(s)");
    EXPECT_EQ(authors.list.searchController->searchBar()->placeholder(),
              "Sort and Search by Author");
    EXPECT_EQ(topics.list.searchController->searchBar()->placeholder(), "Sort and Search by Topic");

    TableViewCell* cell = sources.tableView()->beginDisplaying(0);
    EXPECT_EQ(cell->borderWidth(), 2);
    EXPECT_EQ(cell->backgroundColor(), Color::hsb(0.5, 0.06, 0.96));
}

TEST_F(BrowseLists, OfAnEmptyStoreCountNothing) {
    AuthorTableViewController list(application.delegate);
    list.loadViewIfNeeded();
    EXPECT_EQ(header(list), "0 Author(s)");
    EXPECT_NE(fatalMessageOf([&] { list.didSelectRowAtIndexPath(0); }), "");
}

TEST_F(BrowseLists, SearchInAnyCaseAndShowAllAgain) {
    for (const char* source : {"Smith", "", "blacksmith", "Jones", "\u0130"})
        application.addQuote({.source = source});
    SourceTableViewController list(application.delegate);
    list.loadViewIfNeeded();
    SearchBar& bar = *list.list.searchController->searchBar();
    bar.setText(QStringLiteral("MITH"));
    EXPECT_EQ(list.FilteredSourceList, QStringList({"Smith", "blacksmith"}));
    EXPECT_EQ(header(list), "2 Source(s)");
    // A lower-cased dotted capital I is two characters.
    bar.setText(QStringLiteral("i\u0307"));
    EXPECT_EQ(list.FilteredSourceList, QStringList("\u0130"));
    bar.setText(QString());
    EXPECT_EQ(header(list), "5 Source(s)");
    // An absent text shows what the last search has found, and searches nothing.
    bar.setText(QStringLiteral("jones"));
    bar.setText(std::nullopt);
    EXPECT_EQ(rows(list), QStringList("Jones 1"));
}

TEST_F(BrowseLists, SortToggleTurnsWhatIsShownAlone) {
    for (const char* author : {"b", "a", "B", "ab"})
        application.addQuote({.author = author});
    AuthorTableViewController list(application.delegate);
    EXPECT_NE(fatalMessageOf([&] { list.list.SortData(); }), "");
    list.loadViewIfNeeded();
    EXPECT_EQ(list.list.SortButton->image(), "arrow.up.arrow.down");
    list.list.SortButton->press();
    EXPECT_EQ(list.AuthorList, QStringList({"b", "ab", "a", "B"}));
    list.list.SortButton->press();
    list.list.searchController->searchBar()->setText(QStringLiteral("b"));
    list.list.SortButton->press();
    EXPECT_EQ(list.FilteredAuthorList, QStringList({"b", "ab", "B"}));
    EXPECT_EQ(list.AuthorList, QStringList({"B", "a", "ab", "b"}));
    list.viewWillAppear();
    EXPECT_EQ(list.AuthorList, QStringList({"b", "ab", "a", "B"}));
}

TEST_F(BrowseLists, HaveNoSymbolOnOldSystems) {
    application.environment.systemVersion = {12, 4};
    TopicTableViewController list(application.delegate);
    list.loadViewIfNeeded();
    EXPECT_EQ(list.list.SortButton->image(), "");
    EXPECT_EQ(list.list.SortButton->title(), "Sort");
}

TEST_F(BrowseLists, KeepNamesWhoseLastQuoteHasGone) {
    Event& quote = application.addQuote({.author = "Gone"});
    application.addQuote({.author = "Kept"});
    AuthorTableViewController list(application.delegate);
    list.loadViewIfNeeded();
    application.context().deleteObject(quote);
    application.addQuote({.author = "New"});
    list.viewWillAppear();
    EXPECT_EQ(rows(list), QStringList({"Gone 0", "Kept 1", "New 1"}));
    AuthorTableViewController fresh(application.delegate);
    fresh.loadViewIfNeeded();
    EXPECT_EQ(rows(fresh), QStringList({"Kept 1", "New 1"}));
}

TEST_F(BrowseLists, HandOnTheChosenName) {
    application.addQuote({.author = "A", .category = "T", .source = "S\nx"});
    AuthorTableViewController authors(application.delegate);
    SourceTableViewController sources(application.delegate);
    TopicTableViewController topics(application.delegate);
    for (TableViewController* list :
         std::initializer_list<TableViewController*>{&authors, &sources, &topics}) {
        list->loadViewIfNeeded();
        list->tableView()->selectRow(0);
    }
    const SelectionValues& selection = application.selection;
    EXPECT_EQ(selection.chosenAuthorName, "A");
    EXPECT_EQ(selection.selectedAuthor, "A");
    EXPECT_EQ(selection.chosenSourceName, "S\nx");
    EXPECT_EQ(selection.selectedSource, "S\nx");
    EXPECT_EQ(selection.selectedTopic, "T");
    EXPECT_EQ(selection.chosenTopicName, "");
}

// So many quotes take a second to enter with the sanitizers.
TEST_F(BrowseLists, CountUpToSixteenBits) {
    const auto add = [&](int count) {
        for (int i = 0; i < count; ++i)
            application.context().insert<Event>()->setCategory(QStringLiteral("T"));
    };
    add(32767);
    TopicTableViewController list(application.delegate);
    list.loadViewIfNeeded();
    EXPECT_EQ(rows(list), QStringList("T 32767"));
    add(1);
    EXPECT_NE(fatalMessageOf([&] { rows(list); }), "");
}

} // namespace

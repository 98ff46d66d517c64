#include "names/RecordLists.h"
#include "names/TopicTableTableViewController.h"
#include "support/TestApplication.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

class RecordLists : public testing::Test {
protected:
    template <class Record>
    void addNames(void (Record::*set)(const std::optional<QString>&), const QStringList& names) {
        for (const QString& name : names)
            (application.context().insert<Record>()->*set)(name);
        application.delegate.saveContext();
    }

    static QStringList rows(TableViewController& list) {
        QStringList rows;
        for (int row = 0; row < list.numberOfRowsInSection(0); ++row)
            rows.append(
                qobject_cast<Label*>(list.cellForRowAtIndexPath(row)->labels().at(0))->text());
        return rows;
    }

    static Label& header(TableViewController& list) { return *list.tableView()->header(); }

    TestApplication application;
};

TEST_F(RecordLists, SeedThemselvesFromTheQuotesWhenEmpty) {
    for (const char* author : {"Smith", "smith", "Smith"})
        application.addQuote({.author = author, .source = ""});
    NewAuthorTableViewController authors(application.delegate);
    authors.loadViewIfNeeded();
    EXPECT_EQ(rows(authors), QStringList({"Smith", "smith"}));
    EXPECT_EQ(application.selection.callingScreen, "NewAuthor");
    EXPECT_EQ(header(authors).text(), "# Authors: = 2");
    EXPECT_EQ(header(authors).backgroundColor(), lightGrey);
    EXPECT_EQ(header(authors).fontSize(), 18);
    EXPECT_FALSE(application.context().hasChanges());

    NewSourceTableViewController sources(application.delegate);
    sources.loadViewIfNeeded();
    EXPECT_EQ(rows(sources), QStringList(""));
    EXPECT_EQ(application.selection.callingScreen, "NewSource");
    EXPECT_EQ(header(sources).text(), "# Sources = 1");
    EXPECT_EQ(sources.titleForHeaderInSection(0), "# of Sources = 1");

    // What is there is not seeded again, until all is deleted.
    application.addQuote({.author = "New", .source = "N"});
    for (int deleted = 0; deleted < 2; ++deleted)
        authors.tableView()->performSwipeAction(0, 0);
    EXPECT_EQ(header(authors).text(), "# Authors: = 0");
    NewAuthorTableViewController again(application.delegate);
    again.loadViewIfNeeded();
    EXPECT_EQ(rows(again), QStringList({"New", "Smith", "smith"}));
    NewSourceTableViewController sourcesAgain(application.delegate);
    sourcesAgain.loadViewIfNeeded();
    EXPECT_EQ(rows(sourcesAgain), QStringList(""));
}

TEST_F(RecordLists, OfAnEmptyStoreStayEmptyAndOfAnIncompleteQuoteEnd) {
    NewAuthorTableViewController authors(application.delegate);
    authors.loadViewIfNeeded();
    EXPECT_EQ(header(authors).text(), "# Authors: = 0");
    application.addQuote({.author = "A"});
    NewSourceTableViewController sources(application.delegate);
    EXPECT_NE(fatalMessageOf([&] { sources.loadViewIfNeeded(); }), "");
    EXPECT_TRUE(application.all<Sources>().empty());
}

TEST_F(RecordLists, DeleteARecordAndNoQuote) {
    application.addQuote({.author = "B"});
    addNames(&Authors::setName, {"C", "B", "A"});
    NewAuthorTableViewController list(application.delegate);
    list.loadViewIfNeeded();
    EXPECT_EQ(list.tableView()->swipeActionTitles(1), QStringList("delete"));
    const QSignalSpy removed(list.tableView(), &QAbstractItemModel::rowsRemoved);
    list.tableView()->performSwipeAction(1, 0);
    ASSERT_EQ(removed.size(), 1);
    EXPECT_EQ(removed.at(0).at(1), 1);
    EXPECT_EQ(rows(list), QStringList({"A", "C"}));
    EXPECT_FALSE(application.context().hasChanges());
    EXPECT_EQ(application.all<Event>().size(), 1U);
    application.notes.undo();
    EXPECT_EQ(rows(list), QStringList({"A", "B", "C"}));
    EXPECT_FALSE(application.context().hasChanges());
}

TEST_F(RecordLists, HandOnTheChosenNameAndFetchAnewWhenTheyAppear) {
    addNames(&Sources::setName, {"S"});
    addNames(&Topics::setTopic, {"T"});
    NewSourceTableViewController sources(application.delegate);
    TopicTableTableViewController topics(application.delegate);
    sources.loadViewIfNeeded();
    topics.loadViewIfNeeded();
    sources.tableView()->selectRow(0);
    topics.tableView()->selectRow(0);
    EXPECT_EQ(application.selection.chosenSourceName, "S");
    EXPECT_EQ(application.selection.chosenTopicName, "T");
    addNames(&Sources::setName, {"R"});
    addNames(&Topics::setTopic, {"R"});
    EXPECT_EQ(sources.SourceStringList, QStringList("S"));
    sources.viewWillDisappear();
    EXPECT_EQ(sources.SourceList.size(), 0U);
    EXPECT_EQ(sources.SourceStringList, QStringList());
    // The view still shows rows while it slides away.
    EXPECT_NE(sources.tableView()->beginDisplaying(0), nullptr);
    sources.viewWillAppear();
    topics.viewWillAppear();
    EXPECT_EQ(rows(sources), QStringList({"R", "S"}));
    EXPECT_EQ(rows(topics), QStringList({"R", "T"}));
    EXPECT_NE(fatalMessageOf([&] { topics.didSelectRowAtIndexPath(2); }), "");
}

TEST_F(RecordLists, OfTopicsFollowTheirRecordsThroughTheFetchedResults) {
    addNames(&Topics::setTopic, {"d", "b", "a", "c"});
    TopicTableTableViewController list(application.delegate);
    list.loadViewIfNeeded();
    EXPECT_EQ(header(list).text(), "# Topics: = 4");
    EXPECT_EQ(list.heightForRowAtIndexPath(0), 40);
    const QSignalSpy removed(list.tableView(), &QAbstractItemModel::rowsRemoved);
    const QSignalSpy inserted(list.tableView(), &QAbstractItemModel::rowsInserted);
    list.commitEditingStyle(EditingStyle::Insert, 1);
    EXPECT_EQ(removed.size(), 0);
    EXPECT_EQ(list.tableView()->swipeActionTitles(1), QStringList("delete"));
    list.tableView()->performSwipeAction(1, 0);
    ASSERT_EQ(removed.size(), 1);
    EXPECT_EQ(removed.at(0).at(1), 1);
    EXPECT_EQ(rows(list), QStringList({"a", "c", "d"}));
    EXPECT_EQ(header(list).text(), "# Topics: = 3");
    EXPECT_FALSE(application.context().hasChanges());

    // Once there, the fetched results tell of every save.
    addNames(&Topics::setTopic, {"cc"});
    ASSERT_EQ(inserted.size(), 1);
    EXPECT_EQ(inserted.at(0).at(1), 2);
    EXPECT_EQ(rows(list), QStringList({"a", "c", "cc", "d"}));
    list.TopicList.front()->setTopic(QStringLiteral("z"));
    application.delegate.saveContext();
    EXPECT_EQ(rows(list), QStringList({"c", "cc", "d", "z"}));
    EXPECT_EQ(list.tableView()->rowCount(), 4);
    list.tableView()->performSwipeAction(3, 0);
    EXPECT_EQ(application.names(&Topics::topic), QStringList({"d", "c", "cc"}));
}

} // namespace

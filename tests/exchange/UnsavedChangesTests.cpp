#include "exchange/Collection.h"
#include "exchange/UnsavedChanges.h"
#include "foundation/TextFile.h"
#include "support/TestApplication.h"
#include "support/TestFiles.h"

#include <gtest/gtest.h>

namespace {

TEST(UnsavedChanges, AreKeptInAFileThatImportReads) {
    TestApplication application;
    const QString folder = application.folder.path();
    const auto keep = [&](const QString& place) {
        return keepUnsavedChanges(application.context(), place, QStringLiteral("2021-03-01"));
    };
    application.addQuote({"A", "T", "S", "saved"});
    Event& deleted = application.addQuote({"A", "T", "S", "deleted"});
    EXPECT_EQ(keep(folder), "");

    application.context().deleteObject(deleted);
    Event& quote = *application.context().insert<Event>();
    quote.setCategory(QStringLiteral("U"));
    quote.setQuote(QStringLiteral("two\nlines"));
    application.context().insert<Event>()->setQuote(QStringLiteral("without a topic"));
    application.context().insert<Topics>()->setTopic(QStringLiteral("V"));
    application.context().insert<Authors>()->setName(QStringLiteral("A"));
    EXPECT_EQ(keep(folder + QStringLiteral("/absent")),
              "Not kept: 1 quote, 1 topic, 2 other records, 1 deletion.");
    const QString path = folder + QStringLiteral("/Lantern, not saved 2021-03-01.csv");
    EXPECT_EQ(
        keep(folder),
        QStringLiteral("Not saved, but kept in \"%1\", which Import reads: 1 quote, 1 topic.\n"
                       "Not kept: 2 other records, 1 deletion.")
            .arg(path));
    EXPECT_TRUE(keep(folder).contains(QStringLiteral("2021-03-01 (2).csv")));

    TestApplication other;
    importCollection(other.context(), std::get<QString>(readTextFile(path)), {}, path,
                     other.environment);
    ASSERT_EQ(other.all<Event>().size(), 1U);
    EXPECT_EQ(other.all<Event>().front()->quote(), QStringLiteral("two\nlines"));
    EXPECT_EQ(other.all<Event>().front()->source(), std::nullopt);
    EXPECT_EQ(other.names<Topics>(&Topics::topic), QStringList("V"));
}

} // namespace

#include "foundation/FatalError.h"
#include "support/StoreFixture.h"

#include <csignal>
#include <cstdlib>

using SaveGroupTest = StoreTest;

TEST_F(SaveGroupTest, WritesItsSavesWhenItEndsAndNothingElse) {
    const auto container = open();
    const auto witness = open();
    auto& context = container->viewContext();
    {
        SaveGroup group(context);
        insertTopic(context, QStringLiteral("saved"));
        {
            SaveGroup inner(context);
            save(context);
        }
        EXPECT_TRUE(context.hasChanges());
        EXPECT_TRUE(topics(witness->viewContext()).empty());
        insertTopic(context, QStringLiteral("not saved"));
        EXPECT_FALSE(group.finish());
    }
    EXPECT_EQ(topics(witness->viewContext()), std::vector{QStringLiteral("saved")});
    EXPECT_TRUE(context.hasChanges());
    save(context);
    EXPECT_EQ(topics(witness->viewContext()).size(), 2U);
}

// In a process that does end: a handler that throws would unwind the group, which writes it too.
TEST_F(SaveGroupTest, IsWrittenBeforeAFatalError) {
    const int status = inOtherProcess([this]() -> int {
        const auto container = open();
        auto& context = container->viewContext();
        const SaveGroup group(context);
        insertTopic(context, QStringLiteral("saved"));
        save(context);
        insertTopic(context, QStringLiteral("half-made"));
        fatalError(QStringLiteral("no date"));
    });
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), EXIT_FAILURE);
    EXPECT_EQ(topics(open()->viewContext()), std::vector{QStringLiteral("saved")});
}

TEST_F(SaveGroupTest, LeavesTheStoreAsItWasWhenTheProcessIsKilled) {
    {
        const auto container = open();
        insertTopic(container->viewContext(), QStringLiteral("before"));
        save(container->viewContext());
    }
    const int status = inOtherProcess([this] {
        const auto container = open();
        const SaveGroup group(container->viewContext());
        for (int i = 0; i < 1000; ++i) {
            insertTopic(container->viewContext(), QStringLiteral("imported"));
            save(container->viewContext());
        }
        return ::raise(SIGKILL);
    });
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(topics(open()->viewContext()), std::vector{QStringLiteral("before")});
}

TEST_F(SaveGroupTest, TakesAllBackWhenItIsCancelled) {
    const auto container = open();
    auto& context = container->viewContext();
    const auto quotesBy = [&context](const char* author) {
        auto request = Event::fetchRequest();
        request.predicate = Event::Keys::author == QString::fromLatin1(author);
        return context.fetch(request).records.size();
    };
    const auto values = [](const Event& quote) {
        return std::tuple(quote.author(), quote.quote(), quote.timestamp(), quote.hasChanges());
    };
    auto& saved = *context.insert<Event>();
    saved.setAuthor(QStringLiteral("Ann"));
    saved.setQuote(QStringLiteral("before"));
    saved.setTimestamp(Date(std::chrono::hours(5)));
    save(context);
    auto& pending = *context.insert<Event>();
    pending.setAuthor(QStringLiteral("Ann"));
    const auto before = std::tuple(values(saved), values(pending));
    for (const bool isWritten : {false, true}) {
        SaveGroup group(context, SaveGroup::Kind::Cancellable);
        for (Event* quote : {&saved, &pending, context.insert<Event>()}) {
            quote->setAuthor(QStringLiteral("Bob"));
            quote->setQuote(QString(1000, u'x'));
            quote->setQuote(std::nullopt);
            quote->setTimestamp(std::nullopt);
        }
        save(context);
        EXPECT_EQ(quotesBy("Bob"), 3);
        if (isWritten) {
            EXPECT_FALSE(group.writePart());
        }
        group.cancel();
        EXPECT_EQ(std::tuple(values(saved), values(pending)), before);
        EXPECT_EQ(quotesBy("Bob"), 0);
        EXPECT_EQ(quotesBy("Ann"), 2);
    }
    save(context);
    const auto witness = open();
    EXPECT_EQ(witness->viewContext().fetch(Event::fetchRequest()).records.size(), 2);
}

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

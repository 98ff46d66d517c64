#include "support/TestApplication.h"
#include "toolkit/LongWork.h"

#include <gtest/gtest.h>
#include <thread>

namespace {

using namespace std::chrono_literals;

/** Work of so many steps, each as long as a slice. */
struct Steps {
    int left = 0;
    int done = 0;
    std::vector<bool> ends = {}; ///< whether it was cancelled

    void run(LongWork& work) {
        work.run(
            QStringLiteral("Work"),
            [this, all = left]() -> std::optional<double> {
                if (left == 0)
                    return std::nullopt;
                std::this_thread::sleep_for(20ms);
                ++done;
                return 1 - double(--left) / all;
            },
            [this](bool isCancelled) { ends.push_back(isCancelled); });
    }
};

TEST(LongWork, IsDoneInSlicesUntilItEnds) {
    ManualMainQueue queue;
    LongWork work(queue);
    Steps steps{4};
    steps.run(work);
    EXPECT_EQ(steps.done, 1);
    EXPECT_EQ(work.done(), 0.25);
    EXPECT_EQ(work.title(), "Work");
    for (int slice = 2; slice <= 4; ++slice) {
        queue.runAll();
        EXPECT_EQ(steps.done, slice);
        EXPECT_TRUE(steps.ends.empty());
    }
    queue.runAll();
    EXPECT_EQ(steps.ends, std::vector{false});
    EXPECT_EQ(work.title(), "");
    EXPECT_TRUE(queue.waiting.empty());
}

TEST(LongWork, EndsOnceWhenItIsCancelledOrOtherWorkBegins) {
    ManualMainQueue queue;
    LongWork work(queue);
    Steps first{9};
    first.run(work);
    work.cancel();
    work.cancel();
    EXPECT_EQ(first.ends, std::vector{true});
    EXPECT_EQ(work.title(), "");
    Steps second{9};
    second.run(work);
    Steps third{2};
    third.run(work);
    EXPECT_EQ(second.ends, std::vector{true});
    queue.runAll(); // with the slices that wait of what was cancelled
    EXPECT_EQ(first.done + second.done, 2);
    EXPECT_EQ(third.done, 2);
}

} // namespace

#include "foundation/MainQueue.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>

#include <gtest/gtest.h>
#include <numeric>
#include <vector>

namespace {

/** An export of a large collection posts one step for each of its quotes. */
TEST(MainQueue, RunsManyStepsSoonAndInOrder) {
    constexpr int steps = 100'000;
    EventLoopMainQueue queue;
    QEventLoop loop;
    std::vector<int> order;
    queue.after(0.02, [&] { loop.quit(); });
    for (int step = 0; step < steps; ++step)
        queue.async([&order, step] { order.push_back(step); });
    queue.after(0.0001, [&] { order.push_back(int(order.size())); });
    QElapsedTimer time;
    time.start();
    loop.exec();
    std::vector<int> expected(steps + 1);
    std::iota(expected.begin(), expected.end(), 0);
    EXPECT_TRUE(order == expected);
    EXPECT_LT(time.elapsed(), 5000);
}

TEST(MainQueue, TakesWhatWaitsWithIt) {
    int ran = 0;
    {
        EventLoopMainQueue queue;
        queue.after(0, [&ran] { ++ran; });
        queue.async([&ran] { ++ran; });
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(ran, 0);
}

} // namespace

#include "foundation/FatalError.h"

#include <QStringList>

#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

class FatalErrorTest : public testing::Test {
public:
    FatalErrorTest() {
        setFatalErrorHandler([](const FatalError& error) { throw error; });
    }
    ~FatalErrorTest() override { setFatalErrorHandler(nullptr); }
};

} // namespace

TEST_F(FatalErrorTest, TellsTheHandlerWhatAndWhere) {
    int line = 0;
    try {
        line = __LINE__ + 1;
        fatalError(QStringLiteral("50 % of %1 lost"));
    } catch (const FatalError& error) {
        EXPECT_EQ(error.line, line);
        EXPECT_EQ(error.file, QStringLiteral("FatalErrorTests.cpp"));
        EXPECT_EQ(error.report(),
                  QStringLiteral("Fatal error: 50 % of %1 lost (FatalErrorTests.cpp, line ") +
                      QString::number(line) + QLatin1Char(')'));
    }
}

TEST_F(FatalErrorTest, RunsTheOpenCleanupsOnceTheLatestFirst) {
    QStringList done;
    const FatalErrorCleanup first([&] { done.append(QStringLiteral("first")); });
    {
        const FatalErrorCleanup closed([&] { done.append(QStringLiteral("closed")); });
    }
    const FatalErrorCleanup last([&] { done.append(QStringLiteral("last")); });
    EXPECT_THROW(fatalError(QStringLiteral("one")), FatalError);
    EXPECT_EQ(done, QStringList({QStringLiteral("last"), QStringLiteral("first")}));
    EXPECT_THROW(fatalError(QStringLiteral("two")), FatalError)
        << "an error that was thrown is over";
    EXPECT_EQ(done.size(), 2);
}

TEST(FatalErrorDeathTest, EndsTheProgramWithItsReport) {
    EXPECT_EXIT(fatalError(QStringLiteral("disk gone")), testing::ExitedWithCode(EXIT_FAILURE),
                "Fatal error: disk gone \\(FatalErrorTests.cpp, line [0-9]+\\)");
    EXPECT_EXIT(
        {
            setFatalErrorHandler([](const FatalError&) { std::fputs("shown ", stderr); });
            fatalError(QStringLiteral("disk gone"));
        },
        testing::ExitedWithCode(EXIT_FAILURE), "Fatal error: disk gone[^\n]*\nshown");
}

TEST(FatalErrorDeathTest, EndsAtOnceWhenACleanupFailsToo) {
    EXPECT_EXIT(
        {
            const FatalErrorCleanup outer([] { std::fputs("outer ", stderr); });
            const FatalErrorCleanup inner([] { fatalError(QStringLiteral("second")); });
            fatalError(QStringLiteral("first"));
        },
        testing::ExitedWithCode(EXIT_FAILURE), "first \\(.*\\)\nFatal error: second \\(.*\\)\n$");
}

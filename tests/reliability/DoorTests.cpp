#include "foundation/RegularExpression.h"
#include "support/StoreFixture.h"

#include <QElapsedTimer>

namespace {

using Doors = StoreTest;

} // namespace

TEST(Expressions, DoNotHoldTheProgram) {
    const auto repeated = [](const char* text, int count) {
        return QString::fromLatin1(text).repeated(count);
    };
    const std::pair<QString, QString> slow[]{
        {QStringLiteral("(x+x+)+y"), repeated("x", 5000)},
        // No single search is slow, but there are many.
        {QStringLiteral("(x+x+)+y|z"), repeated("xxxxxxxxxxxxxz", 200'000)},
        {QStringLiteral("(.*)(.*)(.*)(.*)(.*)[^a]"), repeated("a", 100'000)},
        {repeated("(", 100'000), QStringLiteral("text")},
        {QStringLiteral("(((x{1,999}){1,999}){1,999})"), repeated("x", 1000)},
    };
    for (const auto& [pattern, text] : slow) {
        QElapsedTimer timer;
        timer.start();
        matchesIgnoringCase(pattern, text);
        EXPECT_LT(timer.elapsed(), 5000) << pattern.left(40).toStdString();
    }
}

// A link where a file is made leads to no other file; the store itself may be one of the user's
// own.
TEST_F(Doors, DoNotLeadThroughPlantedLinks) {
    ASSERT_TRUE(QDir().mkpath(folder()));
    const QString target = m_folder.filePath(QStringLiteral("target"));
    ASSERT_TRUE(QFile::link(target, path() + QStringLiteral("-lock")));
    EXPECT_FALSE(openingError().description.isEmpty());
    EXPECT_FALSE(QFile::exists(target));
    QFile::remove(path() + QStringLiteral("-lock"));

    for (const char* companion : {"-wal", "-journal"}) {
        QFile secret(target);
        ASSERT_TRUE(secret.open(QIODevice::WriteOnly));
        secret.write("secret");
        secret.close();
        const QString link = path() + QLatin1String(companion);
        ASSERT_TRUE(QFile::link(target, link));
        {
            PersistentContainer container(QStringLiteral("Lantern"), folder());
            if (!container.loadPersistentStores()) {
                insertTopic(container.viewContext(), QStringLiteral("topic"));
                [[maybe_unused]] const auto error = container.viewContext().save();
            }
        }
        ASSERT_TRUE(secret.open(QIODevice::ReadOnly));
        EXPECT_EQ(secret.readAll(), "secret") << companion;
        secret.close();
        QFile::remove(link);
    }
}

#include "store/Backups.h"
#include "support/StoreFixture.h"

#include <QDate>
#include <QFileInfo>
#include <QLoggingCategory>

#include <array>
#include <sys/stat.h>
#include <tuple>

namespace {

class BackupTest : public StoreTest {
protected:
    BackupTest() { QLoggingCategory::setFilterRules(QStringLiteral("lantern.*=false")); }
    ~BackupTest() override { QLoggingCategory::setFilterRules({}); }

    /** Starts, adds topics one save each, and ends, which waits for the copy. */
    void addTopics(const QStringList& added) {
        PersistentContainer container(QStringLiteral("Lantern"), folder(),
                                      [this] { return today; });
        ASSERT_FALSE(container.loadPersistentStores());
        for (const QString& topic : added) {
            insertTopic(container.viewContext(), topic);
            save(container.viewContext());
        }
    }

    static std::vector<QString> topicsIn(const QString& file) {
        const QTemporaryDir place;
        QFile::copy(file, place.filePath(QStringLiteral("Lantern.sqlite")));
        PersistentContainer container(QStringLiteral("Lantern"), place.path());
        EXPECT_FALSE(container.loadPersistentStores());
        return topics(container.viewContext());
    }

    void put(const QString& file, const QByteArray& content) const {
        QDir().mkpath(QFileInfo(file).path());
        QFile written(file);
        ASSERT_TRUE(written.open(QFile::WriteOnly));
        written.write(content);
    }

    QStringList filesOfBackups() const {
        return QDir(folder() + QStringLiteral("/backups")).entryList(QDir::Files | QDir::Hidden);
    }

    QString today = QStringLiteral("2021-03-01");
    const Backups m_backups{folder(), QStringLiteral("Lantern")};
};

TEST_F(BackupTest, IsMadeBeforeTheFirstChangeOfADay) {
    const mode_t umask = ::umask(0);
    addTopics({QStringLiteral("a")});
    EXPECT_FALSE(QDir(folder() + QStringLiteral("/backups")).exists())
        << "nothing was there before";
    addTopics({});
    EXPECT_EQ(m_backups.days(), QStringList()) << "nothing changed";
    addTopics({QStringLiteral("b"), QStringLiteral("c")});
    addTopics({QStringLiteral("d")});
    today = QStringLiteral("2021-03-02");
    addTopics({QStringLiteral("e")});
    ::umask(umask);
    EXPECT_EQ(filesOfBackups(), QStringList({QStringLiteral("Lantern-2021-03-01.sqlite"),
                                             QStringLiteral("Lantern-2021-03-02.sqlite")}));
    const QString first = m_backups.pathOf(QStringLiteral("2021-03-01"));
    EXPECT_EQ(topicsIn(first), std::vector{QStringLiteral("a")});
    EXPECT_EQ(topicsIn(m_backups.pathOf(today)).size(), 4U);
    for (const auto& [path, mode] : {std::pair(first, 0600U), {QFileInfo(first).path(), 0700U}}) {
        struct stat status {};
        ::stat(QFile::encodeName(path).constData(), &status);
        EXPECT_EQ(status.st_mode & 0777, mode);
    }
}

TEST_F(BackupTest, GoesOnlyAfterANewerOneIsWhole) {
    addTopics({QStringLiteral("a")});
    QStringList old;
    for (int day = 10; day < 20; ++day)
        put(m_backups.pathOf(QStringLiteral("2021-02-%1").arg(day)), "damaged");
    old = m_backups.days();
    const QString draft = folder() + QStringLiteral("/backups/Lantern.part");
    QDir().mkpath(draft + QStringLiteral("/in the way"));
    addTopics({QStringLiteral("b")});
    EXPECT_EQ(m_backups.days(), old);
    EXPECT_EQ(topics(open()->viewContext()).size(), 2U) << "the save is not held up";
    EXPECT_EQ(m_backups.newestWholeDay(), std::nullopt);

    QDir(draft).removeRecursively();
    today = QString(300, u'9'); // longer than a file's name may be
    addTopics({QStringLiteral("c")});
    EXPECT_EQ(m_backups.days(), old);
    EXPECT_EQ(filesOfBackups().size(), old.size());

    today = QStringLiteral("2021-03-01");
    put(draft, "left by a kill");
    addTopics({QStringLiteral("d")});
    EXPECT_EQ(m_backups.days().first(), today);
    EXPECT_EQ(m_backups.days().size(), 7);
    put(m_backups.pathOf(QStringLiteral("2021-03-05")), "damaged");
    EXPECT_EQ(m_backups.newestWholeDay(), today);
}

TEST(Days, OfTheLastWeekAndOfEachOfFourWeeksAreKept) {
    const auto keptOf = [](const QDate& first, int count, int step) {
        QStringList days;
        for (int i = 0; i < count; ++i)
            days.append(first.addDays(i * step).toString(Qt::ISODate));
        for (const QString& day : superfluousDays(days))
            days.removeOne(day);
        return days.join(u' ');
    };
    EXPECT_EQ(keptOf(QDate(2020, 12, 1), 35, 1), // to Monday, 4 January
              QStringLiteral("2020-12-20 2020-12-27 2020-12-29 2020-12-30 2020-12-31 2021-01-01 "
                             "2021-01-02 2021-01-03 2021-01-04"));
    EXPECT_EQ(keptOf(QDate(2021, 1, 4), 9, 7).count(u'-'), 7 * 2) << "seven, a week apart";
    EXPECT_EQ(keptOf(QDate(2021, 1, 4), 7, 1).count(u'-'), 7 * 2);
}

/** Another program's work on a store that is open. */
enum Work { MoveOver, MoveAway, Delete, DeleteFolder, WriteOver };

class LossTest : public StoreTest, public testing::WithParamInterface<std::tuple<Work, bool>> {
protected:
    void doWork(Work work) const {
        if (work == DeleteFolder)
            QDir(folder()).removeRecursively();
        else if (work == MoveAway)
            QFile::rename(path(), path() + QStringLiteral(".away"));
        else if (work != WriteOver)
            QFile::remove(path());
        if (work == MoveOver)
            QFile::rename(otherPath(), path());
        if (work == WriteOver) {
            QFile other(otherPath());
            QFile file(path());
            ASSERT_TRUE(other.open(QFile::ReadOnly) && file.open(QFile::WriteOnly));
            file.write(other.readAll());
        }
    }

    void writeOther() const {
        PersistentContainer other(QStringLiteral("Lantern"),
                                  m_folder.filePath(QStringLiteral("o")));
        ASSERT_FALSE(other.loadPersistentStores());
        insertTopic(other.viewContext(), QStringLiteral("other"));
        save(other.viewContext());
    }

    QString otherPath() const { return m_folder.filePath(QStringLiteral("o/Lantern.sqlite")); }

    std::optional<QByteArray> found() const {
        QFile file(path());
        return file.open(QFile::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
    }

    std::vector<QString> topicsInTheCopy() const {
        const QDir backups(folder() + QStringLiteral("/backups"));
        const QStringList files = backups.entryList(QDir::Files | QDir::Hidden);
        if (files.size() != 1)
            return {};
        QFile::copy(backups.filePath(files.first()),
                    m_folder.filePath(QStringLiteral("Copy.sqlite")));
        PersistentContainer container(QStringLiteral("Copy"), m_folder.path());
        EXPECT_FALSE(container.loadPersistentStores());
        return topics(container.viewContext());
    }
};

TEST_P(LossTest, IsSaidAndLeavesWhatIsThere) {
    const auto [work, isPending] = GetParam();
    writeOther();
    std::optional<QByteArray> left;
    {
        const auto container = open();
        auto& context = container->viewContext();
        insertTopic(context, QStringLiteral("saved"));
        save(context);
        doWork(work);
        left = found();
        if (isPending)
            insertTopic(context, QStringLiteral("pending"));
        for (int i = 0; i < 2 && isPending; ++i) {
            const auto error = context.save();
            ASSERT_TRUE(error);
            EXPECT_EQ(error->cause, StoreError::Cause::Loss);
            EXPECT_TRUE(context.hasChanges());
        }
    }
    EXPECT_EQ(found(), left);
    EXPECT_FALSE(QFile::exists(path() + QStringLiteral("-wal")));
    EXPECT_EQ(topicsInTheCopy(),
              work == WriteOver ? std::vector<QString>() : std::vector{QStringLiteral("saved")});
    if (left) {
        EXPECT_EQ(topics(open()->viewContext()), std::vector{QStringLiteral("other")});
    }
}

TEST_F(StoreTest, LosesNothingWhenItsTimeIsSetOrItsLogIsTakenAway) {
    const auto container = open();
    auto& context = container->viewContext();
    insertTopic(context, QStringLiteral("a"));
    save(context);
    for (const char* topic : {"b", "c"}) {
        QFile file(path());
        ASSERT_TRUE(file.open(QFile::Append) &&
                    file.setFileTime(QDateTime::currentDateTime(), QFile::FileModificationTime));
        file.close();
        if (*topic == 'c') {
            QFile::remove(path() + QStringLiteral("-wal"));
        }
        insertTopic(context, QString::fromLatin1(topic));
        save(context);
    }
    for (const char* end : {"", "-wal"})
        QFile::copy(path() + QLatin1String(end),
                    m_folder.filePath(QStringLiteral("Copy.sqlite") + QLatin1String(end)));
    PersistentContainer copy(QStringLiteral("Copy"), m_folder.path());
    ASSERT_FALSE(copy.loadPersistentStores());
    EXPECT_EQ(topics(copy.viewContext()).size(), 3U) << "what a kill would leave";
}

INSTANTIATE_TEST_SUITE_P(ByWork, LossTest,
                         testing::Combine(testing::Values(MoveOver, MoveAway, Delete, DeleteFolder,
                                                          WriteOver),
                                          testing::Bool()));

} // namespace

#include "store/Connection.h"
#include "support/StoreFixture.h"

#include <QFileInfo>

#include <array>
#include <csignal>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

class PersistenceTest : public StoreTest {
protected:
    void execute(const char* sql) const {
        QDir().mkpath(folder());
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(QFile::encodeName(path()).constData(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(database);
    }

    mode_t mode(const QString& file) const {
        struct stat status {};
        EXPECT_EQ(::stat(QFile::encodeName(file).constData(), &status), 0);
        return status.st_mode & 0777;
    }

    void expectRefusal(const QString& reason) const {
        const auto before = bytes();
        const auto error = openingError();
        EXPECT_TRUE(error.description.contains(path()));
        EXPECT_TRUE(error.description.contains(reason)) << error.description.toStdString();
        EXPECT_EQ(bytes(), before);
    }
};

// Ends this process's writing beyond a file size, as a full disk would.
void limitFileSize(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes;
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

} // namespace

TEST_F(PersistenceTest, KeepsEveryValueAcrossReopening) {
    const Date longAgo(std::chrono::milliseconds(-62135596800123));
    const QString odd =
        QStringLiteral("\uFEFF\uFEFFa\0b^\n\"\U0001F600 ß").replace(u'^', QChar(u'\0'));
    {
        const auto container = open();
        auto& context = container->viewContext();
        context.insert<Event>();
        auto* full = context.insert<Event>();
        full->setQuote(odd);
        full->setAuthor(odd);
        full->setSource(QString());
        full->setCategory(QString(QChar(0xd83d)) + u'x');
        full->setTimestamp(longAgo);
        context.insert<Authors>()->setName(QStringLiteral("Same"));
        context.insert<Authors>()->setName(QStringLiteral("Same"));
        context.insert<Sources>()->setName(QStringLiteral("Source"));
        insertTopic(context, QStringLiteral("Topic"));
        save(context);
    }
    EXPECT_EQ(
        QDir(folder()).entryList(QDir::Files),
        QStringList({QStringLiteral("Lantern.sqlite"), QStringLiteral("Lantern.sqlite-lock")}));

    const auto container = open();
    auto& context = container->viewContext();
    const auto events = fetched<Event>(context);
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[0]->quote(), std::nullopt);
    EXPECT_EQ(events[0]->author(), std::nullopt);
    EXPECT_EQ(events[0]->timestamp(), std::nullopt);
    EXPECT_EQ(events[1]->quote(), odd);
    EXPECT_EQ(events[1]->author(), odd);
    EXPECT_EQ(events[1]->source(), QString());
    EXPECT_EQ(events[1]->category(), QString(QChar(0xfffd)) + u'x');
    EXPECT_EQ(events[1]->timestamp(), longAgo);
    EXPECT_EQ(fetched(context, Authors::Keys::name == QStringLiteral("Same")).size(), 2U);
    EXPECT_EQ(fetched<Sources>(context).at(0)->name(), QStringLiteral("Source"));
    EXPECT_EQ(topics(context), std::vector{QStringLiteral("Topic")});
}

TEST_F(PersistenceTest, WritesUpdatesAndDeletions) {
    {
        const auto container = open();
        auto& context = container->viewContext();
        auto* changed = insertTopic(context, QStringLiteral("old"));
        auto* deleted = insertTopic(context, QStringLiteral("deleted"));
        insertTopic(context, QStringLiteral("kept"));
        save(context);
        changed->setTopic(QStringLiteral("new"));
        save(context);
        context.deleteObject(*deleted);
        save(context);
        changed->setTopic(QStringLiteral("not saved"));
    }
    EXPECT_EQ(topics(open()->viewContext()),
              (std::vector{QStringLiteral("new"), QStringLiteral("kept")}));
}

TEST_F(PersistenceTest, IsPrivateWhateverTheUmask) {
    QDir().mkpath(folder());
    ASSERT_EQ(::chmod(QFile::encodeName(folder()).constData(), 0755), 0);
    const mode_t before = ::umask(0);
    const auto container = open();
    insertTopic(container->viewContext(), QStringLiteral("Topic"));
    save(container->viewContext());
    ::umask(before);
    EXPECT_EQ(mode(folder()), 0700U);
    EXPECT_EQ(mode(path()), 0600U);
    EXPECT_EQ(mode(path() + QStringLiteral("-wal")), 0600U);
    EXPECT_FALSE(QFile::exists(path() + QStringLiteral("-shm")));
}

TEST_F(PersistenceTest, RefusesFilesThatAreNoStoreAndLeavesThem) {
    QDir().mkpath(folder());
    QFile text(path());
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write(QByteArray(5000, 'x'));
    text.close();
    expectRefusal(QStringLiteral("not a database"));
    EXPECT_EQ(openingError().userInfo, QStringLiteral("{path = %1, sqlite = 26}").arg(path()));
    EXPECT_EQ(openingError().unresolved(),
              QStringLiteral("Unresolved error %1, %2")
                  .arg(openingError().description, openingError().userInfo));

    text.remove();
    execute("CREATE TABLE notes(body)");
    expectRefusal(QStringLiteral("another program"));
    execute("PRAGMA user_version = 1");
    expectRefusal(QStringLiteral("no such table"));
    text.remove();
    open();
    execute("ALTER TABLE event DROP COLUMN source");
    expectRefusal(QStringLiteral("no such column: source"));
    text.remove();
    open();
    execute("PRAGMA user_version = 2");
    expectRefusal(QStringLiteral("newer version"));
}

TEST_F(PersistenceTest, RefusesPathsThatLeadToNoFile) {
    ASSERT_TRUE(QDir().mkpath(path()));
    EXPECT_TRUE(openingError().description.contains(QStringLiteral("it is no file")));
    QDir().rmdir(path());
    ASSERT_EQ(::mkfifo(QFile::encodeName(path()).constData(), 0600), 0);
    EXPECT_TRUE(openingError().description.contains(QStringLiteral("it is no file")));
    QFile::remove(path());

    const QString target = m_folder.filePath(QStringLiteral("target"));
    ASSERT_TRUE(QFile::link(target, path()));
    EXPECT_TRUE(openingError().description.contains(path()));
    EXPECT_FALSE(QFile::exists(target));
    QFile(target).open(QIODevice::WriteOnly);
    EXPECT_TRUE(openingError().description.isEmpty());

    PersistentContainer belowFile(QStringLiteral("Lantern"), target);
    const auto error = belowFile.loadPersistentStores().value_or(StoreError{});
    EXPECT_EQ(error.userInfo, QStringLiteral("{path = %1, errno = 20}").arg(target));
}

TEST_F(PersistenceTest, RefusesAFileThatIsDamagedInside) {
    {
        const auto container = open();
        for (int i = 0; i < 1000; ++i)
            insertTopic(container->viewContext(), QString(1000, u'x'));
        save(container->viewContext());
    }
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_GT(file.size(), 1'000'000);
    // Neither the schema nor the last record, which opening reads, but some between.
    file.seek(file.size() / 2);
    file.write(QByteArray(100'000, '\x55'));
    file.close();
    expectRefusal(QStringLiteral("it is damaged ("));
}

TEST_F(PersistenceTest, IsLockedAgainstOtherProcesses) {
    std::array<int, 2> ready{};
    std::array<int, 2> done{};
    ASSERT_EQ(::pipe(ready.data()), 0);
    ASSERT_EQ(::pipe(done.data()), 0);
    const pid_t child = ::fork();
    char signal = 0;
    if (child == 0) {
        const auto container = open();
        bytes(); // reading and closing the file by another way must not give the lock up
        ::close(done[1]);
        const bool told = ::write(ready[1], "x", 1) == 1;
        ::_exit(container && told && ::read(done[0], &signal, 1) == 0 ? 0 : 1);
    }
    ASSERT_EQ(::read(ready[0], &signal, 1), 1);
    const auto error = openingError();
    ::close(done[1]);
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(error.description.contains(QStringLiteral("another process")));
    EXPECT_TRUE(openingError().description.isEmpty()) << "the lock ends with the process";
}

TEST_F(PersistenceTest, LeavesAFolderUnwritableThatIs) {
    ASSERT_TRUE(QDir().mkpath(folder()));
    ASSERT_EQ(::chmod(QFile::encodeName(folder()).constData(), 0555), 0);
    const bool isRoot = ::geteuid() == 0; // to whom no folder is unwritable
    EXPECT_EQ(openingError().description.isEmpty(), isRoot);
    struct stat status {};
    ASSERT_EQ(::stat(QFile::encodeName(folder()).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0500U);
    ASSERT_EQ(::chmod(QFile::encodeName(folder()).constData(), 0700), 0);
}

TEST_F(PersistenceTest, KeepsChangesPendingWhenTheyCannotBeWritten) {
    const int status = inOtherProcess([this] {
        const auto container = open();
        auto& context = container->viewContext();
        auto* kept = insertTopic(context, QStringLiteral("kept"));
        auto* deleted = insertTopic(context, QStringLiteral("deleted"));
        save(context);
        kept->setTopic(QString(100000, u'x'));
        context.deleteObject(*deleted);
        insertTopic(context, QStringLiteral("inserted"));
        limitFileSize(40000);
        if (!context.save() || !context.hasChanges())
            return 1;
        {
            SaveGroup group(context);
            if (context.save() || !group.finish() || !context.hasChanges())
                return 2;
        }
        if (topics(context).size() != 2 || !deleted->isDeleted())
            return 3;
        limitFileSize(RLIM_INFINITY);
        return context.save() || context.hasChanges() ? 4 : 0;
    });
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(topics(open()->viewContext()),
              (std::vector{QString(100000, u'x'), QStringLiteral("inserted")}));
}

TEST_F(PersistenceTest, GoesOnAfterATransactionThatFailed) {
    const auto opened = StoreConnection::open(folder(), QStringLiteral("Lantern"));
    auto& connection = *std::get<std::shared_ptr<StoreConnection>>(opened);
    // SQLite itself ends a transaction after a full disk, and not after all that may happen.
    EXPECT_FALSE(connection.begin());
    EXPECT_TRUE(connection.end(SQLITE_TOOBIG));
    EXPECT_FALSE(connection.begin());
    EXPECT_FALSE(connection.end(SQLITE_DONE));
}

TEST_F(PersistenceTest, KeepsASaveWhenTheProcessIsKilledAndItsLogShort) {
    const int status = inOtherProcess([this] {
        const auto container = open();
        auto& context = container->viewContext();
        auto* topic = insertTopic(context, QString());
        for (int i = 0; i < 200; ++i) {
            topic->setTopic(QString(100000, QChar(u'a' + i % 26)));
            save(context);
        }
        return ::raise(SIGKILL);
    });
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_LT(QFileInfo(path() + QStringLiteral("-wal")).size(), 8 << 20);
    EXPECT_EQ(topics(open()->viewContext()), std::vector{QString(100000, QChar(u'a' + 199 % 26))});
}

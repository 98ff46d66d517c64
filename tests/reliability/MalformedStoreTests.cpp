#include "reliability/Effort.h"
#include "reliability/StoreContents.h"
#include "store/Schema.h"
#include "support/StoreFixture.h"

#include <QtEndian>

#include <iostream>
#include <map>
#include <random>
#include <sys/stat.h>

namespace {

class MalformedStore : public StoreTest {
protected:
    /** A sound store of some pages, some texts of which fill more than one. */
    QByteArray soundStore() const {
        {
            const auto container = open();
            for (int i = 0; i < 60; ++i) {
                auto* quote = container->viewContext().insert<Event>();
                quote->setAuthor(QStringLiteral("author %1").arg(i % 9));
                quote->setQuote(QString(100 + 400 * (i % 20), QChar(u'a' + i % 26)));
                insertTopic(container->viewContext(), QStringLiteral("topic %1").arg(i));
            }
            save(container->viewContext());
        }
        return bytes();
    }

    /** As the header of a store's file says. */
    static int pageSizeOf(const QByteArray& store) {
        return qFromBigEndian<quint16>(store.constData() + 16);
    }

    void put(const QByteArray& content) const {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }

    enum class Outcome { RefusedAtOpening, RefusedAtReading, Read };

    /** What a store holds that was read. */
    mutable QStringList m_read;

    /** Opens and reads a store as a program does that ends without a save: whatever it finds, the
     * file stays as it is. */
    Outcome tryOut(const QByteArray& content) const {
        put(content);
        Outcome outcome = Outcome::Read;
        {
            PersistentContainer container(QStringLiteral("Lantern"), folder());
            if (const auto error = container.loadPersistentStores()) {
                outcome = Outcome::RefusedAtOpening;
                expectSentence(*error);
            } else {
                try {
                    m_read = contentsOf(container.viewContext());
                } catch (const StoreError& unreadable) {
                    outcome = Outcome::RefusedAtReading;
                    expectSentence(unreadable);
                }
            }
        }
        EXPECT_TRUE(bytes() == content);
        return outcome;
    }

    void expectSentence(const StoreError& error) const {
        EXPECT_TRUE(error.description.startsWith(
            QStringLiteral("The store \"%1\" could not be ").arg(path())))
            << error.description.toStdString();
    }
};

} // namespace

TEST_F(MalformedStore, IsRefusedWhereverItWasCutOff) {
    const QByteArray whole = soundStore();
    const int pageSize = pageSizeOf(whole);
    const int pages = int(whole.size() / pageSize);
    ASSERT_GT(pages, 20);
    for (int page = 1; page < pages; ++page) { // a part of the last page passes for all of it
        for (const int size : {page * pageSize, page * pageSize - 1}) {
            SCOPED_TRACE(size);
            EXPECT_EQ(tryOut(whole.left(size)), Outcome::RefusedAtOpening);
        }
    }
    EXPECT_EQ(tryOut(whole), Outcome::Read);
}

TEST_F(MalformedStore, IsRefusedOrReadWhateverBitsAreFlipped) {
    const QByteArray whole = soundStore();
    const int pageSize = pageSizeOf(whole);
    const int trials = effort("LANTERN_BIT_FLIPS", 400);
    std::mt19937 random(7);
    std::map<Outcome, int> outcomes;
    ASSERT_EQ(tryOut(whole), Outcome::Read);
    const QStringList truth = m_read;
    int changed = 0;
    for (int trial = 0; trial < trials; ++trial) {
        SCOPED_TRACE(trial);
        QByteArray damaged = whole;
        const auto flips = 1 + random() % 8;
        for (auto flip = flips; flip > 0; --flip) {
            // Half of them where SQLite keeps its own: the start of a page.
            auto place = qsizetype(random()) % whole.size();
            if (random() % 2 == 0)
                place = place / pageSize * pageSize + qsizetype(random() % 128);
            damaged[place] = char(damaged[place] ^ (1 << random() % 8));
        }
        const Outcome outcome = tryOut(damaged);
        ++outcomes[outcome];
        if (outcome != Outcome::Read)
            continue;
        // A letter may have changed, as SQLite cannot tell, but no record is lost or made.
        QStringList lost = truth;
        for (const QString& line : m_read)
            lost.removeOne(line);
        EXPECT_EQ(m_read.size(), truth.size());
        EXPECT_LE(lost.size(), qsizetype(flips));
        changed += lost.isEmpty() ? 0 : 1;
    }
    std::cout << outcomes[Outcome::RefusedAtOpening] << " refused when opened, "
              << outcomes[Outcome::RefusedAtReading] << " when read, " << outcomes[Outcome::Read]
              << " read, " << changed << " of these with other letters\n";
    EXPECT_GT(outcomes[Outcome::RefusedAtOpening], 0);
}

TEST_F(MalformedStore, KeepsTheLogThatItHas) {
    const QByteArray whole = soundStore();
    QFile logFile(path() + QStringLiteral("-wal"));
    const auto log = [&logFile] {
        const bool isOpen = logFile.open(QFile::ReadOnly);
        const QByteArray content = isOpen ? logFile.readAll() : QByteArray();
        logFile.close();
        return content;
    };
    QByteArray logged;
    {
        const auto container = open();
        insertTopic(container->viewContext(), QStringLiteral("in the log"));
        save(container->viewContext());
        logged = log();
    }
    ASSERT_FALSE(logged.isEmpty());
    const auto putLog = [&] {
        ASSERT_TRUE(logFile.open(QFile::WriteOnly));
        logFile.write(logged);
        logFile.close();
    };
    putLog();
    // Where the log has no page of its own for it.
    QByteArray damaged = whole;
    damaged.replace(pageSizeOf(whole), 100, QByteArray(100, 'x'));
    EXPECT_EQ(tryOut(damaged), Outcome::RefusedAtOpening);
    EXPECT_TRUE(log() == logged);
    put(whole);
    EXPECT_EQ(topics(open()->viewContext()).size(), 61U);
}

// The header says twice whether there is a log: 2 where there is one, 1 where there is none yet.
TEST_F(MalformedStore, IsRefusedWhereItLostTheMarkOfItsLog) {
    const QByteArray whole = soundStore();
    const auto marked = [&whole](int forWriters, int forReaders) {
        QByteArray store = whole;
        store[18] = char(forWriters);
        store[19] = char(forReaders);
        return store;
    };
    ASSERT_TRUE(marked(2, 2) == whole);
    for (const auto& [forWriters, forReaders] : std::initializer_list<std::pair<int, int>>{
             {2, 0}, {2, 1}, {0, 0}, {0, 1}, {1, 0}, {2, 3}, {3, 2}, {66, 2}, {2, 130}}) {
        SCOPED_TRACE(testing::Message() << forWriters << " and " << forReaders);
        EXPECT_EQ(tryOut(marked(forWriters, forReaders)), Outcome::RefusedAtOpening);
    }
    // So a first start leaves it that was killed before it began the log.
    put(marked(1, 1));
    EXPECT_EQ(topics(open()->viewContext()).size(), 60U);
    EXPECT_TRUE(bytes().mid(18, 2) == QByteArray(2, 2));
}

TEST_F(MalformedStore, WithoutPermissionIsLeftAlone) {
    const QByteArray whole = soundStore();
    const int status = inOtherProcess([&] {
        // What root may do is not up to permissions.
        if (::geteuid() == 0 &&
            (::chown(m_folder.path().toUtf8().constData(), 1, 1) != 0 ||
             ::chown(folder().toUtf8().constData(), 1, 1) != 0 ||
             ::chown(path().toUtf8().constData(), 1, 1) != 0 ||
             ::chown((path() + QStringLiteral("-lock")).toUtf8().constData(), 1, 1) != 0 ||
             ::setuid(1) != 0))
            return 1;
        for (const mode_t mode : {0000, 0200, 0400}) {
            ::chmod(path().toUtf8().constData(), mode);
            if (!openingError().userInfo.contains(QStringLiteral("errno = 13")))
                return 2;
        }
        ::chmod(path().toUtf8().constData(), 0600);
        return openingError().description.isEmpty() ? 0 : 3;
    });
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_TRUE(bytes() == whole);
}

// A migration needs its fixture: a store that the version before has written.
TEST_F(MalformedStore, OfAnEarlierVersionIsBroughtForward) {
    for (std::size_t version = 1; version <= migrations().size(); ++version) {
        QFile fixture(QStringLiteral(STORE_FIXTURES "/version-%1.sqlite").arg(version));
        ASSERT_TRUE(fixture.open(QIODevice::ReadOnly)) << "no store of version " << version;
        open();
        put(fixture.readAll());
        EXPECT_EQ(
            contentsOf(open()->viewContext()),
            QStringList({QStringLiteral("Authors \"Ann\""),
                         QStringLiteral("Event \"Ann\"^\"hope\"^\"\"^1614600000123^\"two\n"
                                        "lines, \u00df \U0001F600\""),
                         QStringLiteral("Event -^-^-^-^-"), QStringLiteral("Sources \"A letter\""),
                         QStringLiteral("Topics \"hope\"")}));
        {
            const auto container = open();
            insertTopic(container->viewContext(), QStringLiteral("new"));
            save(container->viewContext());
        }
        EXPECT_EQ(topics(open()->viewContext()).size(), 2U);
        EXPECT_EQ(integrityOf(path()), "ok");
    }
}

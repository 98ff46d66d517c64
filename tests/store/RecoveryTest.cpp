#include "store/Recovery.h"

#include "../reliability/Effort.h"
#include "store/Backups.h"
#include "store/Connection.h"
#include "store/FoundRows.h"
#include "support/StoreFixture.h"

#include <QtEndian>

#include <map>
#include <random>
#include <set>
#include <sqlite3.h>

namespace {

using Rows = std::array<std::map<std::int64_t, QString>, entityCount>;

class RecoveryTest : public StoreTest {
protected:
    /** A store of every kind of page: trees of some levels, rows over many pages, pages without
     * use. */
    void makeStore(int pageSize) const {
        {
            const auto container = open();
            auto& context = container->viewContext();
            std::vector<ManagedObject*> deleted;
            for (int i = 0; i < 400; ++i) {
                auto* quote = context.insert<Event>();
                if (i % 7 != 1)
                    quote->setAuthor(QStringLiteral("an author %1").arg(i));
                quote->setSource(QStringLiteral("a source %1").arg(i));
                quote->setCategory(QStringLiteral("topic %1").arg(i));
                const int length = i % 40 == 0 ? 70 * i : i % 130;
                quote->setQuote(QString(length, QChar(u'a' + i % 26)) + QString::number(i));
                if (i % 3 != 0)
                    quote->setTimestamp(
                        Date(std::chrono::milliseconds((i - 40) * 1'234'567'890LL)));
                if (i >= 200 && i < 280)
                    deleted.push_back(quote);
                context.insert<Authors>()->setName(QStringLiteral("an author %1").arg(i));
                context.insert<Sources>()->setName(QStringLiteral("a source %1").arg(i));
                insertTopic(context, QStringLiteral("topic %1").arg(i));
            }
            context.insert<Authors>();
            save(context);
            for (auto* quote : deleted)
                context.deleteObject(*quote);
            save(context);
        }
        execute("PRAGMA journal_mode = DELETE");
        if (pageSize != 16384)
            execute("PRAGMA page_size = " + QByteArray::number(pageSize) + "; VACUUM");
    }

    void execute(const QByteArray& sql) const {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(QFile::encodeName(path()).constData(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, sql.constData(), nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(database);
    }

    /** What SQLite reads of the file. */
    Rows truth() const {
        Rows rows;
        sqlite3* database = nullptr;
        sqlite3_open(QFile::encodeName(path()).constData(), &database);
        for (std::size_t entity = 0; entity < entityCount; ++entity) {
            QByteArray columns;
            for (const auto& attribute : schema()[entity].attributes)
                columns += QByteArray(", ") + attribute.column;
            auto select = *Statement::prepare(database, "SELECT id" + columns + " FROM " +
                                                            schema()[entity].table);
            while (select.step() == SQLITE_ROW) {
                QStringList values;
                for (int i = 0; i < columns.count(','); ++i)
                    values.append(select.text(i + 1) ? QString::fromUtf8(*select.text(i + 1))
                                                     : QStringLiteral("(absent)"));
                rows[entity][*select.integer(0)] = values.join(u'^');
            }
        }
        sqlite3_close(database);
        return rows;
    }

    static Rows shown(const FoundRows& found) {
        Rows rows;
        for (std::size_t entity = 0; entity < entityCount; ++entity) {
            for (const auto& [id, record] : found.records[entity]) {
                const auto read = readRecord(record);
                QStringList values;
                for (const Value& value : *read) {
                    if (const auto* text = std::get_if<QByteArrayView>(&value))
                        values.append(QString::fromUtf8(*text));
                    else if (const auto* number = std::get_if<std::int64_t>(&value))
                        values.append(QString::number(*number));
                    else
                        values.append(QStringLiteral("(absent)"));
                }
                rows[entity][id] = values.mid(1).join(u'^');
            }
        }
        return rows;
    }

    /** How many rows are not found; each that is must be true. */
    static std::size_t missing(const Rows& truth, const Rows& found) {
        std::size_t count = 0;
        for (std::size_t entity = 0; entity < entityCount; ++entity) {
            for (const auto& [id, row] : found[entity]) {
                const auto place = truth[entity].find(id);
                EXPECT_TRUE(place != truth[entity].end() && place->second == row)
                    << "a wrong row " << id << " in " << schema()[entity].table;
            }
            count += truth[entity].size() - found[entity].size();
        }
        return count;
    }

    static std::size_t rowsOn(QByteArrayView page) {
        const auto read = readTablePage(page);
        const auto* leaf = std::get_if<LeafPage>(&read);
        return leaf ? leaf->size() : 0;
    }

    void put(const QByteArray& content) const {
        QFile file(path());
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
    }
};

class DamagedPages : public RecoveryTest, public testing::WithParamInterface<int> {};

} // namespace

// Of each page that is lost, its own rows are lost and no other, and none that is found is wrong.
TEST_P(DamagedPages, TakeTheirRowsAndNoOther) {
    const int size = GetParam();
    makeStore(size);
    const Rows rows = truth();
    const QByteArray whole = bytes();
    const int pages = int(whole.size() / size);
    ASSERT_GT(rows[0].size(), 300U);
    ASSERT_EQ(missing(rows, shown(findRows({whole, {}}))), 0U);
    std::mt19937 random(11);
    std::set<std::size_t> losses;
    for (int page = 0; page < pages; ++page) {
        const QByteArrayView lost = QByteArrayView(whole).sliced(page * size, size);
        const bool isChained = qFromBigEndian<quint32>(lost.data()) <= quint32(pages);
        const std::size_t most = isChained ? 1 : rowsOn(lost);
        QByteArray garbage(size, '\0');
        std::generate(garbage.begin(), garbage.end(), [&] { return char(random()); });
        const QByteArray other = whole.mid((page + 1 + int(random() % 7)) % pages * size, size);
        const QByteArray zeros(size, '\0');
        const QByteArray half = lost.first(size / 2).toByteArray() + zeros.first(size / 2);
        for (const QByteArray& damage : {zeros, garbage, other, half}) {
            SCOPED_TRACE(testing::Message() << "page " << page + 1 << " of " << pages << ", "
                                            << damage.left(8).toHex().constData());
            QByteArray damaged = whole;
            damaged.replace(page * size, size, damage);
            const auto loss = missing(rows, shown(findRows({damaged, {}})));
            // What stands twice is of no use to tell the lists of names.
            EXPECT_TRUE(loss <= most || damage == other) << loss;
            losses.insert(loss);
        }
    }
    EXPECT_TRUE(losses.contains(0) && losses.size() > 3);
    for (int trial = effort("LANTERN_DAMAGED_STORES", 20); trial > 0; --trial) {
        QByteArray damaged = whole;
        for (int i = 0; i < 1 + trial % 9; ++i) {
            const auto page = qsizetype(random() % unsigned(pages)) * size;
            const auto part = i % 3 == 0 ? size / 2 : size;
            damaged.replace(page, part, QByteArray(part, char(random() % 3 * 6)));
        }
        missing(rows, shown(findRows({damaged, {}})));
    }
}

TEST_P(DamagedPages, GoIntoNoOtherListWhenTheyStandInItsPlace) {
    const int size = GetParam();
    makeStore(size);
    const Rows rows = truth();
    const QByteArray whole = bytes();
    std::vector<qsizetype> places; // where names are
    for (qsizetype place = size; place < whole.size(); place += size) {
        const auto page = readTablePage(QByteArrayView(whole).sliced(place, size));
        const auto* leaf = std::get_if<LeafPage>(&page);
        if (leaf && !leaf->empty() && columnCount(leaf->front().beginning) == 2)
            places.push_back(place);
    }
    ASSERT_GE(places.size(), 3U);
    for (const qsizetype from : places) {
        for (const qsizetype to : places) {
            for (const bool isSchemaGone : {false, true}) {
                SCOPED_TRACE(testing::Message() << from / size << " in place of " << to / size);
                QByteArray damaged = whole;
                damaged.replace(from, size, QByteArray(size, '\0'));
                damaged.replace(to, size, whole.mid(from, size));
                if (isSchemaGone)
                    damaged.replace(0, size, QByteArray(size, '\0'));
                missing(rows, shown(findRows({damaged, {}})));
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(OfSize, DamagedPages, testing::Values(16384, 4096));

TEST_F(RecoveryTest, FindsWhatIsBeforeACutAndInTheLog) {
    makeStore(16384);
    const Rows rows = truth();
    const QByteArray whole = bytes();
    const auto found = shown(findRows({whole.left(whole.size() * 6 / 10), {}}));
    EXPECT_GT(found[0].size(), rows[0].size() / 3);
    EXPECT_GT(missing(rows, found), 0U);
    {
        const auto container = open();
        container->viewContext().insert<Event>()->setQuote(QString(90'000, u'z'));
        save(container->viewContext());
        const StoreBytes logged{whole, StoreBytes::read(path()).log};
        container->viewContext().insert<Event>()->setQuote(QStringLiteral("another"));
        insertTopic(container->viewContext(), QStringLiteral("another"));
        save(container->viewContext());
        const QByteArray log = StoreBytes::read(path()).log;
        EXPECT_EQ(findRows(logged).records[0].size(), rows[0].size() + 1);
        EXPECT_EQ(findRows({whole, log}).records[0].size(), rows[0].size() + 2);
        EXPECT_EQ(findRows({whole, log.left(log.size() - 1)}).count(), findRows(logged).count())
            << "a transaction counts whole or not at all";
    }
}

// Bits that are flipped in a text are not noticed, but no row may come of them that was not there.
TEST_F(RecoveryTest, FindsNoRowThatWasNotThereWhateverBitsAreFlipped) {
    makeStore(4096);
    const Rows rows = truth();
    const QByteArray whole = bytes();
    std::mt19937 random(5);
    for (int trial = 0; trial < 20; ++trial) {
        QByteArray damaged = whole;
        for (int flip = 0; flip < 40; ++flip) {
            auto place = qsizetype(random()) % whole.size();
            if (flip % 2 == 0)
                place = place / 4096 * 4096 + qsizetype(random() % 64);
            damaged[place] = char(damaged[place] ^ (1 << random() % 8));
        }
        const Rows found = shown(findRows({damaged, {}}));
        for (std::size_t entity = 0; entity < entityCount; ++entity) {
            for (const auto& [id, row] : found[entity]) {
                const auto place = rows[entity].find(id);
                EXPECT_TRUE(place == rows[entity].end() || place->second.size() == row.size() ||
                            entity == 0)
                    << trial;
            }
            EXPECT_LE(found[entity].size(), rows[entity].size());
        }
    }
}

TEST_F(RecoveryTest, PutsAnotherStoreInThePlaceOfTheDamagedOne) {
    const QString day = QStringLiteral("2021-03-01");
    for (const char* topic : {"first", "second"}) {
        PersistentContainer container(QStringLiteral("Lantern"), folder(), [&] { return day; });
        ASSERT_FALSE(container.loadPersistentStores());
        insertTopic(container.viewContext(), QString::fromLatin1(topic));
        save(container.viewContext());
    }
    const QString aside = folder() + QStringLiteral("/Lantern-damaged-2021-03-02");
    for (const bool isRescue : {true, false}) {
        QByteArray damaged = bytes();
        damaged.replace(0, 16384, QByteArray(16384, 'x'));
        put(damaged);
        QFile log(path() + QStringLiteral("-wal"));
        ASSERT_TRUE(log.open(QFile::WriteOnly));
        log.write("log");
        log.close();
        EXPECT_EQ(openingError().cause, StoreError::Cause::Damage);
        EXPECT_EQ(bytes(), damaged);
        EXPECT_TRUE(QFile::exists(log.fileName()));
        if (isRescue) {
            const auto rescued =
                rescueStore(folder(), QStringLiteral("Lantern"), QStringLiteral("2021-03-02"));
            ASSERT_TRUE(std::holds_alternative<Rescued>(rescued));
            EXPECT_EQ(std::get<Rescued>(rescued).counts, (std::array<std::size_t, 4>{0, 0, 0, 2}));
        } else {
            EXPECT_FALSE(restoreBackup(folder(), QStringLiteral("Lantern"), day,
                                       QStringLiteral("2021-03-02")));
        }
        EXPECT_EQ(topics(open()->viewContext()).size(), isRescue ? 2U : 1U);
        const QString kept = aside + QLatin1String(isRescue ? ".sqlite" : "-2.sqlite");
        QFile file(kept);
        ASSERT_TRUE(file.open(QFile::ReadOnly));
        EXPECT_EQ(file.readAll(), damaged);
        EXPECT_TRUE(QFile::exists(kept + QStringLiteral("-wal")));
        EXPECT_FALSE(QFile::exists(path() + QStringLiteral(".part")));
    }
    QFile::remove(Backups(folder(), QStringLiteral("Lantern")).pathOf(day));
    const QByteArray before = bytes();
    EXPECT_TRUE(restoreBackup(folder(), QStringLiteral("Lantern"), day, day));
    EXPECT_EQ(bytes(), before);
}

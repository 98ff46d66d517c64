#include "reliability/Effort.h"
#include "reliability/Memory.h"
#include "support/FakePlatform.h"
#include "support/Pilot.h"
#include "toolkit/NavigationController.h"
#include "ui/Program.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <iostream>
#include <vector>

using namespace std::chrono_literals;

namespace {

/** The program in its window, used for a long time. */
class Walk : public testing::Test {
protected:
    Walk() {
        EXPECT_TRUE(program.launch());
        pilot.emplace(program.quickWindow());
        ManagedObjectContext& context = program.application().persistentContainer().viewContext();
        for (int i = 0; i < 50; ++i) {
            Event& quote = *context.insert<Event>();
            quote.setAuthor(QStringLiteral("Author %1").arg(i % 7));
            quote.setCategory(QStringLiteral("Topic %1").arg(i));
            quote.setSource(QStringLiteral("Source %1").arg(i % 9));
            quote.setTimestamp(Date(1'600'000'000'000ms));
            quote.setQuote(QStringLiteral("a quote <img src='http://lantern.example/%1'>").arg(i));
        }
        program.application().saveContext();
        pilot->settle();
    }

    void tap(const char* name) {
        pilot->tap(QLatin1String(name));
        ++actions;
    }

    void open(const char* option) {
        tap("Menu");
        tap(option);
    }

    /** Through every screen, back to the menu. */
    void walkAround() {
        for (const char* option : {"Quotes by Topic", "Add New Quote", "Topics", "Import", "Export",
                                   "Rate/Share", "Settings"}) {
            open(option);
            tap("Back");
        }
        open("Reference Lists");
        tap("Authors");
        tap("Author 3");
        tap("Print");
        tap("Create File");
        platform.printed.clear(); // which a device does not keep
        tap("Back");
        tap("Back");
        tap("Names");
        tap("Author 3");
        tap("Back");
        tap("Add");
        while (program.navigation().depth() > 1)
            tap("Back");
        open("Quotes by Group");
        tap("Topics");
        tap("Sources");
        tap("Back");
        open("Quote List");
        tap("Sort");
        tap("Author");
        pilot->tap(QStringLiteral("Search quotes"));
        pilot->type(QStringLiteral("author 3"));
        pilot->press(Qt::Key_Escape);
        actions += 3;
        tap("Add");
        tap("Back");
        pilot->tap(*pilot->findAll(QStringLiteral("Author: ")).front());
        ++actions;
        tap("Full Screen");
        tap("Back");
        while (program.navigation().depth() > 1)
            tap("Back");
    }

    /** What is in use when all that is waiting to go has gone. */
    std::size_t memoryInUse() {
        program.engine().collectGarbage();
        pilot->settle();
        program.engine().collectGarbage();
        return ::memoryInUse();
    }

    QTemporaryDir home;
    FakePlatform platform;
    Program program{{home.filePath(QStringLiteral("store")),
                     home.filePath(QStringLiteral("settings/Lantern.ini"))},
                    Environment{[] { return Date(1'614'600'000'000ms); }, // 2021-03-01 12:00 UTC
                                QStringLiteral("en_US"), QStringLiteral("UTC")},
                    platform};
    std::optional<Pilot> pilot;
    int actions = 0;
};

/** The inodes of the sockets that a table of the system says are listening. */
QStringList listening(const QString& table) {
    QFile file(table);
    QStringList inodes;
    if (!file.open(QIODevice::ReadOnly))
        return inodes;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray& line : lines.mid(1)) {
        const QList<QByteArray> fields = line.simplified().split(' ');
        const bool isUdp = table.contains(QStringLiteral("udp"));
        if (fields.size() > 9 && (isUdp || fields[3] == "0A"))
            inodes.append(QString::fromLatin1("socket:[" + fields[9] + ']'));
    }
    return inodes;
}

} // namespace

// Waits for animations, some twenty seconds in each round; a growth is told from what is kept for
// reuse by rounds beyond the daily one.
TEST_F(Walk, ThroughAllScreensOpensNoPortAndTakesNoMoreMemoryEachTime) {
    walkAround();
    QStringList sockets;
    for (const char* table : {"tcp", "tcp6", "udp", "udp6"})
        sockets += listening(QStringLiteral("/proc/self/net/") + QLatin1String(table));
    const QDir descriptors(QStringLiteral("/proc/self/fd"));
    const QStringList names = descriptors.entryList(QDir::AllEntries | QDir::System);
    EXPECT_GT(names.size(), 3);
    for (const QString& name : names)
        EXPECT_FALSE(
            sockets.contains(QFile::symLinkTarget(descriptors.filePath(name)).section(u'/', -1)));

    const int rounds = effort("LANTERN_WALKS", 0);
    std::vector<std::size_t> memory;
    for (int round = 0; round < rounds; ++round) {
        walkAround();
        memory.push_back(memoryInUse());
        std::cout << actions << " actions, " << memory.back() / 1024 << " KiB in use" << std::endl;
    }
    if (rounds >= 40) { // before that, caches fill
        const auto half = memory.size() / 2;
        const double growth = double(memory.back()) - double(memory[half]);
        EXPECT_LT(growth / double(memory.size() - 1 - half), 4 * 1024);
    }
}

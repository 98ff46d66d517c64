#include "support/FakePlatform.h"
#include "support/Pilot.h"
#include "ui/Program.h"

#include <QFile>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <stdexcept>
#include <utility>
#include <vector>

namespace {

/** Of this process, in bytes. */
double residentMemory() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QFile::ReadOnly))
        throw std::runtime_error("the memory of this process cannot be read");
    const QByteArray content = status.readAll();
    const qsizetype place = content.indexOf("VmRSS:") + qsizetype(sizeof "VmRSS:");
    return 1024 * content.mid(place).trimmed().split(' ').first().toDouble();
}

/** Processor time of this thread, in milliseconds, which other programs do not lengthen. */
double processorTime() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

void add(QJsonObject& results, const QString& name, std::vector<double> times) {
    if (times.empty())
        throw std::runtime_error("nothing was measured for " + name.toStdString());
    std::sort(times.begin(), times.end());
    results[name + QStringLiteral(" median")] = times[times.size() / 2];
    results[name + QStringLiteral(" 99.9%")] = times[times.size() * 999 / 1000];
    results[name + QStringLiteral(" most")] = times.back();
    results[name + QStringLiteral(" count")] = double(times.size());
}

/** Lets rows come into the list at its lower end, one at a time. */
std::vector<double> timesOfRows(QQuickItem& list) {
    constexpr int most = 110'000;
    const int allRows = list.property("count").toInt();
    const double height = list.property("contentHeight").toDouble() / allRows;
    const int count = std::min(allRows, most);
    std::vector<double> times;
    times.reserve(std::size_t(count));
    for (double place = 0; place + list.height() < count * height; place += height) {
        const double start = processorTime();
        list.setProperty("contentY", place);
        // What the rows that leave have done with goes too, as between two frames.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        times.push_back(processorTime() - start);
    }
    return times;
}

/** Flicks up through the list as quickly as it lets itself be flicked. */
std::vector<double> timesOfFrames(QQuickItem& list) {
    constexpr int flicks = 4;
    list.setProperty("contentY", 0);
    Pilot::waitFor([] { return false; }, 500);
    std::vector<double> times;
    double last = processorTime();
    const auto connection =
        QObject::connect(list.window(), &QQuickWindow::frameSwapped, &list, [&times, &last] {
            const double now = processorTime();
            times.push_back(now - std::exchange(last, now));
        });
    for (int flick = 0; flick < flicks; ++flick) {
        QMetaObject::invokeMethod(&list, "flick", Q_ARG(qreal, 0), Q_ARG(qreal, -10000));
        Pilot::waitFor([&] { return !list.property("flicking").toBool(); }, 10000);
    }
    if (list.property("contentY").toDouble() < flicks * list.height())
        throw std::runtime_error("the list was not flicked");
    QObject::disconnect(connection);
    return times;
}

QJsonObject measured(const QString& storeFolder) {
    FakePlatform platform;
    Environment environment = Environment::ofThisDevice();
    environment.locale = QStringLiteral("en_US");
    Program program({storeFolder, storeFolder + QStringLiteral("/Lantern.ini")}, environment,
                    platform);
    if (!program.launch())
        throw std::runtime_error("the window cannot be made");
    Pilot pilot(program.quickWindow());
    pilot.tap(QStringLiteral("Menu"));
    pilot.tap(QStringLiteral("Quote List"));
    QQuickItem& list = pilot.list();
    QJsonObject results;
    results[QStringLiteral("memory")] = residentMemory();
    add(results, QStringLiteral("frame"), timesOfFrames(list));
    add(results, QStringLiteral("row"), timesOfRows(list));
    return results;
}

} // namespace

/** Opens the list of quotes of a store in the real window and prints, as JSON, the resident memory
 * in bytes, and in milliseconds how long rows and frames take while the list is flicked. */
int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: WindowBench STOREFOLDER\n", stderr);
        return EXIT_FAILURE;
    }
    try {
        const auto results = measured(QFile::decodeName(argv[1]));
        std::puts(QJsonDocument(results).toJson(QJsonDocument::Compact).constData());
    } catch (const std::runtime_error& error) {
        std::fprintf(stderr, "WindowBench: %s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

// Imports files of a size that nobody has, and says what they cost:
// GiantImport [DIVISOR], where 1 means the full sizes.

#include "exchange/ImportViewController.h"
#include "quotes/DetailViewController.h"
#include "support/TestApplication.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr qint64 mebibyte = qint64(1) << 20;

// The sanitizers keep memory that was given back, and more of it than they are asked for.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool isMemoryTelling = false;
#else
constexpr bool isMemoryTelling = true;
#endif

struct Giant {
    const char* name;
    qint64 size; ///< of the file, in bytes
    std::function<QByteArray(int)> line;
    std::function<bool(AppDelegate&)> isImported;
};

template <class Record>
std::vector<Record*> all(AppDelegate& program) {
    return program.persistentContainer().viewContext().fetch(Record::fetchRequest()).records;
}

/** The marker, and lines until the file has its size. */
int writeFile(const QString& path, const Giant& giant) {
    QFile file(path);
    if (!file.open(QFile::WriteOnly))
        std::abort();
    file.write("[QUOTECOLLECTION]\n");
    int count = 0;
    for (QByteArray line = giant.line(0); file.pos() + line.size() <= giant.size;
         line = giant.line(++count))
        file.write(line);
    return count;
}

qint64 peakMemory() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return qint64(usage.ru_maxrss) * 1024;
}

int import(const Giant& giant) {
    TestApplication application;
    const QString path = application.folder.filePath(QStringLiteral("giant.csv"));
    const int lines = writeFile(path, giant);
    const qint64 before = peakMemory();
    QElapsedTimer timer;
    timer.start();
    ImportViewController screen(application.delegate);
    screen.viewDidLoad();
    screen.didPickDocumentAtURL(QUrl::fromLocalFile(path));
    presentedAlert(screen)->choose(0);
    screen.ImportTextFile();
    application.finishLongWork();
    const bool isImported = giant.isImported(application.delegate);
    const qint64 memory = peakMemory() - before;
    std::printf("%s: %lld MiB, %d lines, %.1f s, %lld MiB of memory%s\n", giant.name,
                static_cast<long long>(giant.size / mebibyte), lines,
                double(timer.elapsed()) / 1000, static_cast<long long>(memory / mebibyte),
                isImported ? "" : ", NOT AS EXPECTED");
    std::fflush(stdout);
    return isImported && (!isMemoryTelling || memory < 10 * giant.size + 64 * mebibyte)
               ? EXIT_SUCCESS
               : EXIT_FAILURE;
}

/** Opens the one quote, as a tap on its row does. */
bool isShown(AppDelegate& program) {
    const Event& quote = *all<Event>(program).front();
    SelectionValues& selection = program.services.selection;
    selection.selectedAuthor = *quote.author();
    selection.selectedTopic = *quote.category();
    selection.selectedSource = *quote.source();
    selection.selectedDate = quote.timestamp();
    selection.selectedQuoteText = *quote.quote();
    DetailViewController detail(program);
    detail.viewDidLoad();
    detail.viewWillAppear();
    return detail.QuoteTextView->text() == *quote.quote();
}

std::array<Giant, 4> giants(qint64 divisor) {
    const auto quote = [](int number) {
        return "Author " + QByteArray::number(number % 5000) + "^Topic " +
               QByteArray::number(number % 300) + "^Source " + QByteArray::number(number) +
               "^2021-03-07 14:05:09 +0000^" + QByteArray(150, 'x') + "\n";
    };
    const auto oneOf = [](qint64 size) {
        return [size](int /*number*/) {
            return "A^T^S^2021-03-07 14:05:09 +0000^" + QByteArray(size - 60, 'x') + "\n";
        };
    };
    const auto topic = [](int number) {
        return (number == 0 ? QByteArray("[TOPICCOLLECTION]\n") : QByteArray()) + "Topic " +
               QByteArray::number(number) + "\n";
    };
    const qint64 large = 1024 * mebibyte / divisor;
    const qint64 line = 100 * mebibyte / divisor;
    const qint64 topics = 13 * mebibyte / divisor; // a million of them
    const qint64 text = 10 * mebibyte / divisor;
    return {{{"a large file", large, quote,
              [](AppDelegate& program) { return all<Event>(program).size() > 1000; }},
             {"a long line", line, oneOf(line),
              [](AppDelegate& program) { return all<Event>(program).size() == 1; }},
             {"many topics", topics, topic,
              [](AppDelegate& program) { return all<Topics>(program).size() > 1000; }},
             {"a long quote", text, oneOf(text), isShown}}};
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const int divisor = argc > 1 ? std::atoi(argv[1]) : 1;
    bool isWell = divisor > 0;
    for (const Giant& giant : giants(divisor)) {
        // In a process of its own, whose memory is its own.
        const pid_t child = ::fork();
        if (child == 0)
            return import(giant);
        int status = 0;
        ::waitpid(child, &status, 0);
        isWell = isWell && WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
    }
    return isWell ? EXIT_SUCCESS : EXIT_FAILURE;
}

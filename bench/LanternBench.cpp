#include "app/AppDelegate.h"
#include "exchange/ExportViewController.h"
#include "exchange/ImportViewController.h"
#include "names/Breakdowns.h"
#include "names/BrowseLists.h"
#include "quotes/MasterViewController.h"
#include "store/FoldedTexts.h"
#include "support/FakePlatform.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QHash>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <sqlite3.h>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace {

using namespace std::chrono_literals;

struct Segment {
    const char* name;
    const char* orderInSql;
};

// In the order of the quote list's own.
constexpr std::array segments{Segment{"Topic", " order by category, author, source"},
                              Segment{"Author", " order by author, category, source"},
                              Segment{"Source", " order by source, category, author"},
                              Segment{"Quote", ""}};
constexpr int quoteSegment = 3;

[[noreturn]] void fail(const QString& message) {
    std::fprintf(stderr, "LanternBench: %s\n", qUtf8Printable(message));
    std::exit(EXIT_FAILURE);
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        fail(QStringLiteral("\"%1\" cannot be read: %2").arg(path, file.errorString()));
    return file.readAll();
}

void write(const QString& path, const QByteArray& content) {
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(content) != content.size() || !file.flush())
        fail(QStringLiteral("\"%1\" cannot be written: %2").arg(path, file.errorString()));
}

/** The collection cut to so many quotes, taken at even distances; all topics stay. */
QByteArray sample(const QByteArray& collection, qsizetype count) {
    const auto lines = collection.split('\n');
    const qsizetype begin = lines.indexOf("[QUOTECOLLECTION]") + 1;
    const qsizetype end = lines.indexOf("[TOPICCOLLECTION]");
    const qsizetype total = end - begin;
    if (begin == 0 || total < count)
        fail(QStringLiteral("the collection has fewer than %1 quotes").arg(count));
    if (total == count)
        return collection;
    QByteArrayList sampled{lines[begin - 1]};
    for (qsizetype i = 0; i < count; ++i)
        sampled.append(lines[begin + i * total / count]);
    return (sampled + lines.sliced(end)).join('\n');
}

/** The program without its window. */
class Application {
public:
    explicit Application(const QString& storeFolder)
        : userDefaults(storeFolder + QStringLiteral("/Lantern.ini"))
        , delegate(Services{environment, userDefaults, mainQueue, keyboard, notes, longWork,
                            platform, classes, selection, storeFolder, storeFolder}) {}

    Environment environment{[] { return Date(1'614'600'000'000ms); }, QStringLiteral("en_US"),
                            QStringLiteral("UTC"), SystemVersion{17, 0}};
    UserDefaults userDefaults;
    EventLoopMainQueue mainQueue;
    Keyboard keyboard;
    Notes notes;
    LongWork longWork{mainQueue};
    FakePlatform platform;
    ClassRuntime classes;
    SelectionValues selection;
    AppDelegate delegate;

    ManagedObjectContext& context() { return delegate.persistentContainer().viewContext(); }
};

/** Loads a collection file on the import screen and imports it. */
void import(Application& application, const QString& collection) {
    ImportViewController screen(application.delegate);
    screen.viewDidLoad();
    screen.didPickDocumentAtURL(QUrl::fromLocalFile(collection));
    screen.dismiss();
    screen.ImportButton->press();
    while (!application.longWork.title().isEmpty())
        QCoreApplication::processEvents();
}

void expectQuotes(std::size_t found, qsizetype expected) {
    if (qsizetype(found) != expected)
        fail(QStringLiteral("%1 quotes instead of %2").arg(found).arg(expected));
}

void expectQuotesInStore(Application& application, qsizetype expected) {
    expectQuotes(application.context().fetch(Event::fetchRequest()).records.size(), expected);
}

/** A collection of a certain size, as a file and as a store. */
struct Input {
    QString folder;
    qsizetype count;
    QString collection = QStringLiteral("%1/collection-%2.csv").arg(folder).arg(count);
    QString storeFolder = QStringLiteral("%1/store-%2").arg(folder).arg(count);
};

Input makeInput(const QByteArray& collection, const QString& folder, qsizetype count) {
    Input input{folder, count};
    write(input.collection, sample(collection, count));
    QDir(input.storeFolder).removeRecursively();
    Application application(input.storeFolder);
    import(application, input.collection);
    expectQuotesInStore(application, count);
    return input;
}

/** The quote list on a store that was just opened, with a segment chosen. */
class OpenList {
public:
    explicit OpenList(const Input& input, int segment)
        : application(input.storeFolder)
        , list(application.delegate) {
        list.viewDidLoad();
        list.segment->choose(segment);
        expectQuotes(list.QuoteList.size(), input.count);
    }

    void search(const QString& text) { list.searchController->searchBar()->setText(text); }

    Application application;
    MasterViewController list;
};

/** The rows that a first screen of a list shows. */
void showRows(TableViewController& screen) {
    constexpr int rowsOfAScreen = 12;
    auto& table = *screen.tableView();
    for (int row = 0; row < std::min(rowsOfAScreen, table.rowCount()); ++row)
        table.beginDisplaying(row);
}

/** From nothing in memory to the list sorted by topic. */
void open(benchmark::State& state, const Input& input) {
    for ([[maybe_unused]] auto _ : state) {
        auto list = std::make_unique<OpenList>(input, 0);
        list->list.viewWillAppear();
        showRows(list->list);
        state.PauseTiming();
        list.reset();
        state.ResumeTiming();
    }
}

/** The direction changed, there and back in turn. */
void refresh(benchmark::State& state, const Input& input, int segment) {
    OpenList open(input, segment);
    for ([[maybe_unused]] auto _ : state)
        open.list.SortButtonTapped();
    expectQuotes(open.list.QuoteList.size(), input.count);
}

/** The segment changed, from topic to author and back in turn. */
void segmentChange(benchmark::State& state, const Input& input) {
    OpenList open(input, 0);
    int changes = 0;
    for ([[maybe_unused]] auto _ : state)
        open.list.segment->choose(++changes % 2);
    expectQuotes(open.list.QuoteList.size(), input.count);
}

/** A letter typed or taken back, in turn. */
void keystroke(benchmark::State& state, const Input& input, int segment) {
    const std::array texts{QStringLiteral("lov"), QStringLiteral("love")};
    OpenList open(input, segment);
    open.search(texts[1]);
    std::size_t keystrokes = 0;
    for ([[maybe_unused]] auto _ : state)
        open.search(texts[keystrokes++ % 2]);
    open.search(texts[1]);
    state.counters["found"] = double(open.list.FilteredQuoteList.size());
}

/** A letter more, or the letter before it, each after a search for something else. */
void growingSearch(benchmark::State& state, const Input& input, bool isLonger) {
    OpenList open(input, quoteSegment);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        open.search(QStringLiteral("x"));
        if (isLonger)
            open.search(QStringLiteral("lov"));
        state.ResumeTiming();
        open.search(isLonger ? QStringLiteral("love") : QStringLiteral("lov"));
    }
}

/** A peer of keystroke: memmem through the lower-case texts of all quotes in one buffer. */
void memmemSearch(benchmark::State& state, const Input& input) {
    QByteArray texts;
    {
        Application application(input.storeFolder);
        for (const Event* quote : application.context().fetch(Event::fetchRequest()).records)
            texts += folded(quote->quote().value_or(QString())).toUtf8() + '\0';
    }
    const std::string_view wanted = "love";
    for ([[maybe_unused]] auto _ : state) {
        std::size_t found = 0;
        const char* place = texts.constData();
        const char* const end = place + texts.size();
        while ((place = static_cast<const char*>(
                    memmem(place, std::size_t(end - place), wanted.data(), wanted.size())))) {
            ++found;
            place = static_cast<const char*>(memchr(place, '\0', std::size_t(end - place)));
        }
        state.counters["found"] = double(found);
    }
}

/** The first search since the store was opened, which prepares those that follow. */
/** The first letter of a search: as soon as the segment is chosen, or when the program had time to
 * do all that waited. */
void firstKeystroke(benchmark::State& state, const Input& input, bool isAtOnce) {
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        auto open = std::make_unique<OpenList>(input, quoteSegment);
        QEventLoop loop;
        while (!isAtOnce && loop.processEvents()) {
        }
        state.ResumeTiming();
        open->search(QStringLiteral("love"));
        state.PauseTiming();
        open.reset();
        state.ResumeTiming();
    }
}

void importOnce(benchmark::State& state, const Input& input) {
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        {
            const QTemporaryDir folder(input.folder + QStringLiteral("/import"));
            Application application(folder.path());
            application.delegate.persistentContainer();
            state.ResumeTiming();
            import(application, input.collection);
            state.PauseTiming();
            expectQuotesInStore(application, input.count);
        }
        state.ResumeTiming();
    }
}

void importAgain(benchmark::State& state, const Input& input) {
    Application application(input.storeFolder);
    expectQuotesInStore(application, input.count);
    for ([[maybe_unused]] auto _ : state)
        import(application, input.collection);
    expectQuotesInStore(application, input.count);
}

/** Makes the file and saves it, with the steps of the progress bar that wait for their turn. */
void exportAll(benchmark::State& state, const Input& input) {
    Application application(input.storeFolder);
    expectQuotesInStore(application, input.count);
    for ([[maybe_unused]] auto _ : state) {
        ExportViewController screen(application.delegate);
        screen.viewDidLoad();
        screen.CreateUpdateFile();
        screen.SaveToFiles();
        QCoreApplication::processEvents();
        state.counters["bytes"] = double(screen.DataString->size());
    }
}

/** A copy of the store, which a benchmark may change. */
class StoreCopy {
public:
    explicit StoreCopy(const Input& input)
        : m_folder(input.folder + QStringLiteral("/copy")) {
        if (!QFile::copy(input.storeFolder + QStringLiteral("/Lantern.sqlite"),
                         folder() + QStringLiteral("/Lantern.sqlite")))
            fail(QStringLiteral("the store cannot be copied"));
    }

    QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

/** The author with the most quotes. */
QString busiestAuthor(const std::vector<Event*>& quotes) {
    QHash<QString, int> counts;
    for (const Event* quote : quotes)
        ++counts[quote->author().value_or(QString())];
    return std::max_element(counts.keyValueBegin(), counts.keyValueEnd(),
                            [](const auto& left, const auto& right) {
                                return std::tie(left.second, right.first) <
                                       std::tie(right.second, left.first);
                            })
        ->first;
}

/** Opens a screen again and again on a store whose records are in memory. */
template <class Screen>
void openScreen(benchmark::State& state, const Input& input) {
    Application application(input.storeFolder);
    const auto quotes = application.context().fetch(Event::fetchRequest()).records;
    application.selection.chosenAuthorName = busiestAuthor(quotes);
    for ([[maybe_unused]] auto _ : state) {
        auto screen = std::make_unique<Screen>(application.delegate);
        screen->viewDidLoad();
        screen->viewWillAppear();
        showRows(*screen);
        state.counters["rows"] = screen->tableView()->rowCount();
        state.PauseTiming();
        screen.reset();
        state.ResumeTiming();
    }
}

/** One quote more, on disk. */
void save(benchmark::State& state, const Input& input) {
    const StoreCopy copy(input);
    Application application(copy.folder());
    expectQuotesInStore(application, input.count);
    for ([[maybe_unused]] auto _ : state) {
        auto* quote = application.context().insert<Event>();
        quote->setQuote(QStringLiteral("All things pass."));
        quote->setAuthor(QStringLiteral("Anonymous"));
        quote->setSource(QStringLiteral("Proverbs"));
        quote->setCategory(QStringLiteral("Life"));
        quote->setTimestamp(Date(1'614'600'000'000ms));
        application.delegate.saveContext();
    }
    expectQuotesInStore(application, input.count + state.iterations());
}

/** SQLite in process, for the peers. */
class Database {
public:
    explicit Database(const QString& storeFolder) {
        sqlite3* database = nullptr;
        const int code = sqlite3_open(
            QFile::encodeName(storeFolder + QStringLiteral("/Lantern.sqlite")), &database);
        m_database.reset(database);
        if (code != SQLITE_OK)
            failed();
    }

    void execute(const char* sql) {
        if (sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK)
            failed();
    }

    void prepare(const std::string& sql) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(m_database.get(), sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
            failed();
        m_statement.reset(statement);
    }

    void bind(const QString& text) {
        sqlite3_bind_text(m_statement.get(), 1, text.toUtf8().constData(), -1, SQLITE_TRANSIENT);
    }

    /** The number of rows, with nothing read from them. */
    std::size_t run() {
        std::size_t rows = 0;
        int code = SQLITE_ROW;
        while ((code = sqlite3_step(m_statement.get())) == SQLITE_ROW)
            ++rows;
        if (code != SQLITE_DONE)
            failed();
        sqlite3_reset(m_statement.get());
        return rows;
    }

private:
    struct Free {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };

    [[noreturn]] void failed() const { fail(QString::fromUtf8(sqlite3_errmsg(m_database.get()))); }

    std::unique_ptr<sqlite3, Free> m_database;
    std::unique_ptr<sqlite3_stmt, Free> m_statement;
};

/** A peer of refresh: SQLite sorts the same store. */
void sqliteSelect(benchmark::State& state, const Input& input, const Segment& segment) {
    Database database(input.storeFolder);
    database.prepare(std::string("select category, author, source from event") +
                     segment.orderInSql);
    for ([[maybe_unused]] auto _ : state)
        expectQuotes(database.run(), input.count);
}

/** A peer of the list of authors. */
void sqliteAuthors(benchmark::State& state, const Input& input) {
    Database database(input.storeFolder);
    database.prepare("select author, count(*) from event where author is not null"
                     " group by author order by author");
    for ([[maybe_unused]] auto _ : state)
        state.counters["rows"] = double(database.run());
}

void sqliteBreakdown(benchmark::State& state, const Input& input) {
    const StoreCopy copy(input);
    QString author;
    {
        Application application(input.storeFolder);
        author = busiestAuthor(application.context().fetch(Event::fetchRequest()).records);
    }
    Database database(copy.folder());
    database.execute("create index by_author on event(author)");
    database.prepare("select * from event where author = ? order by category, source");
    database.bind(author);
    for ([[maybe_unused]] auto _ : state)
        state.counters["rows"] = double(database.run());
}

void sqliteSave(benchmark::State& state, const Input& input) {
    const StoreCopy copy(input);
    Database database(copy.folder());
    database.execute("pragma locking_mode = exclusive; pragma journal_mode = wal;"
                     "pragma synchronous = full; pragma wal_autocheckpoint = 250;"
                     "pragma journal_size_limit = 4194304");
    // One statement is one transaction.
    database.prepare("insert into event(quote, author, source, category, timestamp) values("
                     "'All things pass.', 'Anonymous', 'Proverbs', 'Life', 1614600000000)");
    for ([[maybe_unused]] auto _ : state)
        database.run();
}

template <class... Arguments>
void add(const std::string& name, const Input& input, Arguments... arguments) {
    benchmark::RegisterBenchmark((name + '/' + std::to_string(input.count)).c_str(), arguments...)
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond);
}

void addAll(const Input& input) {
    add("Open", input, open, input);
    for (std::size_t i = 0; i < segments.size(); ++i) {
        const std::string name = segments[i].name;
        add("Refresh/" + name, input, refresh, input, int(i));
        add("SqliteSelect/" + name, input, sqliteSelect, input, segments[i]);
        add("Keystroke/" + name, input, keystroke, input, int(i));
    }
    add("SegmentChange", input, segmentChange, input);
    add("FirstKeystroke/Quote", input, firstKeystroke, input, false);
    add("FirstKeystrokeAtOnce/Quote", input, firstKeystroke, input, true);
    add("Search/lov", input, growingSearch, input, false);
    add("Search/love", input, growingSearch, input, true);
    add("Memmem", input, memmemSearch, input);
    add("Authors", input, openScreen<AuthorTableViewController>, input);
    add("SqliteAuthors", input, sqliteAuthors, input);
    add("Breakdown", input, openScreen<AuthorBreakdownTableViewController>, input);
    add("SqliteBreakdown", input, sqliteBreakdown, input);
    add("Save", input, save, input);
    add("SqliteSave", input, sqliteSave, input);
    add("Import", input, importOnce, input);
    add("Export", input, exportAll, input);
    add("ImportAgain", input, importAgain, input);
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const QCoreApplication application(argc, argv);

    const QCommandLineOption inputsOption(
        QStringLiteral("inputs"),
        QStringLiteral("Where the collections and stores are made, and stay. Without it, in the "
                       "folder for temporary files, which may be faster than a disk."),
        QStringLiteral("folder"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Measures Lantern's controllers on parts of a collection. Options that start with "
        "--benchmark are those of Google Benchmark."));
    parser.addHelpOption();
    parser.addOption(inputsOption);
    parser.addPositionalArgument(QStringLiteral("collection"),
                                 QStringLiteral("A file that tools/fortunes-to-collection wrote."));
    parser.addPositionalArgument(QStringLiteral("count"),
                                 QStringLiteral("Quotes per part (1000, 15000 and 100000)."),
                                 QStringLiteral("[count]..."));
    parser.process(application);
    auto arguments = parser.positionalArguments();
    if (arguments.isEmpty())
        fail(QStringLiteral("no collection file; tools/fortunes-to-collection makes one"));
    const QByteArray collection = contentOf(arguments.takeFirst());
    if (arguments.isEmpty())
        arguments = {QStringLiteral("1000"), QStringLiteral("15000"), QStringLiteral("100000")};

    const QTemporaryDir temporaryFolder;
    const QString folder =
        parser.isSet(inputsOption) ? parser.value(inputsOption) : temporaryFolder.path();
    if (!QDir().mkpath(folder))
        fail(QStringLiteral("the folder \"%1\" cannot be made").arg(folder));
    for (const QString& argument : std::as_const(arguments)) {
        const qsizetype count = argument.toInt();
        if (count <= 0)
            fail(QStringLiteral("\"%1\" is no number of quotes").arg(argument));
        addAll(makeInput(collection, folder, count));
    }
    benchmark::RunSpecifiedBenchmarks();
}

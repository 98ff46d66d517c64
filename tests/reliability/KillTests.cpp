#include "app/MainMenuViewController.h"
#include "exchange/ImportViewController.h"
#include "quotes/AddViewController.h"
#include "quotes/DetailViewController.h"
#include "quotes/MasterViewController.h"
#include "reliability/Effort.h"
#include "reliability/StoreContents.h"
#include "settings/DefaultsViewController.h"
#include "support/TestApplication.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>

#include <algorithm>
#include <array>
#include <csignal>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <random>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const auto useDefaultDate = QStringLiteral("UseDefaultDate");
const auto launchedBefore = QStringLiteral("AboutHasBeenLaunchedBeforeFlag");

/** Something the user does, as it stands in the pipe between the program and its killer. */
struct Action {
    enum Kind { Start, Add, Edit, Delete, Import, Settings, Restart };

    Kind kind = Restart;
    int quote = 0;   ///< the first of the quotes that are made, or the one that is changed
    int count = 0;   ///< of quotes to make
    int updated = 0; ///< the quote that an import changes; 0 for none
};

/** What must be in the store and the settings. Quotes are numbers, each with its version. */
struct Model {
    std::map<int, int> quotes;
    std::set<QString> topics;
    std::set<QString> names; ///< of sources and authors, as the last rebuild left them
    bool usesDefaultDate = false;
    bool hasLaunched = false;
    int next = 1; ///< a number that no quote has had
};

QString sourceOf(int quote) {
    return QStringLiteral("source %1").arg(quote);
}

QString authorOf(int quote) {
    return QStringLiteral("author %1").arg(quote % 7);
}

QString topicOf(int quote) {
    return QStringLiteral("topic %1").arg(quote % 5);
}

QString textOf(int quote, int version) {
    return QStringLiteral("quote %1 version %2 ").arg(quote).arg(version) +
           QString((quote * 37 + version * 101) % 4000, u'x') + u'.';
}

QString importedTopic(int quote) {
    return QStringLiteral("imported with %1").arg(quote);
}

void apply(const Action& action, Model& model) {
    switch (action.kind) {
    case Action::Start:
        if (!std::exchange(model.hasLaunched, true)) {
            model.names.clear();
            for (const auto& [quote, version] : model.quotes)
                model.names.insert({sourceOf(quote), authorOf(quote)});
        }
        break;
    case Action::Import:
        model.topics.insert(importedTopic(action.quote));
        [[fallthrough]];
    case Action::Add:
        for (int i = 0; i < action.count; ++i)
            model.quotes[action.quote + i] = 0;
        if (action.updated != 0)
            ++model.quotes[action.updated];
        break;
    case Action::Edit:
        ++model.quotes[action.quote];
        break;
    case Action::Delete:
        model.quotes.erase(action.quote);
        break;
    case Action::Settings:
        model.usesDefaultDate = !model.usesDefaultDate;
        break;
    case Action::Restart:
        break;
    }
    model.next = std::max(model.next, action.quote + action.count);
}

/** Lines for all that the user would miss: quotes with their texts, and topics. */
std::multiset<QString> lines(const Model& model) {
    std::multiset<QString> result(model.topics.begin(), model.topics.end());
    for (const auto& [quote, version] : model.quotes)
        result.insert(
            QStringList({authorOf(quote), topicOf(quote), sourceOf(quote), textOf(quote, version)})
                .join(u'^'));
    return result;
}

/** The program, acting until it is killed. */
class Victim {
public:
    Victim(const Services& services, Model model, unsigned seed, int reports)
        : m_folder(QFileInfo(services.storeFolder).path())
        , m_defaults(m_folder + QStringLiteral("/settings/Lantern.ini"))
        , m_services{services.environment, m_defaults,           services.mainQueue,
                     services.keyboard,    services.platform,    services.classes,
                     services.selection,   services.storeFolder, services.temporaryFolder}
        , m_model(std::move(model))
        , m_random(seed)
        , m_reports(reports) {}

    [[noreturn]] void actUntilKilled() {
        m_program.emplace(m_services);
        perform({.kind = Action::Start});
        for (;;)
            perform(anyAction());
    }

private:
    int below(int limit) { return int(m_random() % unsigned(limit)); }

    int anyQuote() {
        return std::next(m_model.quotes.begin(), below(int(m_model.quotes.size())))->first;
    }

    Action anyAction() {
        const bool hasQuotes = !m_model.quotes.empty();
        const auto kind = Action::Kind(1 + below(Action::Restart));
        if (kind == Action::Import)
            return {kind, m_model.next, 1 + below(40), hasQuotes ? anyQuote() : 0};
        if (kind == Action::Add || (!hasQuotes && kind != Action::Settings))
            return {Action::Add, m_model.next, 1, 0};
        return {kind, hasQuotes ? anyQuote() : 0, 0, 0};
    }

    void perform(const Action& action) {
        report(&action, sizeof action);
        switch (action.kind) {
        case Action::Start:
            MainMenuViewController(*m_program).viewDidLoad();
            break;
        case Action::Add:
            add(action.quote);
            break;
        case Action::Edit:
            edit(action.quote);
            break;
        case Action::Delete:
            remove(action.quote);
            break;
        case Action::Import:
            import(action);
            break;
        case Action::Settings:
            changeSettings();
            break;
        case Action::Restart:
            m_program.reset();
            m_program.emplace(m_services);
            m_program->persistentContainer();
            break;
        }
        apply(action, m_model);
        report("", 1);
    }

    void report(const void* bytes, std::size_t count) const {
        if (::write(m_reports, bytes, count) != ssize_t(count))
            ::_exit(EXIT_FAILURE);
    }

    void add(int quote) {
        AddViewController form(*m_program);
        form.viewDidLoad();
        form.viewWillAppear();
        form.SourceTextField->setText(sourceOf(quote));
        form.CategoryTextField->setText(topicOf(quote));
        form.AuthorTextField->setText(authorOf(quote));
        form.QuoteTextView->setText(textOf(quote, 0));
        form.DateAddedTextField->beginEditing();
        form.dismissKeyboard();
        form.SaveQuote();
    }

    /** Finds the quote in the list, and chooses its row. */
    int choose(MasterViewController& list, int quote) {
        list.viewDidLoad();
        list.segment->choose(2);
        list.searchController->searchBar()->setText(sourceOf(quote));
        for (int row = 0;; ++row) {
            list.didSelectRowAtIndexPath(row);
            if (m_services.selection.selectedSource == sourceOf(quote))
                return row;
        }
    }

    void edit(int quote) {
        MasterViewController list(*m_program);
        choose(list, quote);
        // The detail finds no quote without a date, such as an import makes.
        if (!m_services.selection.selectedDate) {
            list.FilteredQuoteList.front()->setTimestamp(m_services.environment.now());
            m_services.selection.selectedDate = m_services.environment.now();
        }
        DetailViewController detail(*m_program);
        detail.viewDidLoad();
        detail.viewWillAppear();
        detail.QuoteTextView->setText(textOf(quote, m_model.quotes[quote] + 1));
        detail.SaveQuote();
    }

    void remove(int quote) {
        MasterViewController list(*m_program);
        const int row = choose(list, quote);
        list.trailingSwipeActionsConfigurationForRowAtIndexPath(row).front().handler();
    }

    void import(const Action& action) {
        QString text = QStringLiteral("[QUOTECOLLECTION]\n");
        const auto addLine = [&](int quote, int version) {
            text += QStringList({authorOf(quote), topicOf(quote), sourceOf(quote), QString(),
                                 textOf(quote, version) + u'\n'})
                        .join(u'^');
        };
        for (int i = 0; i < action.count; ++i)
            addLine(action.quote + i, 0);
        if (action.updated != 0)
            addLine(action.updated, m_model.quotes[action.updated] + 1);
        text += QStringLiteral("[TOPICCOLLECTION]\n%1\n").arg(importedTopic(action.quote));

        const QString path = m_folder + QStringLiteral("/import.csv");
        QFile file(path);
        if (!file.open(QFile::WriteOnly) || file.write(text.toUtf8()) < 0)
            ::_exit(EXIT_FAILURE);
        file.close();
        ImportViewController screen(*m_program);
        screen.viewDidLoad();
        screen.didPickDocumentAtURL(QUrl::fromLocalFile(path));
        screen.ImportTextFile();
    }

    void changeSettings() {
        DefaultsViewController screen(*m_program);
        screen.viewDidLoad();
        screen.DefaultDateSwitch->toggle();
        // Settings are written when the event loop is next reached.
        QCoreApplication::processEvents();
    }

    const QString m_folder;
    UserDefaults m_defaults;
    Services m_services;
    Model m_model;
    std::mt19937 m_random;
    int m_reports;
    std::optional<AppDelegate> m_program;
};

class Killing : public testing::Test {
protected:
    Killing() { QLoggingCategory::setFilterRules(QStringLiteral("lantern.*=false")); }
    ~Killing() override { QLoggingCategory::setFilterRules({}); }

    /** Lets the program act for a while, kills it, and returns what it reported: whole actions
     * are applied to the model; one that was under way is returned. */
    std::optional<Action> killOnce(unsigned seed, useconds_t life) {
        std::array<int, 2> reports{};
        EXPECT_EQ(::pipe(reports.data()), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            setFatalErrorHandler(nullptr);
            Victim(m_application.delegate.services, m_model, seed, reports[1]).actUntilKilled();
        }
        ::close(reports[1]);
        ::usleep(life);
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "it ended by itself";

        Action action;
        std::optional<Action> pending;
        while (::read(reports[0], &action, sizeof action) == sizeof action) {
            pending = action;
            char done = 0;
            if (::read(reports[0], &done, 1) != 1)
                break;
            apply(action, m_model);
            pending.reset();
            ++m_actions;
        }
        ::close(reports[0]);
        return pending;
    }

    /** Compares a copy, so that the next program starts from what the kill has left. */
    void expectNothingLost(const std::optional<Action>& pending) {
        const QTemporaryDir copy;
        for (const char* name : {"store", "settings"}) {
            const QDir from(m_application.folder.filePath(QLatin1String(name)));
            QDir(copy.path()).mkdir(QLatin1String(name));
            for (const QString& file : from.entryList(QDir::Files))
                QFile::copy(from.filePath(file), copy.filePath(QLatin1String(name) + u'/' + file));
        }
        Model after = m_model;
        if (pending)
            apply(*pending, after);

        auto container = std::make_unique<PersistentContainer>(
            QStringLiteral("Lantern"), copy.filePath(QStringLiteral("store")));
        const auto error = container->loadPersistentStores();
        ASSERT_FALSE(error) << error->unresolved().toStdString();
        const auto found = foundLines(container->viewContext());
        EXPECT_TRUE(found == lines(m_model) || found == lines(after))
            << found.size() << " lines instead of " << m_model.quotes.size();

        const auto names = foundNames(container->viewContext());
        // A rebuild that was under way leaves some of the old names, or some of the new.
        std::set<QString> possible = after.names;
        possible.insert(m_model.names.begin(), m_model.names.end());
        EXPECT_TRUE(std::includes(possible.begin(), possible.end(), names.begin(), names.end()));
        EXPECT_TRUE(names == m_model.names || m_model.hasLaunched != after.hasLaunched);

        const UserDefaults defaults(copy.filePath(QStringLiteral("settings/Lantern.ini")));
        const bool usesDefaultDate = defaults.boolForKey(useDefaultDate);
        EXPECT_TRUE(usesDefaultDate == m_model.usesDefaultDate ||
                    usesDefaultDate == after.usesDefaultDate);
        const bool hasLaunched = defaults.boolForKey(launchedBefore);
        EXPECT_TRUE(hasLaunched == m_model.hasLaunched || hasLaunched == after.hasLaunched);

        container.reset();
        EXPECT_EQ(integrityOf(copy.filePath(QStringLiteral("store/Lantern.sqlite"))), "ok");

        if (found == lines(after))
            m_model = after;
        m_model.next = after.next;
        m_model.names = names;
        m_model.usesDefaultDate = usesDefaultDate;
        m_model.hasLaunched = hasLaunched;
    }

    static std::multiset<QString> foundLines(ManagedObjectContext& context) {
        std::multiset<QString> result;
        for (const Event* quote : context.fetch(Event::fetchRequest()).records)
            result.insert(QStringList({quote->author().value_or(QString()),
                                       quote->category().value_or(QString()),
                                       quote->source().value_or(QString()),
                                       quote->quote().value_or(QString())})
                              .join(u'^'));
        for (const Topics* topic : context.fetch(Topics::fetchRequest()).records)
            result.insert(topic->topic().value_or(QString()));
        return result;
    }

    static std::set<QString> foundNames(ManagedObjectContext& context) {
        std::set<QString> result;
        for (const Sources* source : context.fetch(Sources::fetchRequest()).records)
            result.insert(source->name().value_or(QString()));
        for (const Authors* author : context.fetch(Authors::fetchRequest()).records)
            result.insert(author->name().value_or(QString()));
        return result;
    }

    TestApplication m_application;
    Model m_model;
    int m_actions = 0;
};

} // namespace

TEST_F(Killing, AtAnyMomentLosesNothing) {
    const int kills = effort("LANTERN_KILLS", 40);
    const int seed = effort("LANTERN_SEED", int(std::random_device()() % 1'000'000));
    constexpr unsigned longestLife = 250'000; // microseconds
    RecordProperty("seed", seed);
    std::cout << "LANTERN_SEED=" << seed << " repeats these actions; when they are cut off is up to"
              << " the machine\n";
    std::mt19937 random{unsigned(seed)};
    for (int round = 0; round < kills && !HasFailure(); ++round) {
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", kill " << round);
        if (random() % 4 == 0) { // a first launch with quotes that are there already
            QFile::remove(m_application.folder.filePath(QStringLiteral("settings/Lantern.ini")));
            m_model.hasLaunched = false;
            m_model.usesDefaultDate = false;
        }
        const auto childSeed = unsigned(random());
        expectNothingLost(killOnce(childSeed, useconds_t(random() % longestLife)));
    }
    std::cout << kills << " kills, " << m_actions << " acknowledged actions, "
              << m_model.quotes.size() << " quotes at the end\n";
}

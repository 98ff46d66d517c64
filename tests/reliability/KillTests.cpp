#include "app/MainMenuViewController.h"
#include "exchange/Collection.h"
#include "exchange/CollectionFile.h"
#include "exchange/ExportViewController.h"
#include "foundation/Files.h"
#include "names/RecordLists.h"
#include "names/TopicTableTableViewController.h"
#include "quotes/AddViewController.h"
#include "quotes/DetailViewController.h"
#include "quotes/MasterViewController.h"
#include "reliability/Effort.h"
#include "reliability/NameForms.h"
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
const auto exportedFile = QStringLiteral("/QuoteCollection.csv");
/** Where exports write; empty for the user's folder, which holds all others. */
const std::array<QString, 2> exportedFolders{QStringLiteral("temporary"), QString()};

/** Something the user does, as it stands in the pipe between the program and its killer. */
struct Action {
    enum Kind {
        Start,
        Add,
        Edit,
        Delete,
        Import,
        Export,
        AddName,
        RenameName,
        DeleteName,
        Settings,
        Restart
    };

    Kind kind = Restart;
    int quote = 0;   ///< the first of the quotes that are made, or the one that is changed
    int count = 0;   ///< of quotes or names to make
    int updated = 0; ///< the quote that an import changes; 0 for none
    int name = 0;    ///< the place of the name that is changed, or the kind of one that is added
};

/** What must be in the store and the settings. Quotes are numbers, each with its version. */
struct Model {
    std::map<int, int> quotes;
    std::set<QString> topics;
    std::set<QString> names; ///< of sources and authors, since the last rebuild
    /** What the last export wrote, in the temporary folder and in the user's. */
    std::array<std::multiset<QString>, 2> exported;
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
    return QStringLiteral("topic imported with %1").arg(quote);
}

const std::array<QString, 3> kindsOfNames{QStringLiteral("author"), QStringLiteral("source"),
                                          QStringLiteral("topic")};

QString addedName(const Action& action) {
    return QStringLiteral("%1 added %2")
        .arg(kindsOfNames.at(std::size_t(action.name)))
        .arg(action.quote);
}

/** Of a name that an action changes, what it is before. */
QString oldName(const Action& action, const Model& model) {
    const int others = int(model.names.size());
    return action.name < others ? *std::next(model.names.begin(), action.name)
                                : *std::next(model.topics.begin(), action.name - others);
}

QString newName(const Action& action, const Model& model) {
    return QStringLiteral("%1 renamed %2")
        .arg(oldName(action, model).section(u' ', 0, 0))
        .arg(action.quote);
}

/** The names of the kind that a name shows by its first word. */
std::set<QString>& namesLike(const QString& name, Model& model) {
    return name.startsWith(kindsOfNames.back()) ? model.topics : model.names;
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
    case Action::Export:
        model.exported.fill(lines(model));
        break;
    case Action::AddName:
        namesLike(addedName(action), model).insert(addedName(action));
        break;
    case Action::RenameName: {
        const QString name = newName(action, model);
        std::set<QString>& names = namesLike(name, model);
        names.erase(oldName(action, model));
        names.insert(name);
        break;
    }
    case Action::DeleteName: {
        const QString name = oldName(action, model);
        namesLike(name, model).erase(name);
        break;
    }
    case Action::Settings:
        model.usesDefaultDate = !model.usesDefaultDate;
        break;
    case Action::Restart:
        break;
    }
    model.next = std::max(model.next, action.quote + action.count);
}

/** The program, acting until it is killed. */
class Victim {
public:
    Victim(const Services& services, Model model, unsigned seed, int reports)
        : m_folder(QFileInfo(services.storeFolder).path())
        , m_defaults(m_folder + QStringLiteral("/settings/Lantern.ini"))
        , m_services{services.environment,    m_defaults,
                     services.mainQueue,      services.keyboard,
                     services.notes,          services.longWork,
                     services.platform,       services.classes,
                     services.selection,      services.storeFolder,
                     services.temporaryFolder}
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
        const int names = int(m_model.names.size() + m_model.topics.size());
        const auto kind = Action::Kind(1 + below(Action::Restart));
        switch (kind) {
        case Action::Import:
            return {kind, m_model.next, 1 + below(40), hasQuotes ? anyQuote() : 0};
        case Action::Edit:
        case Action::Delete:
            if (hasQuotes)
                return {kind, anyQuote()};
            break;
        case Action::AddName:
            return {kind, m_model.next, 1, 0, below(int(kindsOfNames.size()))};
        case Action::RenameName:
        case Action::DeleteName:
            if (names != 0)
                return {kind, m_model.next, 1, 0, below(names)};
            break;
        case Action::Export:
        case Action::Settings:
        case Action::Restart:
            return {kind};
        case Action::Start:
        case Action::Add:
            break;
        }
        return {Action::Add, m_model.next, 1};
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
        case Action::Export:
            exportAll();
            break;
        case Action::AddName:
            addName(addedName(action));
            break;
        case Action::RenameName:
            renameName(oldName(action, m_model), newName(action, m_model));
            break;
        case Action::DeleteName:
            deleteName(oldName(action, m_model));
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
        auto& context = m_program->persistentContainer().viewContext();
        importCollection(context, text, topicNames(context), QString(), m_services.environment);
    }

    void exportAll() {
        ExportViewController screen(*m_program);
        screen.viewDidLoad();
        screen.CreateUpdateFile();
        screen.SaveToFiles();
        // As the choice of a folder goes on.
        const auto bytes = readOwnFile(m_services.temporaryFolder + exportedFile);
        if (!bytes || writeFileAtomically(m_folder + exportedFile, *bytes))
            ::_exit(EXIT_FAILURE);
    }

    void addName(const QString& name) {
        if (name.startsWith(kindsOfNames[0]))
            saveName(*m_program, &AddAuthorViewController::AuthorTextField,
                     &AddAuthorViewController::SaveAuthor, name);
        else if (name.startsWith(kindsOfNames[1]))
            saveName(*m_program, &AddSourceViewController::SourceTextField,
                     &AddSourceViewController::SaveSource, name);
        else
            saveName(*m_program, &TopicViewController::TopicTextField,
                     &TopicViewController::SaveTopic, name);
    }

    /** Opens the list of the records like a name, and chooses its row. */
    std::pair<std::unique_ptr<TableViewController>, int> chooseName(const QString& name) {
        std::unique_ptr<TableViewController> list;
        QString* chosen = &m_services.selection.chosenTopicName;
        if (name.startsWith(kindsOfNames[0])) {
            list = std::make_unique<NewAuthorTableViewController>(*m_program);
            chosen = &m_services.selection.chosenAuthorName;
        } else if (name.startsWith(kindsOfNames[1])) {
            list = std::make_unique<NewSourceTableViewController>(*m_program);
            chosen = &m_services.selection.chosenSourceName;
        } else {
            list = std::make_unique<TopicTableTableViewController>(*m_program);
        }
        list->loadViewIfNeeded();
        for (int row = 0;; ++row) {
            list->didSelectRowAtIndexPath(row);
            if (*chosen == name)
                return {std::move(list), row};
        }
    }

    void renameName(const QString& before, const QString& after) {
        const auto [list, row] = chooseName(before);
        if (before.startsWith(kindsOfNames[0]))
            saveName(*m_program, &EditAuthorViewController::AuthorTextField,
                     &EditAuthorViewController::SaveAuthor, after);
        else if (before.startsWith(kindsOfNames[1]))
            saveName(*m_program, &EditSourceViewController::SourceTextField,
                     &EditSourceViewController::SaveSource, after);
        else
            saveName(*m_program, &EditTopicViewController::TopicTextField,
                     &EditTopicViewController::SaveButtonTapped, after);
    }

    void deleteName(const QString& name) {
        const auto [list, row] = chooseName(name);
        list->trailingSwipeActionsConfigurationForRowAtIndexPath(row).front().handler();
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
        const bool isBetween =
            m_model.hasLaunched != after.hasLaunched && std::ranges::includes(possible, names);
        EXPECT_TRUE(isBetween || names == m_model.names || names == after.names)
            << names.size() << " names";

        const UserDefaults defaults(copy.filePath(QStringLiteral("settings/Lantern.ini")));
        const bool usesDefaultDate = defaults.strictBoolForKey(useDefaultDate);
        EXPECT_TRUE(usesDefaultDate == m_model.usesDefaultDate ||
                    usesDefaultDate == after.usesDefaultDate);
        const bool hasLaunched = defaults.strictBoolForKey(launchedBefore);
        EXPECT_TRUE(hasLaunched == m_model.hasLaunched || hasLaunched == after.hasLaunched);

        container.reset();
        EXPECT_EQ(integrityOf(copy.filePath(QStringLiteral("store/Lantern.sqlite"))), "ok");

        std::array<std::multiset<QString>, 2> exported;
        for (std::size_t i = 0; i < exported.size(); ++i) {
            exported[i] =
                exportedLines(m_application.folder.filePath(exportedFolders[i]) + exportedFile);
            EXPECT_TRUE(exported[i] == m_model.exported[i] || exported[i] == after.exported[i])
                << exported[i].size() << " lines in an exported file";
        }

        if (found == lines(after))
            m_model = after;
        m_model.exported = exported;
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

    /** The lines of an exported file; none when there is no such file. */
    static std::multiset<QString> exportedLines(const QString& path) {
        std::multiset<QString> result;
        const auto bytes = readOwnFile(path);
        if (!bytes)
            return result;
        const QString text = QString::fromUtf8(*bytes);
        EXPECT_TRUE(text.endsWith(u'\n'));
        EXPECT_TRUE(isQuoteCollection(text));
        QuoteLineReader quotes(text);
        while (const auto line = quotes.next()) {
            if (!line->topic.isEmpty())
                result.insert(
                    QStringList({line->author, line->topic, line->source, line->quote}).join(u'^'));
        }
        TopicNameReader topics(text);
        while (const auto topic = topics.next())
            result.insert(*topic);
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
        if ((round + 1) % 100 == 0)
            std::cout << round + 1 << " kills" << std::endl;
    }
    std::cout << kills << " kills, " << m_actions << " acknowledged actions, "
              << m_model.quotes.size() << " quotes at the end\n";
}

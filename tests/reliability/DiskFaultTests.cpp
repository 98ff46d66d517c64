#include "exchange/Collection.h"
#include "names/RecordLists.h"
#include "names/TopicTableTableViewController.h"
#include "quotes/DetailViewController.h"
#include "reliability/Effort.h"
#include "reliability/NameForms.h"
#include "reliability/SimulatedDisk.h"
#include "reliability/StoreContents.h"
#include "support/TestApplication.h"

#include <QLoggingCategory>

#include <algorithm>
#include <gtest/gtest.h>
#include <iostream>

namespace {

using Changes = std::vector<std::function<void(AppDelegate&)>>;

template <class Record>
std::vector<Record*> all(AppDelegate& program) {
    const auto result = program.persistentContainer().viewContext().fetch(Record::fetchRequest());
    if (result.error)
        throw *result.error;
    return result.records;
}

void addQuotes(AppDelegate& program, int count, const QString& text) {
    for (int i = 0; i < count; ++i) {
        Event& quote = *program.persistentContainer().viewContext().insert<Event>();
        quote.setAuthor(QStringLiteral("A"));
        quote.setCategory(QStringLiteral("T"));
        quote.setSource(QStringLiteral("source %1").arg(i));
        quote.setQuote(text);
        program.persistentContainer().viewContext().insert<Topics>()->setTopic(text.left(9));
    }
}

void changeAndDelete(AppDelegate& program) {
    const auto quotes = all<Event>(program);
    quotes.front()->setQuote(QString(5000, u'y'));
    program.persistentContainer().viewContext().deleteObject(*quotes.back());
}

void addInOneGroup(AppDelegate& program) {
    ManagedObjectContext& context = program.persistentContainer().viewContext();
    const SaveGroup group(context);
    for (int i = 0; i < 5; ++i) {
        context.insert<Authors>()->setName(QString(500, QChar(u'a' + i)));
        program.saveContext();
    }
}

void importFile(AppDelegate& program) {
    auto& context = program.persistentContainer().viewContext();
    importCollection(context,
                     QStringLiteral("[QUOTECOLLECTION]\n"
                                    "A^T^source 1^2021-03-07 14:05:09 +0000^an update\n"
                                    "B^U^new^^a new one@#@on two lines\n"
                                    "[TOPICCOLLECTION]\nU\n"),
                     topicNames(context), QString(), program.services.environment);
}

void addTopic(AppDelegate& program) {
    saveName(program, &TopicViewController::TopicTextField, &TopicViewController::SaveTopic,
             QStringLiteral("added in a form"));
}

void renameAuthor(AppDelegate& program) {
    program.services.selection.chosenAuthorName = QString(500, u'c');
    saveName(program, &EditAuthorViewController::AuthorTextField,
             &EditAuthorViewController::SaveAuthor, QStringLiteral("renamed in a form"));
}

/** Deletes the first name of a list by its swipe. */
template <class List>
void deleteFirst(AppDelegate& program) {
    List list(program);
    list.loadViewIfNeeded();
    list.trailingSwipeActionsConfigurationForRowAtIndexPath(0).front().handler();
}

/** Everything that a program does to its store, from the first start on; null is a new start. */
const Changes& changesOfAllKinds() {
    static const Changes all{
        [](AppDelegate& program) { addQuotes(program, 3, QStringLiteral("first")); },
        changeAndDelete,
        addInOneGroup,
        nullptr,
        importFile,
        addTopic,
        renameAuthor,
        deleteFirst<NewAuthorTableViewController>,
        deleteFirst<TopicTableTableViewController>,
        [](AppDelegate& program) { addQuotes(program, 1, QString(9000, u'z')); },
        nullptr,
    };
    return all;
}

/** Saves that fill the log until it is carried over into the store, and then from its start. */
const Changes& manyLargeChanges() {
    static const Changes changes(12, [](AppDelegate& program) {
        addQuotes(program, 10, QString(50'000, QChar(u'a' + int(all<Event>(program).size() / 10))));
    });
    return changes;
}

enum class AfterFailure { Retry, GiveUp };

/** The program on a disk that may fail, and what it has been told. */
class Session {
public:
    Session(SimulatedDisk& disk, const Changes& changes)
        : m_disk(disk)
        , m_changes(changes) {}

    /** Whether all changes could be made. */
    bool run(AfterFailure afterFailure) {
        return starts(afterFailure) &&
               std::all_of(m_changes.begin(), m_changes.end(), [&](const auto& change) {
                   return change ? makes(change, afterFailure) : starts(afterFailure);
               });
    }

    /** Starts once more and compares with what was acknowledged, or was being saved. */
    void expectNothingLost() {
        m_program.emplace(m_application.delegate.services);
        QStringList found;
        EXPECT_TRUE(succeeds([&] { found = contentsOf(context()); }));
        EXPECT_TRUE(found == m_acknowledged || found == m_attempted) << found.size() << " records";
        // What the store holds must not keep it from working.
        EXPECT_TRUE(succeeds([&] { addQuotes(*m_program, 1, QStringLiteral("one more")); }));
        EXPECT_TRUE(succeeds([&] { m_program->saveContext(); }));
        m_program.reset();
        EXPECT_EQ(integrityOf(m_application.delegate.services.storeFolder +
                              QStringLiteral("/Lantern.sqlite")),
                  "ok");
    }

    /** Ends the program without a last save. */
    void end() { m_program.reset(); }

    const QStringList& acknowledged() const { return m_acknowledged; }

private:
    ManagedObjectContext& context() { return m_program->persistentContainer().viewContext(); }

    bool starts(AfterFailure afterFailure) {
        m_program.reset();
        m_program.emplace(m_application.delegate.services);
        return tries(afterFailure, [this] { contentsOf(context()); });
    }

    bool makes(const std::function<void(AppDelegate&)>& change, AfterFailure afterFailure) {
        // A change that saves for itself may end the program there; saving is then tried once more.
        succeeds([&] { change(*m_program); });
        m_attempted = contentsOf(context());
        if (!tries(afterFailure, [this] { m_program->saveContext(); }))
            return false;
        EXPECT_EQ(contentsOf(context()), m_attempted) << "memory keeps what it saved";
        m_acknowledged = m_attempted;
        return true;
    }

    bool tries(AfterFailure afterFailure, const std::function<void()>& action) {
        if (succeeds(action))
            return true;
        EXPECT_TRUE(m_disk.hasFailed());
        if (afterFailure == AfterFailure::GiveUp)
            return false;
        m_disk.heal();
        const bool nowSucceeds = succeeds(action);
        EXPECT_TRUE(nowSucceeds);
        return nowSucceeds;
    }

    bool succeeds(const std::function<void()>& action) {
        const QString sentence =
            QStringLiteral("The store \"%1").arg(m_application.delegate.services.storeFolder);
        try {
            action();
            return true;
        } catch (const FatalError& error) {
            EXPECT_TRUE(error.message.startsWith(QStringLiteral("Unresolved error ") + sentence))
                << error.message.toStdString();
        } catch (const StoreError& error) {
            EXPECT_TRUE(error.description.startsWith(sentence)) << error.description.toStdString();
        }
        return false;
    }

    SimulatedDisk& m_disk;
    const Changes& m_changes;
    TestApplication m_application;
    std::optional<AppDelegate> m_program;
    QStringList m_acknowledged;
    QStringList m_attempted;
};

// The disk speaks of what was done to it, not of the program's warnings.
class Disk : public testing::Test {
protected:
    Disk() { QLoggingCategory::setFilterRules(QStringLiteral("lantern.*=false")); }
    ~Disk() override { QLoggingCategory::setFilterRules({}); }

    /** A power cut at every so many operations, with several outcomes each. */
    static void losePowerDuring(const Changes& changes, int stride, int outcomes) {
        int cuts = 0;
        bool hasFailed = true;
        for (int operation = 1; hasFailed; operation += stride) {
            SimulatedDisk disk;
            Session session(disk, changes);
            disk.failAt(operation, Fault::IoError, true);
            session.run(AfterFailure::GiveUp);
            session.end();
            hasFailed = disk.hasFailed();
            for (int seed = 0; seed < outcomes; ++seed, ++cuts) {
                SCOPED_TRACE(testing::Message() << "cut at " << operation << ", outcome " << seed);
                std::mt19937 random(unsigned(operation * outcomes + seed));
                disk.losePower(random);
                session.expectNothingLost();
            }
        }
        std::cout << cuts << " power cuts\n";
    }

    const int m_stride = effort("LANTERN_FAULT_STRIDE", 5); ///< 1 tries every operation
};

} // namespace

TEST_F(Disk, ThatFailsAtAnyOperationLosesNothing) {
    int runs = 0;
    for (const auto fault : {Fault::DiskFull, Fault::IoError}) {
        for (const bool keepsFailing : {false, true}) {
            for (const auto afterFailure : {AfterFailure::Retry, AfterFailure::GiveUp}) {
                bool hasFailed = true;
                for (int operation = 1 + runs % m_stride; hasFailed; operation += m_stride) {
                    SCOPED_TRACE(testing::Message()
                                 << "fault " << int(fault) << " at " << operation << ", keeps "
                                 << keepsFailing << ", ending " << int(afterFailure));
                    SimulatedDisk disk;
                    Session session(disk, changesOfAllKinds());
                    disk.failAt(operation, fault, keepsFailing);
                    const bool isDone = session.run(afterFailure);
                    session.end();
                    hasFailed = disk.hasFailed();
                    disk.heal();
                    ASSERT_TRUE(isDone || hasFailed);
                    EXPECT_TRUE(!isDone || session.acknowledged().size() == 13);
                    session.expectNothingLost();
                    ++runs;
                }
            }
        }
    }
    std::cout << runs << " runs with a fault\n";
}

TEST_F(Disk, ThatLosesPowerAtAnyOperationKeepsWhatWasSaved) {
    losePowerDuring(changesOfAllKinds(), m_stride, 3);
}

TEST_F(Disk, ThatLosesPowerWhileALogIsCarriedOverKeepsWhatWasSaved) {
    losePowerDuring(manyLargeChanges(), 100 * m_stride + 1, 1);
}

/** The detail returns as if it had saved; what it could not write, the next save writes. */
TEST_F(Disk, ThatFailsUnderTheDetailTakesTheNextSave) {
    const auto save = [](AppDelegate& program, SelectionValues& selection, const QString& author) {
        const Event& quote = *all<Event>(program).front();
        selection.selectedAuthor = *quote.author();
        selection.selectedTopic = *quote.category();
        selection.selectedSource = *quote.source();
        selection.selectedDate = quote.timestamp();
        selection.selectedQuoteText = *quote.quote();
        selection.callingScreen = QStringLiteral("Master");
        DetailViewController detail(program);
        const QStringList& segues = recordSegues(detail);
        detail.viewDidLoad();
        detail.viewWillAppear();
        detail.AuthorTextField->setText(author);
        detail.QuoteTextView->setText(detail.QuoteTextView->text() + u'!');
        detail.SaveQuote();
        EXPECT_EQ(segues, QStringList("unwindToMenu"));
    };
    for (const auto fault : {Fault::DiskFull, Fault::IoError}) {
        SimulatedDisk disk;
        TestApplication application;
        const Services& services = application.delegate.services;
        std::optional<AppDelegate> program(services);
        addQuotes(*program, 1, QStringLiteral("text"));
        all<Event>(*program).front()->setTimestamp(Date(std::chrono::milliseconds(0)));
        program->saveContext();
        disk.failAt(1, fault, true);
        save(*program, application.selection, QStringLiteral("B"));
        EXPECT_TRUE(disk.hasFailed());
        EXPECT_TRUE(program->persistentContainer().viewContext().hasChanges());
        disk.heal();
        save(*program, application.selection, QStringLiteral("C"));
        program.emplace(services);
        ASSERT_EQ(all<Event>(*program).size(), 1);
        EXPECT_EQ(all<Event>(*program).front()->author(), QStringLiteral("C"));
        EXPECT_EQ(all<Event>(*program).front()->quote(), QStringLiteral("text!!"));
    }
}

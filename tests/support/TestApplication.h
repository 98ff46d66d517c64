#pragma once

#include "app/AppDelegate.h"
#include "foundation/FatalError.h"
#include "store/Records.h"
#include "support/FakePlatform.h"
#include "support/PrintText.h"
#include "toolkit/AlertController.h"
#include "toolkit/ViewController.h"

#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <utility>
#include <vector>

/** A main queue that runs when the test says so. */
class ManualMainQueue final : public MainQueue {
public:
    void async(std::function<void()> work) override { after(0, std::move(work)); }
    void after(double seconds, std::function<void()> work) override {
        waiting.emplace_back(seconds, std::move(work));
    }

    /** Runs all that waits, and no more, in the order in which its time comes. */
    void runAll();

    std::vector<std::pair<double, std::function<void()>>> waiting;
};

/** What the attributes of a quote are in a test; a null text is an absent attribute. */
struct QuoteValues {
    const char* author = nullptr;
    const char* category = nullptr;
    const char* source = nullptr;
    const char* quote = nullptr;
    std::optional<Date> timestamp = {};
};

/** The program without its window: services of a fixed time and place, and a store of its own in
 * a temporary folder. While it lives, a fatal error throws its FatalError. */
class TestApplication {
public:
    /** With a device other than the fake one. */
    explicit TestApplication(Platform* device = nullptr);
    ~TestApplication();
    TestApplication(const TestApplication&) = delete;
    TestApplication& operator=(const TestApplication&) = delete;

    QTemporaryDir folder;
    Environment environment;
    UserDefaults userDefaults;
    ManualMainQueue mainQueue;
    Keyboard keyboard;
    Notes notes;
    LongWork longWork{mainQueue};
    QStringList said; ///< by the notes, in order
    FakePlatform platform;
    ClassRuntime classes;
    SelectionValues selection;
    AppDelegate delegate;

    ManagedObjectContext& context() { return delegate.persistentContainer().viewContext(); }
    Event& addQuote(const QuoteValues& values);
    void finishLongWork();
    template <class Record>
    std::vector<Record*> all() {
        return context().fetch(Record::fetchRequest()).records;
    }
    /** The names of all records of one kind, in store order. */
    template <class Record>
    QStringList names(std::optional<QString> (Record::*name)() const) {
        QStringList list;
        for (const Record* record : all<Record>())
            list.append((record->*name)().value_or(QStringLiteral("(absent)")));
        return list;
    }
};

/** The message of the fatal error that an action ends with; empty when it ends with none. */
QString fatalMessageOf(const std::function<void()>& action);

/** The alert that a screen presents; null when it presents none. */
AlertController* presentedAlert(ViewController& screen);

/** The identifiers of the segues that a screen follows from now on. */
QStringList& recordSegues(ViewController& screen);

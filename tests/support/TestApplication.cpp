#include "TestApplication.h"

#include <QDir>

#include <algorithm>

using namespace std::chrono_literals;

void ManualMainQueue::runAll() {
    auto due = std::exchange(waiting, {});
    std::ranges::stable_sort(due, {}, &decltype(due)::value_type::first);
    for (const auto& [seconds, work] : due)
        work();
}

TestApplication::TestApplication(Platform* device)
    : environment{[] { return Date(1'614'600'000'000ms); }, // 2021-03-01 12:00 UTC
                  QStringLiteral("en_US"), QStringLiteral("UTC"), SystemVersion{17, 0}}
    , userDefaults(folder.filePath(QStringLiteral("settings/Lantern.ini")))
    , delegate(Services{environment, userDefaults, mainQueue, keyboard, notes, longWork,
                        device ? *device : platform, classes, selection,
                        folder.filePath(QStringLiteral("store")),
                        folder.filePath(QStringLiteral("temporary"))}) {
    QDir(folder.path()).mkdir(QStringLiteral("temporary"));
    QObject::connect(&notes, &Notes::said, &notes,
                     [this](const QString& note) { said.append(note); });
    setFatalErrorHandler([](const FatalError& error) { throw error; });
}

TestApplication::~TestApplication() {
    setFatalErrorHandler(nullptr);
}

void TestApplication::finishLongWork() {
    while (!longWork.title().isEmpty())
        mainQueue.runAll();
}

Event& TestApplication::addQuote(const QuoteValues& values) {
    const auto text = [](const char* value) {
        return value ? std::optional(QString::fromUtf8(value)) : std::nullopt;
    };
    Event& quote = *context().insert<Event>();
    quote.setAuthor(text(values.author));
    quote.setCategory(text(values.category));
    quote.setSource(text(values.source));
    quote.setQuote(text(values.quote));
    quote.setTimestamp(values.timestamp);
    if (const auto error = context().save())
        throw std::runtime_error(error->description.toStdString());
    return quote;
}

QString fatalMessageOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const FatalError& error) {
        return error.message;
    }
    return {};
}

AlertController* presentedAlert(ViewController& screen) {
    return qobject_cast<AlertController*>(screen.presentedViewController());
}

QStringList& recordSegues(ViewController& screen) {
    class Recorder : public QObject {
    public:
        using QObject::QObject;
        QStringList identifiers;
    };
    auto* recorder = new Recorder(&screen);
    QObject::connect(&screen, &ViewController::segueRequested, recorder,
                     [recorder](const QString& segue) { recorder->identifiers.append(segue); });
    return recorder->identifiers;
}

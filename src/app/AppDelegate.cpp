#include "AppDelegate.h"

#include "app/UITextViewWorkaround.h"
#include "foundation/Date.h"
#include "foundation/FatalError.h"

#include <QDate>
#include <QLoggingCategory>

#include <utility>

Q_DECLARE_LOGGING_CATEGORY(lcApp)

namespace {

constexpr double secondsToNextTry = 60;
constexpr double secondsToFirstRest = 1; // when the first screen stands

/** A store that is no longer there takes no later save either, whatever the screen makes of it. */
void endIfLost(const std::optional<StoreError>& error) {
    if (error && error->cause == StoreError::Cause::Loss && !isEnding())
        fatalError(error->unresolved());
}

} // namespace

AppDelegate::AppDelegate(const Services& theServices)
    : services(theServices)
    , m_cleanup([this] { savePendingChanges(); }) {}

AppDelegate::~AppDelegate() {
    services.longWork.cancel();
}

PersistentContainer& AppDelegate::persistentContainer() {
    if (!m_persistentContainer) {
        auto container = makePersistentContainer(services);
        if (const auto error = container->loadPersistentStores())
            fatalError(error->unresolved());
        m_persistentContainer = std::move(container);
        m_persistentContainer->viewContext().observeWriting(
            [this](const std::optional<StoreError>& error) { noteWriting(error); });
        services.mainQueue.after(secondsToFirstRest,
                                 [this] { m_persistentContainer->noteContents(); });
    }
    return *m_persistentContainer;
}

void AppDelegate::saveContext() {
    // A store that was never opened has nothing to save.
    if (!m_persistentContainer)
        return;
    ManagedObjectContext& context = persistentContainer().viewContext();
    if (!context.hasChanges())
        return;
    if (const auto error = context.save())
        fatalError(error->unresolved());
}

void AppDelegate::savePendingChanges() {
    if (!m_persistentContainer || !m_persistentContainer->viewContext().hasChanges())
        return;
    if (const auto error = m_persistentContainer->viewContext().save())
        qCWarning(lcApp).noquote() << error->unresolved();
}

void AppDelegate::noteWriting(const std::optional<StoreError>& error) {
    endIfLost(error);
    QString sentence;
    if (error) {
        const bool isFull = error->cause == StoreError::Cause::Space;
        sentence = QStringLiteral("Not on disk yet: %1")
                       .arg(isFull ? QStringLiteral("no space left") : error->reason);
        if (!std::exchange(m_triesAgain, true))
            services.mainQueue.after(secondsToNextTry, [this] {
                m_triesAgain = false;
                savePendingChanges();
            });
    }
    if (std::exchange(m_notOnDisk, sentence) != sentence && notOnDiskChanged)
        notOnDiskChanged(sentence);
}

ManagedObjectContext* AppDelegate::pendingChanges() {
    return m_persistentContainer ? &m_persistentContainer->viewContext() : nullptr;
}

bool AppDelegate::didFinishLaunchingWithOptions() {
    UITextViewWorkaround::executeWorkaround(services.classes, services.environment.systemVersion);
    return true;
}

void AppDelegate::applicationWillTerminate() {
    services.longWork.cancel(); // or half of it would be saved
    saveContext();
    if (m_persistentContainer)
        endIfLost(m_persistentContainer->findLoss());
}

QString today(const Environment& environment) {
    const auto [year, month, day, time] = wallTime(environment.now(), environment);
    return QDate(year, month, day).toString(Qt::ISODate);
}

std::unique_ptr<PersistentContainer> makePersistentContainer(const Services& services) {
    return std::make_unique<PersistentContainer>(
        storeName, services.storeFolder,
        [&environment = services.environment] { return today(environment); });
}

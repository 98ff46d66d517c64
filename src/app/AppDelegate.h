#pragma once

#include "app/Services.h"
#include "foundation/FatalError.h"
#include "store/PersistentContainer.h"
#include "toolkit/Window.h"

#include <functional>
#include <memory>
#include <optional>

/** The owner of the store, which opens when a screen first asks for it. */
class AppDelegate {
public:
    explicit AppDelegate(const Services& services);
    /** Cancels work that has not come to its end. */
    ~AppDelegate();
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    std::unique_ptr<Window> window;

    /** The one store; failing to open it is a fatal error. */
    PersistentContainer& persistentContainer();
    /** Writes unsaved changes, if any; failing to is a fatal error. */
    void saveContext();

    /** The changes that are not saved; null while there is no store. */
    ManagedObjectContext* pendingChanges();

    /** Told, when it changes, what there is to say of saves that are not on disk; nothing when all
     * are. Until then each later save, and one every minute, tries again. */
    std::function<void(const QString& sentence)> notOnDiskChanged;

    bool didFinishLaunchingWithOptions();
    void applicationWillResignActive() {}
    void applicationDidEnterBackground() {}
    void applicationWillEnterForeground() {}
    void applicationDidBecomeActive() {}
    void applicationWillTerminate();

    const Services services;

private:
    void savePendingChanges();
    void noteWriting(const std::optional<StoreError>& error);

    std::unique_ptr<PersistentContainer> m_persistentContainer;
    QString m_notOnDisk;
    bool m_triesAgain = false;
    /** However the program ends, it saves. */
    FatalErrorCleanup m_cleanup;
};

/** What the program's store is called. */
inline const QString storeName = QStringLiteral("Lantern");

/** Today's date, such as "2021-03-01". */
QString today(const Environment& environment);

/** A new container on the program's store. */
std::unique_ptr<PersistentContainer> makePersistentContainer(const Services& services);

#pragma once

#include "app/Services.h"
#include "foundation/FatalError.h"
#include "store/PersistentContainer.h"
#include "toolkit/Window.h"

#include <memory>

/** The owner of the store, which opens when a screen first asks for it. */
class AppDelegate {
public:
    explicit AppDelegate(const Services& services);

    std::unique_ptr<Window> window;

    /** The one store; failing to open it is a fatal error. */
    PersistentContainer& persistentContainer();
    /** Writes unsaved changes, if any; failing to is a fatal error. */
    void saveContext();

    bool didFinishLaunchingWithOptions();
    void applicationWillResignActive() {}
    void applicationDidEnterBackground() {}
    void applicationWillEnterForeground() {}
    void applicationDidBecomeActive() {}
    void applicationWillTerminate();

    const Services services;

private:
    void savePendingChanges();

    std::unique_ptr<PersistentContainer> m_persistentContainer;
    /** However the program ends, it saves. */
    FatalErrorCleanup m_cleanup;
};

/** What the program's store is called. */
inline const QString storeName = QStringLiteral("Lantern");

/** A new container on the program's store. */
std::unique_ptr<PersistentContainer> makePersistentContainer(const Services& services);

#include "AppDelegate.h"

#include "foundation/FatalError.h"

AppDelegate::AppDelegate(const Services& theServices)
    : services(theServices) {}

PersistentContainer& AppDelegate::persistentContainer() {
    if (!m_persistentContainer) {
        auto container = makePersistentContainer(services);
        if (const auto error = container->loadPersistentStores())
            fatalError(error->unresolved());
        m_persistentContainer = std::move(container);
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

bool AppDelegate::didFinishLaunchingWithOptions() {
    installTextViewFix(services.classes, services.environment.systemVersion);
    return true;
}

void AppDelegate::applicationWillTerminate() {
    saveContext();
}

std::unique_ptr<PersistentContainer> makePersistentContainer(const Services& services) {
    return std::make_unique<PersistentContainer>(QStringLiteral("Lantern"), services.storeFolder);
}

void installTextViewFix(ClassRuntime& classes, const SystemVersion& version) {
    const auto name = QStringLiteral("_UITextLayoutView");
    if (version >= SystemVersion{13, 2} || classes.getClass(name))
        return;
    if (!classes.allocateClassPair(QStringLiteral("View"), name))
        fatalError(QStringLiteral("The class %1 cannot be made").arg(name));
    classes.registerClassPair(name);
}

#include "app/AppDelegate.h"
#include "app/UITextViewWorkaround.h"
#include "support/TestApplication.h"

#include <QFile>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace {

TEST(AppDelegate, OpensTheStoreOnceAndOnlyOnDemand) {
    TestApplication application;
    const QString file = application.folder.filePath(QStringLiteral("store/Lantern.sqlite"));
    application.delegate.didFinishLaunchingWithOptions();
    application.delegate.applicationWillTerminate();
    EXPECT_FALSE(QFile::exists(file));
    PersistentContainer& container = application.delegate.persistentContainer();
    EXPECT_TRUE(QFile::exists(file));
    EXPECT_EQ(&application.delegate.persistentContainer(), &container);
}

TEST(AppDelegate, SavesPendingChangesAtTheEnd) {
    TestApplication application;
    application.context().insert<Topics>()->setTopic(QStringLiteral("Hope"));
    EXPECT_TRUE(application.context().hasChanges());
    application.delegate.applicationWillTerminate();
    EXPECT_FALSE(application.context().hasChanges());
    const auto other = makePersistentContainer(application.delegate.services);
    ASSERT_FALSE(other->loadPersistentStores());
    EXPECT_EQ(other->viewContext().fetch(Topics::fetchRequest()).records.size(), 1);
}

TEST(AppDelegate, EndsTheProgramWhenTheStoreCannotBeOpened) {
    TestApplication application;
    QFile file(application.folder.filePath(QStringLiteral("store")));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("a file where the folder should be");
    file.close();
    try {
        application.delegate.persistentContainer();
        FAIL() << "the store was opened";
    } catch (const FatalError& error) {
        EXPECT_TRUE(error.message.startsWith(QStringLiteral("Unresolved error ")));
        EXPECT_EQ(error.file, "AppDelegate.cpp");
        EXPECT_GT(error.line, 0);
    }
}

TEST(AppDelegate, SaysWhatIsNotOnDiskUntilItIs) {
    TestApplication application;
    QStringList said;
    application.delegate.notOnDiskChanged = [&](const QString& text) { said.append(text); };
    application.context();
    application.mainQueue.runAll();
    rlimit unlimited{};
    ::getrlimit(RLIMIT_FSIZE, &unlimited);
    const rlimit limited{1000, unlimited.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN); // fails as a full disk does, without signal
    const auto trySaving = [&](const QString& topic) {
        application.context().insert<Topics>()->setTopic(topic);
        return !application.context().save();
    };
    ::setrlimit(RLIMIT_FSIZE, &limited);
    EXPECT_FALSE(trySaving(QStringLiteral("a")));
    EXPECT_FALSE(trySaving(QStringLiteral("b")));
    ASSERT_EQ(application.mainQueue.waiting.size(), 1U);
    EXPECT_EQ(application.mainQueue.waiting.front().first, 60);
    application.mainQueue.runAll();
    EXPECT_EQ(application.mainQueue.waiting.size(), 1U);
    EXPECT_EQ(said, QStringList("Not on disk yet: disk I/O error"));
    ::setrlimit(RLIMIT_FSIZE, &unlimited);
    std::signal(SIGXFSZ, handler);
    application.mainQueue.runAll();
    EXPECT_EQ(said.last(), "");
    EXPECT_TRUE(application.mainQueue.waiting.empty());
    EXPECT_FALSE(application.context().hasChanges());
}

TEST(AppDelegate, EndsTheProgramWhenTheStoreIsTakenAway) {
    for (const bool isPending : {true, false}) {
        TestApplication application;
        application.context().insert<Topics>()->setTopic(QStringLiteral("Hope"));
        application.delegate.saveContext();
        QFile::remove(application.folder.filePath(QStringLiteral("store/Lantern.sqlite")));
        if (isPending)
            application.context().insert<Topics>();
        const QString message = fatalMessageOf([&] {
            if (!isPending)
                application.delegate.applicationWillTerminate();
            // As a screen saves that passes over errors.
            else if (application.context().save())
                ADD_FAILURE() << "an error was passed over";
        });
        EXPECT_TRUE(message.contains(QStringLiteral("moved, replaced or deleted")));
        EXPECT_TRUE(message.contains(QStringLiteral("backups/Lantern-2021-03-01-lost.sqlite")));
    }
}

TEST(TextViewFix, RegistersTheClassOnceOnOldSystemsOnly) {
    const auto name = QStringLiteral("_UITextLayoutView");
    ClassRuntime classes;
    UITextViewWorkaround::executeWorkaround(classes, {17, 0});
    UITextViewWorkaround::executeWorkaround(classes, {13, 2});
    EXPECT_FALSE(classes.getClass(name));
    UITextViewWorkaround::executeWorkaround(classes, {13, 1});
    EXPECT_TRUE(classes.getClass(name));
    UITextViewWorkaround::executeWorkaround(classes, {13, 1});
    EXPECT_TRUE(classes.getClass(name));

    ClassRuntime occupied;
    occupied.allocateClassPair(QStringLiteral("View"), name);
    const TestApplication application;
    EXPECT_NE(fatalMessageOf([&] {
                  UITextViewWorkaround::executeWorkaround(occupied, {12, 0});
              }),
              "");
}

} // namespace

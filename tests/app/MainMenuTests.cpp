#include "app/MainMenuViewController.h"
#include "app/ReferenceListsViewController.h"
#include "support/TestApplication.h"
#include "toolkit/NavigationController.h"

#include <QDir>

#include <chrono>
#include <gtest/gtest.h>

namespace {

QStringList namesOf(TestApplication& application) {
    return application.names<Sources>(&Sources::name) + QStringList("|") +
           application.names<Authors>(&Authors::name);
}

TEST(MainMenu, RebuildsTheNamesAtTheVeryFirstLaunchOnly) {
    TestApplication application;
    application.addQuote({.author = "ann", .source = "B"});
    application.addQuote({.author = "Ann", .source = "A"});
    application.addQuote({.author = "Ann", .source = "B"});
    application.context().insert<Authors>()->setName(QStringLiteral("left over"));
    application.context().insert<Sources>()->setName(QStringLiteral("left over"));
    application.delegate.saveContext();

    MainMenuViewController menu(application.delegate);
    menu.viewDidLoad();
    EXPECT_EQ(namesOf(application), QStringList({"A", "B", "|", "Ann", "ann"}));
    EXPECT_EQ(menu.SourcesList, QStringList({"A", "B"}));
    EXPECT_TRUE(application.userDefaults.boolForKey(menu.AboutHasBeenLaunchedBeforeFlag));

    for (Sources* source : application.all<Sources>())
        application.context().deleteObject(*source);
    application.delegate.saveContext();
    MainMenuViewController second(application.delegate);
    second.viewDidLoad();
    EXPECT_EQ(namesOf(application), QStringList({"|", "Ann", "ann"}));
}

TEST(MainMenu, FirstLaunchOfAnEmptyStoreSetsTheFlagAlone) {
    TestApplication application;
    MainMenuViewController menu(application.delegate);
    menu.viewDidLoad();
    EXPECT_EQ(namesOf(application), QStringList("|"));
    EXPECT_TRUE(application.userDefaults.boolForKey(menu.AboutHasBeenLaunchedBeforeFlag));
    EXPECT_EQ(application.selection.callingScreen, "Menu");
}

TEST(MainMenu, KeepsTheNamesWhereItsMarkCannotBeWritten) {
    TestApplication application;
    application.addQuote({.author = "Ann", .source = "A"});
    application.context().insert<Authors>()->setName(QStringLiteral("kept"));
    application.delegate.saveContext();
    // A folder stands where the settings' file should.
    QDir().mkpath(application.folder.filePath(QStringLiteral("settings/Lantern.ini/x")));
    MainMenuViewController menu(application.delegate);
    menu.viewDidLoad();
    EXPECT_EQ(namesOf(application), QStringList({"|", "kept"}));
}

TEST(MainMenu, RebuildIsOneTransactionForEachKindOfName) {
    TestApplication application;
    constexpr int many = 5'000;
    SaveGroup group(application.context());
    for (int i = 0; i < many; ++i)
        application.context().insert<Authors>()->setName(QString::number(i));
    application.delegate.saveContext();
    ASSERT_FALSE(group.finish());
    const auto start = std::chrono::steady_clock::now();
    MainMenuViewController menu(application.delegate);
    menu.viewDidLoad();
    EXPECT_LT(std::chrono::steady_clock::now() - start,
              std::chrono::seconds(3)); // a transaction each takes ten
    EXPECT_EQ(namesOf(application), QStringList("|"));
}

TEST(MainMenu, LaterLaunchesDoNotOpenTheStore) {
    TestApplication application;
    application.userDefaults.setBool(QStringLiteral("AboutHasBeenLaunchedBeforeFlag"), true);
    MainMenuViewController menu(application.delegate);
    menu.viewDidLoad();
    EXPECT_FALSE(QFile::exists(application.folder.filePath(QStringLiteral("store"))));
}

TEST(MainMenu, RebuildEndsTheProgramAtAQuoteWithoutAName) {
    TestApplication application;
    application.addQuote({.author = "Ann", .source = "A"});
    application.addQuote({.source = "A"});
    MainMenuViewController menu(application.delegate);
    EXPECT_NE(fatalMessageOf([&] { menu.viewDidLoad(); }), "");
    // Every source was gathered, no author; nothing was written, and no launch tries again.
    EXPECT_EQ(menu.SourcesList, QStringList("A"));
    EXPECT_EQ(namesOf(application), QStringList("|"));
    EXPECT_TRUE(application.userDefaults.boolForKey(menu.AboutHasBeenLaunchedBeforeFlag));
}

TEST(MainMenu, OptionsShowAndHideTogether) {
    TestApplication application;
    MainMenuViewController menu(application.delegate);
    menu.menuOptionsButton = {menu.QuoteListButton, menu.ImportButton};
    menu.viewDidLoad();
    EXPECT_EQ(menu.ImportButton->cornerRadius(), 10);
    EXPECT_EQ(menu.ImportButton->borderWidth(), 2);
    menu.viewWillAppear();
    EXPECT_TRUE(menu.QuoteListButton->isHidden());
    menu.menuButton()->press();
    EXPECT_FALSE(menu.QuoteListButton->isHidden());
    EXPECT_FALSE(menu.ImportButton->isHidden());
    EXPECT_EQ(menu.ImportButton->hidingDuration(), 0.3);
    menu.menuButton()->press();
    EXPECT_TRUE(menu.QuoteListButton->isHidden());
    EXPECT_TRUE(menu.ImportButton->isHidden());
}

TEST(MainMenu, HidesTheNavigationBarForTheTabScreenAlone) {
    TestApplication application;
    NavigationController navigation(std::make_unique<MainMenuViewController>(application.delegate));
    ViewController& menu = *navigation.topViewController();
    Segue other(QStringLiteral("ImportViewController"), menu, menu);
    menu.prepareForSegue(other, nullptr);
    EXPECT_FALSE(navigation.isNavigationBarHidden());
    Segue tabs(QStringLiteral("TabBarController"), menu, menu);
    menu.prepareForSegue(tabs, nullptr);
    EXPECT_TRUE(navigation.isNavigationBarHidden());
    application.selection.callingScreen = QStringLiteral("Master");
    menu.viewWillAppear();
    EXPECT_FALSE(navigation.isNavigationBarHidden());
    EXPECT_EQ(application.selection.callingScreen, "Menu");
}

TEST(ReferenceLists, StylesItsButtons) {
    ReferenceListsViewController menu;
    menu.viewDidLoad();
    for (const Button* button : {menu.AuthorsButton, menu.SourcesButton, menu.TopicsButton}) {
        EXPECT_EQ(button->cornerRadius(), 10);
        EXPECT_EQ(button->borderWidth(), 2);
    }
}

} // namespace

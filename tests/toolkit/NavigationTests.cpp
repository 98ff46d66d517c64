#include "support/TestApplication.h"
#include "toolkit/AlertController.h"
#include "toolkit/NavigationController.h"
#include "toolkit/Storyboard.h"
#include "toolkit/TabBarController.h"
#include "toolkit/TextInput.h"
#include "toolkit/Window.h"

#include <gtest/gtest.h>

namespace {

QStringList journal;

void note(const ViewController& screen, const char* event) {
    journal.append(screen.title() + QLatin1Char(' ') + QLatin1String(event));
}

QStringList takeJournal() {
    return std::exchange(journal, {});
}

} // namespace

/** A screen that writes down what happens to it. */
class Screen : public ViewController {
    Q_OBJECT

public:
    bool isChanged = false;

    bool hasUnsavedChanges() const override { return isChanged; }
    void viewDidLoad() override { note(*this, "load"); }
    void viewWillAppear() override { note(*this, "will appear"); }
    void viewDidAppear() override { note(*this, "did appear"); }
    void viewWillDisappear() override { note(*this, "will disappear"); }
    void viewDidDisappear() override { note(*this, "did disappear"); }
    void prepareForSegue(Segue& segue, QObject* /*sender*/) override {
        journal.append(title() + QStringLiteral(" prepares ") + segue.identifier() +
                       QStringLiteral(" to ") + segue.destination().title());
    }
};

class Home : public Screen {
    Q_OBJECT

public:
    Q_INVOKABLE void unwindHome(Segue* segue) {
        journal.append(QStringLiteral("unwound from ") + segue->source().title());
    }
};

class Inner : public Screen {
    Q_OBJECT

public:
    Q_INVOKABLE void unwindInner(Segue* /*segue*/) { note(*this, "unwound"); }
};

namespace {

class Navigation : public testing::Test {
protected:
    Navigation() {
        add<Home>(QStringLiteral("Home"));
        add<Inner>(QStringLiteral("Inner"));
        add<Screen>(QStringLiteral("A"));
        add<Screen>(QStringLiteral("B"));
        auto root =
            std::make_unique<NavigationController>(storyboard.instantiate(QStringLiteral("Home")));
        navigation = root.get();
        window = std::make_unique<Window>(std::move(root));
        window->makeKeyAndVisible();
        takeJournal();
    }

    template <class Controller>
    void add(const QString& name) {
        storyboard.add(
            {name,
             name,
             {},
             [] { return std::make_unique<Controller>(); },
             {SegueDescription::show(QStringLiteral("toA"), QStringLiteral("A")),
              SegueDescription::show(QStringLiteral("toB"), QStringLiteral("B")),
              SegueDescription::unwind(QStringLiteral("home"), QStringLiteral("unwindHome")),
              SegueDescription::unwind(QStringLiteral("inner"), QStringLiteral("unwindInner")),
              SegueDescription::unwind(QStringLiteral("nowhere"), QStringLiteral("unwindNowhere"))},
             {}});
    }

    QStringList titles() const {
        QStringList list;
        for (const ViewController* controller : navigation->viewControllers())
            list.append(controller->title());
        return list;
    }

    void follow(const char* segue) {
        navigation->topViewController()->performSegue(QLatin1String(segue), nullptr);
    }

    TestApplication application; // its fatal errors throw
    Storyboard storyboard;
    std::unique_ptr<Window> window;
    NavigationController* navigation = nullptr;
};

TEST_F(Navigation, AsksOnceBeforeItLeavesWhatTheUserEntered) {
    const auto answer = [this](int action) {
        AlertController* question = presentedAlert(*navigation);
        ASSERT_TRUE(question);
        EXPECT_EQ(question->title(), "Discard changes?");
        question->choose(action);
        EXPECT_FALSE(presentedAlert(*navigation));
    };
    enum { Cancel, Discard };
    follow("toA");
    EXPECT_TRUE(window->mayClose());
    qobject_cast<Screen*>(navigation->topViewController())->isChanged = true;
    navigation->goBack();
    answer(Cancel);
    EXPECT_EQ(titles(), QStringList({"Home", "A"}));
    follow("toB"); // whose own way back loses nothing, but the one home does
    EXPECT_FALSE(window->mayClose());
    EXPECT_FALSE(window->mayClose());
    answer(Cancel);
    follow("home");
    answer(Cancel);
    navigation->goBack();
    EXPECT_EQ(titles(), QStringList({"Home", "A"}));
    navigation->goBack();
    answer(Discard);
    EXPECT_EQ(titles(), QStringList("Home"));
}

TEST_F(Navigation, TellsScreensThatComeAndGoInOrder) {
    follow("toA");
    EXPECT_EQ(takeJournal(), QStringList({"Home prepares toA to A", "A load", "Home will disappear",
                                          "A will appear", "Home did disappear", "A did appear"}));
    navigation->goBack();
    EXPECT_EQ(takeJournal(), QStringList({"A will disappear", "Home will appear", "A did disappear",
                                          "Home did appear"}));
    navigation->goBack();
    EXPECT_EQ(takeJournal(), QStringList());
    EXPECT_EQ(titles(), QStringList("Home"));
}

TEST_F(Navigation, UnwindsOverScreensToTheNearestThatHasTheAction) {
    follow("toA");
    follow("toB");
    takeJournal();
    follow("home");
    EXPECT_EQ(takeJournal(),
              QStringList({"B prepares home to Home", "unwound from B", "B will disappear",
                           "Home will appear", "B did disappear", "Home did appear"}));
    EXPECT_EQ(titles(), QStringList("Home"));

    follow("toA");
    takeJournal();
    follow("nowhere");
    EXPECT_EQ(takeJournal(), QStringList());
    EXPECT_EQ(titles(), QStringList({"Home", "A"}));
    EXPECT_EQ(fatalMessageOf([&] { follow("unheard of"); }),
              "The scene \"A\" has no segue \"unheard of\"");
}

TEST_F(Navigation, UnwindsThroughTheStacksOfATabBar) {
    std::vector<std::unique_ptr<NavigationController>> stacks;
    for (const char* first : {"B", "Inner"})
        stacks.push_back(
            std::make_unique<NavigationController>(storyboard.instantiate(QLatin1String(first))));
    auto controller = std::make_unique<TabBarController>(std::move(stacks));
    TabBarController& tabs = *controller;
    EXPECT_EQ(tabs.titles(), QStringList({"B", "Inner"}));
    navigation->pushViewController(std::move(controller));
    EXPECT_EQ(takeJournal(), QStringList({"B load", "Home will disappear", "B will appear",
                                          "Home did disappear", "B did appear"}));
    tabs.choose(1);
    EXPECT_EQ(takeJournal(), QStringList({"Inner load", "B will disappear", "Inner will appear",
                                          "B did disappear", "Inner did appear"}));

    // Within the tab's own stack, then from another tab's, and out of all tabs.
    NavigationController& inner = *tabs.viewControllerAt(1);
    inner.topViewController()->performSegue(QStringLiteral("toA"), nullptr);
    inner.topViewController()->performSegue(QStringLiteral("inner"), nullptr);
    EXPECT_EQ(inner.depth(), 1);
    tabs.choose(0);
    NavigationController& other = *tabs.viewControllerAt(0);
    other.topViewController()->performSegue(QStringLiteral("inner"), nullptr);
    EXPECT_EQ(tabs.selectedIndex(), 1);
    takeJournal();
    inner.topViewController()->performSegue(QStringLiteral("home"), nullptr);
    EXPECT_EQ(takeJournal(), QStringList({"Inner prepares home to Home", "unwound from Inner",
                                          "Inner will disappear", "Home will appear",
                                          "Inner did disappear", "Home did appear"}));
    EXPECT_EQ(titles(), QStringList("Home"));
}

TEST_F(Navigation, UnwindsIntoATabBarBelow) {
    std::vector<std::unique_ptr<NavigationController>> stacks;
    for (const char* first : {"A", "Inner"})
        stacks.push_back(
            std::make_unique<NavigationController>(storyboard.instantiate(QLatin1String(first))));
    auto controller = std::make_unique<TabBarController>(std::move(stacks));
    TabBarController& tabs = *controller;
    navigation->pushViewController(std::move(controller));
    navigation->pushViewController(storyboard.instantiate(QStringLiteral("B")));
    follow("inner");
    EXPECT_EQ(navigation->topViewController(), &tabs);
    EXPECT_EQ(tabs.selectedIndex(), 1);
}

TEST_F(Navigation, PresentsOneControllerAtATimeOverTheWindow) {
    ViewController& home = *navigation->topViewController();
    TextField field(&home);
    field.beginEditing();
    int pressed = 0;
    presentAlert(home, QStringLiteral("One"), QStringLiteral("message"), [&] { ++pressed; });
    EXPECT_FALSE(field.isEditing());
    presentAlert(home, QStringLiteral("Two"), {});
    auto* alert = presentedAlert(*navigation);
    ASSERT_TRUE(alert);
    EXPECT_EQ(alert->title(), "One");
    follow("toA");
    navigation->goBack(); // not from under an alert
    EXPECT_EQ(titles(), QStringList({"Home", "A"}));
    alert->choose(0);
    EXPECT_EQ(pressed, 1);
    navigation->goBack();
    EXPECT_EQ(titles(), QStringList("Home"));
    EXPECT_EQ(navigation->presentedViewController(), nullptr);
}

} // namespace

#include "NavigationTests.moc"

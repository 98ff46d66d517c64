#include "Scenes.h"

#include "app/MainMenuViewController.h"
#include "app/ReferenceListsViewController.h"
#include "exchange/ExportViewController.h"
#include "exchange/ImportViewController.h"
#include "exchange/PrintQuoteViewController.h"
#include "feedback/RateShareTableViewController.h"
#include "names/Breakdowns.h"
#include "names/BrowseLists.h"
#include "names/NameForms.h"
#include "names/RecordLists.h"
#include "names/TopicTableTableViewController.h"
#include "quotes/AddViewController.h"
#include "quotes/DetailViewController.h"
#include "quotes/MasterViewController.h"
#include "quotes/NewViewTableViewController.h"
#include "quotes/QuoteFullScreenViewController.h"
#include "settings/DefaultsViewController.h"
#include "shared/Screens.h"
#include "toolkit/NavigationController.h"
#include "toolkit/TabBarController.h"
#include "ui/EmptyStates.h"

#include <algorithm>
#include <array>
#include <span>
#include <type_traits>

namespace {

/** A way to another screen, and how the user starts it. */
struct Way {
    enum class By { Button, Row, BarButton, Controller };

    By by = By::Controller;
    QLatin1String to{};
    Button* (*button)(ViewController&) = nullptr;
    QLatin1String title{}; ///< of a bar button
};

struct WayBack {
    QLatin1String to{}; ///< by its identifier
    const char* action = "";
};

/** What stands in the table for each screen. */
struct SceneRow {
    QLatin1String identifier;
    const char* title = ""; ///< empty where the controller says it
    const char* view = "";
    std::unique_ptr<ViewController> (*make)(Storyboard&, AppDelegate&) = nullptr;
    std::array<Way, 10> ways{};
    std::array<WayBack, 4> waysBack{};
    /** Adds what the controller leaves to its scene, before the ways; may be null. */
    void (*dress)(ViewController&) = nullptr;
};

template <class Screen>
Screen& as(ViewController& screen) {
    return *qobject_cast<Screen*>(&screen);
}

template <class Screen>
std::unique_ptr<ViewController> make(Storyboard& /*storyboard*/, AppDelegate& application) {
    if constexpr (std::is_default_constructible_v<Screen>)
        return std::make_unique<Screen>();
    else
        return std::make_unique<Screen>(application);
}

std::unique_ptr<ViewController> makeGroups(Storyboard& storyboard, AppDelegate& /*application*/) {
    std::vector<std::unique_ptr<NavigationController>> tabs;
    for (const auto scene : {scenes::authors, scenes::sources, scenes::topics})
        tabs.push_back(std::make_unique<NavigationController>(storyboard.instantiate(scene)));
    return std::make_unique<TabBarController>(std::move(tabs));
}

template <class Screen>
Button* buttonOf(ViewController& screen, Button* const Screen::*button) {
    return as<Screen>(screen).*button;
}

template <auto Outlet>
constexpr Way by(QLatin1String scene) {
    return {Way::By::Button, scene,
            [](ViewController& screen) { return buttonOf(screen, Outlet); }};
}

/** By an option of the menu, counted from 0. */
template <int Option>
constexpr Way byOption(QLatin1String scene) {
    return {Way::By::Button, scene, [](ViewController& screen) {
                return as<MainMenuViewController>(screen).menuOptionsButton.at(Option);
            }};
}

constexpr Way byRow(QLatin1String scene) {
    return {Way::By::Row, scene};
}

constexpr Way byBarButton(const char* title, QLatin1String scene) {
    return {Way::By::BarButton, scene, nullptr, QLatin1String(title)};
}

/** By an action of the controller itself. */
constexpr Way byController(QLatin1String scene) {
    return {Way::By::Controller, scene};
}

template <class Screen>
void addBarButton(Screen& screen, const char* title, void (Screen::*action)()) {
    screen.navigationItem()->addRightBarButtonItem(QLatin1String(title),
                                                   [&screen, action] { (screen.*action)(); });
}

/** A screen whose navigation bar has "Save". */
template <auto Save>
void dressForm(ViewController& screen) {
    const auto addSave = [&]<class Form>(void (Form::*action)()) {
        addBarButton(as<Form>(screen), "Save", action);
    };
    addSave(Save);
}

void dressMainMenu(ViewController& screen) {
    auto& menu = as<MainMenuViewController>(screen);
    menu.menuOptionsButton = {menu.QuoteListButton,
                              menu.QuoteListByGroupsButton,
                              new Button(&menu, QStringLiteral("Quotes by Topic")),
                              menu.AddNewQuoteButton,
                              menu.TopicsButton,
                              new Button(&menu, QStringLiteral("Reference Lists")),
                              menu.ImportButton,
                              menu.ExportButton,
                              menu.RateShareButton,
                              menu.DefaultButton};
}

void dressQuotes(ViewController& screen) {
    auto& list = as<MasterViewController>(screen);
    addBarButton(list, "Sort", &MasterViewController::SortButtonTapped);
    EmptyState empty = noQuotes(list, QStringLiteral("What you add or import stands here."));
    empty.steps.front().handler = [&list] {
        list.performSegue(scenes::addQuote, &list); // which comes back here
    };
    list.tableView()->setEmptyState(std::move(empty));
}

void dressQuotesByTopic(ViewController& screen) {
    auto& list = as<NewViewTableViewController>(screen);
    list.tableView()->setEmptyState(
        noQuotes(list, QStringLiteral("What you add or import stands here.")));
}

void dressQuote(ViewController& screen) {
    auto& detail = as<DetailViewController>(screen);
    detail.navigationItem()->addRightBarButtonItem(detail.SaveButton);
    addBarButton(detail, "Share", &DetailViewController::ShareButtonTapped);
    addBarButton(detail, "Print", &DetailViewController::EmailFileClick);
    addBarButton(detail, "Add", &DetailViewController::insertNewObject);
}

void dressFullScreen(ViewController& screen) {
    addBarButton(as<QuoteFullScreenViewController>(screen), "Share",
                 &QuoteFullScreenViewController::ShareButtonTapped);
}

template <class List>
void dressNames(ViewController& screen) {
    auto& list = as<List>(screen);
    list.tableView()->setEmptyState(
        noQuotes(list, QStringLiteral("The names in your quotes stand here.")));
    NavigationItem* item = list.navigationItem();
    item->addRightBarButtonItem(list.list.SortButton);
    // For the first screen of a stack, which has nothing of its own to go back to.
    item->setBackBarButtonItem(
        new BarButtonItem(&list, QStringLiteral("Back"), [&list] { list.list.UnwindSegue(); }));
}

template <class Screen>
void dressBreakdown(ViewController& screen) {
    auto& breakdown = as<Screen>(screen);
    NavigationItem* item = breakdown.navigationItem();
    item->addRightBarButtonItem(breakdown.quotes.SortButton);
    item->addRightBarButtonItem(breakdown.quotes.PrintButton);
}

template <const QLatin1String& AddForm>
void dressNameRecords(ViewController& screen) {
    auto& list = as<TableViewController>(screen);
    list.tableView()->setEmptyState(noNames(list, AddForm));
}

constexpr WayBack toMainMenu{unwinds::toMainMenu, "unwindToMainMenuWithSegue"};
constexpr WayBack toQuotes{unwinds::toQuotes, "unwindToMainList"};
constexpr WayBack toOpeningQuotes{unwinds::toOpeningQuotes, "unwindToMenu"};
constexpr WayBack toAuthors{unwinds::toAuthors, "unwindToAuthorTableViewWithSegue"};
constexpr WayBack toSources{unwinds::toSources, "unwindToSourceTableViewWithSegue"};
constexpr WayBack toTopics{unwinds::toTopics, "unwindToTopicTableViewWithSegue"};
constexpr WayBack toAuthorNames{unwinds::toAuthorNames, "unwindToAuthorListWithSegue"};
constexpr WayBack toSourceNames{unwinds::toSourceNames, "unwindToSourceListWithSegue"};
constexpr WayBack toTopicNames{unwinds::toTopicNames, "unwindToTopicListWithSegue"};

constexpr auto* noTitle = "";

using Menu = MainMenuViewController;
using Lists = ReferenceListsViewController;
using Add = AddViewController;
using Detail = DetailViewController;

constexpr std::array table{
    SceneRow{
        scenes::mainMenu,
        "Lantern",
        "MainMenuView",
        make<Menu>,
        {by<&Menu::QuoteListButton>(scenes::quotes),
         by<&Menu::QuoteListByGroupsButton>(scenes::groups), byOption<2>(scenes::quotesByTopic),
         by<&Menu::AddNewQuoteButton>(scenes::addQuote),
         by<&Menu::TopicsButton>(scenes::topicNames), byOption<5>(scenes::referenceLists),
         by<&Menu::ImportButton>(scenes::importFile), by<&Menu::ExportButton>(scenes::exportFile),
         by<&Menu::RateShareButton>(scenes::rateShare), by<&Menu::DefaultButton>(scenes::settings)},
        {},
        dressMainMenu},
    SceneRow{scenes::referenceLists,
             "Reference Lists",
             "ControlsView",
             make<Lists>,
             {by<&Lists::AuthorsButton>(scenes::authors),
              by<&Lists::SourcesButton>(scenes::sources),
              by<&Lists::TopicsButton>(scenes::topics)}},
    SceneRow{scenes::groups, noTitle, "TabBarView", makeGroups},
    SceneRow{scenes::quotes,
             noTitle,
             "RowsView",
             make<MasterViewController>,
             {byRow(scenes::quote), byBarButton("Add", scenes::addQuote)},
             {},
             dressQuotes},
    SceneRow{scenes::quotesByTopic,
             "Quotes by Topic",
             "RowsView",
             make<NewViewTableViewController>,
             {byRow(scenes::quote)},
             {},
             dressQuotesByTopic},
    SceneRow{scenes::addQuote,
             "Add Quote",
             "AddView",
             make<Add>,
             {by<&Add::TopicButton>(scenes::topicNames),
              by<&Add::SourcesButton>(scenes::sourceNames),
              by<&Add::AuthorsButton>(scenes::authorNames)},
             {toMainMenu, toQuotes},
             dressForm<&Add::SaveQuote>},
    SceneRow{scenes::quote,
             "Quote",
             "DetailView",
             make<Detail>,
             {by<&Detail::TopicButton>(scenes::topics), by<&Detail::SourceButton>(scenes::sources),
              by<&Detail::AuthorButton>(scenes::authors),
              by<&Detail::FullScreenButton>(scenes::fullScreen)},
             {toOpeningQuotes, toAuthors, toSources, toTopics},
             dressQuote},
    SceneRow{scenes::fullScreen,
             "Full Screen",
             "QuoteFullScreenView",
             make<QuoteFullScreenViewController>,
             {},
             {},
             dressFullScreen},
    SceneRow{
        scenes::importFile, noTitle, "ImportView", make<ImportViewController>, {}, {toMainMenu}},
    SceneRow{scenes::exportFile, noTitle, "ExportView", make<ExportViewController>},
    SceneRow{scenes::printQuotes, "Print Quotes", "PrintQuoteView", make<PrintQuoteViewController>},
    SceneRow{scenes::rateShare, noTitle, "RowsView", make<RateShareTableViewController>},
    SceneRow{scenes::settings, "Settings", "DefaultsView", make<DefaultsViewController>},

    SceneRow{scenes::authors,
             "Authors",
             "NameListView",
             make<AuthorTableViewController>,
             {byRow(scenes::authorBreakdown), byBarButton("Names", scenes::authorNames)},
             {toMainMenu},
             dressNames<AuthorTableViewController>},
    SceneRow{scenes::authorBreakdown,
             noTitle,
             "RowsView",
             make<AuthorBreakdownTableViewController>,
             {byRow(scenes::quote), byController(scenes::printQuotes)},
             {},
             dressBreakdown<AuthorBreakdownTableViewController>},
    SceneRow{scenes::authorNames,
             "Author Names",
             "RowsView",
             make<NewAuthorTableViewController>,
             {byRow(scenes::editAuthor), byBarButton("Add", scenes::addAuthor)},
             {},
             dressNameRecords<scenes::addAuthor>},
    SceneRow{scenes::addAuthor,
             "Add Author",
             "ControlsView",
             make<AddAuthorViewController>,
             {},
             {toAuthorNames},
             dressForm<&AddAuthorViewController::SaveAuthor>},
    SceneRow{scenes::editAuthor,
             "Edit Author",
             "ControlsView",
             make<EditAuthorViewController>,
             {},
             {toAuthorNames},
             dressForm<&EditAuthorViewController::SaveAuthor>},

    SceneRow{scenes::sources,
             "Sources",
             "NameListView",
             make<SourceTableViewController>,
             {byRow(scenes::sourceBreakdown), byBarButton("Names", scenes::sourceNames)},
             {toMainMenu},
             dressNames<SourceTableViewController>},
    SceneRow{scenes::sourceBreakdown,
             noTitle,
             "RowsView",
             make<SourceBreakdownTableViewController>,
             {byRow(scenes::quote), byController(scenes::printQuotes)},
             {},
             dressBreakdown<SourceBreakdownTableViewController>},
    SceneRow{scenes::sourceNames,
             "Source Names",
             "RowsView",
             make<NewSourceTableViewController>,
             {byRow(scenes::editSource), byBarButton("Add", scenes::addSource)},
             {},
             dressNameRecords<scenes::addSource>},
    SceneRow{scenes::addSource,
             "Add Source",
             "ControlsView",
             make<AddSourceViewController>,
             {},
             {toSourceNames},
             dressForm<&AddSourceViewController::SaveSource>},
    SceneRow{scenes::editSource,
             "Edit Source",
             "ControlsView",
             make<EditSourceViewController>,
             {},
             {toSourceNames},
             dressForm<&EditSourceViewController::SaveSource>},

    SceneRow{scenes::topics,
             "Topics",
             "NameListView",
             make<TopicTableViewController>,
             {byRow(scenes::topicBreakdown), byBarButton("Names", scenes::topicNames)},
             {toMainMenu},
             dressNames<TopicTableViewController>},
    SceneRow{scenes::topicBreakdown,
             noTitle,
             "RowsView",
             make<TopicBreakdownTableViewController>,
             {byRow(scenes::quote), byController(scenes::printQuotes)},
             {},
             dressBreakdown<TopicBreakdownTableViewController>},
    SceneRow{scenes::topicNames,
             "Topics",
             "RowsView",
             make<TopicTableTableViewController>,
             {byRow(scenes::editTopic), byBarButton("Add", scenes::addTopic)},
             {},
             dressNameRecords<scenes::addTopic>},
    // Has its button on the form.
    SceneRow{scenes::addTopic,
             "Add Topic",
             "ControlsView",
             make<TopicViewController>,
             {},
             {toTopicNames}},
    SceneRow{scenes::editTopic,
             "Edit Topic",
             "ControlsView",
             make<EditTopicViewController>,
             {},
             {toTopicNames},
             dressForm<&EditTopicViewController::SaveButtonTapped>},
};

/** The ways of a row, without the places that it leaves empty. */
template <class Ways>
auto filled(const Ways& ways) {
    return std::span(ways.begin(),
                     std::ranges::find_if(ways, [](const auto& way) { return way.to.isEmpty(); }));
}

void connectWay(const Way& way, ViewController& screen) {
    const auto take = [&screen, scene = way.to] { screen.performSegue(scene, &screen); };
    switch (way.by) {
    case Way::By::Button: {
        Button* button = way.button(screen);
        QObject::connect(button, &Button::touchUpInside, &screen,
                         [&screen, button, scene = way.to] { screen.performSegue(scene, button); });
        break;
    }
    case Way::By::Row:
        as<TableViewController>(screen).rowSegue = way.to;
        break;
    case Way::By::BarButton:
        screen.navigationItem()->addRightBarButtonItem(way.title, take);
        break;
    case Way::By::Controller:
        break;
    }
}

} // namespace

void addScenes(Storyboard& storyboard, AppDelegate& application) {
    for (const SceneRow& row : table) {
        QList<SegueDescription> segues;
        for (const Way& way : filled(row.ways))
            segues.append(SegueDescription::show(way.to));
        for (const WayBack& way : filled(row.waysBack))
            segues.append(SegueDescription::unwind(way.to, QLatin1String(way.action)));
        storyboard.add({row.identifier, QLatin1String(row.title), QLatin1String(row.view),
                        [&] { return row.make(storyboard, application); }, segues,
                        [&row](ViewController& screen) {
                            if (row.dress)
                                row.dress(screen);
                            for (const Way& way : filled(row.ways))
                                connectWay(way, screen);
                        }});
    }
}

std::unique_ptr<NavigationController> makeRootViewController(Storyboard& storyboard) {
    return std::make_unique<NavigationController>(storyboard.instantiate(scenes::mainMenu));
}

#include "Scenes.h"

#include "app/MainMenuViewController.h"
#include "app/ReferenceListsViewController.h"
#include "exchange/ExportViewController.h"
#include "exchange/ImportViewController.h"
#include "exchange/PrintQuoteViewController.h"
#include "feedback/RateShareTableViewController.h"
#include "quotes/AddViewController.h"
#include "quotes/DetailViewController.h"
#include "quotes/MasterViewController.h"
#include "quotes/NewViewTableViewController.h"
#include "quotes/QuoteFullScreenViewController.h"
#include "settings/DefaultsViewController.h"
#include "toolkit/NavigationController.h"
#include "toolkit/TabBarController.h"
#include "ui/EmptyStates.h"
#include "ui/NameScenes.h"

namespace {

SegueDescription show(const QString& scene) {
    return SegueDescription::show(scene);
}

void connectTo(Button& button, ViewController& controller, const QString& segue) {
    QObject::connect(&button, &Button::touchUpInside, &controller,
                     [&controller, &button, segue] { controller.performSegue(segue, &button); });
}

/** Wires a screen of a known class; the storyboard hands it over as a ViewController. */
template <class Controller>
auto wire(void (*connectControls)(Controller&)) {
    return [connectControls](ViewController& controller) {
        connectControls(*qobject_cast<Controller*>(&controller));
    };
}

void wireMainMenu(MainMenuViewController& menu) {
    const auto option = [&menu](Button* button, const QString& segue) {
        connectTo(*button, menu, segue);
        menu.menuOptionsButton.append(button);
    };
    const auto plainOption = [&](const QString& title, const QString& segue) {
        option(new Button(&menu, title), segue);
    };
    option(menu.QuoteListButton, QStringLiteral("MasterViewController"));
    option(menu.QuoteListByGroupsButton, QStringLiteral("TabBarController"));
    plainOption(QStringLiteral("Quotes by Topic"), QStringLiteral("NewViewTableViewController"));
    option(menu.AddNewQuoteButton, QStringLiteral("AddQuote"));
    option(menu.TopicsButton, QStringLiteral("TopicTableTableViewController"));
    plainOption(QStringLiteral("Reference Lists"), QStringLiteral("ReferenceListsViewController"));
    option(menu.ImportButton, QStringLiteral("ImportViewController"));
    option(menu.ExportButton, QStringLiteral("ExportViewController"));
    option(menu.RateShareButton, QStringLiteral("RateShareTableViewController"));
    option(menu.DefaultButton, QStringLiteral("DefaultsViewController"));
}

void wireReferenceLists(ReferenceListsViewController& menu) {
    connectTo(*menu.AuthorsButton, menu, QStringLiteral("AuthorTableViewController"));
    connectTo(*menu.SourcesButton, menu, QStringLiteral("SourceTableViewController"));
    connectTo(*menu.TopicsButton, menu, QStringLiteral("TopicTableViewController"));
}

void wireQuoteList(MasterViewController& list) {
    list.rowSegue = QStringLiteral("DetailViewController");
    NavigationItem* item = list.navigationItem();
    item->addRightBarButtonItem(QStringLiteral("Sort"), [&list] { list.SortButtonTapped(); });
    item->addRightBarButtonItem(QStringLiteral("Add"),
                                [&list] { list.performSegue(QStringLiteral("AddQuote"), &list); });
    EmptyState empty = noQuotes(list, QStringLiteral("What you add or import stands here."));
    empty.steps.front().handler = [&list] {
        list.performSegue(QStringLiteral("AddQuote"), &list); // which comes back here
    };
    list.tableView()->setEmptyState(std::move(empty));
}

void wireAddQuote(AddViewController& form) {
    form.navigationItem()->addRightBarButtonItem(QStringLiteral("Save"),
                                                 [&form] { form.SaveQuote(); });
    connectTo(*form.TopicButton, form, QStringLiteral("TopicTableTableViewController"));
    connectTo(*form.SourcesButton, form, QStringLiteral("NewSourceTableViewController"));
    connectTo(*form.AuthorsButton, form, QStringLiteral("NewAuthorTableViewController"));
}

void wireDetail(DetailViewController& detail) {
    NavigationItem* item = detail.navigationItem();
    item->addRightBarButtonItem(detail.SaveButton);
    item->addRightBarButtonItem(QStringLiteral("Share"), [&detail] { detail.ShareButtonTapped(); });
    item->addRightBarButtonItem(QStringLiteral("Print"), [&detail] { detail.EmailFileClick(); });
    item->addRightBarButtonItem(QStringLiteral("Add"), [&detail] { detail.insertNewObject(); });
    connectTo(*detail.TopicButton, detail, QStringLiteral("TopicTableViewController"));
    connectTo(*detail.SourceButton, detail, QStringLiteral("SourceTableViewController"));
    connectTo(*detail.AuthorButton, detail, QStringLiteral("AuthorTableViewController"));
    connectTo(*detail.FullScreenButton, detail, QStringLiteral("QuoteFullScreenViewController"));
}

void wireFullScreen(QuoteFullScreenViewController& reader) {
    reader.navigationItem()->addRightBarButtonItem(QStringLiteral("Share"),
                                                   [&reader] { reader.ShareButtonTapped(); });
}

void wireQuotesByTopic(NewViewTableViewController& list) {
    list.rowSegue = QStringLiteral("DetailViewController");
    list.tableView()->setEmptyState(
        noQuotes(list, QStringLiteral("What you add or import stands here.")));
}

std::unique_ptr<ViewController> makeTabs(Storyboard& storyboard) {
    std::vector<std::unique_ptr<NavigationController>> tabs;
    for (const auto& scene :
         {QStringLiteral("AuthorTableViewController"), QStringLiteral("SourceTableViewController"),
          QStringLiteral("TopicTableViewController")}) {
        tabs.push_back(std::make_unique<NavigationController>(storyboard.instantiate(scene)));
    }
    return std::make_unique<TabBarController>(std::move(tabs));
}

} // namespace

void addScenes(Storyboard& storyboard, AppDelegate& application) {
    const auto unwindToMainMenu = SegueDescription::unwind(
        QStringLiteral("unwindToMainMenu"), QStringLiteral("unwindToMainMenuWithSegue"));
    const auto unwindToMainList = SegueDescription::unwind(QStringLiteral("unwindToMainList"),
                                                           QStringLiteral("unwindToMainList"));

    storyboard.add(
        {QStringLiteral("MainMenuViewController"),
         QStringLiteral("Lantern"),
         QStringLiteral("MainMenuView"),
         [&] { return std::make_unique<MainMenuViewController>(application); },
         {show(QStringLiteral("MasterViewController")), show(QStringLiteral("TabBarController")),
          show(QStringLiteral("NewViewTableViewController")), show(QStringLiteral("AddQuote")),
          show(QStringLiteral("TopicTableTableViewController")),
          show(QStringLiteral("ReferenceListsViewController")),
          show(QStringLiteral("ImportViewController")),
          show(QStringLiteral("ExportViewController")),
          show(QStringLiteral("RateShareTableViewController")),
          show(QStringLiteral("DefaultsViewController"))},
         wire(&wireMainMenu)});
    storyboard.add({QStringLiteral("ReferenceListsViewController"),
                    QStringLiteral("Reference Lists"),
                    QStringLiteral("ControlsView"),
                    [] { return std::make_unique<ReferenceListsViewController>(); },
                    {show(QStringLiteral("AuthorTableViewController")),
                     show(QStringLiteral("SourceTableViewController")),
                     show(QStringLiteral("TopicTableViewController"))},
                    wire(&wireReferenceLists)});
    storyboard.add({QStringLiteral("TabBarController"),
                    QString(),
                    QStringLiteral("TabBarView"),
                    [&] { return makeTabs(storyboard); },
                    {},
                    {}});
    storyboard.add(
        {QStringLiteral("MasterViewController"),
         QString(),
         QStringLiteral("RowsView"),
         [&] { return std::make_unique<MasterViewController>(application); },
         {show(QStringLiteral("DetailViewController")), show(QStringLiteral("AddQuote"))},
         wire(&wireQuoteList)});
    storyboard.add(
        {QStringLiteral("AddQuote"),
         QStringLiteral("Add Quote"),
         QStringLiteral("AddView"),
         [&] { return std::make_unique<AddViewController>(application); },
         {show(QStringLiteral("TopicTableTableViewController")),
          show(QStringLiteral("NewSourceTableViewController")),
          show(QStringLiteral("NewAuthorTableViewController")), unwindToMainMenu, unwindToMainList},
         wire(&wireAddQuote)});
    storyboard.add({QStringLiteral("ImportViewController"),
                    QString(),
                    QStringLiteral("ImportView"),
                    [&] { return std::make_unique<ImportViewController>(application); },
                    {unwindToMainMenu},
                    {}});
    storyboard.add({QStringLiteral("ExportViewController"),
                    QString(),
                    QStringLiteral("ExportView"),
                    [&] { return std::make_unique<ExportViewController>(application); },
                    {},
                    {}});
    storyboard.add({QStringLiteral("PrintQuoteViewController"),
                    QStringLiteral("Print Quotes"),
                    QStringLiteral("PrintQuoteView"),
                    [&] { return std::make_unique<PrintQuoteViewController>(application); },
                    {},
                    {}});
    storyboard.add({QStringLiteral("RateShareTableViewController"),
                    QString(),
                    QStringLiteral("RowsView"),
                    [&] { return std::make_unique<RateShareTableViewController>(application); },
                    {},
                    {}});

    const auto unwind = [](const char* identifier, const char* action) {
        return SegueDescription::unwind(QLatin1String(identifier), QLatin1String(action));
    };
    storyboard.add({QStringLiteral("DetailViewController"),
                    QStringLiteral("Quote"),
                    QStringLiteral("DetailView"),
                    [&] { return std::make_unique<DetailViewController>(application); },
                    {show(QStringLiteral("TopicTableViewController")),
                     show(QStringLiteral("SourceTableViewController")),
                     show(QStringLiteral("AuthorTableViewController")),
                     show(QStringLiteral("QuoteFullScreenViewController")),
                     unwind("unwindToMenu", "unwindToMenu"),
                     unwind("unwindToTopicTableView", "unwindToTopicTableViewWithSegue"),
                     unwind("unwindToSourceTableView", "unwindToSourceTableViewWithSegue"),
                     unwind("unwindToAuthorTableView", "unwindToAuthorTableViewWithSegue")},
                    wire(&wireDetail)});
    storyboard.add({QStringLiteral("QuoteFullScreenViewController"),
                    QStringLiteral("Full Screen"),
                    QStringLiteral("QuoteFullScreenView"),
                    [&] { return std::make_unique<QuoteFullScreenViewController>(application); },
                    {},
                    wire(&wireFullScreen)});
    storyboard.add({QStringLiteral("NewViewTableViewController"),
                    QStringLiteral("Quotes by Topic"),
                    QStringLiteral("RowsView"),
                    [&] { return std::make_unique<NewViewTableViewController>(application); },
                    {show(QStringLiteral("DetailViewController"))},
                    wire(&wireQuotesByTopic)});
    storyboard.add({QStringLiteral("DefaultsViewController"),
                    QStringLiteral("Settings"),
                    QStringLiteral("DefaultsView"),
                    [&] { return std::make_unique<DefaultsViewController>(application); },
                    {},
                    {}});

    addNameScenes(storyboard, application);
}

std::unique_ptr<NavigationController> makeRootViewController(Storyboard& storyboard) {
    return std::make_unique<NavigationController>(
        storyboard.instantiate(QStringLiteral("MainMenuViewController")));
}

#include "MainMenuViewController.h"

#include "app/NameRecords.h"
#include "foundation/FatalError.h"
#include "shared/CommonLook.h"
#include "shared/Screens.h"
#include "toolkit/NavigationController.h"

#include <QLoggingCategory>

Q_LOGGING_CATEGORY(lcApp, "lantern.app")

namespace {

// A container of its own keeps the names out of the memory of the one that the screens share.
template <class Record>
void deleteAll(const Services& services) {
    const auto container = makePersistentContainer(services);
    if (const auto error = container->loadPersistentStores())
        fatalError(error->unresolved());
    ManagedObjectContext& context = container->viewContext();
    auto request = Record::fetchRequest();
    request.includesPropertyValues = false;
    const auto result = context.fetch(request);
    if (result.error)
        fatalError(result.error->unresolved());
    SaveGroup group(context);
    for (Record* record : result.records) {
        context.deleteObject(*record);
        if (const auto error = context.save())
            fatalError(error->unresolved());
    }
    if (const auto error = group.finish())
        fatalError(error->unresolved());
}

} // namespace

MainMenuViewController::MainMenuViewController(AppDelegate& application)
    : QuoteListButton(new Button(this, QStringLiteral("Quote List")))
    , QuoteListByGroupsButton(new Button(this, QStringLiteral("Quotes by Group")))
    , AddNewQuoteButton(new Button(this, QStringLiteral("Add New Quote")))
    , TopicsButton(new Button(this, QStringLiteral("Topics")))
    , ImportButton(new Button(this, QStringLiteral("Import")))
    , ExportButton(new Button(this, QStringLiteral("Export")))
    , RateShareButton(new Button(this, QStringLiteral("Rate/Share")))
    , DefaultButton(new Button(this, QStringLiteral("Settings")))
    , userDefaults(application.services.userDefaults)
    , m_menuButton(new Button(this, QStringLiteral("Menu")))
    , m_application(application) {
    connect(m_menuButton, &Button::touchUpInside, this, &MainMenuViewController::handleSelection);
}

void MainMenuViewController::viewDidLoad() {
    rebuildNamesAtFirstLaunch();
    m_application.services.selection.callingScreen = callers::menu;
    for (Button* option : menuOptionsButton)
        styleButton(*option);
}

void MainMenuViewController::viewWillAppear() {
    for (Button* option : menuOptionsButton)
        option->setHidden(true);
    if (NavigationController* navigation = navigationController())
        navigation->setNavigationBarHidden(false);
    m_application.services.selection.callingScreen = callers::menu;
}

void MainMenuViewController::prepareForSegue(Segue& segue, QObject* /*sender*/) {
    if (segue.identifier() != scenes::groups)
        return;
    if (NavigationController* navigation = navigationController())
        navigation->setNavigationBarHidden(true);
}

void MainMenuViewController::handleSelection() {
    for (Button* option : menuOptionsButton)
        View::animate(0.3, [option] { option->setHidden(!option->isHidden()); });
}

void MainMenuViewController::unwindToMainMenuWithSegue(Segue* /*segue*/) {}

void MainMenuViewController::rebuildNamesAtFirstLaunch() {
    if (userDefaults.boolForKey(AboutHasBeenLaunchedBeforeFlag))
        return;
    userDefaults.setBool(AboutHasBeenLaunchedBeforeFlag, true);
    // Without the mark on disk every start would empty the names again.
    if (!userDefaults.synchronize())
        return;

    deleteAll<Sources>(m_application.services);
    deleteAll<Authors>(m_application.services);
    ManagedObjectContext& context = m_application.persistentContainer().viewContext();
    SourcesList = namesOfAllQuotes(context, Event::Keys::source);
    AuthorsList = namesOfAllQuotes(context, Event::Keys::author);
    managedObjectContext = &context;
    insertNames<Sources>(context, SourcesList);
    insertNames<Authors>(context, AuthorsList);
}

QList<QObject*> MainMenuViewController::shownOptions() const {
    return {menuOptionsButton.begin(), menuOptionsButton.end()};
}

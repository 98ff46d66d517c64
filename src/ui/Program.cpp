#include "Program.h"

#include "exchange/ImportViewController.h"
#include "exchange/UnsavedChanges.h"
#include "foundation/FatalError.h"
#include "foundation/Files.h"
#include "shared/Screens.h"
#include "store/Backups.h"
#include "store/Records.h"
#include "store/Recovery.h"
#include "toolkit/NavigationController.h"
#include "ui/Scenes.h"

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QQmlExtensionPlugin>

#include <array>
#include <cerrno>
#include <unistd.h>

Q_IMPORT_QML_PLUGIN(LanternPlugin)

namespace {

/** The program anew in the place of this process, whose locks and names are free by then. Returns
 * only when that fails. */
void startAgain() {
    QByteArray path = QFile::encodeName(QCoreApplication::applicationFilePath());
    std::array<char*, 2> arguments{path.data(), nullptr};
    ::execv(path.constData(), arguments.data());
}

} // namespace

ProgramPaths ProgramPaths::ofThisUser() {
    ProgramPaths paths;
    const auto folder = [&paths](const char* variable, const QString& belowHome) {
        const auto found = userFolder(variable, belowHome);
        if (!found)
            paths.problem = QStringLiteral("Neither %1 nor HOME names a folder for Lantern's files")
                                .arg(QLatin1String(variable));
        // Below what is no folder, no file is found or made.
        return found.value_or(QStringLiteral("/dev/null")) + QStringLiteral("/Lantern");
    };
    paths.storeFolder = folder("XDG_DATA_HOME", QStringLiteral(".local/share"));
    paths.settingsFile =
        folder("XDG_CONFIG_HOME", QStringLiteral(".config")) + QStringLiteral("/Lantern.ini");
    return paths;
}

Program::Program(const ProgramPaths& paths, Environment environment, Platform& platform)
    : m_lock(ProcessLock::take(paths.storeFolder, storeName))
    , m_environment(std::move(environment))
    , m_userDefaults(paths.settingsFile)
    , m_temporaryFolderRemoval([this] { QDir(m_temporaryFolder.path()).removeRecursively(); })
    , m_application(Services{m_environment, m_userDefaults, m_mainQueue, m_keyboard, m_notes,
                             m_longWork, platform, m_classes, m_selection, paths.storeFolder,
                             m_temporaryFolder.path()})
    , m_problem(paths.problem) {
    addScenes(m_storyboard, m_application);
}

Program::~Program() {
    setFatalErrorHandler(nullptr);
    m_windowPlace.reset();
    // The views go before the controllers that they show.
    if (m_quickWindow)
        m_quickWindow->setProperty("window", QVariant::fromValue<Window*>(nullptr));
    delete m_quickWindow;
    // Views that are on their way out would outlive the engine that they belong to.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool Program::isOpenElsewhere() const {
    const int* code = std::get_if<int>(&m_lock);
    return code && *code == EWOULDBLOCK;
}

bool Program::launch() {
    // The window comes first, so that whatever ends the program from here on is seen.
    m_windowPlace.emplace(m_userDefaults);
    QVariantMap properties = m_windowPlace->initialProperties();
    properties[QStringLiteral("appearance")] = QVariant::fromValue(&m_appearance);
    properties[QStringLiteral("keyboard")] = QVariant::fromValue(&m_keyboard);
    properties[QStringLiteral("notes")] = QVariant::fromValue(&m_notes);
    properties[QStringLiteral("longWork")] = QVariant::fromValue(&m_longWork);
    m_engine.setInitialProperties(properties);
    m_engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Lantern/Main.qml")));
    if (m_engine.rootObjects().isEmpty())
        return false;
    m_quickWindow = qobject_cast<QQuickWindow*>(m_engine.rootObjects().constFirst());
    m_windowPlace->follow(*m_quickWindow);
    setFatalErrorHandler([this](const FatalError& error) { showFatalError(error); });

    m_application.notOnDiskChanged = [this](const QString& sentence) {
        m_quickWindow->setProperty("notOnDisk", sentence);
    };
    if (!m_problem.isEmpty())
        fatalError(m_problem);
    if (isOpenElsewhere())
        m_application.persistentContainer();
    m_application.didFinishLaunchingWithOptions();
    m_application.window = std::make_unique<Window>(makeRootViewController(m_storyboard));
    m_application.window->makeKeyAndVisible();
    return m_quickWindow->setProperty("window", QVariant::fromValue(m_application.window.get()));
}

void Program::openCollectionFile(const QUrl& file) {
    auto screen = m_storyboard.instantiate(scenes::importFile);
    auto& import = *qobject_cast<ImportViewController*>(screen.get());
    navigation().pushViewController(std::move(screen));
    import.didPickDocumentAtURL(file);
}

NavigationController& Program::navigation() {
    return *qobject_cast<NavigationController*>(m_application.window->rootViewController());
}

void Program::showFatalError(const FatalError& error) {
    m_quickWindow->setProperty("fatalMessage", error.message);
    const bool isDamaged = isStoreDamaged();
    m_quickWindow->setProperty(
        "kept", isDamaged ? QStringLiteral("The damaged file is left as it is.") : whatIsKept());
    const Backups backups(m_application.services.storeFolder, storeName);
    const auto backup = isDamaged ? backups.newestWholeDay() : std::optional<QString>();
    if (backup)
        m_quickWindow->setProperty("backupDay", shownDay(*backup));
    m_quickWindow->setProperty("offersRescue", isDamaged);
    m_quickWindow->show();
    QString choice = waitForChoice();
    while (choice == QStringLiteral("restore") || choice == QStringLiteral("rescue")) {
        const bool restores = choice == QStringLiteral("restore");
        tell(restores ? restored(*backup) : rescued());
        choice = waitForChoice();
    }
    if (choice == QStringLiteral("again"))
        startAgain();
}

bool Program::isStoreDamaged() {
    // A store that is open was not.
    const QString& folder = m_application.services.storeFolder;
    if (m_application.pendingChanges() ||
        !QFile::exists(folder + u'/' + storeName + QStringLiteral(".sqlite")))
        return false;
    const auto error = PersistentContainer(storeName, folder).loadPersistentStores();
    return error && error->cause == StoreError::Cause::Damage;
}

QString Program::whatIsKept() {
    auto* context = m_application.pendingChanges();
    const QString notSaved =
        context ? keepUnsavedChanges(*context, documentsFolder(), today(m_environment)) : QString();
    return notSaved.isEmpty() ? QStringLiteral("What you have saved is kept.") : notSaved;
}

QString Program::shownDay(const QString& day) const {
    const QDate date = QDate::fromString(day, Qt::ISODate);
    return formatDate(dateFromWallTime({date.year(), date.month(), date.day()}, m_environment),
                      DateStyle::Medium, m_environment);
}

QString Program::waitForChoice() {
    m_quickWindow->setProperty("choice", QStringLiteral("quit")); // as closing the window is
    QEventLoop untilChosen;
    QObject::connect(m_quickWindow, SIGNAL(fatalChoice()), &untilChosen, SLOT(quit()));
    QObject::connect(m_quickWindow, &QWindow::visibleChanged, &untilChosen, &QEventLoop::quit);
    untilChosen.exec();
    return m_quickWindow->property("choice").toString();
}

void Program::tell(const QString& outcome) {
    m_quickWindow->setProperty("fatalMessage", outcome);
    m_quickWindow->setProperty("kept", QString());
    m_quickWindow->setProperty("backupDay", QString());
    m_quickWindow->setProperty("offersRescue", false);
}

QString Program::restored(const QString& day) {
    const auto error =
        restoreBackup(m_application.services.storeFolder, storeName, day, today(m_environment));
    return error ? error->description
                 : QStringLiteral("The backup of %1 is in place. The damaged file is beside it.")
                       .arg(shownDay(day));
}

QString Program::rescued() {
    const auto outcome =
        rescueStore(m_application.services.storeFolder, storeName, today(m_environment));
    if (const auto* error = std::get_if<StoreError>(&outcome))
        return error->description;
    const auto& found = std::get<Rescued>(outcome);
    QString sentence =
        QStringLiteral("Found: %1 quotes, %2 authors, %3 sources, %4 topics. The damaged file is "
                       "beside the new one.")
            .arg(found.counts[Event::entity])
            .arg(found.counts[Authors::entity])
            .arg(found.counts[Sources::entity])
            .arg(found.counts[Topics::entity]);
    if (found.strayNames > 0)
        sentence += QStringLiteral(" %1 names were left out, since nothing tells whether they are "
                                   "of authors, sources or topics.")
                        .arg(found.strayNames);
    return sentence;
}

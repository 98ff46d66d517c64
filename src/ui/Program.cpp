#include "Program.h"

#include "exchange/ImportViewController.h"
#include "foundation/FatalError.h"
#include "foundation/Files.h"
#include "toolkit/NavigationController.h"
#include "ui/Scenes.h"

#include <QCoreApplication>
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
    const auto folder = [](const char* variable, const QString& belowHome) {
        const auto found = userFolder(variable, belowHome);
        if (!found)
            fatalError(QStringLiteral("Neither %1 nor HOME names a folder for Lantern's files")
                           .arg(QLatin1String(variable)));
        return *found + QStringLiteral("/Lantern");
    };
    return {folder("XDG_DATA_HOME", QStringLiteral(".local/share")),
            folder("XDG_CONFIG_HOME", QStringLiteral(".config")) + QStringLiteral("/Lantern.ini")};
}

Program::Program(const ProgramPaths& paths, Environment environment, Platform& platform)
    : m_lock(ProcessLock::take(paths.storeFolder, storeName))
    , m_environment(std::move(environment))
    , m_userDefaults(paths.settingsFile)
    , m_temporaryFolderRemoval([this] { QDir(m_temporaryFolder.path()).removeRecursively(); })
    , m_application(Services{m_environment, m_userDefaults, m_mainQueue, m_keyboard, m_notes,
                             platform, m_classes, m_selection, paths.storeFolder,
                             m_temporaryFolder.path()}) {
    addScenes(m_storyboard, m_application);
}

Program::~Program() {
    setFatalErrorHandler(nullptr);
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
    m_engine.setInitialProperties({{QStringLiteral("keyboard"), QVariant::fromValue(&m_keyboard)},
                                   {QStringLiteral("notes"), QVariant::fromValue(&m_notes)}});
    m_engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Lantern/Main.qml")));
    if (m_engine.rootObjects().isEmpty())
        return false;
    m_quickWindow = qobject_cast<QQuickWindow*>(m_engine.rootObjects().constFirst());
    setFatalErrorHandler([this](const FatalError& error) { showFatalError(error); });

    if (isOpenElsewhere())
        m_application.persistentContainer();
    m_application.didFinishLaunchingWithOptions();
    m_application.window = std::make_unique<Window>(makeRootViewController(m_storyboard));
    m_application.window->makeKeyAndVisible();
    return m_quickWindow->setProperty("window", QVariant::fromValue(m_application.window.get()));
}

void Program::openCollectionFile(const QUrl& file) {
    if (m_quickWindow->property("ending").toBool())
        return;
    auto screen = m_storyboard.instantiate(QStringLiteral("ImportViewController"));
    auto& import = *qobject_cast<ImportViewController*>(screen.get());
    navigation().pushViewController(std::move(screen));
    import.didPickDocumentAtURL(file);
}

NavigationController& Program::navigation() {
    return *qobject_cast<NavigationController*>(m_application.window->rootViewController());
}

void Program::showFatalError(const FatalError& error) {
    QEventLoop untilRead;
    QObject::connect(m_quickWindow, SIGNAL(quitRequested()), &untilRead, SLOT(quit()));
    QObject::connect(m_quickWindow, &QWindow::visibleChanged, &untilRead, &QEventLoop::quit);
    m_quickWindow->setProperty("fatalMessage", error.message);
    m_quickWindow->show();
    untilRead.exec();
    if (m_quickWindow->property("startsAgain").toBool())
        startAgain();
}

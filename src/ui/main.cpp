#include "platform/DesktopAppearance.h"
#include "platform/DesktopPlatform.h"
#include "platform/InputMethod.h"
#include "platform/SessionBus.h"
#include "ui/AccessibleItem.h"
#include "ui/Program.h"
#include "ui/QuitSignals.h"
#include "ui/RunningProgram.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QQuickWindow>
#include <QUrl>

#include <optional>

namespace {

/** The file that a file manager starts the program with. There are no options. */
std::optional<QUrl> fileToOpen() {
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2)
        return std::nullopt;
    return QUrl::fromLocalFile(QDir::current().absoluteFilePath(arguments[1]));
}

/** Only then, so that the first frame does not wait for the formats of pictures. */
void setIconAfterTheFirstFrame(const QQuickWindow& window) {
    QObject::connect(
        &window, &QQuickWindow::frameSwapped, qApp,
        [] { QApplication::setWindowIcon(QIcon(QStringLiteral(":/lantern.png"))); },
        Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
}

} // namespace

int main(int argc, char** argv) {
    const DesktopSettings settings = askSessionBus();
    chooseInputMethod();
    // The print dialog is a widget; all else is Qt Quick. There is no application object before
    // this one, nor another: the end of one takes Qt Quick's accessibility with it.
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Lantern"));
    QApplication::setApplicationVersion(QStringLiteral(LANTERN_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("example.lantern.Lantern"));
    describeItemsToAssistiveTechnology();
    quitOnSignals();

    DesktopPlatform platform;
    Program program(ProgramPaths::ofThisUser(), Environment::ofThisDevice(), platform);
    const DesktopAppearance followed(program.appearance(), settings);
    if (program.isOpenElsewhere() && RunningProgram::raise())
        return EXIT_SUCCESS;
    if (!program.launch())
        return EXIT_FAILURE;
    if (const auto file = fileToOpen())
        program.openCollectionFile(*file);
    setIconAfterTheFirstFrame(program.quickWindow());
    const RunningProgram running(program.quickWindow());
    const int status = QApplication::exec();
    program.application().applicationWillTerminate();
    return status;
}

#include "platform/DesktopPlatform.h"
#include "ui/FileChooser.h"
#include "ui/Program.h"
#include "ui/QuitSignals.h"

#include <QApplication>

int main(int argc, char** argv) {
    FileChooser::preferPortal(argc, argv);
    // The print dialog is a widget; all else is Qt Quick.
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Lantern"));
    quitOnSignals();

    DesktopPlatform platform;
    Program program(ProgramPaths::ofThisUser(), Environment::ofThisDevice(), platform);
    if (!program.launch())
        return EXIT_FAILURE;
    const int status = QApplication::exec();
    program.application().applicationWillTerminate();
    return status;
}

#include "ui/Program.h"

#include <QGuiApplication>
#include <QQuickStyle>

int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("Lantern"));
    QQuickStyle::setStyle(QStringLiteral("Basic"));

    Program program(ProgramPaths::ofThisUser(), Environment::ofThisDevice());
    if (!program.launch())
        return EXIT_FAILURE;
    const int status = QGuiApplication::exec();
    program.application().applicationWillTerminate();
    return status;
}

#include <QGuiApplication>
#include <QQmlApplicationEngine>

/** A window with an empty list, and with a line of text where one is given. */
int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    QQmlApplicationEngine engine;
    engine.loadData(
        "import QtQuick\n"
        "Window { width: 390; height: 844; visible: true\n"
        "         ListView { anchors.fill: parent }\n"
        "         Loader { active: Qt.application.arguments.length > 1\n"
        "                  sourceComponent: Text { text: Qt.application.arguments[1] } } }");
    return QGuiApplication::exec();
}

#include <QGuiApplication>
#include <QQmlApplicationEngine>

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    QQmlApplicationEngine engine;
    engine.loadData("import QtQuick\n"
                    "Window { width: 390; height: 844; visible: true\n"
                    "         ListView { anchors.fill: parent } }");
    return QGuiApplication::exec();
}

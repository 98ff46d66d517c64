#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qunsetenv("QT_QPA_PLATFORMTHEME");
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

#include "shared/Screens.h"
#include "support/TestApplication.h"
#include "toolkit/NavigationController.h"
#include "toolkit/Storyboard.h"
#include "toolkit/TabBarController.h"
#include "ui/Scenes.h"

#include <QFile>
#include <QMetaMethod>
#include <QSet>

#include <gtest/gtest.h>

namespace {

struct SceneTable : testing::Test {
    SceneTable() {
        addScenes(storyboard, application.delegate);
        visit(scenes::mainMenu);
    }

    void visit(const QString& identifier) {
        if (screens.contains(identifier))
            return;
        const Scene* scene = storyboard.scene(identifier);
        if (!scene) {
            ADD_FAILURE() << "no scene " << identifier.toStdString();
            return;
        }
        screens.emplace(identifier, storyboard.instantiate(identifier));
        if (const auto* tabs = qobject_cast<TabBarController*>(screens.at(identifier).get())) {
            for (const NavigationController* tab : tabs->viewControllers())
                visit(tab->topViewController()->restorationIdentifier());
        }
        for (const SegueDescription& segue : scene->segues) {
            if (segue.kind == SegueDescription::Kind::Show)
                visit(segue.target);
        }
    }

    TestApplication application;
    Storyboard storyboard;
    std::map<QString, std::unique_ptr<ViewController>> screens; ///< that the menu leads to
};

TEST_F(SceneTable, LeadsFromTheMenuToEveryScreenAndEachHasAView) {
    for (const auto& [identifier, scene] : storyboard.scenes()) {
        EXPECT_TRUE(screens.contains(identifier)) << identifier.toStdString();
        EXPECT_TRUE(QFile::exists(QStringLiteral(":/qt/qml/Lantern/%1.qml").arg(scene.view)))
            << identifier.toStdString();
    }
}

TEST_F(SceneTable, LeadsBackToActionsThatScreensHave) {
    QSet<QByteArray> actions;
    for (const auto& [identifier, screen] : screens) {
        const QMetaObject* type = screen->metaObject();
        for (int i = 0; i < type->methodCount(); ++i)
            actions.insert(type->method(i).methodSignature());
    }
    for (const auto& [identifier, scene] : storyboard.scenes()) {
        for (const SegueDescription& segue : scene.segues) {
            if (segue.kind == SegueDescription::Kind::Unwind) {
                EXPECT_TRUE(actions.contains(segue.target.toUtf8() + "(Segue*)"))
                    << identifier.toStdString() << " " << segue.target.toStdString();
            }
        }
    }
}

} // namespace

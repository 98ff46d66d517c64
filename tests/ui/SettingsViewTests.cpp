#include "Views.h"
#include "settings/DefaultsViewController.h"

#include <gtest/gtest.h>

namespace {

class SettingsView : public Views {
protected:
    QString stored(const char* key) {
        return program.application()
            .services.userDefaults.object(QLatin1String(key))
            .value_or(QStringLiteral("(absent)"));
    }

    bool isOn(const char* name) {
        return pilot->find(QLatin1String(name)).property("checked").toBool();
    }
};

TEST_F(SettingsView, PickerStylesExcludeEachOther) {
    open("Settings");
    pilot->tap(QStringLiteral("Inline"));
    pilot->tap(QStringLiteral("Wheel"));
    EXPECT_TRUE(isOn("Wheel"));
    EXPECT_FALSE(isOn("Inline"));
    EXPECT_EQ(stored("UseDateInline"), "false");
    pilot->tabTo(QStringLiteral("Compact"));
    pilot->press(Qt::Key_Space);
    EXPECT_FALSE(isOn("Wheel"));
    pilot->press(Qt::Key_Return);
    EXPECT_FALSE(isOn("Compact"));
    EXPECT_EQ(stored("UseDateCompact"), "true");
    pilot->tap(QStringLiteral("Back"));
    open("Settings");
    EXPECT_TRUE(isOn("Compact"));
}

TEST_F(SettingsView, DefaultDateIsPickedInEachStyle) {
    open("Settings");
    pilot->tap(QStringLiteral("Wheel"));
    pilot->tap(QStringLiteral("Date"));
    pilot->drag(pilot->find(QStringLiteral("Day")), {0, -43});
    EXPECT_EQ(stored("DefaultDate"), "Mar 2, 2021");
    pilot->tap(QStringLiteral("Date")); // from the field, keys turn each style in its way
    pilot->press(Qt::Key_Down);
    EXPECT_EQ(stored("DefaultDate"), "Mar 3, 2021");
    pilot->tap(QStringLiteral("Done"));

    pilot->tap(QStringLiteral("Inline"));
    pilot->tap(QStringLiteral("Date"));
    pilot->tap(QStringLiteral("March 15"));
    EXPECT_EQ(stored("DefaultDate"), "Mar 15, 2021");
    pilot->tap(QStringLiteral("Date"));
    pilot->press(Qt::Key_Up);
    EXPECT_EQ(stored("DefaultDate"), "Mar 8, 2021");
    pilot->press(Qt::Key_Escape);

    pilot->tap(QStringLiteral("Compact"));
    pilot->tap(QStringLiteral("Date"));
    pilot->press(Qt::Key_Down);
    EXPECT_EQ(stored("DefaultDate"), "Mar 9, 2021");
    pilot->tabTo(QStringLiteral("Date picker"));
    pilot->press(Qt::Key_Space);
    pilot->press(Qt::Key_Up);
    EXPECT_EQ(stored("DefaultDate"), "Mar 2, 2021");
    pilot->tap(QStringLiteral("Today"));
    EXPECT_EQ(stored("DefaultDate"), "Mar 1, 2021");
    EXPECT_EQ(top<DefaultsViewController>().dateTextField->text(), "Mar 1, 2021");
}

TEST_F(SettingsView, DefaultDateGoesWithItsSwitch) {
    open("Settings");
    pilot->tap(QStringLiteral("Use default date"));
    EXPECT_EQ(stored("UseDefaultDate"), "true");
    EXPECT_TRUE(pilot->look(QStringLiteral("Default date")));
    pilot->tap(QStringLiteral("Date"));
    pilot->tap(QStringLiteral("Today"));
    pilot->tap(QStringLiteral("Use default date"));
    EXPECT_FALSE(pilot->look(QStringLiteral("Default date")));
    EXPECT_EQ(stored("DefaultDate"), "");
}

} // namespace

#include "settings/DefaultsViewController.h"
#include "support/TestApplication.h"

#include <gtest/gtest.h>

namespace {

class Settings : public testing::Test {
protected:
    DefaultsViewController& load() {
        screen = std::make_unique<DefaultsViewController>(application.delegate);
        screen->viewDidLoad();
        return *screen;
    }

    QString stored(const char* key) const {
        return application.userDefaults.object(QLatin1String(key))
            .value_or(QStringLiteral("(absent)"));
    }

    /** The stored wheel, inline and compact settings. */
    QStringList styles() const {
        return {stored("UseDateWheel"), stored("UseDateInline"), stored("UseDateCompact")};
    }

    /** Which of the wheel, inline and compact switches are on. */
    std::vector<bool> switches() const {
        return {screen->DateWheelSwitch->isOn(), screen->DateInlineSwitch->isOn(),
                screen->DateCompactSwitch->isOn()};
    }

    TestApplication application;
    std::unique_ptr<DefaultsViewController> screen;
};

TEST_F(Settings, FirstOpeningStoresOneFalse) {
    load();
    EXPECT_EQ(stored("UseDefaultDate"), "false");
    EXPECT_EQ(stored("DefaultDate"), "(absent)");
    EXPECT_EQ(styles(), QStringList({"(absent)", "(absent)", "(absent)"}));
    EXPECT_TRUE(screen->DefaultDateLabel->isHidden());
    EXPECT_TRUE(screen->DefaultDateTextField->isHidden());
}

TEST_F(Settings, DefaultDateIsKeptWhileItsSwitchIsOn) {
    load();
    screen->DefaultDateSwitch->toggle();
    EXPECT_FALSE(screen->DefaultDateTextField->isHidden());
    EXPECT_EQ(stored("UseDefaultDate"), "true");
    screen->dateTextField->beginEditing();
    EXPECT_EQ(screen->dateTextField->text(), "");
    screen->datePickerView->choose(2021, 1, 5);
    EXPECT_EQ(screen->dateTextField->text(), "Jan 5, 2021");
    EXPECT_EQ(stored("DefaultDate"), "Jan 5, 2021");
    screen->doneClick();
    EXPECT_FALSE(screen->dateTextField->isEditing());
    EXPECT_EQ(screen->DefaultDateTextField->text(), "");
    load();
    EXPECT_TRUE(screen->DefaultDateSwitch->isOn());
    EXPECT_EQ(screen->DefaultDateTextField->text(), "Jan 5, 2021");
    screen->todayClick();
    EXPECT_EQ(stored("DefaultDate"), "Mar 1, 2021");
    screen->DefaultDateSwitch->toggle();
    EXPECT_EQ(stored("DefaultDate"), "");
    EXPECT_EQ(stored("UseDefaultDate"), "false");
    EXPECT_EQ(screen->DefaultDateTextField->text(), "");
}

TEST_F(Settings, StylesExcludeEachOther) {
    load();
    screen->DateInlineSwitch->toggle();
    EXPECT_EQ(screen->datePickerView->style(), DatePicker::Inline);
    screen->DateWheelSwitch->toggle();
    EXPECT_EQ(switches(), std::vector({true, false, false}));
    EXPECT_EQ(styles(), QStringList({"true", "false", "false"}));
    EXPECT_EQ(screen->datePickerView->style(), DatePicker::Wheels);
    screen->DateWheelSwitch->toggle(); // off: the stored style stays
    EXPECT_EQ(switches(), std::vector({false, false, false}));
    EXPECT_EQ(styles(), QStringList({"true", "false", "false"}));
    load();
    EXPECT_EQ(switches(), std::vector({true, false, false}));
    EXPECT_TRUE(screen->UseDateWheel);
}

TEST_F(Settings, TheLastOfSeveralStoredStylesWins) {
    for (const char* key : {"UseDateWheel", "UseDateCompact"})
        application.userDefaults.setBool(QLatin1String(key), true);
    load();
    EXPECT_EQ(switches(), std::vector({false, false, true}));
    EXPECT_EQ(screen->datePickerView->style(), DatePicker::Compact);
    EXPECT_TRUE(screen->UseDateWheel); // compact leaves these as they are
    EXPECT_FALSE(screen->UseCompactDate);
    application.userDefaults.setBool(QStringLiteral("UseDateInline"), true);
    load();
    EXPECT_EQ(switches(), std::vector({false, true, false}));
    EXPECT_EQ(screen->datePickerView->style(), DatePicker::Inline);
}

TEST_F(Settings, HidesStylesThatTheSystemLacks) {
    application.environment.systemVersion = {13, 4};
    load();
    EXPECT_TRUE(screen->DateInlineSwitch->isHidden());
    EXPECT_FALSE(screen->DateWheelSwitch->isHidden());
    screen->DateCompactSwitch->toggle(); // stored, though the system shows it from 14 on only
    EXPECT_EQ(stored("UseDateCompact"), "true");
    EXPECT_EQ(screen->datePickerView->style(), DatePicker::Automatic);
    application.environment.systemVersion = {13, 3};
    load();
    EXPECT_TRUE(screen->DateWheelSwitch->isHidden());
    EXPECT_TRUE(screen->SelectDPLabel->isHidden());
}

TEST_F(Settings, ATypedDateIsKeptOnceItCanBeRead) {
    load();
    screen->dateTextField->beginEditing();
    screen->dateTextField->enter(QStringLiteral("Mar 3, 2001"));
    EXPECT_EQ(stored("DefaultDate"), "Mar 3, 2001");
    EXPECT_EQ(screen->datePickerView->year(), 2001);
    screen->dateTextField->enter(QStringLiteral("Mar 3, 2001, or"));
    screen->dismissKeyboard();
    EXPECT_EQ(screen->dateTextField->text(), "Mar 3, 2001");
    screen->dateTextField->beginEditing(); // which a text that none can read would end the program
    screen->datePickerView->choose(2002, 1, 1);
    screen->dateTextField->pressReturn();
    EXPECT_FALSE(screen->dateTextField->isEditing());
    EXPECT_EQ(stored("DefaultDate"), "Jan 1, 2002");
}

TEST_F(Settings, EndTheProgramAtWhatIsNoBooleanNoTextOrNoDate) {
    application.userDefaults.setText(QStringLiteral("UseDefaultDate"), QStringLiteral("maybe"));
    EXPECT_EQ(fatalMessageOf([&] { load(); }),
              "The setting UseDefaultDate is not a boolean: maybe");
    application.userDefaults.setBool(QStringLiteral("UseDefaultDate"), true);
    application.userDefaults.setInteger(QStringLiteral("DefaultDate"), 20210105);
    EXPECT_EQ(fatalMessageOf([&] { load(); }), "The setting DefaultDate is not a text: 20210105");
    application.userDefaults.setText(QStringLiteral("DefaultDate"), QLatin1String(""));
    load();
    screen->dateTextField->setText(QStringLiteral("soon"));
    EXPECT_EQ(fatalMessageOf([&] { screen->dateTextField->beginEditing(); }),
              "The date cannot be read: \"soon\"");
    screen->dateTextField->endEditing();
    screen->dateTextField->setText(QStringLiteral("Jan 5, 2021"));
    screen->dateTextField->beginEditing();
    EXPECT_EQ(screen->datePickerView->year(), 2021);
}

} // namespace

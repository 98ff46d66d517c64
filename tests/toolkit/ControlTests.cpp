#include "toolkit/ActivityIndicatorView.h"
#include "toolkit/Button.h"
#include "toolkit/DatePicker.h"
#include "toolkit/PickerView.h"
#include "toolkit/Progress.h"
#include "toolkit/SearchController.h"
#include "toolkit/SegmentedControl.h"
#include "toolkit/TextInput.h"
#include "toolkit/TextLines.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

TEST(Color, FollowsHueSaturationAndBrightness) {
    EXPECT_EQ(Color::hsb(0.5, 0.06, 0.96).name(), "#ffe6f5f5");
    EXPECT_EQ(Color::hsb(0, 1, 1).name(), "#ffff0000");
    EXPECT_EQ(Color::hsb(2.0 / 3, 1, 0.5, 0).name(), "#00000080");
    EXPECT_EQ(Color::hsb(1, 1, 1), Color::hsb(0, 1, 1));
}

TEST(Button, DoesNothingWhileDisabledOrHidden) {
    Button button(nullptr, QStringLiteral("Go"));
    const QSignalSpy presses(&button, &Button::touchUpInside);
    button.setEnabled(false);
    button.press();
    button.setEnabled(true);
    View::animate(0.3, [&] { button.setHidden(true); });
    EXPECT_EQ(button.hidingDuration(), 0.3);
    button.press();
    EXPECT_EQ(presses.size(), 0);
    button.setHidden(false);
    EXPECT_EQ(button.hidingDuration(), 0);
    button.press();
    EXPECT_EQ(presses.size(), 1);
}

TEST(Progress, IsAFractionOfItsTotal) {
    EXPECT_EQ((Progress{10, 4}.fractionCompleted()), 0.4);
    EXPECT_EQ((Progress{10, 11}.fractionCompleted()), 1);
    EXPECT_EQ((Progress{0, 0}.fractionCompleted()), 0);
    EXPECT_EQ((Progress{0, 1}.fractionCompleted()), 1);
}

TEST(ActivityIndicatorView, HidesWhileItStandsStill) {
    ActivityIndicatorView indicator(nullptr);
    EXPECT_FALSE(indicator.isHidden());
    indicator.setHidesWhenStopped(true);
    EXPECT_TRUE(indicator.isHidden());
    indicator.startAnimating();
    EXPECT_FALSE(indicator.isHidden());
    indicator.stopAnimating();
    EXPECT_TRUE(indicator.isHidden());
    EXPECT_FALSE(indicator.isAnimating());
}

TEST(SegmentedControl, TellsOfTheUsersChangesAlone) {
    SegmentedControl segments(nullptr, {QStringLiteral("One"), QStringLiteral("Two")});
    const QSignalSpy changes(&segments, &SegmentedControl::valueChanged);
    segments.setSelectedIndex(1);
    segments.choose(1);
    segments.choose(2);
    EXPECT_EQ(changes.size(), 0);
    segments.choose(0);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(segments.selectedIndex(), 0);
}

TEST(TextInput, OneOfAScreenIsEdited) {
    QObject screen;
    TextField name(&screen);
    TextView text(&screen);
    const QSignalSpy begun(&name, &TextInput::editingDidBegin);
    name.beginEditing();
    name.beginEditing();
    EXPECT_EQ(begun.size(), 1);
    text.beginEditing();
    EXPECT_FALSE(name.isEditing());
    EXPECT_TRUE(text.isEditing());
}

TEST(TextView, GivesItsTextALineARow) {
    TextView view(nullptr);
    const auto lines = [&] {
        QStringList list;
        for (int row = 0; row < view.lines()->rowCount(); ++row)
            list.append(view.lines()->data(view.lines()->index(row), Qt::DisplayRole).toString());
        return list;
    };
    EXPECT_EQ(lines(), QStringList());
    view.setText(QStringLiteral("one\r\n\ntwo"));
    EXPECT_EQ(lines(), QStringList({"one", "", "two"}));
    view.setText(QStringLiteral("\rone\rtwo\n\rthree"));
    EXPECT_EQ(lines(), QStringList({"", "one", "two", "", "three"}));
    // Long lines go on in the next row, or are cut off.
    const QString words = QString(900, u'x') + u' ' + QString(200, u'y');
    const QString smileys = QString(999, u'z') + QStringLiteral("😀😀");
    view.setText(words + u'\n' + smileys + QStringLiteral("\r\nend\n"));
    EXPECT_EQ(lines(), QStringList({words.left(901), words.mid(901), smileys.left(999),
                                    smileys.mid(999), QStringLiteral("end")}));
    view.setLineBreakMode(LineBreakMode::TruncatingTail);
    EXPECT_EQ(lines(), QStringList({words.left(1000), smileys.left(1000), QStringLiteral("end")}));
    // Work that grows with the square of a line's length would not come to an end here.
    view.setText(QString(5'000'000, u'x') + QStringLiteral("\nend\n"));
    EXPECT_EQ(lines().size(), 2);
    view.setLineBreakMode(LineBreakMode::WordWrapping);
    EXPECT_EQ(lines().size(), 5'001);
}

TEST(SearchController, RunsTheSearchOnEveryChangeOfTheText) {
    SearchController search(nullptr, QStringLiteral("Search"));
    int runs = 0;
    search.searchResultsUpdater = [&](SearchController&) { ++runs; };
    search.searchBar()->setText(QStringLiteral("a"));
    search.searchBar()->setText(QStringLiteral("a"));
    search.setActive(true);
    search.dismiss();
    EXPECT_FALSE(search.isActive());
    EXPECT_EQ(search.searchBar()->text(), QStringLiteral("a"));
    search.searchBar()->setText(std::nullopt);
    EXPECT_EQ(runs, 2);
}

TEST(DatePicker, ChangesTheDayAndKeepsTheTimeInItsZone) {
    const Environment environment{[] { return Date(1'614'556'740'000ms); }, // 2021-02-28 23:59 UTC
                                  QStringLiteral("de_DE"), QStringLiteral("Asia/Tokyo")};
    DatePicker picker(nullptr, {}, environment);
    const QSignalSpy changes(&picker, &DatePicker::valueChanged);
    EXPECT_EQ(picker.day(), 1);
    EXPECT_EQ(picker.month(), 3);
    picker.choose(2024, 2, 31);
    EXPECT_EQ(picker.day(), 29);
    EXPECT_EQ(picker.date(), Date(1'709'164'740'000ms)); // 2024-02-28 23:59 UTC
    EXPECT_EQ(changes.size(), 1);
    picker.setDate(environment.now());
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(picker.monthNames().at(2), QStringLiteral("März"));
    EXPECT_EQ(picker.firstWeekday(), 1);
}

TEST(DatePicker, TellsDatesInTheLocalesOrderAndDigits) {
    const auto told = [](const char* locale) {
        const Environment environment{[] { return Date(1'614'556'740'000ms); },
                                      QLatin1String(locale), QStringLiteral("UTC")};
        const DatePicker picker(nullptr, {}, environment);
        return QStringList({picker.order(), picker.text(), picker.monthTitle(2021, 2),
                            picker.dayTitle(2, 28), picker.number(2021)});
    };
    EXPECT_EQ(told("en_US"),
              QStringList({"Mdy", "February 28, 2021", "February 2021", "February 28", "2021"}));
    EXPECT_EQ(told("de_DE"),
              QStringList({"dMy", "28. Februar 2021", "Februar 2021", "28. Februar", "2021"}));
    EXPECT_EQ(told("hu_HU"), QStringList({"yMd", QStringLiteral("2021. február 28."),
                                          QStringLiteral("2021. február"),
                                          QStringLiteral("február 28."), "2021"}));
    EXPECT_EQ(told("ar_EG").at(4), QStringLiteral("٢٠٢١"));
    EXPECT_TRUE(told("ar_EG").at(3).contains(QStringLiteral("٢٨")));
}

} // namespace

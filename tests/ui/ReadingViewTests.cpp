#include "Views.h"
#include "quotes/DetailViewController.h"
#include "quotes/MasterViewController.h"
#include "quotes/QuoteFullScreenViewController.h"
#include "toolkit/ActivityViewController.h"

#include <QAccessible>

#include <gtest/gtest.h>

namespace {

constexpr int wheelRow = 43; // points

class ReadingViews : public Views {
protected:
    ReadingViews() {
        for (const char* name : {"art", "hope", "love"})
            context().insert<Topics>()->setTopic(QLatin1String(name));
        context().insert<Authors>()->setName(QStringLiteral("Ann"));
        context().insert<Sources>()->setName(QStringLiteral("Letters"));
        addQuote(QStringLiteral("Ann"), QStringLiteral("art"), QStringLiteral("First light"));
    }

    DetailViewController& openDetail() {
        open("Quote List");
        pilot->tap(*pilot->findAll(QStringLiteral("Topic: ")).at(0));
        return top<DetailViewController>();
    }

    void use(const char* dateStyle) {
        program.application().services.userDefaults.setBool(QLatin1String(dateStyle), true);
    }

    const Event& quote() { return *context().fetch(Event::fetchRequest()).records.at(0); }

    void turn(const char* wheel, int rows) {
        const int start = rows > 0 ? 15 : -15; // points that only tell a drag from a tap
        pilot->drag(pilot->find(QLatin1String(wheel)), {0, start + rows * wheelRow});
    }

    QString shown(const char* field) {
        return pilot->find(QLatin1String(field)).property("text").toString();
    }
};

TEST_F(ReadingViews, ButtonsAndStepperChangeTheReadingSize) {
    const auto& detail = openDetail();
    const auto size = [&] {
        return pilot->find(QStringLiteral("Quote")).property("font").value<QFont>().pixelSize();
    };
    pilot->tap(QStringLiteral("Increase font size"));
    pilot->tap(QStringLiteral("Increase font size"));
    pilot->tap(QStringLiteral("Decrease font size"));
    EXPECT_EQ(size(), 15);
    EXPECT_EQ(shown("Font size in points"), "14");
    pilot->tap(QStringLiteral("Font size +"));
    EXPECT_EQ(shown("Font size in points"), "15.0");
    pilot->tabTo(QStringLiteral("Font size"));
    pilot->press(Qt::Key_Up);
    pilot->press(Qt::Key_Right);
    pilot->press(Qt::Key_Down);
    EXPECT_EQ(shown("Font size in points"), "16.0");
    EXPECT_EQ(size(), 17); // which trails by one step
    pilot->tap(QStringLiteral("Font size in points"));
    pilot->type(QStringLiteral("9"));
    EXPECT_EQ(shown("Font size in points"), "16.0");

    pilot->tap(QStringLiteral("Quote")); // its text is shown anew at each size, which can be undone
    pilot->press(Qt::Key_End, Qt::ControlModifier);
    pilot->type(QStringLiteral("!"));
    pilot->tap(QStringLiteral("Increase font size"));
    EXPECT_EQ(detail.QuoteTextView->text(), "First light");
    pilot->tap(QStringLiteral("Quote"));
    pilot->press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(detail.QuoteTextView->text(), "First light!");
}

TEST_F(ReadingViews, PressingALongTextLeavesThePageInItsPlace) {
    addQuote(QStringLiteral("Ann"), QStringLiteral("aa"),
             QStringLiteral("To be, or not to be, that is the question.\n").repeated(60));
    openDetail();
    QQuickItem& text = pilot->find(QStringLiteral("Quote"));
    const QPoint place = text.mapToScene({60, 20}).toPoint();
    pilot->drag(place, {60, 0});
    EXPECT_EQ(text.mapToScene({60, 20}).toPoint(), place);
    EXPECT_TRUE(pilot->hasFocus(QStringLiteral("Quote")));
    const QString selected = text.property("selectedText").toString();
    EXPECT_GT(selected.size(), 2);
    EXPECT_TRUE(QStringLiteral("To be, or not to be").contains(selected)) << selected.toStdString();
}

TEST_F(ReadingViews, DetailIsEditedByTouchAndSaved) {
    use("UseDateWheel");
    openDetail();
    pilot->tap(QStringLiteral("Topic"));
    turn("Topic picker", -2);
    EXPECT_EQ(shown("Topic"), "love");
    turn("Topic picker", 1);
    EXPECT_EQ(shown("Topic"), "hope");
    pilot->tap(QStringLiteral("Done"));

    pilot->tap(QStringLiteral("Date"));
    EXPECT_EQ(shown("Date"), "March 1, 2021");
    turn("Year", 1);
    turn("Month", 1);
    turn("Day", -4);
    pilot->tap(QStringLiteral("Done"));
    EXPECT_EQ(shown("Date"), "February 5, 2020");

    pilot->tap(QStringLiteral("Author"));
    pilot->type(QStringLiteral(" Onym"));
    pilot->tap(QStringLiteral("Done"));
    pilot->tap(QStringLiteral("Quote"));
    pilot->press(Qt::Key_End, Qt::ControlModifier);
    pilot->type(QStringLiteral("!"));
    pilot->tap(QStringLiteral("Save"));
    EXPECT_NO_THROW(top<MasterViewController>());
    EXPECT_EQ(rows(), QStringList("Topic: hope"));
    EXPECT_EQ(quote().author(), QStringLiteral("Ann Onym"));
    EXPECT_EQ(quote().quote(), QStringLiteral("First light!"));
    EXPECT_EQ(quote().timestamp(), Date(std::chrono::milliseconds(1'580'904'000'000)));
}

TEST_F(ReadingViews, DetailIsEditedByKeyboardAndSaved) {
    use("UseDateInline");
    openDetail();
    pilot->tabTo(QStringLiteral("Source"));
    pilot->press(Qt::Key_Down);
    EXPECT_EQ(shown("Source"), "Letters");
    pilot->press(Qt::Key_Escape);
    EXPECT_FALSE(pilot->look(QStringLiteral("Source picker")));
    pilot->tabTo(QStringLiteral("Topic picker"));
    pilot->press(Qt::Key_End);
    EXPECT_EQ(shown("Topic"), "love");
    pilot->tabTo(QStringLiteral("Date picker"));
    pilot->press(Qt::Key_PageUp);
    pilot->press(Qt::Key_Left);
    pilot->tabBackTo(QStringLiteral("Done"));
    pilot->press(Qt::Key_Return);
    EXPECT_EQ(shown("Date"), "January 31, 2021");
    pilot->tabTo(QStringLiteral("Date picker"));
    pilot->tabTo(QStringLiteral("Quote"));
    pilot->press(Qt::Key_Home, Qt::ControlModifier);
    pilot->type(QStringLiteral("The "));
    pilot->tabTo(QStringLiteral("Full Screen"));
    pilot->tabTo(QStringLiteral("Save"));
    pilot->press(Qt::Key_Space);
    EXPECT_NO_THROW(top<MasterViewController>());
    EXPECT_EQ(quote().source(), QStringLiteral("Letters"));
    EXPECT_EQ(quote().category(), QStringLiteral("love"));
    EXPECT_EQ(quote().quote(), QStringLiteral("The First light"));
    EXPECT_EQ(quote().timestamp(), Date(std::chrono::milliseconds(1'612'094'400'000)));
}

TEST_F(ReadingViews, KeyboardGoesBackPastAnOpenSheet) {
    openDetail();
    pilot->tabTo(QStringLiteral("Topic"));
    EXPECT_TRUE(pilot->look(QStringLiteral("Topic picker")));
    for (const char* name : {"Source", "Save", "Back", "Full Screen", "Quote", "Author"})
        EXPECT_NO_THROW(pilot->tabBackTo(QLatin1String(name))) << name;
}

TEST_F(ReadingViews, DaysOfCalendarsAreTappedAndTodayIsShown) {
    use("UseDateCompact");
    auto& detail = openDetail();
    pilot->tap(QStringLiteral("Date"));
    EXPECT_FALSE(pilot->look(QStringLiteral("March 1")));
    pilot->tap(QStringLiteral("Date picker"));
    pilot->tap(QStringLiteral("Previous year"));
    pilot->tap(QStringLiteral("Previous month"));
    pilot->tap(QStringLiteral("February 29"));
    pilot->tap(QStringLiteral("Today"));
    EXPECT_EQ(shown("Date"), "March 1, 2021");
    EXPECT_EQ(detail.form.QuoteDate, Date(std::chrono::milliseconds(1'582'977'600'000)));

    use("UseDateInline");
    pilot->tap(QStringLiteral("Date"));
    pilot->tap(QStringLiteral("Next month"));
    pilot->tap(QStringLiteral("March 31"));
    pilot->tap(QStringLiteral("Done"));
    EXPECT_EQ(shown("Date"), "March 31, 2020");
}

TEST_F(ReadingViews, SmallestWindowShowsTheFieldAboveRoomyDays) {
    use("UseDateInline");
    pilot->resize({320, 480});
    openDetail();
    pilot->tap(QStringLiteral("Date"));
    EXPECT_GE(pilot->find(QStringLiteral("March 31")).height(), 44);
    const auto top = [&](const char* name) {
        return pilot->find(QLatin1String(name)).mapToScene({0, 0}).y();
    };
    EXPECT_GE(top("Date"), 52); // below the navigation bar
    EXPECT_LE(top("Date") + 44, top("Done"));
}

TEST_F(ReadingViews, SmallestWindowTellsTheHeadingThatItHasNoRoomFor) {
    program.appearance().textScale = 1.8;
    Q_EMIT program.appearance().changed();
    pilot->resize({320, 480});
    const QString title = openDetail().title();
    EXPECT_TRUE(pilot->placeOf(title).isEmpty());
    QStringList headings;
    std::function<void(QAccessibleInterface*)> read = [&](QAccessibleInterface* item) {
        if (item->role() == QAccessible::Heading && !item->state().invisible)
            headings.append(item->text(QAccessible::Name));
        for (int i = 0; i < item->childCount(); ++i)
            read(item->child(i));
    };
    read(QAccessible::queryAccessibleInterface(&program.quickWindow()));
    EXPECT_EQ(headings, QStringList(title));
}

TEST_F(ReadingViews, LongNamesBeginInTheirFields) {
    addQuote(QStringLiteral("Wolfgang Amadeus Theophilus von und zu Hohenlohe-Schillingsfürst"),
             QStringLiteral("a"), QStringLiteral("text"));
    openDetail();
    QQuickItem& field = pilot->find(QStringLiteral("Author"));
    EXPECT_EQ(field.property("cursorPosition"), 0);
    pilot->tabTo(QStringLiteral("Author"));
    pilot->type(QStringLiteral("!"));
    EXPECT_TRUE(shown("Author").endsWith(QStringLiteral("fürst!")));
    pilot->press(Qt::Key_Escape);
    EXPECT_EQ(field.property("cursorPosition"), 0);
}

TEST_F(ReadingViews, FullScreenHandsBackWhatWasEdited) {
    openDetail();
    pilot->tap(QStringLiteral("Full Screen"));
    pilot->press(Qt::Key_X, Qt::ShiftModifier);
    pilot->press(Qt::Key_Space);
    EXPECT_EQ(shown("Quote"), QStringLiteral("First light")) << "keys scroll";
    pilot->tap(QStringLiteral("Quote"));
    pilot->settle();
    EXPECT_FALSE(pilot->look(QStringLiteral("Back")));
    pilot->press(Qt::Key_Return);
    pilot->settle();
    EXPECT_TRUE(pilot->look(QStringLiteral("Back")));
    pilot->press(Qt::Key_End, Qt::ControlModifier);
    pilot->type(QStringLiteral(", then 世界"));
    pilot->press(Qt::Key_Escape);
    pilot->press(Qt::Key_Escape);
    EXPECT_EQ(shown("Quote"), QStringLiteral("First light, then 世界"));
    EXPECT_EQ(quote().quote(), QStringLiteral("First light"));
    pilot->tap(QStringLiteral("Save"));
    EXPECT_EQ(quote().quote(), QStringLiteral("First light, then 世界"));
}

TEST_F(ReadingViews, EveryActivityOfTheShareSheetSharesTheQuote) {
    openDetail();
    const QString text = QStringLiteral("Source: Source\nTopic: art\nAuthor: Ann\n\nFirst light");
    for (const char* activity : {"Copy", "Message", "Mail", "Print", "Save to Files"}) {
        pilot->tap(QStringLiteral("Share"));
        pilot->tap(QLatin1String(activity));
        EXPECT_FALSE(pilot->look(QStringLiteral("Cancel"))) << activity;
    }
    EXPECT_EQ(platform.copied, QStringList(text));
    EXPECT_EQ(platform.messages, QStringList(text));
    EXPECT_EQ(platform.mails.at(0).body, text);
    EXPECT_EQ(std::get<QString>(platform.saved.at(0).at(0)), text);
    pilot->tap(QStringLiteral("Print"));
    EXPECT_EQ(platform.printed.size(), 2);

    pilot->tabTo(QStringLiteral("Share"));
    pilot->press(Qt::Key_Return);
    EXPECT_TRUE(pilot->hasFocus(QStringLiteral("Copy")));
    pilot->press(Qt::Key_Tab);
    EXPECT_TRUE(pilot->hasFocus(QStringLiteral("Message")));
    pilot->press(Qt::Key_Return);
    EXPECT_EQ(platform.messages.size(), 2);
    pilot->tap(QStringLiteral("Share"));
    pilot->press(Qt::Key_Escape);
    EXPECT_EQ(program.navigation().presentedViewController(), nullptr);
    EXPECT_NO_THROW(top<DetailViewController>());
}

} // namespace

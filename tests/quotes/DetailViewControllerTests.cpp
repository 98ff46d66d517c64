#include "quotes/ChosenQuote.h"
#include "quotes/DetailViewController.h"
#include "quotes/QuoteFullScreenViewController.h"
#include "support/TestApplication.h"
#include "toolkit/ActivityViewController.h"
#include "toolkit/NavigationController.h"
#include "toolkit/Storyboard.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

const auto sizeKey = QStringLiteral("ReaderFontSize");

class Detail : public testing::Test {
protected:
    /** Opens a quote as the quote list does. */
    DetailViewController& open(const char* text = "text", const char* openedBy = "Master") {
        Event& quote = application.addQuote({.author = "A",
                                             .category = "T",
                                             .source = "S",
                                             .quote = text,
                                             .timestamp = Date(1'600'000'000'000ms)});
        select(quote);
        application.selection.callingScreen = QLatin1String(openedBy);
        detail = std::make_unique<DetailViewController>(application.delegate);
        segues = &recordSegues(*detail);
        detail->viewDidLoad();
        return *detail;
    }

    void select(const Event& quote) {
        application.selection.selectedAuthor = *quote.author();
        application.selection.selectedTopic = *quote.category();
        application.selection.selectedSource = *quote.source();
        application.selection.selectedDate = quote.timestamp();
        application.selection.selectedQuoteText = *quote.quote();
    }

    QString storedSize() const { return *application.userDefaults.object(sizeKey); }

    TestApplication application;
    std::unique_ptr<DetailViewController> detail;
    QStringList* segues = nullptr;
};

TEST_F(Detail, ShowsTheChosenQuote) {
    open("one. two");
    EXPECT_EQ(detail->SourceTextField->text(), "S");
    EXPECT_EQ(detail->CategoryTextField->text(), "T");
    EXPECT_EQ(detail->AuthorTextField->text(), "A");
    EXPECT_EQ(detail->DateAddedTextField->text(), "Sep 13, 2020");
    const auto highlighted = detail->QuoteTextView->attributedText();
    ASSERT_TRUE(highlighted);
    EXPECT_EQ(highlighted->highlights, std::vector<TextRange>({{0, 8}}));
    detail->viewWillAppear();
    EXPECT_FALSE(detail->QuoteTextView->attributedText());
    EXPECT_EQ(detail->QuoteTextView->text(), "one. two");
    EXPECT_EQ(detail->CategoryTextField->inputView(), detail->form.TopicPickerView);
}

TEST_F(Detail, KeepsTheReadingSize) {
    open();
    EXPECT_EQ(detail->FontSizeTextField->text(), "14");
    EXPECT_EQ(storedSize(), "14");
    detail->FontStepper->increment(); // the shown size trails by one step
    EXPECT_EQ(detail->QuoteTextView->font(), Font({QString(), 14}));
    EXPECT_EQ(detail->FontSizeTextField->text(), "15.0");
    EXPECT_EQ(storedSize(), "15.0");
    detail->IncreaseFontSize->press(); // which moves neither stepper nor field
    EXPECT_EQ(detail->QuoteTextView->font(), Font({QStringLiteral("Helvetica Neue"), 16}));
    EXPECT_EQ(detail->FontStepper->value(), 15);
    EXPECT_EQ(detail->FontSizeTextField->text(), "15.0");
    EXPECT_EQ(storedSize(), "16.0");
    detail->DecreaseFontSize->press();
    detail->DecreaseFontSize->press();
    EXPECT_EQ(storedSize(), "14.0");

    application.userDefaults.setDouble(sizeKey, 22.5);
    open();
    EXPECT_EQ(detail->FontSizeTextField->text(), "22.5");
    EXPECT_EQ(detail->FontStepper->value(), 22.5);
    EXPECT_EQ(detail->QuoteTextView->font(), Font({QString(), 22.5}));
}

TEST_F(Detail, EndsTheProgramAtWhatItCannotShow) {
    for (const auto& [quote, sign] :
         std::initializer_list<std::pair<const char*, const char*>>{{"a (bracket", "("},
                                                                    {"a bracket)", ")"},
                                                                    {"[open", "["},
                                                                    {"*) a note", "*"},
                                                                    {"C:\\Users", "\\"}}) {
        EXPECT_TRUE(fatalMessageOf([&, quote = quote] {
                        open(quote);
                    }).startsWith(QStringLiteral("A quote with the sign \"%1\"").arg(sign)))
            << quote;
    }
    application.userDefaults.setText(sizeKey, QStringLiteral("large"));
    EXPECT_EQ(fatalMessageOf([&] { open(); }), "The setting ReaderFontSize is not a number: large");
    application.userDefaults.setInteger(sizeKey, 14);
    application.selection.selectedDate.reset();
    DetailViewController undated(application.delegate);
    EXPECT_EQ(fatalMessageOf([&] { undated.viewDidLoad(); }),
              lacks("date", QStringLiteral("text")));
}

TEST_F(Detail, IsNotHeldByAnExpressionThatBacktracks) {
    const QByteArray text = "(a+)+$" + QByteArray(5000, 'a') + "!";
    const auto start = std::chrono::steady_clock::now();
    open(text.constData());
    EXPECT_LT(std::chrono::steady_clock::now() - start, 20s);
    EXPECT_EQ(detail->QuoteTextView->text().size(), text.size());
}

TEST_F(Detail, SavesToTheRecordThatItOpened) {
    open("another");
    open();
    detail->viewWillAppear();
    detail->AuthorTextField->setText(QStringLiteral("B"));
    detail->DateAddedTextField->beginEditing();
    detail->form.datePickerView->choose(2020, 2, 29);
    detail->form.doneClick();
    detail->QuoteTextView->setText(QString());
    detail->SaveQuote();
    EXPECT_EQ(detail->ResultsCount, 2); // which differ in their text alone
    EXPECT_EQ(application.all<Event>().front()->quote(), QStringLiteral("another"));
    EXPECT_EQ(application.all<Event>().front()->author(), QStringLiteral("A"));
    const Event& saved = *application.all<Event>().back();
    EXPECT_EQ(saved.author(), QStringLiteral("B"));
    EXPECT_EQ(saved.quote(), QStringLiteral(""));
    EXPECT_EQ(saved.timestamp(), Date(1'582'977'600'000ms)); // 2020-02-29 12:00 UTC
    EXPECT_FALSE(application.context().hasChanges());
    EXPECT_EQ(*segues, QStringList("unwindToMenu"));
}

TEST_F(Detail, KeepsItsQuoteWhateverIsChosenInBetween) {
    Event& other = application.addQuote({.author = "Else",
                                         .category = "Else",
                                         .source = "Else",
                                         .quote = "another",
                                         .timestamp = Date(0ms)});
    open("text", "AuthorBreakdown");
    detail->viewWillAppear();
    select(other); // by a list that its buttons lead to
    application.selection.callingScreen = QStringLiteral("TopicBreakdown");
    detail->viewWillAppear();
    EXPECT_EQ(detail->QuoteTextView->text(), "text");
    EXPECT_EQ(application.selection.selectedTopic, "T");
    EXPECT_EQ(application.selection.callingScreen, "AuthorBreakdown");
    EXPECT_TRUE(detail->SaveButton->isEnabled());
    detail->SaveQuote();
    EXPECT_EQ(other.quote(), QStringLiteral("another"));
    EXPECT_EQ(*segues, QStringList("unwindToAuthorTableView"));
}

TEST_F(Detail, ReturnsByTheScreenThatOpenedIt) {
    const auto segueFor = [&](const char* openedBy) {
        open("text", openedBy);
        detail->SaveQuote();
        return *segues;
    };
    EXPECT_EQ(segueFor("TopicBreakdown"), QStringList("unwindToTopicTableView"));
    EXPECT_EQ(segueFor("SourceBreakdown"), QStringList("unwindToSourceTableView"));
    EXPECT_TRUE(detail->SaveButton->isEnabled());
    EXPECT_EQ(application.said, QStringList({"Saved", "Saved"}));
}

TEST_F(Detail, IsSavedOnceWhereItStaysOnTheScreen) {
    open("text", "Menu");
    detail->viewWillAppear();
    detail->DateAddedTextField->beginEditing();
    detail->SaveButton->press();
    EXPECT_EQ(*segues, QStringList());
    EXPECT_EQ(application.said, QStringList("Saved"));
    EXPECT_FALSE(detail->SaveButton->isEnabled());
    EXPECT_EQ(fatalMessageOf([&] { detail->SaveButton->press(); }), "");

    open("another");
    detail->viewWillAppear();
    application.all<Event>().back()->setAuthor(QStringLiteral("B")); // by a detail of its lists
    application.delegate.saveContext();
    detail->viewWillAppear();
    EXPECT_FALSE(detail->SaveButton->isEnabled());
}

TEST_F(Detail, RefusesToSaveWhatIsIncompleteOrGone) {
    open();
    detail->SourceTextField->setText(QString());
    detail->SaveQuote();
    ASSERT_TRUE(presentedAlert(*detail));
    EXPECT_EQ(presentedAlert(*detail)->title(), "Insert New Record Canceled");
    EXPECT_TRUE(segues->isEmpty());
    detail->SourceTextField->setText(QStringLiteral("S"));
    application.context().deleteObject(*application.all<Event>().front());
    application.delegate.saveContext();
    EXPECT_EQ(fatalMessageOf([&] { detail->SaveQuote(); }),
              "The quote by \"A\" is no longer in the store");
}

TEST_F(Detail, OpensTheAddFormUnlessItIsOnTop) {
    Storyboard storyboard;
    for (const char* name : {"Detail", "AddQuote"})
        storyboard.add(
            {QLatin1String(name),
             QLatin1String(name),
             {},
             [&] { return std::make_unique<DetailViewController>(application.delegate); },
             {},
             {}});
    open();
    NavigationController navigation(storyboard.instantiate(QStringLiteral("Detail")));
    auto& first = *qobject_cast<DetailViewController*>(navigation.topViewController());
    first.insertNewObject();
    EXPECT_EQ(navigation.depth(), 2);
    EXPECT_EQ(navigation.topViewController()->restorationIdentifier(), "AddQuote");
    first.insertNewObject();
    EXPECT_EQ(navigation.depth(), 2);
}

TEST_F(Detail, SharesAndPrintsWhatTheFieldsHold) {
    open("one\ntwo");
    detail->viewWillAppear();
    detail->ShareButtonTapped();
    auto* sheet = qobject_cast<ActivityViewController*>(detail->presentedViewController());
    ASSERT_TRUE(sheet);
    EXPECT_EQ(std::get<QString>(sheet->items().at(0)),
              "Source: S\nTopic: T\nAuthor: A\n\none\ntwo");
    application.platform.outcome = {Outcome::Failed, QStringLiteral("no paper")};
    detail->EmailFileClick(); // while the sheet is in the alert's place
    EXPECT_EQ(application.said, QStringList("no paper"));
    sheet->cancel();
    detail->AuthorTextField->setText(QString());
    detail->EmailFileClick();
    ASSERT_TRUE(presentedAlert(*detail));
    EXPECT_EQ(presentedAlert(*detail)->message(), "no paper");
    ASSERT_EQ(application.platform.printed.size(), 2);
    EXPECT_EQ(application.platform.printed.at(0).markup,
              "Source: S<br />Topic: T<br />Author: A<br /><br />Quote: one<br />two");
    EXPECT_EQ(application.platform.printed.at(0).insets, 72);
    EXPECT_EQ(application.platform.printed.at(1).markup,
              "Source: S<br />Topic: T<br />Quote: one<br />two");
}

TEST_F(Detail, CannotShareWithoutTextMessages) {
    application.platform.sendsText = false;
    open();
    application.mainQueue.runAll();
    detail->ShareButtonTapped();
    EXPECT_EQ(detail->presentedViewController(), nullptr);
    ASSERT_EQ(application.mainQueue.waiting.size(), 1);
    application.mainQueue.waiting.front().second();
    ASSERT_TRUE(presentedAlert(*detail));
    EXPECT_EQ(presentedAlert(*detail)->title(), "Can't Send Text Message");
    EXPECT_EQ(presentedAlert(*detail)->message(), "Your device is not able to send text messages.");
}

TEST_F(Detail, LeavesTheTextWhereItIsUnderAKeyboard) {
    open();
    Q_EMIT application.keyboard.willChangeFrame(216);
    EXPECT_EQ(detail->QuoteTextView->bottomInset(), 0);
}

TEST_F(Detail, TakesWhatWasEditedInFullScreen) {
    open();
    detail->viewWillAppear();
    QuoteFullScreenViewController reader(application.delegate);
    reader.viewDidLoad();
    EXPECT_EQ(reader.QuoteTextView->text(), "text");
    reader.QuoteTextView->setText(QStringLiteral("edited"));
    reader.ShareButtonTapped();
    auto* sheet = qobject_cast<ActivityViewController*>(reader.presentedViewController());
    ASSERT_TRUE(sheet);
    EXPECT_EQ(std::get<QString>(sheet->items().at(0)), "Topic: T\n\nedited");
    EXPECT_EQ(sheet->excludedActivityTypes(),
              std::vector({ActivityType::AirDrop, ActivityType::AddToReadingList}));
    reader.viewWillDisappear();
    detail->viewWillAppear();
    EXPECT_EQ(detail->QuoteTextView->text(), "edited");
    EXPECT_EQ(application.all<Event>().front()->quote(), QStringLiteral("text"));
}

} // namespace

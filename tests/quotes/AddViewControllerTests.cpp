#include "quotes/AddViewController.h"
#include "support/TestApplication.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

class AddQuote : public testing::Test {
protected:
    void SetUp() override {
        application.environment.now = [this] { return now; };
    }

    AddViewController& load(const char* openedBy = "Menu") {
        application.selection.callingScreen = QLatin1String(openedBy);
        form = std::make_unique<AddViewController>(application.delegate);
        segues = &recordSegues(*form);
        form->viewDidLoad();
        form->viewWillAppear();
        return *form;
    }

    void fill() {
        form->SourceTextField->setText(QStringLiteral("S"));
        form->CategoryTextField->setText(QStringLiteral("T"));
        form->AuthorTextField->setText(QStringLiteral("A"));
        form->DateAddedTextField->beginEditing();
        form->dismissKeyboard();
    }

    template <class Record>
    void addName(void (Record::*setName)(const std::optional<QString>&), const char* name) {
        (application.context().insert<Record>()->*setName)(QString::fromUtf8(name));
        application.delegate.saveContext();
    }

    QStringList rows(const PickerView& picker) {
        QStringList titles;
        for (int row = 0; row < form->form.numberOfRowsInComponent(picker, 0); ++row)
            titles.append(form->form.titleForRow(picker, row, 0));
        return titles;
    }

    Date now{1'614'600'000'000ms}; // 2021-03-01 12:00 UTC
    TestApplication application;
    std::unique_ptr<AddViewController> form;
    QStringList* segues = nullptr;
};

TEST_F(AddQuote, PicksNamesInOrderAndTakesTypedOnes) {
    addName(&Topics::setTopic, "hope");
    addName(&Topics::setTopic, "Love");
    addName(&Authors::setName, "Ann");
    application.context().insert<Authors>();
    load();
    EXPECT_EQ(rows(*form->form.TopicPickerView), QStringList({"Love", "hope"}));
    EXPECT_EQ(rows(*form->form.AuthorPickerView), QStringList({"", "Ann"}));
    EXPECT_EQ(form->CategoryTextField->inputView(), form->form.TopicPickerView);
    EXPECT_EQ(form->SourceTextField->inputView(), form->form.SourcePickerView);
    form->form.TopicPickerView->choose(1);
    form->form.AuthorPickerView->choose(1);
    EXPECT_EQ(form->CategoryTextField->text(), "hope");
    EXPECT_EQ(form->AuthorTextField->text(), "Ann");
    EXPECT_EQ(form->SourceTextField->text(), "");
    const PickerLabel label = form->form.viewForRow(*form->form.TopicPickerView, 0, 0);
    EXPECT_EQ(label.fontSize, 16);
    EXPECT_TRUE(label.bold && label.centered);
    PickerView stranger(nullptr, {});
    EXPECT_EQ(form->form.numberOfRowsInComponent(stranger, 0), 0);
}

TEST_F(AddQuote, RefetchesTopicsAloneWhenItAppearsAgain) {
    load();
    addName(&Topics::setTopic, "new");
    addName(&Sources::setName, "new");
    addName(&Authors::setName, "new");
    form->viewWillAppear();
    EXPECT_EQ(rows(*form->form.TopicPickerView), QStringList("new"));
    EXPECT_EQ(rows(*form->form.SourcePickerView), QStringList());
    EXPECT_EQ(rows(*form->form.AuthorPickerView), QStringList());
}

TEST_F(AddQuote, SavesAllFieldsAndClearsThem) {
    load();
    now += 1h;
    fill();
    EXPECT_EQ(form->DateAddedTextField->text(), "March 1, 2021");
    now += 1h;
    form->SaveQuote();
    const auto quotes = application.all<Event>();
    ASSERT_EQ(quotes.size(), 1);
    EXPECT_EQ(quotes[0]->source(), QStringLiteral("S"));
    EXPECT_EQ(quotes[0]->category(), QStringLiteral("T"));
    EXPECT_EQ(quotes[0]->author(), QStringLiteral("A"));
    EXPECT_EQ(quotes[0]->quote(), QStringLiteral(""));
    EXPECT_EQ(quotes[0]->timestamp(), now - 1h); // the moment the date field was entered
    EXPECT_FALSE(application.context().hasChanges());
    EXPECT_EQ(form->AuthorTextField->text(), "");
    EXPECT_EQ(form->DateAddedTextField->text(), "");
    EXPECT_EQ(*segues, QStringList("unwindToMainMenu"));
}

TEST_F(AddQuote, HasChangesOfTheUserAlone) {
    load();
    form->DateAddedTextField->beginEditing();
    EXPECT_NE(form->DateAddedTextField->text(), "");
    EXPECT_FALSE(form->hasUnsavedChanges());
    form->form.doneClick();
    EXPECT_TRUE(form->hasUnsavedChanges());
    fill();
    form->SaveQuote();
    EXPECT_FALSE(form->hasUnsavedChanges());
    form->QuoteTextView->setText(QStringLiteral("Q"));
    EXPECT_TRUE(form->hasUnsavedChanges());
}

TEST_F(AddQuote, SavesNothingWhileAFieldIsMissing) {
    load();
    for (TextField* missing : {form->SourceTextField, form->DateAddedTextField,
                               form->CategoryTextField, form->AuthorTextField}) {
        fill();
        missing->setText(QString());
        form->SaveQuote();
        AlertController* alert = presentedAlert(*form);
        ASSERT_TRUE(alert) << qPrintable(missing->accessibilityLabel());
        EXPECT_EQ(alert->title(), "Insert New Record Canceled");
        EXPECT_EQ(alert->message(), "Source, Category, Author or Date Not Entered");
        EXPECT_EQ(alert->actionTitles(), QStringList("OK"));
        alert->choose(0);
    }
    EXPECT_EQ(form->SourceTextField->text(), "S");
    EXPECT_TRUE(application.all<Event>().empty());
    EXPECT_TRUE(segues->isEmpty());
}

TEST_F(AddQuote, ReturnsToTheScreenThatOpenedIt) {
    load("Master");
    application.selection.callingScreen = QStringLiteral("NewAuthor"); // a list in between
    fill();
    form->SaveQuote();
    EXPECT_EQ(*segues, QStringList("unwindToMainList"));
    load("elsewhere");
    fill();
    form->SaveQuote();
    EXPECT_TRUE(segues->isEmpty());
    EXPECT_EQ(application.said, QStringList({"Saved", "Saved"}));
    EXPECT_EQ(form->SourceTextField->text(), "");
    EXPECT_EQ(application.all<Event>().size(), 2);
}

TEST_F(AddQuote, TodayShowsTodayButKeepsThePickedDate) {
    load();
    form->DateAddedTextField->beginEditing();
    const auto items = form->DateAddedTextField->inputAccessoryView()->items();
    ASSERT_EQ(items.size(), 3);
    const auto press = [&](int item) { qobject_cast<BarButtonItem*>(items.at(item))->press(); };
    EXPECT_EQ(items.at(0)->property("title"), "Today");
    EXPECT_TRUE(items.at(1)->property("flexibleSpace").toBool());
    EXPECT_EQ(items.at(2)->property("title"), "Done");

    form->form.datePickerView->choose(2020, 2, 29);
    EXPECT_EQ(form->DateAddedTextField->text(), "March 1, 2021");
    press(0);
    EXPECT_FALSE(form->DateAddedTextField->isEditing());
    EXPECT_EQ(form->DateAddedTextField->text(), "March 1, 2021");
    EXPECT_EQ(form->form.QuoteDate, Date(1'582'977'600'000ms)); // 2020-02-29 12:00 UTC
    form->DateAddedTextField->beginEditing(); // the picker was moved: it stays there
    EXPECT_EQ(form->DateAddedTextField->text(), "February 29, 2020");
    form->form.datePickerView->choose(2020, 3, 1);
    press(2);
    EXPECT_EQ(form->DateAddedTextField->text(), "March 1, 2020");
    EXPECT_FALSE(form->DateAddedTextField->isEditing());
}

TEST_F(AddQuote, TakesATypedDateAndRefusesWhatIsNone) {
    load();
    fill();
    form->DateAddedTextField->beginEditing();
    for (const char* text : {"March 3, 2001", "Mar 3, 2001"}) {
        form->DateAddedTextField->enter(QStringLiteral("March 4, 2002"));
        form->DateAddedTextField->enter(QLatin1String(text));
        EXPECT_EQ(form->form.QuoteDate, Date(983'620'800'000ms)) << text; // at the time of day
        EXPECT_EQ(form->form.datePickerView->date(), form->form.QuoteDate);
        EXPECT_EQ(form->DateAddedTextField->text(), text);
    }
    form->DateAddedTextField->enter(QStringLiteral("3rd of March"));
    form->SaveQuote();
    ASSERT_TRUE(presentedAlert(*form));
    EXPECT_EQ(presentedAlert(*form)->message(), "The date cannot be read: \"3rd of March\"");
    EXPECT_TRUE(application.all<Event>().empty());
    presentedAlert(*form)->choose(0);

    form->DateAddedTextField->beginEditing();
    form->form.datePickerView->choose(2020, 2, 29);
    form->DateAddedTextField->pressReturn(); // as "Done" does
    EXPECT_FALSE(form->DateAddedTextField->isEditing());
    EXPECT_EQ(form->DateAddedTextField->text(), "February 29, 2020");
    form->SaveQuote();
    EXPECT_EQ(application.all<Event>().at(0)->timestamp(), Date(1'582'977'600'000ms));
}

TEST_F(AddQuote, TakesTheDatePickersStyleFromTheSettings) {
    load();
    const auto style = [&](const QStringList& wanted, SystemVersion version) {
        for (const char* key : {"UseDateWheel", "UseDateCompact", "UseDateInline"})
            application.userDefaults.setBool(QLatin1String(key),
                                             wanted.contains(QLatin1String(key)));
        application.environment.systemVersion = version;
        form->DateAddedTextField->endEditing();
        form->DateAddedTextField->beginEditing();
        return form->form.datePickerView->style();
    };
    form->DateAddedTextField->beginEditing();
    EXPECT_EQ(form->form.datePickerView->style(), DatePicker::Automatic);
    EXPECT_EQ(style({"UseDateWheel"}, {17, 0}), DatePicker::Wheels);
    EXPECT_EQ(style({"UseDateWheel", "UseDateCompact"}, {17, 0}), DatePicker::Compact);
    EXPECT_EQ(style({"UseDateWheel", "UseDateCompact", "UseDateInline"}, {17, 0}),
              DatePicker::Inline);
    EXPECT_EQ(style({"UseDateWheel", "UseDateInline"}, {13, 4}), DatePicker::Wheels);
    EXPECT_EQ(style({"UseDateWheel", "UseDateInline"}, {13, 3}), DatePicker::Automatic);
}

TEST_F(AddQuote, KeepsTheTextClearOfTheKeyboard) {
    load();
    Q_EMIT application.keyboard.willChangeFrame(216);
    EXPECT_EQ(form->QuoteTextView->bottomInset(), 216);
    Q_EMIT application.keyboard.willHide();
    EXPECT_EQ(form->QuoteTextView->bottomInset(), 0);
}

} // namespace

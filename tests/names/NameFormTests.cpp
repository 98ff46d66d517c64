#include "names/NameForms.h"
#include "support/TestApplication.h"

#include <gtest/gtest.h>

namespace {

class NameForms : public testing::Test {
protected:
    /** Saves with nothing entered, and returns what the alert says. */
    static QString alertOf(ViewController& form, TextField& field,
                           const std::function<void()>& save) {
        form.loadViewIfNeeded();
        field.setText(QString());
        save();
        const AlertController* alert = presentedAlert(form);
        if (!alert)
            return {};
        const QString text = alert->title() + QStringLiteral(": ") + alert->message();
        EXPECT_EQ(alert->actionTitles(), QStringList("OK"));
        form.dismiss();
        return text;
    }

    TestApplication application;
};

TEST_F(NameForms, RefuseNoNameInTheirOwnWords) {
    AddAuthorViewController addAuthor(application.delegate);
    AddSourceViewController addSource(application.delegate);
    TopicViewController addTopic(application.delegate);
    EditAuthorViewController editAuthor(application.delegate);
    EditSourceViewController editSource(application.delegate);
    EditTopicViewController editTopic(application.delegate);
    EXPECT_EQ(alertOf(addAuthor, *addAuthor.AuthorTextField, [&] { addAuthor.SaveAuthor(); }),
              "Insert New Author Canceled: Author Not Entered");
    EXPECT_EQ(alertOf(addSource, *addSource.SourceTextField, [&] { addSource.SaveSource(); }),
              "Insert New Source Canceled: Source Not Entered");
    EXPECT_EQ(alertOf(addTopic, *addTopic.TopicTextField, [&] { addTopic.SaveButton->press(); }),
              "Insert New Topic Canceled: Topic Not Entered");
    EXPECT_EQ(alertOf(editAuthor, *editAuthor.AuthorTextField, [&] { editAuthor.SaveAuthor(); }),
              "Edit Author Canceled: Author Not Entered");
    EXPECT_EQ(alertOf(editSource, *editSource.SourceTextField, [&] { editSource.SaveSource(); }),
              "Edit Source Canceled: Source Not Entered");
    EXPECT_EQ(alertOf(editTopic, *editTopic.TopicTextField, [&] { editTopic.SaveButtonTapped(); }),
              "Edit Topic Canceled: Topic Not Entered");
    EXPECT_TRUE(application.all<Authors>().empty() && application.all<Topics>().empty());
}

TEST_F(NameForms, AddWhatWasTypedAsItIs) {
    const QString longName(10000, QLatin1Char('x'));
    for (const QString& name : {QStringLiteral("  "), QStringLiteral("Smith"),
                                QStringLiteral("Smith"), QStringLiteral("a\nb"), longName}) {
        AddAuthorViewController form(application.delegate);
        const QStringList& segues = recordSegues(form);
        form.loadViewIfNeeded();
        EXPECT_EQ(form.AuthorTextField->text(), "");
        EXPECT_EQ(form.AuthorTextField->cornerRadius(), 5);
        form.AuthorTextField->setText(name);
        form.SaveAuthor();
        EXPECT_EQ(segues, QStringList("unwindToAuthorList"));
    }
    EXPECT_EQ(application.names(&Authors::name),
              QStringList({"  ", "Smith", "Smith", "a\nb", longName}));
    EXPECT_FALSE(application.context().hasChanges());
}

TEST_F(NameForms, OfANewTopicBeginWithTheKeyboard) {
    TopicViewController form(application.delegate);
    form.loadViewIfNeeded();
    EXPECT_EQ(form.title(), "Add Topic");
    EXPECT_TRUE(form.TopicTextField->isEditing());
    EXPECT_EQ(form.SaveButton->cornerRadius(), 10);
    form.touchesBegan();
    EXPECT_FALSE(form.TopicTextField->isEditing());
}

TEST_F(NameForms, RenameTheFirstMatchAndNoQuote) {
    application.addQuote({.source = "Smith"});
    for (const char* name : {"smith", "Smith", "Smith"})
        application.context().insert<Sources>()->setName(QLatin1String(name));
    application.selection.chosenSourceName = QStringLiteral("Smith");
    EditSourceViewController form(application.delegate);
    const QStringList& segues = recordSegues(form);
    form.loadViewIfNeeded();
    EXPECT_EQ(form.SourceTextField->text(), "Smith");
    form.SourceTextField->setText(QStringLiteral("Smyth"));
    form.SaveSource();
    EXPECT_EQ(application.names(&Sources::name), QStringList({"smith", "Smyth", "Smith"}));
    EXPECT_EQ(form.edit.ResultsCount, 2);
    EXPECT_EQ(application.all<Event>().front()->source(), "Smith");
    EXPECT_EQ(segues, QStringList("unwindToSourceList"));
    EXPECT_FALSE(application.context().hasChanges());
}

TEST_F(NameForms, SayWhenThereIsNothingToRename) {
    // The composed letter is another name than the decomposed one.
    application.context().insert<Topics>()->setTopic(QStringLiteral("\u00e9"));
    application.selection.chosenTopicName = QStringLiteral("e\u0301");
    EditTopicViewController form(application.delegate);
    const QStringList& segues = recordSegues(form);
    form.loadViewIfNeeded();
    EXPECT_EQ(form.title(), "Edit Topic");
    form.TopicTextField->setText(QStringLiteral("new"));
    form.SaveButtonTapped();
    ASSERT_TRUE(presentedAlert(form));
    EXPECT_EQ(presentedAlert(form)->title(), "Edit Topic Canceled");
    EXPECT_EQ(presentedAlert(form)->message(), "\"e\u0301\" is no longer in the list");
    EXPECT_EQ(application.names(&Topics::topic), QStringList("\u00e9"));
    EXPECT_EQ(segues, QStringList());
}

} // namespace

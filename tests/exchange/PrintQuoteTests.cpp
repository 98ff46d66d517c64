#include "exchange/PrintQuoteViewController.h"
#include "support/TestApplication.h"

#include <gtest/gtest.h>

namespace {

class PrintQuotes : public testing::Test {
protected:
    PrintQuotes() {
        application.addQuote({.author = "A", .category = "U", .source = "S", .quote = "second"});
        application.addQuote({.author = "A", .category = "T", .source = "S", .quote = "first"});
        application.addQuote({.author = "A", .category = "", .source = "", .quote = ""});
        application.addQuote({.author = "", .category = "T", .source = "S", .quote = "x\ny"});
        application.addQuote({.author = "a", .category = "t", .source = "s", .quote = "other"});
        application.addQuote({.category = "T"});
        application.selection.selectedAuthor = QStringLiteral("A");
        application.selection.selectedSource = QStringLiteral("S");
        application.selection.selectedTopic = QStringLiteral("T");
    }

    /** The text that the screen makes when it is opened by another. */
    QString textFrom(const char* callingScreen) {
        application.selection.callingScreen = QLatin1String(callingScreen);
        screen = std::make_unique<PrintQuoteViewController>(application.delegate);
        screen->viewDidLoad();
        EXPECT_EQ(screen->FileTextView->text(), "");
        // What is looked at in another tab meanwhile changes nothing.
        application.selection.callingScreen = QStringLiteral("SourceBreakdown");
        screen->CreateFileButton->press();
        return screen->FileTextView->text();
    }

    TestApplication application;
    std::unique_ptr<PrintQuoteViewController> screen;
};

TEST_F(PrintQuotes, HaveABlockForEachQuoteOfTheGroup) {
    EXPECT_EQ(textFrom("AuthorBreakdown"),
              "Event Filtered by Author\n\n"
              "Author: A - Source:  - Quote:  - \n\n"
              "Author: A - Source: S - Topic: T - Quote: first - \n\n"
              "Author: A - Source: S - Topic: U - Quote: second - \n\n");
    EXPECT_EQ(textFrom("SourceBreakdown"),
              "Event Filtered by Source\n\n"
              "Source: S - Author:  - Topic: T - Quote: x\ny - \n\n"
              "Source: S - Author: A - Topic: U - Quote: second - \n\n"
              "Source: S - Author: A - Topic: T - Quote: first - \n\n");
    EXPECT_EQ(textFrom("TopicBreakdown"), "Event Filtered by Topic\n\n"
                                          "Topic: T - \n\n"
                                          "Topic: T - Source: S - Quote: x\ny\n\n"
                                          "Topic: T - Source: S - Author: A - Quote: first\n\n");
    application.selection.selectedTopic = QStringLiteral("no quote has it");
    EXPECT_EQ(textFrom("TopicBreakdown"), "Event Filtered by Topic\n\n");
    for (const char* other : {"Master", "NewAuthor", ""}) {
        EXPECT_EQ(textFrom(other), "") << other;
        EXPECT_TRUE(screen->QuoteList.empty());
    }
}

TEST_F(PrintQuotes, ArePrintedWithTheirLineFeedsAsMarkup) {
    application.selection.selectedTopic = QStringLiteral("t");
    textFrom("TopicBreakdown");
    ASSERT_EQ(application.platform.printed.size(), 1);
    screen->PrintButton->press();
    ASSERT_EQ(application.platform.printed.size(), 2);
    for (const PrintJob& job : application.platform.printed) {
        EXPECT_EQ(job.markup, "Event Filtered by Topic<br /><br />"
                              "Topic: t - Source: s - Author: a - Quote: other<br /><br />");
        EXPECT_EQ(job.insets, 72);
    }
    textFrom("Menu");
    screen->PrintButton->press();
    EXPECT_EQ(application.platform.printed.size(), 2) << "nothing is printed of no text";
}

TEST_F(PrintQuotes, AreSharedWhereTextsCanBeSent) {
    const QString text = textFrom("AuthorBreakdown");
    screen->EmailButton->press();
    auto* sheet = qobject_cast<ActivityViewController*>(screen->presentedViewController());
    ASSERT_TRUE(sheet);
    EXPECT_EQ(sheet->activityTitles(),
              QStringList({"Copy", "Message", "Mail", "Print", "Save to Files"}));
    sheet->choose(0);
    EXPECT_EQ(application.platform.copied, QStringList(text));

    application.platform.sendsText = false;
    screen->EmailButton->press();
    EXPECT_EQ(screen->presentedViewController(), nullptr);
    application.mainQueue.runAll();
    AlertController* alert = presentedAlert(*screen);
    ASSERT_TRUE(alert);
    EXPECT_EQ(alert->title(), "Can't Send Text Message");
    EXPECT_EQ(alert->message(), "Your device is not able to send text messages.");
    screen->viewDidDisappear();
    EXPECT_EQ(screen->presentedViewController(), nullptr);
}

} // namespace

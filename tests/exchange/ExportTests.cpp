#include "exchange/ExportViewController.h"
#include "support/TestApplication.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace {

class Export : public testing::Test {
protected:
    Export() { screen->viewDidLoad(); }

    void addTopic(const std::optional<QString>& name) {
        application.context().insert<Topics>()->setTopic(name);
        EXPECT_FALSE(application.context().save());
    }

    /** Runs the step that was posted first, whatever its delay. */
    double runNextStep() {
        const auto [seconds, work] = application.mainQueue.waiting.front();
        application.mainQueue.waiting.erase(application.mainQueue.waiting.begin());
        work();
        return seconds;
    }

    ActivityViewController* shareSheet() {
        return qobject_cast<ActivityViewController*>(screen->presentedViewController());
    }

    QString path() const {
        return application.folder.filePath(QStringLiteral("temporary/QuoteCollection.csv"));
    }

    QByteArray fileContent() const {
        QFile file(path());
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }

    TestApplication application;
    std::unique_ptr<ExportViewController> screen =
        std::make_unique<ExportViewController>(application.delegate);
};

const QByteArray emptyCollection = "[QUOTECOLLECTION]\n[TOPICCOLLECTION]\n";

TEST_F(Export, IsReadyToCreateTheFile) {
    EXPECT_EQ(screen->title(), "Export Quotes");
    EXPECT_TRUE(screen->ExportButton->isEnabled());
    EXPECT_FALSE(screen->SaveButton->isEnabled());
    EXPECT_FALSE(screen->EmailButton->isEnabled());
    EXPECT_TRUE(screen->activityIndicator->isHidden());
    EXPECT_EQ(screen->activityIndicator->style(), ActivityIndicatorView::Large);
    EXPECT_EQ(screen->progress.totalUnitCount, 0);
    EXPECT_EQ(screen->HelpTextView->text(),
              "Step 1: Create the Export File\n"
              "Step 2: Option 1: Click 'Save To Files' button\n"
              "               Option 2: Click the Email File button to email the file to yourself "
              "and then from your email save the file to your iCloud Drive. There are size limits "
              "to email attachments for most carriers.");
    EXPECT_EQ(fatalMessageOf([&] { screen->SaveToFiles(); }),
              "A collection was to be saved before it was made");

    application.environment.systemVersion = {12, 4};
    screen->viewDidLoad();
    EXPECT_EQ(screen->activityIndicator->style(), ActivityIndicatorView::Grey);
}

TEST_F(Export, SortsByAuthorTopicSourceAndKeepsTheOrderOfEquals) {
    application.addQuote({.author = "b", .category = "T", .source = "S", .quote = "6"});
    application.addQuote({.author = "B", .category = "T", .source = "S", .quote = "3"});
    application.addQuote({.author = "B", .category = "T", .source = "S", .quote = "4"});
    application.addQuote({.author = "B", .category = "T", .source = "R", .quote = "2"});
    application.addQuote({.author = "B", .category = "U", .source = "A", .quote = "5"});
    // By code points, not by UTF-16 units.
    application.addQuote({.author = "\U0001F600", .category = "T", .source = "S", .quote = "8"});
    application.addQuote({.author = "\uFF21", .category = "T", .source = "S", .quote = "7"});
    application.addQuote({.category = "T", .source = "S", .quote = "1"});
    for (const char* topic : {"b", "a", "B", "b"})
        addTopic(QString::fromLatin1(topic));
    addTopic(std::nullopt);
    screen->ExportButton->press();
    EXPECT_EQ(screen->ExportTextView->text(),
              QString::fromUtf8("[QUOTECOLLECTION]\n"
                                "^T^S^^1\nB^T^R^^2\nB^T^S^^3\nB^T^S^^4\nB^U^A^^5\nb^T^S^^6\n"
                                "\uFF21^T^S^^7\n\U0001F600^T^S^^8\n"
                                "[TOPICCOLLECTION]\n\nB\na\nb\nb\n"));
}

TEST_F(Export, PostsItsProgressThenTheSpinnersEndThenTheAlert) {
    for (const char* author : {"A", "B"})
        application.addQuote({.author = author, .source = "S"});
    addTopic(QStringLiteral("T"));
    screen->ProgressView->setProgress(0.9, false);
    application.mainQueue.runAll();
    screen->ExportButton->press();

    // All is done before the first step runs.
    EXPECT_FALSE(screen->ExportButton->isEnabled());
    EXPECT_TRUE(screen->SaveButton->isEnabled());
    EXPECT_TRUE(screen->EmailButton->isEnabled());
    EXPECT_EQ(*screen->DataString, screen->ExportTextView->text().toUtf8());
    EXPECT_TRUE(screen->activityIndicator->isAnimating());
    EXPECT_EQ(screen->ProgressView->progress(), 0);

    screen->progress.totalUnitCount = 4; // so that single steps show
    for (const double shown : {0.25, 0.5, 0.5}) {
        EXPECT_EQ(runNextStep(), 0);
        EXPECT_EQ(screen->ProgressView->progress(), shown);
        EXPECT_TRUE(screen->ProgressView->isAnimated());
    }
    EXPECT_TRUE(screen->activityIndicator->isAnimating());
    EXPECT_EQ(runNextStep(), 1.0);
    AlertController* alert = presentedAlert(*screen);
    ASSERT_TRUE(alert);
    EXPECT_EQ(alert->title(), "Data Export File");
    EXPECT_EQ(alert->message(), "Process Complete - File Ready to Save To Files or Email");
    EXPECT_EQ(alert->actionTitles(), QStringList("OK"));
    EXPECT_EQ(runNextStep(), 0.0001);
    EXPECT_TRUE(screen->activityIndicator->isHidden());
    EXPECT_TRUE(application.mainQueue.waiting.empty());

    screen->ExportButton->press();
    EXPECT_TRUE(application.mainQueue.waiting.empty()) << "one visit exports once";
}

TEST_F(Export, OfAnEmptyStoreHasBothMarkersAndTheAlert) {
    screen->ExportButton->press();
    EXPECT_EQ(screen->ExportTextView->text().toUtf8(), emptyCollection);
    application.mainQueue.runAll();
    EXPECT_TRUE(presentedAlert(*screen));
}

TEST_F(Export, OfAScreenThatWasLeftIsForgotten) {
    application.addQuote({.source = "S"});
    screen->ExportButton->press();
    screen.reset();
    application.mainQueue.runAll();
}

TEST_F(Export, SavesAFileThroughASheetThatOffersNothingElse) {
    application.addQuote({.author = "Ann", .category = "T", .source = "S", .quote = "é\r\n😀"});
    screen->ExportButton->press();
    QFile::link(application.folder.filePath(QStringLiteral("planted")), path());
    screen->SaveButton->press();
    ASSERT_TRUE(shareSheet());
    EXPECT_EQ(shareSheet()->activityTitles(), QStringList("Save to Files"));
    EXPECT_EQ(shareSheet()->excludedActivityTypes(),
              (std::vector{ActivityType::AirDrop, ActivityType::AddToReadingList,
                           ActivityType::Mail, ActivityType::Message, ActivityType::PostToFacebook,
                           ActivityType::PostToTwitter, ActivityType::MarkupAsPDF,
                           ActivityType::CopyToPasteboard, ActivityType::Print}));
    shareSheet()->choose(0);
    ASSERT_EQ(application.platform.saved.size(), 1);
    ASSERT_EQ(application.platform.saved[0].size(), 1);
    EXPECT_EQ(std::get<SharedFile>(application.platform.saved[0][0]).path, path());
    EXPECT_EQ(fileContent(), "[QUOTECOLLECTION]\nAnn^T^S^^é\r@#@😀\n[TOPICCOLLECTION]\n");
    EXPECT_FALSE(QFileInfo(path()).isSymLink());
    EXPECT_FALSE(QFile::exists(application.folder.filePath(QStringLiteral("planted"))));

    // A place that cannot be written is only logged.
    QDir(QFileInfo(path()).path()).removeRecursively();
    screen->SaveButton->press();
    EXPECT_TRUE(shareSheet());
}

TEST_F(Export, MailsTheFile) {
    screen->ExportButton->press();
    screen->EmailButton->press();
    screen->EmailButton->press();
    ASSERT_EQ(application.platform.mails.size(), 2);
    const MailMessage& mail = application.platform.mails[1];
    EXPECT_TRUE(mail.recipients.isEmpty());
    EXPECT_EQ(mail.subject, "Quote Collection Update Text File");
    EXPECT_EQ(mail.body, "Attachment: Quote Collection Text File");
    EXPECT_FALSE(mail.isHtml);
    ASSERT_EQ(mail.attachments.size(), 1);
    EXPECT_EQ(mail.attachments[0].data, emptyCollection);
    EXPECT_EQ(mail.attachments[0].mimeType, "csv");
    EXPECT_EQ(mail.attachments[0].fileName, "QuoteCollection.csv");
    EXPECT_EQ(screen->presentedViewController(), nullptr);
}

TEST_F(Export, WithoutMailTellsSoAndHasWrittenTheFile) {
    application.platform.sendsMail = false;
    screen->ExportButton->press();
    screen->EmailButton->press();
    AlertController* alert = presentedAlert(*screen);
    ASSERT_TRUE(alert);
    EXPECT_EQ(alert->title(), "Sending Email");
    EXPECT_EQ(alert->message(), "Email not Setup or Unavailable");
    EXPECT_EQ(alert->actionTitles(), QStringList("OK"));
    EXPECT_EQ(fileContent(), emptyCollection);
    EXPECT_TRUE(application.platform.mails.empty());
}

TEST_F(Export, MailsNothingWithoutAFileOfItsOwn) {
    screen->ExportButton->press();
    // A folder at the file's place can be neither replaced nor read.
    QDir().mkpath(path());
    screen->EmailButton->press();
    EXPECT_TRUE(application.platform.mails.empty());
    EXPECT_EQ(screen->presentedViewController(), nullptr);
    EXPECT_EQ(screen->ExportTextView->text().toUtf8(), emptyCollection);

    QDir().rmdir(path());
    screen->EmailButton->press();
    EXPECT_EQ(application.platform.mails.size(), 1);
}

TEST_F(Export, OfAQuoteWithoutASourceEndsTheProgramAndLosesNothing) {
    application.addQuote({.author = "A", .category = "T", .source = "", .quote = "fine"});
    application.addQuote({.author = "B", .category = "T", .quote = "stray"});
    EXPECT_EQ(fatalMessageOf([&] { screen->ExportButton->press(); }),
              "A quote without a source cannot be exported: \"stray\" by \"B\" on \"T\"");
    AppDelegate again(application.delegate.services);
    const auto quotes =
        again.persistentContainer().viewContext().fetch(Event::fetchRequest()).records;
    ASSERT_EQ(quotes.size(), 2);
    EXPECT_EQ(quotes[0]->source(), "");
    EXPECT_EQ(quotes[1]->source(), std::nullopt);
}

} // namespace

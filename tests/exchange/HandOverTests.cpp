#include "exchange/ExportViewController.h"
#include "exchange/PrintQuoteViewController.h"
#include "platform/DesktopPlatform.h"
#include "platform/Print.h"
#include "support/Desktop.h"
#include "support/MailPortal.h"
#include "support/TestApplication.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QPrintDialog>
#include <QRegularExpression>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QByteArray collection = "[QUOTECOLLECTION]\n"
                              "Лев^T^S^2021-03-01 12:00:00 +0000^\"one\"@#@😀 é\n"
                              "[TOPICCOLLECTION]\n"
                              "T\n";

/** The export screen on a desktop, with its file created. */
class HandOver : public testing::Test {
protected:
    HandOver() {
        Desktop::clearRecords();
        write(Desktop::path("data/applications/mail.desktop"),
              "[Desktop Entry]\nType=Application\nName=Mail\nExec=xdg-email %u\n"
              "MimeType=x-scheme-handler/mailto;\n");
        write(Desktop::path("config/mimeapps.list"),
              "[Default Applications]\nx-scheme-handler/mailto=mail.desktop;\n");
        application.addQuote({"Лев", "T", "S", "\"one\"\n😀 é", application.environment.now()});
        application.context().insert<Topics>()->setTopic(QStringLiteral("T"));
        screen.viewDidLoad();
        screen.ExportButton->press();
    }

    void saveTo(const QString& path) {
        screen.SaveButton->press();
        auto* sheet = qobject_cast<ActivityViewController*>(screen.presentedViewController());
        ASSERT_TRUE(sheet);
        ASSERT_EQ(sheet->activityTitles(), QStringList("Save to Files"));
        sheet->choose(0);
        auto* dialog = shownDialog<QFileDialog>();
        ASSERT_TRUE(dialog);
        EXPECT_EQ(QFileInfo(dialog->selectedFiles().value(0)).fileName(), "QuoteCollection.csv");
        dialog->selectFile(path);
        static_cast<QDialog*>(dialog)->done(QDialog::Accepted);
    }

    DesktopPlatform platform;
    TestApplication application{&platform};
    ExportViewController screen{application.delegate};
};

TEST_F(HandOver, ACollectionIsSavedWhereTheUserChooses) {
    const QString chosen = application.folder.filePath(QStringLiteral("Chosen é.csv"));
    saveTo(chosen);
    EXPECT_EQ(contents(chosen), collection);
    saveTo(application.folder.filePath(QStringLiteral("gone/Chosen.csv")));
    ASSERT_TRUE(presentedAlert(screen));
    EXPECT_TRUE(presentedAlert(screen)->message().contains(QStringLiteral("gone/Chosen.csv")));
}

TEST_F(HandOver, ACollectionIsMailedByXdgEmail) {
    ASSERT_TRUE(waitFor([this] { return platform.canSendMail(); }));
    screen.EmailButton->press();
    const auto call = Desktop::callOf("xdg-email");
    ASSERT_TRUE(call && call->size() == 3);
    EXPECT_EQ(call->at(0), "mailto:?subject=Quote%20Collection%20Update%20Text%20File"
                           "&body=Attachment%3A%20Quote%20Collection%20Text%20File");
    EXPECT_EQ(call->at(1), "--attach");
    EXPECT_EQ(QFileInfo(call->at(2)).fileName(), "QuoteCollection.csv");
    EXPECT_EQ(contents(call->at(2)), collection);
}

TEST_F(HandOver, ACollectionIsMailedByThePortal) {
    ASSERT_TRUE(waitFor([this] { return platform.canSendMail(); }));
    MailPortal portal(0);
    screen.EmailButton->press();
    ASSERT_TRUE(waitFor([&portal] { return !portal.options.isEmpty(); }));
    EXPECT_EQ(portal.options.value(QStringLiteral("subject")).toString(),
              "Quote Collection Update Text File");
    EXPECT_EQ(portal.attachments, QList<QByteArray>{collection});
    EXPECT_FALSE(Desktop::isCalled("xdg-email"));
}

TEST_F(HandOver, AGroupOfQuotesIsPrintedToAFile) {
    application.selection.callingScreen = QStringLiteral("TopicBreakdown");
    application.selection.selectedTopic = QStringLiteral("T");
    PrintQuoteViewController print(application.delegate);
    print.viewDidLoad();
    print.CreateFileButton->press();
    auto* dialog = shownDialog<QPrintDialog>();
    ASSERT_TRUE(dialog);
    auto* fileName = dialog->findChild<QLineEdit*>(QStringLiteral("filename"));
    ASSERT_TRUE(fileName);
    fileName->setText(application.folder.filePath(QStringLiteral("out.pdf")));
    static_cast<QDialog*>(dialog)->accept();
    EXPECT_TRUE(contents(application.folder.filePath(QStringLiteral("out.pdf")))
                    .value_or(QByteArray())
                    .startsWith("%PDF"));
    EXPECT_EQ(application.said,
              QStringList(QStringLiteral("PDF written to ") +
                          application.folder.filePath(QStringLiteral("out.pdf"))));
}

/** A thousand quotes, some of which would stop a printer that takes them at their word. */
TEST(PrintFile, HoldsEveryQuoteOnA4AndOnLetter) {
    constexpr int count = 1000;
    TestApplication application;
    const QString pipe = application.folder.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QStringList hostile{
        QStringLiteral("<img src=\"file://%1\">").arg(pipe), pipe,
        QStringLiteral("<script>while(true);</script><style>@import url(%1);</style>").arg(pipe),
        QStringLiteral("<link rel=stylesheet href=\"%1\"><b>bold").arg(pipe)};
    {
        SaveGroup group(application.context());
        for (int number = 0; number < count; ++number) {
            Event& quote = *application.context().insert<Event>();
            quote.setAuthor(QStringLiteral("Author%1").arg(number, 4, 10, QLatin1Char('0')));
            quote.setCategory(QStringLiteral("T"));
            quote.setSource(hostile.value(number % 50));
            quote.setQuote(QStringLiteral("Quote%1 ").arg(number).repeated(1 + number % 40));
        }
        ASSERT_FALSE(application.context().save());
    }
    application.selection.callingScreen = QStringLiteral("TopicBreakdown");
    application.selection.selectedTopic = QStringLiteral("T");
    PrintQuoteViewController print(application.delegate);
    print.viewDidLoad();
    print.CreateFileButton->press();
    ASSERT_EQ(application.platform.printed.size(), 1);

    const QString out = application.folder.filePath(QStringLiteral("out.pdf"));
    for (const auto paper : {QPageSize::A4, QPageSize::Letter}) {
        ::alarm(60); // ends a test that waits at the pipe
        ASSERT_FALSE(printToPdf(application.platform.printed[0], out,
                                QPageLayout(QPageSize(paper), QPageLayout::Portrait, {})));
        ::alarm(0);
        const QString text = textOfPdf(out, {QStringLiteral("-raw")}).simplified() + u' ';
        static const QRegularExpression number(QStringLiteral("Author: Author(\\d{4})"));
        int next = 0;
        for (auto matches = number.globalMatch(text); matches.hasNext(); ++next)
            EXPECT_EQ(matches.next().captured(1).toInt(), next);
        EXPECT_EQ(next, count);
        EXPECT_EQ(text.count(QStringLiteral("Quote999 ")), 40);
    }
}

} // namespace

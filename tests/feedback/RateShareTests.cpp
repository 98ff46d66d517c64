#include "feedback/RateShareTableViewController.h"
#include "support/TestApplication.h"
#include "toolkit/SubtitleTableViewCell.h"

#include <gtest/gtest.h>

namespace {

class RateShare : public testing::Test {
protected:
    RateShare() { screen.viewDidLoad(); }

    /** What is shared after a tap on a row, taken from the share sheet by its "Copy". */
    QString shared(int row) {
        screen.tableView()->selectRow(row);
        auto* sheet = qobject_cast<ActivityViewController*>(screen.presentedViewController());
        if (!sheet)
            return QStringLiteral("no share sheet");
        EXPECT_EQ(sheet->excludedActivityTypes().size(), 0);
        sheet->choose(0);
        return application.platform.copied.takeLast();
    }

    /** The alert after a tap on a row, as title and message. */
    QStringList alertOf(int row) {
        screen.tableView()->selectRow(row);
        AlertController* alert = presentedAlert(screen);
        if (!alert)
            return {};
        const QStringList texts{alert->title(), alert->message()};
        EXPECT_EQ(alert->actionTitles(), QStringList("OK"));
        alert->choose(0);
        return texts;
    }

    TestApplication application;
    RateShareTableViewController screen{application.delegate};
};

TEST_F(RateShare, HasFiveRows) {
    EXPECT_EQ(screen.title(), "Rate/Share");
    QStringList rows;
    for (int row = 0; row < screen.numberOfRowsInSection(0); ++row)
        rows.append(qobject_cast<SubtitleTableViewCell*>(screen.cellForRowAtIndexPath(row))
                        ->textLabel->text());
    EXPECT_EQ(rows, QStringList({"Rate Lantern", "Share Lantern", "Share the Website",
                                 "Visit the Website", "Send Feedback"}));
}

TEST_F(RateShare, RatingReplacesTheAddressesQuery) {
    screen.tableView()->selectRow(0);
    screen.productURL = QUrl(QStringLiteral("https://store.lantern.example/id1?action=look&a=b#c"));
    screen.tableView()->selectRow(0);
    screen.productURL = std::nullopt;
    screen.tableView()->selectRow(0);
    screen.tableView()->selectRow(3);
    EXPECT_EQ(application.platform.opened,
              QList<QUrl>(
                  {QUrl(QStringLiteral(
                       "https://store.lantern.example/app/id1000000001?action=write-review")),
                   QUrl(QStringLiteral("https://store.lantern.example/id1?action=write-review#c")),
                   QUrl(QStringLiteral("http://www.lantern.example"))}));
    EXPECT_EQ(screen.tableView()->selectedRow(), -1);
}

TEST_F(RateShare, SharesThePagesWhereTextsCanBeSent) {
    EXPECT_EQ(shared(1), "https://store.lantern.example/app/id1000000001");
    EXPECT_EQ(shared(2), "Click the following link to visit the Lantern App website\n"
                         "http://www.lantern.example");
    application.platform.sendsText = false;
    const QStringList alert{"Can't Send Text Message",
                            "Your Device is not able to send text messages."};
    EXPECT_EQ(alertOf(1), alert);
    EXPECT_EQ(alertOf(2), alert);
}

TEST_F(RateShare, FeedbackIsMailedWhereMailCanBeSent) {
    screen.tableView()->selectRow(4);
    ASSERT_EQ(application.platform.mails.size(), 1);
    const MailMessage& mail = application.platform.mails[0];
    EXPECT_EQ(mail.recipients, QStringList("feedback@lantern.example"));
    EXPECT_EQ(mail.subject, "");
    EXPECT_EQ(mail.body, "<p>Enter your comments about Lantern app below: </p>");
    EXPECT_TRUE(mail.isHtml);
    EXPECT_TRUE(mail.attachments.empty());
    application.platform.sendsMail = false;
    EXPECT_EQ(alertOf(4),
              QStringList({"Can't Send Email", "Your Device is not able to send Email."}));
    EXPECT_EQ(application.platform.mails.size(), 1);
}

TEST_F(RateShare, OtherRowsDoNothing) {
    for (const int row : {5, -1})
        screen.didSelectRowAtIndexPath(row);
    EXPECT_EQ(screen.presentedViewController(), nullptr);
    EXPECT_TRUE(application.platform.opened.isEmpty());
}

} // namespace

#include "platform/DesktopPlatform.h"
#include "platform/Mail.h"
#include "support/Desktop.h"
#include "support/MailPortal.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDir>
#include <QFileInfo>
#include <QUrlQuery>

#include <ctime>
#include <gtest/gtest.h>
#include <memory>
#include <sys/stat.h>
#include <utime.h>

namespace {

// Letters of many scripts, and all that addresses, shells and scripts take for their own.
const QString hardText = QStringLiteral("-n Война 中文 سلام 😀 \\n \"'$(x)` & ? # % + ;\nsecond");

/** The fields of a mailto: or sms: address, percent-encoding undone. */
QString fieldOf(const QString& address, const char* name) {
    const QUrlQuery query(QUrl(address, QUrl::StrictMode));
    return query.queryItemValue(QLatin1String(name), QUrl::FullyDecoded)
        .replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

class LinksAndMail : public testing::Test {
protected:
    LinksAndMail() { Desktop::clearRecords(); }
    ~LinksAndMail() override { Desktop::provideAll(); }

    static MailMessage messageWith(const QByteArray& attachment) {
        return {{QStringLiteral("a@lantern.example")},
                QStringLiteral("Subject & Тема"),
                hardText,
                false,
                {{attachment, QStringLiteral("csv"), QStringLiteral("QuoteCollection.csv")}}};
    }

    std::vector<Outcome> outcomes;
    Answer keep = [this](const Outcome& outcome) { outcomes.push_back(outcome); };
    DesktopPlatform platform;
};

TEST_F(LinksAndMail, TextAndMailCanBeSentWhileAHandlerIsInstalled) {
    EXPECT_FALSE(platform.canSendText());
    EXPECT_FALSE(platform.canSendMail());
    const QString handler = Desktop::path("data/applications/texts.desktop");
    const QString associations = Desktop::path("config/mimeapps.list");
    write(handler, "[Desktop Entry]\nType=Application\nName=Texts\nExec=xdg-open %u\n"
                   "MimeType=x-scheme-handler/sms;\n");
    write(associations, "[Default Applications]\nx-scheme-handler/sms=texts.desktop;\n");
    EXPECT_TRUE(waitFor([this] { return platform.canSendText() && platform.hasMessages(); }));
    EXPECT_FALSE(platform.canSendMail());
    write(associations, "[Default Applications]\nx-scheme-handler/mailto=texts.desktop;\n");
    EXPECT_TRUE(waitFor([this] { return platform.canSendMail() && !platform.hasMessages(); }));
    EXPECT_TRUE(platform.canSendText()) << "by mail";
    QFile::remove(handler); // uninstalled; what names it stays
    EXPECT_TRUE(waitFor([this] { return !platform.canSendMail(); }));
    QFile::remove(associations);
}

TEST_F(LinksAndMail, AddressesOpenWithTheirHandler) {
    const auto answer = [this](const QUrl& address) {
        outcomes.clear();
        platform.open(address, keep);
        EXPECT_TRUE(waitFor([this] { return !outcomes.empty(); }));
        return outcomes.at(0).kind;
    };
    EXPECT_EQ(answer(QUrl(QStringLiteral("https://store.lantern.example/a?action=b&c=ж"))),
              Outcome::Done);
    EXPECT_EQ(Desktop::callOf("xdg-open"),
              QStringList("https://store.lantern.example/a?action=b&c=%D0%B6"));
    Desktop::clearRecords();
    EXPECT_EQ(answer(QUrl()), Outcome::Failed);
    EXPECT_EQ(answer(QUrl(QStringLiteral("--help"))), Outcome::Failed);
    EXPECT_FALSE(Desktop::isCalled("xdg-open"));
    Desktop::provideOnly("xdg-email");
    const QUrl address(QStringLiteral("https://lantern.example"));
    EXPECT_EQ(answer(address), Outcome::NoProgram);
    QDir().mkpath(Desktop::path("only/failing"));
    for (const auto& [status, kind] : {std::pair{3, Outcome::NoProgram}, {4, Outcome::Failed}}) {
        const QString script = Desktop::path("only/failing/xdg-open");
        write(script, "#!/bin/sh\nexit " + QByteArray::number(status));
        QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        Desktop::provideOnly("failing");
        EXPECT_EQ(answer(address), kind);
        EXPECT_EQ(outcomes.at(0).text, "No program opens \"https://lantern.example\".");
    }
}

TEST_F(LinksAndMail, AMessageReachesTheHandlerWhole) {
    platform.message(hardText, keep);
    const auto call = Desktop::callOf("xdg-open");
    ASSERT_TRUE(call && call->size() == 1);
    EXPECT_TRUE(call->constFirst().startsWith(QStringLiteral("sms:?body=")));
    EXPECT_EQ(fieldOf(call->constFirst(), "body"), hardText);
}

TEST_F(LinksAndMail, ThePortalGetsMailWithItsAttachment) {
    MailPortal portal(0);
    platform.mail(messageWith("first"), keep);
    ASSERT_TRUE(waitFor([&portal] { return !portal.options.isEmpty(); }));
    EXPECT_EQ(portal.options.value(QStringLiteral("address")).toString(), "a@lantern.example");
    EXPECT_EQ(portal.options.value(QStringLiteral("subject")).toString(),
              QStringLiteral("Subject & Тема"));
    EXPECT_EQ(portal.options.value(QStringLiteral("body")).toString(), hardText);
    EXPECT_EQ(portal.attachments, QList<QByteArray>{"first"});
    EXPECT_EQ(QFileInfo(portal.attachmentPaths.value(0)).fileName(), "QuoteCollection.csv");
    EXPECT_TRUE(waitFor([this] { return !outcomes.empty(); }));
    EXPECT_EQ(outcomes.at(0).kind, Outcome::Done);
    EXPECT_FALSE(Desktop::isCalled("xdg-email"));
}

TEST_F(LinksAndMail, MailThatTheUserCancelsInThePortalGoesNoFurther) {
    MailPortal portal(1);
    platform.mail(messageWith("x"), keep);
    EXPECT_FALSE(Desktop::isCalled("xdg-email"));
    EXPECT_EQ(outcomes.at(0).kind, Outcome::Cancelled);
    EXPECT_FALSE(portal.options.isEmpty());
}

TEST_F(LinksAndMail, MailThatThePortalCannotOpenGoesToXdgEmail) {
    MailPortal portal(2);
    platform.mail(messageWith("x"), keep);
    EXPECT_TRUE(Desktop::callOf("xdg-email"));
    EXPECT_FALSE(portal.options.isEmpty());
}

TEST_F(LinksAndMail, AttachmentsAreTheirOwnersWhateverTheUmaskAndStayForDays) {
    const mode_t umask = ::umask(0);
    auto program = std::make_unique<DesktopPlatform>();
    program->mail(messageWith("x"), keep);
    const auto call = Desktop::callOf("xdg-email");
    ::umask(umask);
    ASSERT_TRUE(call && call->size() == 3);
    program = std::make_unique<DesktopPlatform>();
    EXPECT_EQ(contents(call->at(2)), "x");
    const QString folder = QFileInfo(call->at(2)).path();
    for (const QString& path : {folder, QFileInfo(folder).path()}) {
        struct stat status {};
        ASSERT_EQ(::stat(QFile::encodeName(path).constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, mode_t(0700)) << path.toStdString();
    }
    const auto eightDaysAgo = std::time(nullptr) - 8 * 24 * 3600;
    const utimbuf times{eightDaysAgo, eightDaysAgo};
    ASSERT_EQ(::utime(QFile::encodeName(folder).constData(), &times), 0);
    program = std::make_unique<DesktopPlatform>();
    EXPECT_FALSE(QFile::exists(folder));
}

TEST_F(LinksAndMail, WithoutAPortalXdgEmailGetsMailWithItsAttachment) {
    platform.mail(messageWith("first"), keep);
    const auto first = Desktop::callOf("xdg-email");
    ASSERT_TRUE(first && first->size() == 3);
    EXPECT_TRUE(first->at(0).startsWith(QStringLiteral("mailto:a@lantern.example?")));
    EXPECT_EQ(fieldOf(first->at(0), "subject"), QStringLiteral("Subject & Тема"));
    EXPECT_EQ(fieldOf(first->at(0), "body"), hardText);
    EXPECT_EQ(first->at(1), "--attach");
    EXPECT_EQ(QFileInfo(first->at(2)).fileName(), "QuoteCollection.csv");
    for (const QString& folder :
         {QFileInfo(first->at(2)).path(), QFileInfo(QFileInfo(first->at(2)).path()).path()})
        EXPECT_EQ(QFile::permissions(folder) & (QFile::ReadGroup | QFile::ReadOther), 0);

    // A second mail of this name, before the first has been read.
    Desktop::clearRecords();
    platform.mail(messageWith("second"), keep);
    const auto second = Desktop::callOf("xdg-email");
    ASSERT_TRUE(second && second->size() == 3);
    EXPECT_EQ(contents(first->at(2)), "first");
    EXPECT_EQ(contents(second->at(2)), "second");
}

TEST_F(LinksAndMail, WithoutAMessageBusMailGoesOnWithoutThePortal) {
    bool fellBack = false;
    new PortalMail(
        messageWith("x"), {}, keep, [&] { fellBack = true; }, nullptr,
        QDBusConnection(QStringLiteral("a bus that is not there")));
    EXPECT_TRUE(waitFor([&] { return fellBack; }));
}

TEST_F(LinksAndMail, TextsTooLongForAnAddressAreAttachedOrRefused) {
    const QString longText = QStringLiteral("Война ").repeated(20'000);
    MailMessage message;
    message.body = longText;
    platform.mail(message, keep);
    const auto call = Desktop::callOf("xdg-email");
    ASSERT_TRUE(call && call->size() == 3);
    EXPECT_EQ(call->at(0), "mailto:");
    EXPECT_EQ(contents(call->at(2)), longText.toUtf8());
    EXPECT_TRUE(waitFor([this] { return !outcomes.empty(); }));
    platform.message(longText, keep);
    EXPECT_FALSE(Desktop::isCalled("xdg-open"));
    EXPECT_EQ(outcomes.back().kind, Outcome::Failed);
    EXPECT_TRUE(outcomes.back().text.contains(QStringLiteral("too long")));
}

TEST_F(LinksAndMail, AnAttachmentsNameLeadsNowhereElse) {
    MailMessage message;
    message.attachments.push_back({"x", {}, QStringLiteral("../../planted")});
    platform.mail(message, keep);
    const auto call = Desktop::callOf("xdg-email");
    ASSERT_TRUE(call && call->size() == 3);
    EXPECT_FALSE(call->at(2).contains(QStringLiteral("..")));
    EXPECT_EQ(contents(call->at(2)), "x");
}

TEST_F(LinksAndMail, WithoutXdgEmailMailOpensAsAnAddress) {
    Desktop::provideOnly("xdg-open");
    MailMessage message;
    message.recipients = {QStringLiteral("a@lantern.example"), QStringLiteral("b?c@d")};
    message.body = QStringLiteral("<p>Enter your &lt;comments&gt;: </p>");
    message.isHtml = true;
    platform.mail(message, keep);
    EXPECT_EQ(Desktop::callOf("xdg-open"), QStringList("mailto:a@lantern.example,b%3Fc@d?body="
                                                       "Enter%20your%20%3Ccomments%3E%3A%20"));
    platform.mail(messageWith("x"), keep);
    EXPECT_TRUE(waitFor([this] { return outcomes.size() == 2; }));
    EXPECT_EQ(outcomes.at(0).text, "");
    EXPECT_TRUE(outcomes.at(1).text.contains(QStringLiteral("no attachment")));
}

} // namespace

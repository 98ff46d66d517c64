#include "Desktop.h"
#include "MailPortal.h"
#include "platform/DesktopPlatform.h"
#include "platform/Mail.h"

#include <QApplication>
#include <QDBusConnection>
#include <QFileInfo>
#include <QMessageBox>
#include <QUrlQuery>

#include <algorithm>
#include <gtest/gtest.h>
#include <sys/stat.h>

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
    EXPECT_TRUE(waitFor([this] { return platform.canSendText(); }));
    EXPECT_FALSE(platform.canSendMail());
    write(associations, "[Default Applications]\nx-scheme-handler/mailto=texts.desktop;\n");
    EXPECT_TRUE(waitFor([this] { return platform.canSendMail() && !platform.canSendText(); }));
    QFile::remove(handler); // uninstalled; what names it stays
    EXPECT_TRUE(waitFor([this] { return !platform.canSendMail(); }));
    QFile::remove(associations);
}

TEST_F(LinksAndMail, AddressesOpenWithTheirHandler) {
    EXPECT_TRUE(
        platform.open(QUrl(QStringLiteral("https://store.lantern.example/a?action=b&c=ж"))));
    EXPECT_EQ(Desktop::callOf("xdg-open"),
              QStringList("https://store.lantern.example/a?action=b&c=%D0%B6"));
    Desktop::clearRecords();
    EXPECT_FALSE(platform.open(QUrl()));
    EXPECT_FALSE(platform.open(QUrl(QStringLiteral("--help"))));
    EXPECT_FALSE(Desktop::isCalled("xdg-open"));
    Desktop::provideOnly("xdg-email");
    EXPECT_FALSE(platform.open(QUrl(QStringLiteral("https://lantern.example"))));
}

TEST_F(LinksAndMail, AMessageReachesTheHandlerWhole) {
    platform.message(hardText);
    const auto call = Desktop::callOf("xdg-open");
    ASSERT_TRUE(call && call->size() == 1);
    EXPECT_TRUE(call->constFirst().startsWith(QStringLiteral("sms:?body=")));
    EXPECT_EQ(fieldOf(call->constFirst(), "body"), hardText);
}

TEST_F(LinksAndMail, ThePortalGetsMailWithItsAttachment) {
    MailPortal portal(0);
    platform.mail(messageWith("first"));
    ASSERT_TRUE(waitFor([&portal] { return !portal.options.isEmpty(); }));
    EXPECT_EQ(portal.options.value(QStringLiteral("address")).toString(), "a@lantern.example");
    EXPECT_EQ(portal.options.value(QStringLiteral("subject")).toString(),
              QStringLiteral("Subject & Тема"));
    EXPECT_EQ(portal.options.value(QStringLiteral("body")).toString(), hardText);
    EXPECT_EQ(portal.attachments, QList<QByteArray>{"first"});
    EXPECT_EQ(QFileInfo(portal.attachmentPaths.value(0)).fileName(), "QuoteCollection.csv");
    EXPECT_FALSE(Desktop::isCalled("xdg-email"));
}

TEST_F(LinksAndMail, MailThatTheUserCancelsInThePortalGoesNoFurther) {
    MailPortal portal(1);
    platform.mail(messageWith("x"));
    EXPECT_FALSE(Desktop::isCalled("xdg-email"));
    EXPECT_FALSE(portal.options.isEmpty());
}

TEST_F(LinksAndMail, MailThatThePortalCannotOpenGoesToXdgEmail) {
    MailPortal portal(2);
    platform.mail(messageWith("x"));
    EXPECT_TRUE(Desktop::callOf("xdg-email"));
    EXPECT_FALSE(portal.options.isEmpty());
}

TEST_F(LinksAndMail, AttachmentsAreTheirOwnersAloneWhateverTheUmask) {
    const mode_t umask = ::umask(0);
    DesktopPlatform open;
    open.mail(messageWith("x"));
    ::umask(umask);
    const auto call = Desktop::callOf("xdg-email");
    ASSERT_TRUE(call && call->size() == 3);
    const QString folder = QFileInfo(call->at(2)).path();
    for (const QString& path : {folder, QFileInfo(folder).path()}) {
        struct stat status {};
        ASSERT_EQ(::stat(QFile::encodeName(path).constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, mode_t(0700)) << path.toStdString();
    }
}

TEST_F(LinksAndMail, WithoutAPortalXdgEmailGetsMailWithItsAttachment) {
    platform.mail(messageWith("first"));
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
    platform.mail(messageWith("second"));
    const auto second = Desktop::callOf("xdg-email");
    ASSERT_TRUE(second && second->size() == 3);
    EXPECT_EQ(contents(first->at(2)), "first");
    EXPECT_EQ(contents(second->at(2)), "second");
}

TEST_F(LinksAndMail, WithoutAMessageBusMailGoesOnWithoutThePortal) {
    bool fellBack = false;
    new PortalMail(
        messageWith("x"), {}, [&] { fellBack = true; }, nullptr,
        QDBusConnection(QStringLiteral("a bus that is not there")));
    EXPECT_TRUE(waitFor([&] { return fellBack; }));
}

TEST_F(LinksAndMail, TextsTooLongForAnAddressAreAttachedOrRefused) {
    const QString longText = QStringLiteral("Война ").repeated(20'000);
    MailMessage message;
    message.body = longText;
    platform.mail(message);
    const auto call = Desktop::callOf("xdg-email");
    ASSERT_TRUE(call && call->size() == 3);
    EXPECT_EQ(call->at(0), "mailto:");
    EXPECT_EQ(contents(call->at(2)), longText.toUtf8());
    platform.message(longText);
    EXPECT_FALSE(Desktop::isCalled("xdg-open"));
    const auto windows = QApplication::topLevelWidgets();
    EXPECT_TRUE(std::ranges::any_of(windows, [](const QWidget* window) {
        const auto* box = qobject_cast<const QMessageBox*>(window);
        return box && box->isVisible() && box->text().contains(QStringLiteral("too long"));
    }));
}

TEST_F(LinksAndMail, AnAttachmentsNameLeadsNowhereElse) {
    MailMessage message;
    message.attachments.push_back({"x", {}, QStringLiteral("../../planted")});
    platform.mail(message);
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
    platform.mail(message);
    EXPECT_EQ(Desktop::callOf("xdg-open"), QStringList("mailto:a@lantern.example,b%3Fc@d?body="
                                                       "Enter%20your%20%3Ccomments%3E%3A%20"));
}

} // namespace

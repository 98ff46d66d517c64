#include "platform/DesktopPlatform.h"
#include "support/Desktop.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

EventLoopMainQueue mainQueue;
LongWork work(mainQueue);

/** A system that has what it is told, and notes what it is asked. */
class FakePlatform final : public Platform {
public:
    bool canText = true;
    bool canMail = true;
    QStringList asked;
    std::vector<MailAttachment> attachments;

    bool canSendText() const override { return canText; }
    bool hasMessages() const override { return canText; }
    bool canSendMail() const override { return canMail; }
    void open(const QUrl& /*address*/, const Answer& /*answer*/) override {}
    void copy(const QString& text) override { asked << QStringLiteral("copy ") + text; }
    void message(const QString& text, const Answer& answer) override {
        asked << QStringLiteral("message ") + text;
        answer({});
    }
    void mail(const MailMessage& message, const Answer& answer) override {
        answer({});
        asked << QStringLiteral("mail ") + message.body;
        attachments = message.attachments;
    }
    void print(const PrintJob& job, LongWork& /*work*/, const Answer& answer) override {
        asked << QStringLiteral("print ") + job.markup;
        answer({});
    }
    void saveToFiles(const std::vector<ActivityItem>& items, const Answer& answer) override {
        answer({});
        asked << QStringLiteral("save %1").arg(items.size());
    }
};

QStringList titlesOf(Platform& platform, const std::vector<ActivityItem>& items,
                     const std::vector<ActivityType>& excluded = {}) {
    return makeActivityViewController(platform, work, items, {}, excluded)->activityTitles();
}

TEST(ShareSheet, OffersWhatTheSystemHasAndTheScreenAllows) {
    FakePlatform platform;
    const std::vector<ActivityItem> text{QStringLiteral("text")};
    EXPECT_EQ(titlesOf(platform, text, {ActivityType::AirDrop, ActivityType::AddToReadingList}),
              QStringList({"Copy", "Message", "Mail", "Print", "Save to Files"}));
    // A file can be neither copied as text nor sent as a text message nor printed.
    EXPECT_EQ(titlesOf(platform, {SharedFile{}}), QStringList({"Mail", "Save to Files"}));
    EXPECT_EQ(
        titlesOf(platform, text,
                 {ActivityType::AirDrop, ActivityType::AddToReadingList, ActivityType::Mail,
                  ActivityType::Message, ActivityType::PostToFacebook, ActivityType::PostToTwitter,
                  ActivityType::MarkupAsPDF, ActivityType::CopyToPasteboard, ActivityType::Print}),
        QStringList("Save to Files"));
    platform.canText = false;
    platform.canMail = false;
    EXPECT_EQ(titlesOf(platform, text), QStringList({"Copy", "Print", "Save to Files"}));
}

TEST(ShareSheet, RunsWhatIsChosenWhenItHasGone) {
    FakePlatform platform;
    int answers = 0;
    ViewController screen;
    const auto present = [&] {
        screen.present(makeActivityViewController(
            platform, work, {QStringLiteral("a <b>\nc"), QStringLiteral("http://d")},
            [&](const Outcome&) { ++answers; }));
        return qobject_cast<ActivityViewController*>(screen.presentedViewController());
    };
    for (int activity = 0; activity < 5; ++activity)
        present()->choose(activity);
    EXPECT_EQ(platform.asked, QStringList({"copy a <b>\nc\nhttp://d", "message a <b>\nc\nhttp://d",
                                           "mail a <b>\nc\nhttp://d",
                                           "print a &lt;b&gt;<br />c<br />http://d", "save 2"}));
    present()->cancel();
    EXPECT_EQ(screen.presentedViewController(), nullptr);
    EXPECT_EQ(platform.asked.size(), 5);
    EXPECT_EQ(answers, 5);

    bool wasGone = false;
    screen.present(std::make_unique<ActivityViewController>(
        std::vector<ActivityItem>{},
        std::vector<Activity>{{ActivityType::Print,
                               {},
                               [&](const std::vector<ActivityItem>&) {
                                   wasGone = screen.presentedViewController() == nullptr;
                               }}},
        std::vector<ActivityType>{}));
    qobject_cast<ActivityViewController*>(screen.presentedViewController())->choose(0);
    EXPECT_TRUE(wasGone);
}

TEST(ShareSheet, MailsAFileUnderItsName) {
    FakePlatform platform;
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Quotes.txt"));
    write(path, "bytes");
    ViewController screen;
    screen.present(makeActivityViewController(platform, work, {SharedFile{path}},
                                              [](const Outcome&) {}, {ActivityType::SaveToFiles}));
    qobject_cast<ActivityViewController*>(screen.presentedViewController())->choose(0);
    ASSERT_EQ(platform.attachments.size(), 1);
    EXPECT_EQ(platform.attachments[0].data, "bytes");
    EXPECT_EQ(platform.attachments[0].fileName, "Quotes.txt");
}

TEST(Copying, PutsTheTextOnTheClipboard) {
    DesktopPlatform platform;
    const QString text = QStringLiteral("<b>Война</b>\n中文 سلام 😀");
    platform.copy(text);
    EXPECT_EQ(QApplication::clipboard()->text(), text);
}

class Saving : public testing::Test {
protected:
    void choosePlace(const QString& path) {
        auto* dialog = shownDialog<QFileDialog>();
        ASSERT_TRUE(dialog);
        dialog->selectFile(path);
        static_cast<QDialog*>(dialog)->accept();
    }
    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }

    std::vector<Outcome> outcomes;
    Answer keep = [this](const Outcome& outcome) { outcomes.push_back(outcome); };
    DesktopPlatform platform;
    QTemporaryDir folder;
};

TEST_F(Saving, AsksForEachFileAndWritesWhereToldTo) {
    write(path("QuoteCollection.csv"), QByteArray("[QUOTECOLLECTION]\n\xff\0", 20));
    platform.saveToFiles(
        {QStringLiteral("Война"), SharedFile{path("QuoteCollection.csv")}, QStringLiteral("😀")},
        keep);
    choosePlace(path("chosen.txt"));
    EXPECT_EQ(contents(path("chosen.txt")), QStringLiteral("Война\n😀").toUtf8());
    ASSERT_TRUE(shownDialog<QFileDialog>());
    EXPECT_EQ(QFileInfo(shownDialog<QFileDialog>()->selectedFiles().value(0)).fileName(),
              "QuoteCollection.csv");
    choosePlace(path("chosen.csv"));
    EXPECT_EQ(contents(path("chosen.csv")), contents(path("QuoteCollection.csv")));
    EXPECT_FALSE(shownDialog<QFileDialog>());
    ASSERT_EQ(outcomes.size(), 1);
    EXPECT_EQ(outcomes[0].kind, Outcome::Done);
}

TEST_F(Saving, NothingIsWrittenWithoutAPlace) {
    platform.saveToFiles({QStringLiteral("text")}, keep);
    ASSERT_TRUE(shownDialog<QFileDialog>());
    shownDialog<QFileDialog>()->reject();
    ASSERT_EQ(outcomes.size(), 1);
    EXPECT_EQ(outcomes[0].kind, Outcome::Cancelled);
    EXPECT_FALSE(shownDialog<QDialog>());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    EXPECT_TRUE(QDir(Desktop::path("")).entryList({QStringLiteral("*.txt")}).isEmpty());
}

TEST_F(Saving, AnswersWhatCouldNotBeReadOrWritten) {
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    platform.saveToFiles({SharedFile{path("pipe")}}, keep);
    ASSERT_EQ(outcomes.size(), 1);
    EXPECT_EQ(outcomes[0].kind, Outcome::Failed);
    EXPECT_TRUE(outcomes[0].text.contains(path("pipe")));
    EXPECT_FALSE(shownDialog<QFileDialog>());

    QDir(folder.path()).mkdir(QStringLiteral("folder"));
    platform.saveToFiles({QStringLiteral("text")}, keep);
    shownDialog<QFileDialog>()->selectFile(path("folder/file"));
    QDir(folder.path()).rmdir(QStringLiteral("folder")); // goes away while the dialog is open
    static_cast<QDialog*>(shownDialog<QFileDialog>())->done(QDialog::Accepted);
    ASSERT_EQ(outcomes.size(), 2);
    EXPECT_EQ(outcomes[1].kind, Outcome::Failed);
    EXPECT_TRUE(outcomes[1].text.contains(path("folder/file")));
}

} // namespace

#include "foundation/FatalError.h"
#include "foundation/UserDefaults.h"
#include "support/TestFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

class UserDefaultsTest : public testing::Test {
protected:
    static int& warnings() {
        static int count = 0;
        return count;
    }
    /** Counts warnings from here on. */
    static void countWarnings() {
        warnings() = 0;
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString&) {
            warnings() += type == QtWarningMsg ? 1 : 0;
        });
    }
    ~UserDefaultsTest() override { qInstallMessageHandler(nullptr); }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(QStringLiteral("made/for/it/Lantern.ini"));
};

} // namespace

TEST_F(UserDefaultsTest, GiveEveryTextBackAsItWas) {
    const QStringList texts{
        QString(),
        QStringLiteral("Jan 5, 2021"),
        QStringLiteral(" , ; # = % \\ \" ' "),
        QStringLiteral("@Invalid()"),
        QStringLiteral("two\nlines\tand a tab"),
        QStringLiteral("a\x01"
                       "face\x1f\r\n0123 \\x41"),
        QStringLiteral("@String(x)"),
        QString::fromUtf8("٠٤\u200F/١١\u200F/٢٠١٨ 🏮"),
    };
    const QStringList keys{QStringLiteral("UseDateWheel"), QStringLiteral("a group/of=two [x]"),
                           QStringLiteral("50% \u00e9\u0436;")};
    {
        UserDefaults defaults(m_path);
        for (qsizetype i = 0; i < texts.size(); ++i)
            defaults.setText(QString::number(i), texts[i]);
        for (const QString& key : keys)
            defaults.setText(key, key);
        defaults.synchronize();
    }
    const UserDefaults reopened(m_path);
    for (qsizetype i = 0; i < texts.size(); ++i)
        EXPECT_EQ(reopened.object(QString::number(i)), texts[i]) << texts[i].toStdString();
    for (const QString& key : keys)
        EXPECT_EQ(reopened.object(key), key);
    EXPECT_EQ(reopened.object(QStringLiteral("never set")), std::nullopt);
}

TEST_F(UserDefaultsTest, KeepBooleansAsWords) {
    setFatalErrorHandler([](const FatalError& error) { throw error; });
    UserDefaults defaults(m_path);
    const QString key = QStringLiteral("UseDateWheel");
    EXPECT_FALSE(defaults.boolForKey(key));
    EXPECT_FALSE(defaults.object(key)) << "reading stores nothing";
    defaults.setBool(key, true);
    EXPECT_TRUE(defaults.boolForKey(key));
    EXPECT_EQ(defaults.object(key), QStringLiteral("true"));
    defaults.setBool(key, false);
    EXPECT_FALSE(defaults.boolForKey(key));
    for (const char* text : {"yes", "1", "TRUE", "Y", " 02"}) {
        defaults.setText(key, QString::fromLatin1(text));
        EXPECT_TRUE(defaults.boolForKey(key)) << text;
        EXPECT_THROW(defaults.strictBoolForKey(key), FatalError) << text;
    }
    for (const char* text : {"", "no", "0", "off", "maybe"}) {
        defaults.setText(key, QString::fromLatin1(text));
        EXPECT_FALSE(defaults.boolForKey(key)) << text;
    }
    setFatalErrorHandler(nullptr);
}

TEST_F(UserDefaultsTest, ReadAFileThatWasEditedByHand) {
    const QString path = m_folder.filePath(QStringLiteral("Lantern.ini"));
    write(path, "[General]\nDefaultDate=Jan 5, 2021\nUseDateWheel=true\n");
    const UserDefaults defaults(path);
    EXPECT_EQ(defaults.object(QStringLiteral("DefaultDate")), QStringLiteral("Jan 5, 2021"));
    EXPECT_TRUE(defaults.boolForKey(QStringLiteral("UseDateWheel")));
}

TEST_F(UserDefaultsTest, AreReadableByTheirOwnerAlone) {
    constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                            QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    const auto isPrivate = [this] {
        const QString folder = QFileInfo(m_path).absolutePath();
        return !((QFile::permissions(m_path) | QFile::permissions(folder)) & others);
    };
    const mode_t umask = ::umask(0);
    {
        UserDefaults defaults(m_path);
        defaults.setText(QStringLiteral("DefaultDate"), QStringLiteral("written"));
    }
    EXPECT_TRUE(isPrivate());
    ::chmod(qPrintable(m_path), 0666);
    ::chmod(qPrintable(QFileInfo(m_path).path()), 0777);
    const UserDefaults reopened(m_path);
    EXPECT_TRUE(isPrivate());
    ::umask(umask);
    EXPECT_EQ(contents(m_path), "[General]\nDefaultDate=written\n");
}

TEST_F(UserDefaultsTest, AreReadThroughALinkAndWrittenInItsPlace) {
    const QString target = m_folder.filePath(QStringLiteral("elsewhere.ini"));
    write(target, "[General]\nDefaultDate=linked\n");
    ::chmod(qPrintable(target), 0644);
    QDir().mkpath(QFileInfo(m_path).path());
    ASSERT_TRUE(QFile::link(target, m_path));
    {
        UserDefaults defaults(m_path);
        EXPECT_EQ(defaults.object(QStringLiteral("DefaultDate")), QStringLiteral("linked"));
        defaults.setBool(QStringLiteral("UseDefaultDate"), true);
    }
    EXPECT_FALSE(QFileInfo(m_path).isSymLink());
    EXPECT_EQ(contents(m_path), "[General]\nDefaultDate=linked\nUseDefaultDate=true\n");
    EXPECT_EQ(contents(target), "[General]\nDefaultDate=linked\n");
    EXPECT_TRUE(QFile::permissions(target) & QFile::ReadOther);
    EXPECT_EQ(QDir(QFileInfo(m_path).path()).entryList(QDir::Files | QDir::Hidden),
              QStringList("Lantern.ini"));
}

TEST_F(UserDefaultsTest, SurviveADiskThatFillsUpAndFoldersThatGo) {
    const QByteArray temporary = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/nowhere");
    UserDefaults defaults(m_path);
    const QString key = QStringLiteral("DefaultDate");
    defaults.setText(key, QStringLiteral("old"));
    EXPECT_EQ(contents(m_path), std::nullopt) << "not before the event loop is reached";
    QCoreApplication::processEvents();
    EXPECT_EQ(contents(m_path), "[General]\nDefaultDate=old\n");

    rlimit unlimited{};
    ::getrlimit(RLIMIT_FSIZE, &unlimited);
    const rlimit limited{10, unlimited.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN); // fails as a full disk does, without signal
    ::setrlimit(RLIMIT_FSIZE, &limited);
    countWarnings();
    defaults.setText(key, QStringLiteral("new"));
    EXPECT_FALSE(defaults.synchronize());
    EXPECT_EQ(warnings(), 1);
    ::setrlimit(RLIMIT_FSIZE, &unlimited);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(contents(m_path), "[General]\nDefaultDate=old\n");
    EXPECT_EQ(defaults.object(key), QStringLiteral("new")) << "the program goes on with it";

    countWarnings();
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_EQ(contents(m_path), "[General]\nDefaultDate=new\n");
    QDir(QFileInfo(m_path).path()).removeRecursively();
    defaults.setText(key, QStringLiteral("newer"));
    defaults.synchronize();
    EXPECT_EQ(contents(m_path), "[General]\nDefaultDate=newer\n");
    EXPECT_EQ(warnings(), 0);
    temporary.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", temporary);
}

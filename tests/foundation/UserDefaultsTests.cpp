#include "foundation/FatalError.h"
#include "foundation/UserDefaults.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace {

class UserDefaultsTest : public testing::Test {
protected:
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
        QString::fromUtf8("٠٤\u200F/١١\u200F/٢٠١٨ 🏮"),
    };
    {
        UserDefaults defaults(m_path);
        for (qsizetype i = 0; i < texts.size(); ++i)
            defaults.setText(QString::number(i), texts[i]);
        defaults.synchronize();
    }
    const UserDefaults reopened(m_path);
    for (qsizetype i = 0; i < texts.size(); ++i)
        EXPECT_EQ(reopened.object(QString::number(i)), texts[i]) << texts[i].toStdString();
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
    for (const char* text : {"", "yes", "1", "TRUE"}) {
        defaults.setText(key, QString::fromLatin1(text));
        EXPECT_THROW(defaults.boolForKey(key), FatalError) << text;
    }
    setFatalErrorHandler(nullptr);
}

TEST_F(UserDefaultsTest, ReadAFileThatWasEditedByHand) {
    QFile file(m_folder.filePath(QStringLiteral("Lantern.ini")));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("[General]\nDefaultDate=Jan 5, 2021\nUseDateWheel=true\n");
    file.close();
    const UserDefaults defaults(file.fileName());
    EXPECT_EQ(defaults.object(QStringLiteral("DefaultDate")), QStringLiteral("Jan 5, 2021"));
    EXPECT_TRUE(defaults.boolForKey(QStringLiteral("UseDateWheel")));
}

TEST_F(UserDefaultsTest, AreReadableByTheirOwnerAlone) {
    constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                            QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    UserDefaults defaults(m_path);
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(QFile::permissions(m_path) & others, QFile::Permissions());
        EXPECT_EQ(QFile::permissions(QFileInfo(m_path).absolutePath()) & others,
                  QFile::Permissions());
        defaults.setText(QStringLiteral("DefaultDate"), QStringLiteral("written"));
        defaults.synchronize();
    }
    EXPECT_GT(QFileInfo(m_path).size(), 0);
}

TEST_F(UserDefaultsTest, SurviveADiskThatFillsUpAndAFolderThatGoes) {
    UserDefaults defaults(m_path);
    const QString key = QStringLiteral("DefaultDate");
    const auto stored = [this] { // another UserDefaults would share what this one has in memory
        QFile file(m_path);
        EXPECT_TRUE(file.open(QFile::ReadOnly));
        return file.readAll();
    };
    defaults.setText(key, QStringLiteral("old"));
    defaults.synchronize();

    rlimit unlimited{};
    ::getrlimit(RLIMIT_FSIZE, &unlimited);
    const rlimit limited{10, unlimited.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN); // fails as a full disk does, without signal
    ::setrlimit(RLIMIT_FSIZE, &limited);
    defaults.setText(key, QStringLiteral("new"));
    defaults.synchronize();
    ::setrlimit(RLIMIT_FSIZE, &unlimited);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(stored(), "[General]\nDefaultDate=old\n");
    EXPECT_EQ(defaults.object(key), QStringLiteral("new")) << "the program goes on with it";
    defaults.synchronize();
    EXPECT_EQ(stored(), "[General]\nDefaultDate=new\n");

    QDir(QFileInfo(m_path).path()).removeRecursively();
    defaults.setText(key, QStringLiteral("newer"));
    defaults.synchronize();
    EXPECT_EQ(stored(), "[General]\nDefaultDate=newer\n");
}

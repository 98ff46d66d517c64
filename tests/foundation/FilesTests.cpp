#include "foundation/Files.h"
#include "foundation/TemporaryFolder.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cerrno>
#include <csignal>
#include <ctime>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utime.h>

namespace {

class Files : public testing::Test {
protected:
    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }
    QStringList names() const {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QTemporaryDir folder;
};

TEST_F(Files, WritingReplacesALinkAndLeavesItsTarget) {
    write(path("target"), "untouched");
    ASSERT_TRUE(QFile::link(path("target"), path("file")));
    EXPECT_FALSE(writeFileAtomically(path("file"), "new"));
    EXPECT_EQ(contents(path("file")), "new");
    EXPECT_EQ(contents(path("target")), "untouched");
    EXPECT_EQ(names(), QStringList({"file", "target"}));
}

TEST_F(Files, AFailedWriteLeavesTheOldFileAndNothingElse) {
    write(path("file"), "old");
    rlimit unlimited{};
    ::getrlimit(RLIMIT_FSIZE, &unlimited);
    const rlimit limited{1000, unlimited.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN); // fails as a full disk does, without signal
    ::setrlimit(RLIMIT_FSIZE, &limited);
    const auto failure = writeFileAtomically(path("file"), QByteArray(100'000, 'x'));
    ::setrlimit(RLIMIT_FSIZE, &unlimited);
    std::signal(SIGXFSZ, handler);
    ASSERT_TRUE(failure);
    EXPECT_TRUE(failure->description.contains(path("file")));
    EXPECT_EQ(contents(path("file")), "old");
    EXPECT_EQ(names(), QStringList("file"));

    EXPECT_TRUE(writeFileAtomically(path("gone/file"), "new"));
    QDir(folder.path()).mkdir(QStringLiteral("folder"));
    EXPECT_TRUE(writeFileAtomically(path("folder"), "new"));
    EXPECT_EQ(names(), QStringList({"file", "folder"}));
}

TEST_F(Files, OnlyRegularFilesOfOnesOwnAreRead) {
    write(path("file"), QByteArray("a\0b", 3));
    ASSERT_TRUE(QFile::link(path("file"), path("link")));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    EXPECT_EQ(readOwnFile(path("file")), QByteArray("a\0b", 3));
    for (const char* other : {"link", "pipe", ".", "absent"})
        EXPECT_FALSE(readOwnFile(path(other))) << other;
    // Only root can have a file of another's.
    if (::chown(QFile::encodeName(path("file")).constData(), 1, 1) == 0) {
        EXPECT_FALSE(readOwnFile(path("file")));
    }
}

TEST_F(Files, FoldersAreMadeForTheirOwnerAlone) {
    for (const mode_t umask : {0000, 0777}) {
        const mode_t before = ::umask(umask);
        EXPECT_EQ(makeOwnFolder(path("a/b")), 0);
        ::umask(before);
        for (const char* made : {"a", "a/b"}) {
            struct stat status {};
            ::stat(QFile::encodeName(path(made)).constData(), &status);
            EXPECT_EQ(status.st_mode & 0777, 0700U) << made << " under " << umask;
        }
        QDir(path("a")).removeRecursively();
    }
    write(path("file"), "");
    EXPECT_EQ(makeOwnFolder(path("file/folder")), ENOTDIR);
}

TEST(UserFolders, AreThoseOfTheVariablesWhereTheyAreWhole) {
    const QByteArray home = qgetenv("HOME");
    const auto chosen = [](const char* data, const char* ofHome) {
        const auto set = [](const char* variable, const char* value) {
            value ? qputenv(variable, value) : qunsetenv(variable);
        };
        set("XDG_DATA_HOME", data);
        set("HOME", ofHome);
        return userFolder("XDG_DATA_HOME", QStringLiteral("share"));
    };
    EXPECT_EQ(chosen("/data", nullptr), QStringLiteral("/data"));
    for (const char* none : {"", "data", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(chosen(none, "/a"), QStringLiteral("/a/share"));
        EXPECT_EQ(chosen(none, none), std::nullopt);
    }
    qunsetenv("XDG_DATA_HOME");
    qputenv("HOME", home);
}

} // namespace

TEST(TemporaryFolder, GoesWithTheProgramOrWithTheNextOne) {
    const QTemporaryDir place;
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(place.path()));
    const auto age = [](const QString& path) {
        const std::time_t old = std::time(nullptr) - 3600;
        const utimbuf times{old, old};
        ASSERT_EQ(::utime(QFile::encodeName(path).constData(), &times), 0);
    };
    for (const char* name :
         {"Lantern-killed", "Lantern-gwojqv", "Lantern-fresh1", "Other-abcdef"}) {
        QDir(place.path()).mkpath(QLatin1String(name) + QStringLiteral("/in"));
        if (QByteArray(name) != "Lantern-fresh1")
            age(place.filePath(QLatin1String(name)));
    }
    QString running;
    {
        const TemporaryFolder first;
        running = first.path();
        EXPECT_FALSE(QFile::permissions(running) & (QFile::ReadGroup | QFile::ReadOther));
        age(running);
        const TemporaryFolder second;
        EXPECT_TRUE(QFile::exists(running)) << "its program lives";
        EXPECT_NE(second.path(), running);
        EXPECT_FALSE(QFile::exists(place.filePath(QStringLiteral("Lantern-killed"))));
        EXPECT_FALSE(QFile::exists(place.filePath(QStringLiteral("Lantern-gwojqv"))));
    }
    EXPECT_EQ(QDir(place.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
              QStringList({"Lantern-fresh1", "Other-abcdef"}));
    before.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
}

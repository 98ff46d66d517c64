#include "exchange/ExportViewController.h"
#include "foundation/Files.h"
#include "foundation/UserDefaults.h"
#include "platform/DesktopPlatform.h"
#include "reliability/FailingCalls.h"
#include "reliability/StoreContents.h"
#include "support/Desktop.h"
#include "support/TestApplication.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include <cerrno>
#include <climits>
#include <gtest/gtest.h>
#include <iostream>
#include <optional>
#include <utility>

namespace {

using Calls = std::map<std::string, int>;
const Calls kept{{"sync", 1}, {"sync of a folder", 1}, {"move", 1}};
const Calls temporary{{"move", 1}};

/** Files that the program writes, on a disk that fails at any call. */
class FileFaults : public testing::Test {
protected:
    FileFaults() {
        failuresInLog() = 0;
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) {
            failuresInLog() += message.contains(QStringLiteral("cannot be ")) ? 1 : 0;
        });
    }
    ~FileFaults() override { qInstallMessageHandler(nullptr); }

    /**
     * Has a file written over an old one while each call for its folder fails in turn. The work
     * returns whether the user or the log was told that it failed: then and only then the file must
     * be the old one. Done once more without a fault, it must succeed. So it must do without any,
     * with just so many syncs and moves.
     */
    static void writeAtEveryFault(const QString& path, const QByteArray& written,
                                  const Calls& calls, const std::function<bool()>& work) {
        const QByteArray old = "[General]\nDefaultDate=old\n";
        const QString folder = QFileInfo(path).path();
        const auto files = [&folder] { return QDir(folder).entryList(QDir::Files | QDir::Hidden); };
        const QStringList onlyThis{QFileInfo(path).fileName()};
        int runs = 0;
        for (const int error : {ENOSPC, EIO}) {
            for (const bool keepsFailing : {false, true}) {
                bool hasFailed = true;
                for (int call = 1; hasFailed; ++call) {
                    SCOPED_TRACE(testing::Message() << "error " << error << " at call " << call
                                                    << ", keeps failing " << keepsFailing);
                    write(path, old);
                    bool isTold = false;
                    {
                        const FailingCalls failing(folder.toStdString(), call, error, keepsFailing);
                        isTold = work();
                        hasFailed = failing.hasFailed();
                        EXPECT_TRUE(hasFailed || includes(failing.counts(), calls));
                        runs += hasFailed ? 1 : 0;
                    }
                    EXPECT_EQ(contents(path), isTold ? old : written);
                    EXPECT_TRUE(hasFailed || !isTold);
                    EXPECT_EQ(files(), onlyThis);
                    EXPECT_FALSE(work());
                    EXPECT_EQ(contents(path), written);
                    EXPECT_EQ(files(), onlyThis);
                }
            }
        }
        std::cout << runs << " runs with a fault\n";
    }

    /** Whether there were so many syncs and moves, and something was opened and written. */
    static bool includes(const Calls& counts, const Calls& calls) {
        const auto count = [](const Calls& of, const char* kind) {
            const auto place = of.find(kind);
            return place == of.end() ? 0 : place->second;
        };
        for (const char* kind : {"sync", "sync of a folder", "move"}) {
            if (count(counts, kind) != count(calls, kind))
                return false;
        }
        return count(counts, "open") > 0 && count(counts, "write") > 0;
    }

    static bool wasToldInLog() { return std::exchange(failuresInLog(), 0) > 0; }

private:
    static int& failuresInLog() {
        static int count = 0;
        return count;
    }
};

/** The export screen on a device, with its file created; the store stays as it is. */
class Export {
public:
    explicit Export(Platform& device)
        : application(&device) {
        for (int i = 0; i < 50; ++i)
            application.addQuote({"A", "T", "S", "a quote", application.environment.now()});
        screen.viewDidLoad();
        screen.ExportButton->press();
        m_stored = contentsOf(application.context());
    }
    ~Export() { EXPECT_EQ(contentsOf(application.context()), m_stored); }

    QByteArray collection() const { return *screen.DataString; }
    QString sharedFile() const {
        return application.folder.filePath(QStringLiteral("temporary/QuoteCollection.csv"));
    }
    ActivityViewController& shareSheet() {
        screen.SaveButton->press();
        return *qobject_cast<ActivityViewController*>(screen.presentedViewController());
    }

    TestApplication application;
    ExportViewController screen{application.delegate};

private:
    QStringList m_stored;
};

} // namespace

TEST_F(FileFaults, OfTheFileThatIsSharedAreLogged) {
    FakePlatform device;
    Export program(device);
    writeAtEveryFault(program.sharedFile(), program.collection(), temporary, [&] {
        program.shareSheet().cancel();
        return wasToldInLog();
    });
}

TEST_F(FileFaults, OfTheFileThatIsMailedAreLogged) {
    FakePlatform device;
    Export program(device);
    const QByteArray collection = program.collection();
    writeAtEveryFault(program.sharedFile(), collection, temporary, [&] {
        program.screen.ExportTextView->setText(QString::fromUtf8(collection));
        device.mails.clear();
        program.screen.EmailButton->press();
        const bool isTold = wasToldInLog();
        // It can be read back only where opening does not fail too.
        for (const MailMessage& mail : device.mails)
            EXPECT_NE(mail.attachments.at(0).data == collection, isTold);
        return isTold;
    });
}

TEST_F(FileFaults, OfTheFileThatIsSavedAreToldToTheUser) {
    DesktopPlatform device;
    Export program(device);
    QDir(program.application.folder.path()).mkdir(QStringLiteral("chosen"));
    const QString path = program.application.folder.filePath(QStringLiteral("chosen/file.csv"));
    writeAtEveryFault(path, program.collection(), kept, [&] {
        program.shareSheet().choose(0);
        auto* dialog = shownDialog<QFileDialog>();
        dialog->selectFile(path);
        static_cast<QDialog*>(dialog)->done(QDialog::Accepted);
        wasToldInLog();
        AlertController* alert = presentedAlert(program.screen);
        if (!alert)
            return false;
        EXPECT_TRUE(alert->message().contains(path));
        alert->choose(0);
        return true;
    });
}

TEST_F(FileFaults, OfTheSettingsAreLoggedAndMadeGoodLater) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Lantern.ini"));
    UserDefaults defaults(path);
    writeAtEveryFault(path, "[General]\nDefaultDate=new\n", kept, [&] {
        defaults.setText(QStringLiteral("DefaultDate"), QStringLiteral("new"));
        defaults.synchronize();
        return wasToldInLog();
    });
}

TEST_F(FileFaults, OfAPowerCutDoNotTakeANewFolder) {
    const QTemporaryDir folder;
    const FailingCalls counting(folder.path().toStdString(), INT_MAX, EIO, false);
    EXPECT_EQ(makeOwnFolder(folder.filePath(QStringLiteral("a/b"))), 0);
    EXPECT_EQ(counting.counts().at("sync of a folder"), 2);
}

// Or the settings of years would go with the first that changes.
TEST_F(FileFaults, OfReadingTheSettingsDoNotHaveThemWrittenOver) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Lantern.ini"));
    write(path, "[General]\nDefaultDate=old\n");
    std::optional<FailingCalls> failing(std::in_place, path.toStdString(), 1, EIO, true);
    UserDefaults defaults(path);
    defaults.setBool(QStringLiteral("UseDateWheel"), true);
    defaults.synchronize();
    EXPECT_TRUE(failing->hasFailed() && wasToldInLog());
    failing.reset();
    EXPECT_EQ(contents(path), "[General]\nDefaultDate=old\n");
    defaults.synchronize();
    EXPECT_EQ(contents(path), "[General]\nDefaultDate=old\nUseDateWheel=true\n");
}

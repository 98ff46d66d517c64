#include "Views.h"
#include "exchange/ImportViewController.h"
#include "toolkit/DocumentPickerViewController.h"

#include <QFile>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

const auto markup = QStringLiteral("<img src=http:image.png> <b>bold</b>");

class PlainTexts : public Views {
protected:
    PlainTexts() {
        addQuote(markup, markup, markup);
        context().fetch(Event::fetchRequest()).records.front()->setSource(markup);
        context().insert<Authors>()->setName(markup);
        context().insert<Sources>()->setName(markup);
        context().insert<Topics>()->setTopic(markup);
        program.application().saveContext();
    }

    /** Looks at every text of the scene, hidden ones too; at least one must hold the markup. */
    void expectPlain(const char* screen) {
        int withMarkup = 0;
        const std::function<void(const QQuickItem&)> look = [&](const QQuickItem& item) {
            const QVariant format = item.property("textFormat");
            const QString text = item.property("text").toString();
            if (format.isValid()) {
                EXPECT_EQ(format.toInt(), int(Qt::PlainText))
                    << screen << ": " << text.toStdString();
                withMarkup += text.contains(QStringLiteral("<img")) ? 1 : 0;
            }
            for (const QQuickItem* child : item.childItems())
                look(*child);
        };
        look(*program.quickWindow().contentItem());
        EXPECT_GT(withMarkup, 0) << screen;
    }

    void tap(const char* name) { pilot->tap(QLatin1String(name)); }
    void tapMarkup() { pilot->tap(*pilot->findAll(markup).front()); }
    void goToMenu() {
        while (program.navigation().depth() > 1)
            tap("Back");
    }
};

TEST_F(PlainTexts, AreAllThatIsShownOfQuotes) {
    open("Quote List");
    expectPlain("quote list");
    pilot->tap(*pilot->findAll(QStringLiteral("Topic: ")).front());
    expectPlain("detail");
    tap("Share");
    expectPlain("share sheet");
    pilot->press(Qt::Key_Escape);
    tap("Full Screen");
    expectPlain("full screen");
    goToMenu();

    open("Quotes by Topic");
    expectPlain("quotes by topic");
    goToMenu();

    open("Reference Lists");
    tap("Authors");
    expectPlain("authors");
    tapMarkup();
    expectPlain("quotes of an author");
    tap("Print");
    tap("Create File");
    expectPlain("print quotes");
    goToMenu();
}

TEST_F(PlainTexts, AreAllThatIsShownOfNames) {
    open("Topics");
    expectPlain("topics");
    goToMenu();
    open("Reference Lists");
    tap("Sources");
    tap("Names");
    expectPlain("source names");
    goToMenu();
    open("Add New Quote");
    tap("Topic");
    expectPlain("wheel of topics");
}

TEST_F(PlainTexts, AreAllThatIsShownOfFiles) {
    const QString path = home.filePath(markup.left(24)); // a slash would end the name
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write(markup.toUtf8());
    file.close();
    auto& screen = open<ImportViewController>("Import");
    auto chooser = std::make_unique<DocumentPickerViewController>(QStringList("public.item"));
    screen.present(std::move(chooser));
    pilot->settle();
    auto* files = pilot->find(QStringLiteral("Files")).property("model").value<QObject*>();
    files->setProperty("path", home.path());
    pilot->find(markup.left(24));
    expectPlain("file sheet");
    tap("Cancel");

    screen.didPickDocumentAtURL(QUrl::fromLocalFile(path));
    tap("OK");
    expectPlain("import");
    tap("Import File");
    expectPlain("alert that names the file");
    tap("OK");
    open("Export");
    tap("Create Export File");
    tap("OK");
    expectPlain("export");
}

TEST_F(PlainTexts, AreAllThatTheLastMessageShows) {
    program.quickWindow().setProperty("fatalMessage", markup);
    pilot->settle();
    expectPlain("fatal message");
}

TEST_F(Views, TheTemporaryFolderIsItsOwnersAloneWhateverTheUmask) {
    const mode_t umask = ::umask(0);
    Program other(
        {home.filePath(QStringLiteral("other")),
         home.filePath(QStringLiteral("other/Lantern.ini"))},
        Environment{[] { return Date(); }, QStringLiteral("en_US"), QStringLiteral("UTC")},
        platform);
    ::umask(umask);
    struct stat status {};
    const QString folder = other.application().services.temporaryFolder;
    ASSERT_EQ(::stat(QFile::encodeName(folder).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, mode_t(0700));
}

} // namespace

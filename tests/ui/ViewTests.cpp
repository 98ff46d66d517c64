#include "Views.h"
#include "app/MainMenuViewController.h"
#include "exchange/ExportViewController.h"
#include "exchange/ImportViewController.h"
#include "foundation/FatalError.h"
#include "quotes/AddViewController.h"
#include "quotes/MasterViewController.h"
#include "support/TestFiles.h"
#include "toolkit/AlertController.h"
#include "toolkit/DocumentPickerViewController.h"
#include "toolkit/Storyboard.h"
#include "toolkit/TabBarController.h"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTimer>
#include <QUrl>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

TEST_F(Views, MenuShowsItsOptionsAndWorksByKeyboard) {
    EXPECT_FALSE(pilot->look(QStringLiteral("Import")));
    pilot->tap(QStringLiteral("Menu"));
    for (const char* option :
         {"Quote List", "Quotes by Group", "Quotes by Topic", "Add New Quote", "Topics",
          "Reference Lists", "Import", "Export", "Rate/Share", "Settings"})
        EXPECT_TRUE(pilot->look(QLatin1String(option))) << option;
    pilot->tap(QStringLiteral("Menu"));
    EXPECT_FALSE(pilot->look(QStringLiteral("Import")));

    pilot->tabTo(QStringLiteral("Menu"));
    pilot->press(Qt::Key_Space);
    pilot->tabTo(QStringLiteral("Quote List"));
    pilot->press(Qt::Key_Return);
    EXPECT_NO_THROW(top<MasterViewController>());
    pilot->press(Qt::Key_Escape);
    EXPECT_EQ(top().title(), "Lantern");
}

TEST_F(Views, KeysPressWhatTheScreenInFrontHas) {
    addQuote(QStringLiteral("Ann"), QStringLiteral("hate"), QStringLiteral("one"));
    addQuote(QStringLiteral("Bob"), QStringLiteral("love"), QStringLiteral("two"));
    pilot->press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_NO_THROW(top<AddViewController>());
    pilot->press(Qt::Key_Left, Qt::AltModifier);
    open("Quote List");
    pilot->press(Qt::Key_F, Qt::ControlModifier);
    pilot->type(QStringLiteral("love"));
    pilot->press(Qt::Key_Down);
    EXPECT_TRUE(pilot->list().hasActiveFocus());
    pilot->press(Qt::Key_F10, Qt::ShiftModifier);
    pilot->press(Qt::Key_Return);
    EXPECT_EQ(quoteCount(), 1);
    pilot->press(Qt::Key_Z, Qt::ControlModifier);
    pilot->press(Qt::Key_Up);
    EXPECT_TRUE(pilot->hasFocus(QStringLiteral("Search quotes")));
    pilot->press(Qt::Key_Return);
    EXPECT_EQ(top().title(), "Quote");
    pilot->press(Qt::Key_F1);
    EXPECT_TRUE(pilot->look(QStringLiteral("Keys")));
    pilot->press(Qt::Key_Escape);
    pilot->settle();
    pilot->press(Qt::Key_Escape);
    pilot->tap(*pilot->findAll(QStringLiteral("Topic: ")).at(0), Qt::BackButton);
    EXPECT_EQ(top().title(), "Lantern");
    open("Quotes by Group");
    pilot->press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(top<TabBarController>().selectedIndex(), 1);
}

TEST_F(Views, EveryOptionOpensAScreenAndComesBack) {
    for (const char* option : {"Quote List", "Quotes by Topic", "Add New Quote", "Topics",
                               "Reference Lists", "Import", "Export", "Rate/Share", "Settings"}) {
        open(option);
        EXPECT_EQ(program.navigation().depth(), 2) << option;
        pilot->tap(QStringLiteral("Back"));
        EXPECT_EQ(program.navigation().depth(), 1) << option;
    }
    open("Quotes by Group");
    EXPECT_TRUE(program.navigation().isNavigationBarHidden());
    pilot->tap(QStringLiteral("Topics"));
    EXPECT_EQ(top<TabBarController>().selectedIndex(), 2);
    pilot->tap(QStringLiteral("Back"));
    EXPECT_EQ(top().title(), "Lantern");
    EXPECT_FALSE(program.navigation().isNavigationBarHidden());
}

TEST_F(Views, GoBackByASwipeFromTheEdge) {
    open("Import");
    pilot->drag({2, 400}, {300, 0});
    EXPECT_EQ(top().title(), "Lantern");
    open("Import");
    pilot->drag({150, 400}, {200, 0});
    EXPECT_EQ(top().title(), "Import Quote Records");
}

TEST_F(Views, QuoteListSortsSearchesAndShowsTextAsItIs) {
    addQuote(QStringLiteral("Ann"), QStringLiteral("b"), QStringLiteral("one"));
    addQuote(QStringLiteral("<b>Bob</b><img src=\"file:///etc/hostname\">"), QStringLiteral("a"),
             QStringLiteral("two"));
    open("Quote List");
    EXPECT_EQ(rows().size(), 2);
    EXPECT_TRUE(rows().at(0).startsWith(QStringLiteral("Topic: a")));
    EXPECT_TRUE(pilot->look(QStringLiteral("# of Quotes = 2")));
    pilot->tap(QStringLiteral("Sort"));
    EXPECT_TRUE(rows().at(0).startsWith(QStringLiteral("Topic: b")));
    pilot->tap(QStringLiteral("Author"));
    EXPECT_TRUE(rows("Author: ").at(1).contains(QStringLiteral("<b>Bob</b><img src")));

    pilot->tap(QStringLiteral("Search quotes"));
    pilot->type(QStringLiteral("bob"));
    EXPECT_EQ(top<MasterViewController>().searchController->searchBar()->text(),
              QStringLiteral("bob"));
    EXPECT_EQ(rows("Author: ").size(), 1);
    EXPECT_TRUE(pilot->hasFocus(QStringLiteral("Search quotes")));
    EXPECT_TRUE(pilot->look(QStringLiteral("# of Quotes in your search = 1")));
}

TEST_F(Views, QuoteListWithoutRowsChoosesNone) {
    addQuote(QStringLiteral("Ann"), QStringLiteral("a"), {});
    open("Quote List");
    pilot->tap(QStringLiteral("Search quotes"));
    pilot->type(QStringLiteral("nothing like it"));
    ASSERT_EQ(rows(), QStringList());
    pilot->tabTo(QStringLiteral("# of Quotes in your search = 0"));
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_End, Qt::Key_Return, Qt::Key_Delete})
        pilot->press(key);
    EXPECT_NO_THROW(top<MasterViewController>());
    EXPECT_EQ(quoteCount(), 1);
}

TEST_F(Views, QuoteListDeletesBySwipe) {
    addQuote(QStringLiteral("Ann"), QStringLiteral("a"), {});
    addQuote(QStringLiteral("Ann"), QStringLiteral("b"), {});
    open("Quote List");
    pilot->drag(*pilot->findAll(QStringLiteral("Topic: b")).at(0), {-130, 0});
    pilot->tap(QStringLiteral("delete"));
    EXPECT_EQ(quoteCount(), 1);
    EXPECT_EQ(rows(), QStringList("Topic: a"));
    pilot->tap(QStringLiteral("Undo"));
    EXPECT_EQ(rows(), QStringList({"Topic: a", "Topic: b"}));
    EXPECT_FALSE(pilot->look(QStringLiteral("Undo")));
}

TEST_F(Views, QuoteListDeletesBySwipeInASearch) {
    for (const char* text : {"first love", "second love", "third love", "hate"})
        addQuote(QStringLiteral("Ann"), QLatin1String(text), QLatin1String(text));
    open("Quote List");
    pilot->tap(QStringLiteral("Quote"));
    pilot->tap(QStringLiteral("Search quotes"));
    pilot->type(QStringLiteral("love"));
    ASSERT_EQ(rows().size(), 3);
    pilot->drag(*pilot->findAll(QStringLiteral("Topic: second")).at(0), {-120, 0});
    pilot->tap(QStringLiteral("delete"));
    EXPECT_EQ(rows(), QStringList({"Topic: first love", "Topic: third love"}));
    EXPECT_EQ(quoteCount(), 3);
    pilot->press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(rows().size(), 3);
    EXPECT_EQ(quoteCount(), 4);
    EXPECT_EQ(pilot->find(QStringLiteral("Search quotes")).property("text"),
              QStringLiteral("love"));
}

TEST_F(Views, QuoteListShowsTheActionsOfOneRowAtATime) {
    for (int number = 0; number < 40; ++number)
        addQuote(QStringLiteral("Ann"), QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')),
                 {});
    open("Quote List");
    QQuickItem& list = pilot->list();
    const auto row = [&](int number) -> QQuickItem& {
        return *pilot->findAll(QStringLiteral("Topic: %1").arg(number, 2, 10, QLatin1Char('0')))
                    .at(0);
    };
    const auto actionRows = [&] {
        QStringList names;
        for (const QQuickItem* action : pilot->findAll(QStringLiteral("delete"))) {
            while (!action->property("text").toString().startsWith(QStringLiteral("Topic")))
                action = action->parentItem();
            names.append(action->property("text").toString());
        }
        return names;
    };
    pilot->drag(row(1), {-20, 0});
    pilot->drag(row(1), {120, 0});
    EXPECT_EQ(actionRows(), QStringList());
    pilot->drag(row(1), {-60, 5});
    EXPECT_EQ(actionRows(), QStringList("Topic: 01"));
    pilot->drag(row(2), {-200, 0});
    EXPECT_EQ(actionRows(), QStringList("Topic: 02"));
    pilot->tap(row(2));
    EXPECT_EQ(actionRows(), QStringList());
    EXPECT_NO_THROW(top<MasterViewController>());

    pilot->drag(row(3), {-120, 0});
    pilot->drag(row(6), {0, -150});
    EXPECT_GT(list.property("contentY").toDouble(), 100);
    EXPECT_EQ(actionRows(), QStringList());
    pilot->tap(row(9));
    EXPECT_EQ(top().title(), "Quote");
}

TEST_F(Views, QuoteListDeletesByMenu) {
    addQuote(QStringLiteral("Ann"), QStringLiteral("a"), {});
    addQuote(QStringLiteral("Ann"), QStringLiteral("b"), {});
    open("Quote List");
    pilot->tap(*pilot->findAll(QStringLiteral("Topic: a")).at(0), Qt::RightButton);
    pilot->tap(QStringLiteral("delete"));
    EXPECT_EQ(quoteCount(), 1);
    EXPECT_EQ(rows(), QStringList("Topic: b"));
}

TEST_F(Views, QuoteListDeletesByKey) {
    addQuote(QStringLiteral("Ann"), QStringLiteral("a"), {});
    addQuote(QStringLiteral("Ann"), QStringLiteral("b"), {});
    addQuote(QStringLiteral("Ann"), QStringLiteral("c"), {});
    open("Quote List");
    pilot->tabTo(QStringLiteral("# of Quotes = 3"));
    pilot->press(Qt::Key_Down);
    pilot->press(Qt::Key_Down);
    pilot->hold(Qt::Key_Delete);
    EXPECT_EQ(quoteCount(), 2);
    EXPECT_EQ(rows(), QStringList({"Topic: a", "Topic: c"}));
}

TEST_F(Views, QuoteListKeepsItsPlaceWhenRowsGoAndSortsChange) {
    for (int number = 0; number < 300; ++number)
        addQuote(QStringLiteral("Ann"), QStringLiteral("%1").arg(number, 3, 10, QLatin1Char('0')),
                 {});
    open("Quote List");
    QQuickItem& list = pilot->list();
    list.setProperty("contentY", 6000);
    pilot->settle();
    const double place = list.property("contentY").toDouble();
    ASSERT_GT(place, 5000);
    pilot->drag(*pilot->findAll(QStringLiteral("Topic: ")).at(2), {-130, 0});
    pilot->tap(QStringLiteral("delete"));
    EXPECT_EQ(quoteCount(), 299);
    EXPECT_NEAR(list.property("contentY").toDouble(), place, 1);
    pilot->tap(QStringLiteral("Sort"));
    EXPECT_NEAR(list.property("contentY").toDouble(), place, 1);
    pilot->tap(*pilot->findAll(QStringLiteral("Topic: ")).at(3));
    EXPECT_EQ(top().title(), "Quote");
    pilot->tap(QStringLiteral("Back"));
    EXPECT_NEAR(list.property("contentY").toDouble(), place, 1);
    pilot->tap(QStringLiteral("Search quotes")); // which shows the first it finds
    pilot->type(QStringLiteral("1"));
    EXPECT_EQ(rows().value(0), "Topic: 291");
    EXPECT_GE(pilot->findAll(QStringLiteral("Topic: 291")).at(0)->mapToScene({0, 0}).y(), 100);
}

TEST_F(Views, AddQuoteTakesTypedAndPickedValues) {
    context().insert<Topics>()->setTopic(QStringLiteral("hope"));
    context().insert<Topics>()->setTopic(QStringLiteral("love"));
    program.application().saveContext();
    auto& form = open<AddViewController>("Add New Quote");
    pilot->tap(QStringLiteral("Save"));
    EXPECT_TRUE(pilot->look(QStringLiteral("OK")));
    pilot->press(Qt::Key_Escape);
    EXPECT_EQ(program.navigation().presentedViewController(), nullptr);
    EXPECT_EQ(program.navigation().depth(), 2);

    pilot->tap(QStringLiteral("Topic"));
    EXPECT_TRUE(form.CategoryTextField->isEditing());
    pilot->tap(QStringLiteral("love"));
    EXPECT_EQ(form.CategoryTextField->text(), "love");
    pilot->press(Qt::Key_Escape);
    EXPECT_FALSE(form.CategoryTextField->isEditing());
    pilot->tap(QStringLiteral("Source"));
    pilot->type(QStringLiteral("Войнá"));
    EXPECT_EQ(form.SourceTextField->text(), QStringLiteral("Войнá"));
    pilot->press(Qt::Key_Escape);
    pilot->tap(QStringLiteral("Author"));
    pilot->type(QStringLiteral("A"));
    pilot->press(Qt::Key_Escape);
    pilot->tap(QStringLiteral("Date"));
    EXPECT_EQ(form.DateAddedTextField->text(), "March 1, 2021");
    pilot->press(Qt::Key_A, Qt::ControlModifier);
    pilot->type(QStringLiteral("March 3, 2001"));
    pilot->press(Qt::Key_Return);
    EXPECT_FALSE(form.DateAddedTextField->isEditing());
    pilot->tap(QStringLiteral("Quote"));
    pilot->type(QStringLiteral("Text"));
    pilot->tap(QStringLiteral("Save"));
    EXPECT_EQ(top().title(), "Lantern");
    const auto quotes = context().fetch(Event::fetchRequest()).records;
    ASSERT_EQ(quotes.size(), 1);
    EXPECT_EQ(quotes[0]->source(), QStringLiteral("Войнá"));
    EXPECT_EQ(quotes[0]->quote(), QStringLiteral("Text"));
    EXPECT_EQ(quotes[0]->timestamp(), Date(std::chrono::milliseconds(983'620'800'000)));
}

TEST_F(Views, FileSheetLeadsToAFileByKeyboardAndByTaps) {
    const QString folder = home.filePath(QStringLiteral("Papers"));
    ASSERT_TRUE(QDir().mkpath(folder + QStringLiteral("/b # 100% é")));
    for (const char* name : {"/A.csv", "/b # 100% é/Deep.txt"})
        ASSERT_TRUE(QFile(folder + QString::fromUtf8(name)).open(QFile::WriteOnly));
    open("Import");
    QUrl picked;
    int cancelled = 0;
    const auto present = [&] {
        auto chooser = std::make_unique<DocumentPickerViewController>(QStringList("public.item"));
        chooser->didPickDocumentAtURL = [&](const QUrl& url) { picked = url; };
        chooser->wasCancelled = [&] { ++cancelled; };
        top().present(std::move(chooser));
        pilot->settle();
    };
    present();
    auto* files = pilot->find(QStringLiteral("Files")).property("model").value<QObject*>();
    files->setProperty("path", folder);
    pilot->find(QStringLiteral("A.csv"));
    pilot->press(Qt::Key_Return);
    pilot->find(QStringLiteral("Deep.txt"));
    pilot->press(Qt::Key_Backspace);
    pilot->press(Qt::Key_Down);
    pilot->press(Qt::Key_Return);
    EXPECT_EQ(picked, QUrl::fromLocalFile(folder + QStringLiteral("/A.csv")));
    EXPECT_FALSE(pilot->look(QStringLiteral("Files")));

    present();
    pilot->tap(QStringLiteral("b # 100% é"));
    pilot->tap(QStringLiteral("Deep.txt"));
    EXPECT_EQ(picked, QUrl::fromLocalFile(folder + QStringLiteral("/b # 100% é/Deep.txt")));

    EXPECT_EQ(cancelled, 0);
    present();
    pilot->press(Qt::Key_Escape);
    EXPECT_EQ(cancelled, 1);
    present();
    pilot->tap(QStringLiteral("Cancel"));
    EXPECT_EQ(cancelled, 2);
    EXPECT_EQ(top().title(), "Import Quote Records");
}

TEST_F(Views, TextAreaKeepsEveryCharacterBesideWhatIsTyped) {
    const QString kept = QStringLiteral("\u00ab\u00a0Non\u202f!\u00a0\u00bb\tune\nligne\u2028"
                                        "puis e\u0301 \U0001f468\u200d\U0001f469 \u00ad\ufffc");
    auto& form = open<AddViewController>("Add New Quote");
    form.QuoteTextView->setText(kept);
    pilot->tap(QStringLiteral("Quote"));
    pilot->press(Qt::Key_End, Qt::ControlModifier);
    pilot->type(QStringLiteral("a\u00a0b"));
    EXPECT_EQ(form.QuoteTextView->text(), kept + QStringLiteral("a\u00a0b"));

    // The view cannot hold these; as long as nothing is typed, they stay.
    const QString foreign = QStringLiteral("one\r\ntwo\u2029three\rfour");
    form.QuoteTextView->setText(foreign);
    pilot->press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(form.QuoteTextView->text(), foreign);
    pilot->type(QStringLiteral("x"));
    EXPECT_EQ(form.QuoteTextView->text(), QStringLiteral("xone\ntwo\nthree\nfour"));
}

TEST_F(Views, ImportAsksLoadsAndReports) {
    const QString path = home.filePath(QStringLiteral("Quotes.csv"));
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("[QUOTECOLLECTION]\nA^T^S^^one\n[TOPICCOLLECTION]\nT\n");
    file.close();
    auto& screen = open<ImportViewController>("Import");
    pilot->tap(QStringLiteral("Import File"));
    EXPECT_EQ(program.navigation().presentedViewController(), nullptr);
    pilot->tap(QStringLiteral("Load File"));
    auto* picker =
        qobject_cast<DocumentPickerViewController*>(program.navigation().presentedViewController());
    ASSERT_TRUE(picker);
    picker->pick(QUrl::fromLocalFile(path));
    pilot->tap(QStringLiteral("OK"));
    EXPECT_TRUE(screen.ImportButton->isEnabled());
    pilot->tap(QStringLiteral("Import File"));
    pilot->tap(QStringLiteral("OK"));
    EXPECT_EQ(top().title(), "Lantern");
    EXPECT_EQ(quoteCount(), 1);
}

TEST_F(Views, ExportIsCreatedSavedAndMailed) {
    addQuote(QStringLiteral("Ann"), QStringLiteral("a"), QStringLiteral("<b>one</b>"));
    const auto& screen = open<ExportViewController>("Export");
    pilot->tap(QStringLiteral("Save To Files"));
    EXPECT_EQ(program.navigation().presentedViewController(), nullptr);
    pilot->tap(QStringLiteral("Create Export File"));
    pilot->tap(QStringLiteral("OK")); // of the alert, which comes a second later
    EXPECT_FALSE(screen.activityIndicator->isAnimating());
    EXPECT_EQ(screen.ProgressView->progress(), 1);
    EXPECT_EQ(pilot->list().property("count"), 3);
    pilot->drag(pilot->placeOf(QStringLiteral("[QUOTECOLLECTION]")).center(), {30, 24});
    pilot->press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              "[QUOTECOLLECTION]\nAnn^a^Source^2020-09-13 12:26:40 +0000^<b>one</b>");
    pilot->press(Qt::Key_A, Qt::ControlModifier);
    pilot->press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().endsWith(QStringLiteral("[TOPICCOLLECTION]")));
    pilot->tap(QStringLiteral("Save To Files"));
    pilot->tap(QStringLiteral("Save to Files"));
    ASSERT_EQ(platform.saved.size(), 1);
    const QString file = std::get<SharedFile>(platform.saved[0].at(0)).path;
    EXPECT_EQ(QFile::permissions(QFileInfo(file).path()) & (QFile::ReadGroup | QFile::ReadOther),
              0);
    pilot->tap(QStringLiteral("Email File"));
    ASSERT_EQ(platform.mails.size(), 1);
    EXPECT_EQ(platform.mails[0].attachments.at(0).data,
              "[QUOTECOLLECTION]\nAnn^a^Source^2020-09-13 12:26:40 +0000^<b>one</b>\n"
              "[TOPICCOLLECTION]\n");
}

TEST_F(Views, PrintQuotesShowsTheWholeTextAndHandsItOn) {
    const QString longQuote = QStringLiteral("word ").repeated(300);
    addQuote(QStringLiteral("Ann"), QStringLiteral("a"), longQuote);
    program.application().services.selection.callingScreen = QStringLiteral("AuthorBreakdown");
    program.application().services.selection.selectedAuthor = QStringLiteral("Ann");
    program.navigation().pushViewController(
        top().storyboard()->instantiate(QStringLiteral("PrintQuoteViewController")));
    pilot->settle();
    EXPECT_EQ(top().title(), "Print Quotes");
    pilot->tap(QStringLiteral("Create File"));
    ASSERT_EQ(platform.printed.size(), 1);
    QString shown;
    for (const QQuickItem* line : pilot->findAll({}))
        shown += line->property("line").toString();
    EXPECT_TRUE(shown.contains(longQuote));
    EXPECT_GT(pilot->list().property("contentHeight").toDouble(), 500);
    pilot->tap(QStringLiteral("Print"));
    EXPECT_EQ(platform.printed.size(), 2);
    pilot->tap(QStringLiteral("Share"));
    pilot->tap(QStringLiteral("Copy"));
    EXPECT_EQ(platform.copied.size(), 1);
}

TEST_F(Views, RateShareRowsWorkByTapAndByKeyboard) {
    open("Rate/Share");
    pilot->tap(QStringLiteral("Share the Website"));
    pilot->tap(QStringLiteral("Message"));
    EXPECT_EQ(platform.messages.size(), 1);
    pilot->press(Qt::Key_Down);
    pilot->press(Qt::Key_Return);
    EXPECT_EQ(platform.opened, QList<QUrl>({QUrl(QStringLiteral("http://www.lantern.example"))}));
    platform.sendsMail = false;
    pilot->tap(QStringLiteral("Send Feedback"));
    pilot->find(QStringLiteral("OK"));
}

TEST_F(Views, LongWorkTakesAllInputUntilItIsCancelled) {
    LongWork& work = program.application().services.longWork;
    for (const bool byKey : {false, true}) {
        int ends = 0;
        work.run(
            QStringLiteral("Working"), [] { return std::optional(0.25); },
            [&ends](bool isCancelled) { ends += isCancelled ? 1 : 100; });
        EXPECT_EQ(pilot->find(QStringLiteral("Working")).property("value"), 0.25);
        pilot->press(Qt::Key_F, Qt::ControlModifier);
        pilot->tap(QStringLiteral("Menu"));
        EXPECT_FALSE(pilot->look(QStringLiteral("Quote List")));
        EXPECT_EQ(ends, 0);
        if (byKey)
            pilot->press(Qt::Key_Escape);
        else
            pilot->tap(QStringLiteral("Cancel"));
        EXPECT_EQ(ends, 1);
        EXPECT_TRUE(Pilot::waitFor([&] { return !pilot->look(QStringLiteral("Cancel")); }));
    }
}

TEST_F(Views, WhatIsNotOnDiskIsSaidUntilItIs) {
    program.application().notOnDiskChanged(QStringLiteral("Not on disk yet: no space left"));
    QQuickItem& line = pilot->find(QStringLiteral("Not on disk yet: no space left"));
    EXPECT_TRUE(line.isVisible());
    pilot->tap(QStringLiteral("Menu"));
    program.application().notOnDiskChanged(QString());
    EXPECT_FALSE(line.isVisible());
}

TEST_F(Views, FatalMessageStaysInTheWindowUntilItIsRead) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_EXIT(
        {
            QTimer::singleShot(0, [this] {
                if (pilot->find(QStringLiteral("Reason")).property("text") !=
                    QStringLiteral("The lamp <b>went out</b>"))
                    std::_Exit(2);
                pilot->tap(QStringLiteral("Quit"));
            });
            fatalError(QStringLiteral("The lamp <b>went out</b>"));
        },
        testing::ExitedWithCode(EXIT_FAILURE),
        "Fatal error: The lamp <b>went out</b> .ViewTests.cpp, line");
}

TEST_F(Views, AFileThatIsOpenedWaitsOnTheImportScreen) {
    const QString path = home.filePath(QStringLiteral("QuoteCollection.csv"));
    write(path, "[QUOTECOLLECTION]\nAnn^Hope^^^text\n");
    program.openCollectionFile(QUrl::fromLocalFile(path));
    pilot->settle();
    pilot->tap(QStringLiteral("OK"));
    EXPECT_EQ(quoteCount(), 0);
    EXPECT_TRUE(pilot->find(QStringLiteral("Import text")).isVisible());
    pilot->tap(QStringLiteral("Import File"));
    pilot->tap(QStringLiteral("OK"));
    EXPECT_NO_THROW(top<MainMenuViewController>());
    EXPECT_EQ(quoteCount(), 1);

    const QString pipe = home.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    for (const QString& other : {pipe, home.path(), home.filePath(QStringLiteral("gone"))}) {
        program.openCollectionFile(QUrl::fromLocalFile(other));
        pilot->settle();
        pilot->tap(QStringLiteral("OK"));
        EXPECT_FALSE(top<ImportViewController>().ImportButton->isEnabled()) << other.toStdString();
        EXPECT_TRUE(top<ImportViewController>().LoadFileButton->isEnabled());
        EXPECT_EQ(warnings.size(), 1);
        warnings.clear();
        pilot->press(Qt::Key_Escape);
    }
    EXPECT_EQ(quoteCount(), 1);
}

} // namespace

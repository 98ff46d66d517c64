#include "exchange/ImportViewController.h"
#include "support/TestApplication.h"
#include "toolkit/DocumentPickerViewController.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

class Import : public testing::Test {
protected:
    /** Loads a file of this content and presses both buttons. */
    void import(const QByteArray& content) {
        load(content);
        presentedAlert(*screen)->choose(0);
        screen->ImportButton->press();
        application.finishLongWork();
    }

    void load(const QByteArray& content) {
        const QString path = application.folder.filePath(QStringLiteral("Quotes.csv"));
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
        file.close();
        pick(path);
    }

    void pick(const QString& path) {
        screen = std::make_unique<ImportViewController>(application.delegate);
        segues = &recordSegues(*screen);
        screen->viewDidLoad();
        screen->LoadFileButton->press();
        auto* picker =
            qobject_cast<DocumentPickerViewController*>(screen->presentedViewController());
        ASSERT_TRUE(picker);
        picker->pick(QUrl::fromLocalFile(path));
    }

    /** Every quote as author^topic^source^date^text, with "-" for an absent attribute. */
    QStringList quotes() {
        QStringList list;
        const auto text = [](const std::optional<QString>& value) {
            return value.value_or(QStringLiteral("-"));
        };
        for (const Event* quote : application.all<Event>()) {
            const auto date = quote->timestamp();
            list.append(
                QStringList({text(quote->author()), text(quote->category()), text(quote->source()),
                             date ? formatDate(*date, DateStyle::Medium, application.environment)
                                  : QStringLiteral("-"),
                             text(quote->quote())})
                    .join(QLatin1Char('^')));
        }
        return list;
    }

    QStringList topics() { return application.names<Topics>(&Topics::topic); }

    TestApplication application;
    std::unique_ptr<ImportViewController> screen;
    QStringList* segues = nullptr;
};

TEST_F(Import, MergesQuotesAndTopicsAndReturns) {
    import("[QUOTECOLLECTION]\r\n"
           "A^T^S^2021-03-07 14:05:09 +0000^one@#@two\r\n"
           "O'Brien^T^S^^it's\r\n"
           "A^T^^2021.03.08 00:00:00^no source\r\n"
           "A^^S^^no topic\r\n"
           "A^T^S^2021-03-09 14:05:09 +0000^last wins\r\n"
           "^U\r\n"
           "[TOPICCOLLECTION]\r\n"
           "O'Brien\r\n"
           "  Hope \t\r\n"
           "a^b\r\n"
           "Hope\r\n");
    EXPECT_EQ(quotes(), QStringList({"A^T^S^Mar 9, 2021^last wins", "OBrien^T^S^-^its",
                                     "A^T^-^Mar 8, 2021^no source", "-^U^-^-^-",
                                     "a^b^-^-^-"})); // a topic line with two fields is a quote too
    EXPECT_EQ(topics(), QStringList({"O'Brien", "Hope", "b", "Hope"}));
    EXPECT_FALSE(application.context().hasChanges());
    EXPECT_EQ(screen->theAuthor, "Hope"); // of the last line, which is no quote
    EXPECT_EQ(screen->theCategory, "");

    AlertController* alert = presentedAlert(*screen);
    ASSERT_TRUE(alert);
    EXPECT_EQ(alert->title(), "Data Import File");
    EXPECT_EQ(alert->message(), "Data File Import Completed");
    EXPECT_TRUE(segues->isEmpty());
    alert->choose(0);
    EXPECT_EQ(*segues, QStringList("unwindToMainMenu"));
}

TEST_F(Import, OfTheSameFileTwiceRepeatsOnlyLinesWithoutASource) {
    const QByteArray file = "[QUOTECOLLECTION]\nA^T^S^^one\nA^T^^^two\n[TOPICCOLLECTION]\nT\n";
    import(file);
    import(file);
    EXPECT_EQ(quotes(), QStringList({"A^T^S^-^one", "A^T^-^-^two", "A^T^-^-^two"}));
    EXPECT_EQ(topics(), QStringList("T"));
}

TEST_F(Import, UpdatesOneMatchAndSkipsALineWithMore) {
    application.addQuote({.author = "A", .category = "T", .source = "S", .quote = "old"});
    application.addQuote({.author = "B", .category = "T", .source = "S", .quote = "1"});
    application.addQuote({.author = "B", .category = "T", .source = "S", .quote = "2"});
    import("[QUOTECOLLECTION]\nA^T^S^^\nB^T^S^13th of never^3\na^T^S^^new\n");
    EXPECT_EQ(quotes(), QStringList({"A^T^S^-^old", "B^T^S^-^1", "B^T^S^-^2", "a^T^S^-^new"}));
    EXPECT_EQ(screen->resultCount, 0);
}

TEST_F(Import, LeavesAnUpdateForTheNextSave) {
    application.addQuote({.author = "A", .category = "T", .source = "S", .quote = "old"});
    import("[QUOTECOLLECTION]\nA^T^S^^new\n");
    EXPECT_EQ(quotes(), QStringList("A^T^S^-^new"));
    EXPECT_TRUE(application.context().hasChanges());
}

TEST_F(Import, OfAnotherFileChangesNothingAndNamesIt) {
    import("A^T^S^^text\n[TOPICCOLLECTION]\nT\n");
    EXPECT_TRUE(quotes().isEmpty());
    EXPECT_TRUE(topics().isEmpty());
    EXPECT_EQ(screen->wrongFile, true);
    AlertController* alert = presentedAlert(*screen);
    EXPECT_EQ(alert->title(), "Data Import");
    EXPECT_EQ(alert->message(), "Quotes.csv Is The Incorrect Import File");
    alert->choose(0);
    EXPECT_EQ(*segues, QStringList("unwindToMainMenu"));
}

TEST_F(Import, EndsTheProgramAtADateThatCannotBeRead) {
    application.addQuote({.author = "A", .category = "T", .source = "S", .quote = "old"});
    load("[QUOTECOLLECTION]\n\nA^T^S^2021-03-07 14:05:09 +0000^one\n"
         "B^T^S^2021-13-07 14:05:09 +0000^two\nC^T^S^^three\n");
    EXPECT_EQ(fatalMessageOf([&] { screen->ImportTextFile(); }),
              "Line 4 of Quotes.csv has a date that cannot be read: "
              "\"2021-13-07 14:05:09 +0000\"");
    // What came before is in the file of the store, of the line itself nothing.
    EXPECT_EQ(quotes(), QStringList("A^T^S^Mar 7, 2021^one"));
    EXPECT_FALSE(application.context().hasChanges());
}

TEST_F(Import, EndsTheProgramAtATopicStoredWithBlanks) {
    application.context().insert<Topics>()->setTopic(QStringLiteral(" T "));
    application.delegate.saveContext();
    load("[QUOTECOLLECTION]\nA^T^S^^one\n[TOPICCOLLECTION]\nT\n");
    EXPECT_NE(fatalMessageOf([&] { screen->ImportTextFile(); }), "");
    EXPECT_EQ(quotes(), QStringList("A^T^S^-^one"));
    EXPECT_EQ(topics(), QStringList(" T "));
    EXPECT_FALSE(application.context().hasChanges());
}

TEST_F(Import, TellsAFailedReadByTheButtonsAlone) {
    for (const QString& path :
         {application.folder.path(), application.folder.filePath(QStringLiteral("gone.csv"))}) {
        pick(path);
        AlertController* alert = presentedAlert(*screen);
        ASSERT_TRUE(alert);
        EXPECT_EQ(alert->title(), "Data Import File");
        EXPECT_EQ(alert->message(), "File Loaded and Ready to Import");
        EXPECT_FALSE(screen->ImportButton->isEnabled());
        EXPECT_TRUE(screen->LoadFileButton->isEnabled());
        EXPECT_FALSE(screen->document.has_value());
    }
    EXPECT_EQ(screen->filename, QStringLiteral("gone.csv"));
}

TEST_F(Import, ShowsTheLoadedTextAndWaitsForTheImport) {
    load("[QUOTECOLLECTION]\nA^T^S^^text\n");
    EXPECT_EQ(screen->title(), "Import Quote Records");
    EXPECT_EQ(screen->HelpTextView->text(), "1: First create an Export file if you haven't yet.\n"
                                            "2: Select the file you saved to your iCloud drive\n"
                                            "3: Import the file into your device");
    EXPECT_EQ(screen->ImportTextView->text(), "[QUOTECOLLECTION]\nA^T^S^^text\n");
    EXPECT_EQ(screen->ImportTextView->lineBreakMode(), LineBreakMode::TruncatingTail);
    EXPECT_TRUE(screen->ImportButton->isEnabled());
    EXPECT_FALSE(screen->LoadFileButton->isEnabled());
    EXPECT_TRUE(quotes().isEmpty());
}

TEST_F(Import, CancelledPickerChangesNothing) {
    screen = std::make_unique<ImportViewController>(application.delegate);
    screen->viewDidLoad();
    screen->LoadFileButton->press();
    qobject_cast<DocumentPickerViewController*>(screen->presentedViewController())->cancel();
    EXPECT_EQ(screen->presentedViewController(), nullptr);
    EXPECT_FALSE(screen->ImportButton->isEnabled());
    EXPECT_FALSE(screen->filename.has_value());
    EXPECT_EQ(fatalMessageOf([&] { screen->ImportTextFile(); }),
              "An import was started before a file was loaded");
}

TEST_F(Import, TakesHugeLinesAndStrangeBytes) {
    QByteArray file = "[QUOTECOLLECTION]\nA^T^S^^" + QByteArray(10'000'000, 'x') + "\n";
    file += "B^T^S^^five" + QByteArray(1'000'000, '^') + "\n";
    file += QByteArray("C^T^S^^nul \0 within\n", 20);
    file += "too few\n[TOPICCOLLECTION]\n" + QByteArray(1'000'000, '^') + "last\n";
    import(file);
    const QStringList imported = quotes();
    ASSERT_EQ(imported.size(), 3);
    EXPECT_EQ(imported.at(0).size(), 10'000'000 + 8);
    EXPECT_EQ(imported.at(1), "B^T^S^-^five");
    EXPECT_EQ(imported.at(2), QString::fromLatin1("C^T^S^-^nul \0 within", 20));
    EXPECT_EQ(topics(), QStringList("last"));
}

TEST_F(Import, LeavesTheStoreAsItWasWhenItIsCancelled) {
    import("[QUOTECOLLECTION]\nAnn^Hope^Diary^2021-03-07 14:05:09 +0000^before\nAnn^Hope^^^x\n"
           "[TOPICCOLLECTION]\nHope\n");
    const auto before = quotes();
    QByteArray file = "[QUOTECOLLECTION]\nAnn^Hope^Diary^2022-03-07 14:05:09 +0000^after\n";
    constexpr int many = 10'000;
    for (int i = 0; i < many; ++i)
        file += "Bob^Hope^Letter " + QByteArray::number(i) + "^^text\n";
    load(file + "[TOPICCOLLECTION]\nFear\n");
    presentedAlert(*screen)->choose(0);
    // In the midst of the lines, and of what is written then.
    for (const double done : {0.1, 0.6}) {
        screen->ImportButton->press();
        while (application.longWork.done() < done) {
            ASSERT_EQ(application.longWork.title(), "Importing");
            application.mainQueue.runAll();
        }
        application.longWork.cancel();
        EXPECT_FALSE(screen->presentedViewController());
        EXPECT_EQ(quotes(), before);
        EXPECT_EQ(topics(), QStringList("Hope"));
        EXPECT_FALSE(application.context().hasChanges());
    }
    screen->ImportButton->press();
    application.finishLongWork();
    EXPECT_EQ(quotes().size(), many + 2);
    EXPECT_TRUE(quotes().front().endsWith(QStringLiteral("after")));
    EXPECT_EQ(presentedAlert(*screen)->message(), "Data File Import Completed");
}

} // namespace

#include "exchange/ExportViewController.h"
#include "exchange/ImportViewController.h"
#include "exchange/PrintQuoteViewController.h"
#include "names/Breakdowns.h"
#include "names/BrowseLists.h"
#include "names/RecordLists.h"
#include "names/TopicTableTableViewController.h"
#include "quotes/AddViewController.h"
#include "quotes/DetailViewController.h"
#include "quotes/MasterViewController.h"
#include "quotes/NewViewTableViewController.h"
#include "quotes/QuoteFullScreenViewController.h"
#include "reliability/Effort.h"
#include "reliability/Memory.h"
#include "settings/DefaultsViewController.h"
#include "support/TestApplication.h"

#include <QCoreApplication>
#include <QFile>
#include <QLoggingCategory>

#include <gtest/gtest.h>
#include <iostream>

using namespace std::chrono_literals;

namespace {

class Memory : public testing::Test {
protected:
    Memory() {
        QLoggingCategory::setFilterRules(QStringLiteral("lantern.*=false"));
        QFile file(collection);
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write("[QUOTECOLLECTION]\n");
        for (int i = 0; i < 50; ++i) {
            const QByteArray number = QByteArray::number(i);
            file.write("Author " + number + "^Topic^Source " + number +
                       "^2021-03-07 14:05:09 +0000^text " + number + "\n");
        }
        file.write("[TOPICCOLLECTION]\nTopic\n");
    }
    ~Memory() override { QLoggingCategory::setFilterRules({}); }

    /** Opens every screen and changes what is there, so that all is as it was at the end. */
    void useEverything() {
        ImportViewController import(application.delegate);
        import.viewDidLoad();
        import.didPickDocumentAtURL(QUrl::fromLocalFile(collection));
        import.ImportTextFile();
        application.finishLongWork();
        application.delegate.saveContext();

        MasterViewController list(application.delegate);
        list.viewDidLoad();
        for (int segment = 0; segment < 4; ++segment) {
            list.segment->choose(segment);
            list.searchController->searchBar()->setText(QStringLiteral("4"));
            list.SortButtonTapped();
            for (int row = 0; row < list.numberOfRowsInSection(0); ++row)
                list.tableView()->endDisplaying(list.tableView()->beginDisplaying(row));
            list.searchController->searchBar()->setText(QString());
        }
        for (const char* text : {"changed", "changed back"}) {
            list.viewWillAppear();
            list.didSelectRowAtIndexPath(7);
            DetailViewController detail(application.delegate);
            detail.viewDidLoad();
            detail.viewWillAppear();
            detail.increaseFont();
            detail.decreaseFont();
            detail.QuoteTextView->setText(QLatin1String(text));
            detail.SaveQuote();
        }
        QuoteFullScreenViewController(application.delegate).viewDidLoad();
        NewViewTableViewController(application.delegate).viewDidLoad();
        AddViewController form(application.delegate);
        form.viewDidLoad();
        form.viewWillAppear();
        form.SaveQuote(); // not without a source
        DefaultsViewController settings(application.delegate);
        settings.viewDidLoad();
        for (Switch* choice : {settings.DefaultDateSwitch, settings.DateWheelSwitch,
                               settings.DateInlineSwitch, settings.DateCompactSwitch}) {
            choice->toggle();
            choice->toggle();
        }
        useNames();
        ExportViewController exported(application.delegate);
        exported.viewDidLoad();
        exported.CreateUpdateFile();
        exported.SaveToFiles();
        application.mainQueue.runAll();
        QCoreApplication::processEvents();
    }

    static void showAllRows(TableViewController& list) {
        list.loadViewIfNeeded();
        list.viewWillAppear();
        for (int row = 0; row < list.numberOfRowsInSection(0); ++row)
            list.tableView()->endDisplaying(list.tableView()->beginDisplaying(row));
    }

    void useNames() {
        AuthorTableViewController authors(application.delegate);
        showAllRows(authors);
        authors.list.searchController->searchBar()->setText(QStringLiteral("4"));
        authors.list.SortData();
        authors.didSelectRowAtIndexPath(0);
        AuthorBreakdownTableViewController quotes(application.delegate);
        showAllRows(quotes);
        application.selection.callingScreen = QStringLiteral("AuthorBreakdown");
        PrintQuoteViewController print(application.delegate);
        print.viewDidLoad();
        print.CreateFileClick();
        application.platform.printed.clear();
        application.said.clear();
        NewAuthorTableViewController names(application.delegate);
        showAllRows(names);
        TopicTableTableViewController topics(application.delegate);
        showAllRows(topics);
    }

    TestApplication application;
    const QString collection = application.folder.filePath(QStringLiteral("Quotes.csv"));
};

} // namespace

TEST_F(Memory, OfScreensThatHaveGoneIsGivenBack) {
    const int rounds = effort("LANTERN_SCREEN_ROUNDS", 60);
    for (int round = 0; round < 20; ++round)
        useEverything();
    const std::size_t before = memoryInUse();
    for (int round = 0; round < rounds; ++round)
        useEverything();
    const auto growth = (double(memoryInUse()) - double(before)) / rounds;
    std::cout << growth << " bytes more in each of " << rounds << " rounds\n";
    EXPECT_LT(growth, 64);
}

#include "platform/Print.h"
#include "quotes/ChosenQuote.h"
#include "quotes/DetailViewController.h"
#include "support/Desktop.h"
#include "support/TestApplication.h"

#include <gtest/gtest.h>

namespace {

TEST(PrintedQuote, HoldsTheScriptsOfTheQuoteAndItsEmoji) {
    TestApplication application;
    const Event& quote = application.addQuote(
        {.author = "Лев Толстой",
         .category = "שלום",
         .source = "論語 🦊",
         .quote = "Война и мир 🦊\n學而時習之\nשלום עליכם",
         .timestamp = Date(std::chrono::milliseconds(0))});
    chooseQuote(quote, application.selection, [](Date) { return QString(); });
    DetailViewController detail(application.delegate);
    detail.viewDidLoad();
    detail.viewWillAppear();
    detail.EmailFileClick();
    ASSERT_EQ(application.platform.printed.size(), 1);
    const QString out = application.folder.filePath(QStringLiteral("out.pdf"));
    ASSERT_FALSE(printToPdf(application.platform.printed[0], out,
                            QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, {})));

    // Fonts share glyphs among look-alikes, which then read as one; normalized, they are the same.
    const QString text = textOfPdf(out).normalized(QString::NormalizationForm_KC);
    for (const char* expected :
         {"Source: 論語", "Author: Лев Толстой", "Quote: Война и мир", "學而時習之", "שלום עליכם"})
        EXPECT_TRUE(text.contains(QString::fromUtf8(expected))) << expected << " in\n"
                                                                << text.toStdString();
    const QImage page = pictureOfPdf(out);
    const auto isOrange = [&page](QPoint place) {
        const QColor color = page.pixelColor(place);
        return color.red() > 200 && color.green() < 150 && color.blue() < 100;
    };
    // The fox of the source and that of the quote, four lines below it.
    int foxes = 0;
    bool wasOrange = false;
    for (int y = 0; y < page.height(); ++y) {
        bool isRowOrange = false;
        for (int x = 0; x < page.width(); ++x)
            isRowOrange |= isOrange({x, y});
        foxes += isRowOrange && !wasOrange;
        wasOrange = isRowOrange;
    }
    EXPECT_EQ(foxes, 2);
}

} // namespace

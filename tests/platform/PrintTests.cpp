#include "platform/DesktopPlatform.h"
#include "platform/Markup.h"
#include "platform/Print.h"
#include "support/Desktop.h"

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QRegularExpression>

#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QPageLayout a4(QPageSize(QPageSize::A4), QPageLayout::Portrait, {});
const QPageLayout letter(QPageSize(QPageSize::Letter), QPageLayout::Portrait, {});

PrintJob jobOf(const QString& markup) {
    PrintJob job;
    job.markup = markup;
    job.jobName = QStringLiteral("Quotes");
    return job;
}

class Printing : public testing::Test {
protected:
    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }
    QString printed(const QString& markup, const QPageLayout& layout = a4) {
        const auto failure = printToPdf(jobOf(markup), path("out.pdf"), layout);
        EXPECT_FALSE(failure) << failure->description.toStdString();
        return textOfPdf(path("out.pdf"));
    }

    QTemporaryDir folder;
};

TEST_F(Printing, TextsOfAllScriptsAreInThePdf) {
    // Fonts share glyphs among look-alikes, which then read as one; normalized, they are the same.
    const QStringList texts{QStringLiteral("Война и мир, Ёж"), QStringLiteral("學而時習之不亦說乎"),
                            QStringLiteral("naïve Grüße"), QStringLiteral("שלום עליכם")};
    const QString text =
        printed(texts.join(QStringLiteral("<br />"))).normalized(QString::NormalizationForm_KC);
    for (const QString& expected : texts)
        EXPECT_TRUE(text.contains(expected)) << expected.toStdString() << " in\n"
                                             << text.toStdString();
}

/** The PDF engine names no characters beyond U+FFFF and no glyphs that are parts of letters, so
 * emoji and Arabic are looked for as ink: words are grey, emoji coloured. */
TEST_F(Printing, EmojiAreDrawnBetweenTheWords) {
    for (const char* line : {"left %1 right", "العربية %1 السلام"}) {
        for (const char* emoji : {"🦊", "🚀", "👩‍🚀", "🫶🏽", "🇩🇪", "🦊"}) {
            SCOPED_TRACE(QString::fromUtf8(line).arg(QString::fromUtf8(emoji)).toStdString());
            printed(QString::fromUtf8(line).arg(QString::fromUtf8(emoji)));
            const QImage page = pictureOfPdf(path("out.pdf"));
            ASSERT_EQ(page.width(), 595);
            std::vector<int> before; // columns, which are as wide as a point
            std::vector<int> within;
            std::vector<int> after;
            int orange = 0;
            for (int x = 0; x < page.width(); ++x) {
                bool isInked = false;
                bool isColored = false;
                for (int y = 0; y < page.height(); ++y) {
                    const QColor color = page.pixelColor(x, y);
                    isInked |= color.lightness() < 230;
                    isColored |= color.lightness() < 230 && color.hsvSaturation() > 40;
                    orange += color.red() > 200 && color.green() < 150 && color.blue() < 100;
                }
                if (isColored)
                    within.push_back(x);
                else if (isInked)
                    (within.empty() ? before : after).push_back(x);
            }
            EXPECT_GE(within.size(), 8U);
            EXPECT_LE(within.size(), 14U);
            EXPECT_GT(before.size(), 15U);
            EXPECT_GT(after.size(), 15U);
            if (!within.empty()) {
                EXPECT_LE(within.back() - within.front(), 14);
            }
            if (QLatin1String(emoji) == QLatin1String("🦊")) {
                EXPECT_GT(orange, 10);
            }
        }
    }
}

/** Between two jobs the PDF engine has had its way with the fonts. */
TEST_F(Printing, EmojiLeaveTheNextJobAsItWas) {
    const QString markup = QStringLiteral(
        "one 🦊 two 🦊👨‍👩‍👧 <h1>three 🦊</h1> four 🦊 \u200d\ufe0f five");
    printed(markup);
    const QImage first = pictureOfPdf(path("out.pdf"));
    printed(markup);
    EXPECT_EQ(pictureOfPdf(path("out.pdf")), first);
    QPrinter printer;
    printer.setResolution(printResolution);
    printer.setPageLayout(a4);
    printer.setOutputFileName(path("out.pdf"));
    ASSERT_TRUE(printPages(jobOf(markup), printer));
    EXPECT_EQ(pictureOfPdf(path("out.pdf")), first);
}

/** A thousand quotes fill their pages between the insets, none is lost, and no line is cut. */
TEST_F(Printing, PagesBreakBetweenTheInsets) {
    QString markup = QStringLiteral("Event Filtered by Topic<br /><br />");
    for (int number = 1; number <= 1000; ++number)
        markup += QStringLiteral("Topic: T - Source: S - Author: A - Quote: begin%1 "
                                 "it was the best of times, it was the worst of times, it was the "
                                 "age of wisdom, it was the age of foolishness end%1<br /><br />")
                      .arg(number);
    markup += QString(300, u'W') + QStringLiteral("<pre>") + QString(300, u'W') +
              QStringLiteral("</pre>");
    for (const auto& [layout, width, height] :
         {std::tuple{a4, 595.0, 842.0}, std::tuple{letter, 612.0, 792.0}}) {
        ASSERT_FALSE(printToPdf(jobOf(markup), path("out.pdf"), layout));
        const QString boxes = textOfPdf(path("out.pdf"), {QStringLiteral("-bbox")});
        static const QRegularExpression pattern(QString::fromLatin1(
            R"re(<page width="([\d.]+)" height="([\d.]+)">|)re"
            R"re(<word xMin="([\d.-]+)" yMin="([\d.-]+)" xMax="([\d.-]+)" yMax="([\d.-]+)">)re"
            R"re((?:begin(\d+)|end(\d+)|[^<]*)<)re"));
        int pages = 0;
        int begun = 0;
        int ended = 0;
        double lowest = 0;
        for (auto matches = pattern.globalMatch(boxes); matches.hasNext();) {
            const auto match = matches.next();
            const auto number = [&match](int group) { return match.captured(group).toDouble(); };
            if (match.capturedStart(1) >= 0) {
                EXPECT_NEAR(number(1), width, 1);
                EXPECT_NEAR(number(2), height, 1);
                if (pages > 0) {
                    EXPECT_GT(lowest, height - 72 - 40) << "page " << pages << " is not full";
                }
                ++pages;
                lowest = 0;
                continue;
            }
            EXPECT_GE(number(3), 71.5);
            EXPECT_GE(number(4), 70) << "page " << pages;
            EXPECT_LE(number(5), width - 71.5) << "page " << pages;
            EXPECT_LE(number(6), height - 70) << "page " << pages;
            lowest = std::max(lowest, number(6));
            if (match.capturedStart(7) >= 0) {
                EXPECT_EQ(number(7), ++begun);
            }
            if (match.capturedStart(8) >= 0) {
                EXPECT_EQ(number(8), ++ended);
            }
        }
        EXPECT_GT(pages, 50);
        EXPECT_EQ(begun, 1000);
        EXPECT_EQ(ended, 1000);
    }
}

TEST_F(Printing, ChosenPagesOnly) {
    QString markup = QStringLiteral("first");
    for (int line = 0; line < 150; ++line)
        markup += QStringLiteral("<br />");
    QPageRanges ranges;
    ranges.addRange(2, 9);
    ASSERT_FALSE(printToPdf(jobOf(markup + QStringLiteral("last")), path("out.pdf"), a4, ranges));
    EXPECT_EQ(textOfPdf(path("out.pdf")).simplified(), "last");
}

/** A document on a screen would open the image; one that names a pipe would wait for ever. */
TEST_F(Printing, NothingThatMarkupNamesIsOpened) {
    QImage(8, 8, QImage::Format_RGB32).save(path("image.png"));
    write(path("style.css"), "p { color: red }");
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    const int watch = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    ASSERT_GE(::inotify_add_watch(watch, QFile::encodeName(folder.path()).constData(), IN_OPEN), 0);

    QTemporaryDir elsewhere;
    QString markup;
    for (const QString& name : {path("image.png"), path("pipe"), path("style.css")}) {
        for (const QString& address : {name, QStringLiteral("file://") + name}) {
            for (const char* element :
                 {"<link rel=\"stylesheet\" type=\"text/css\" href=\"%1\">",
                  "<style>@import url(\"%1\"); p { background-image: url(%1) }</style>",
                  "<img src=\"%1\">", "<p style=\"background: url('%1')\">x</p>",
                  "<body background=\"%1\">", "<ul style=\"list-style-image: url(%1)\"><li>y</ul>"})
                markup += QString::fromLatin1(element).arg(address);
        }
    }
    const QString out = elsewhere.filePath(QStringLiteral("out.pdf"));
    ::alarm(20); // ends a test that waits at the pipe
    ASSERT_FALSE(printToPdf(jobOf(markup + QStringLiteral("<p>end</p>")), out, a4));
    ::alarm(0);
    EXPECT_TRUE(textOfPdf(out).contains(QStringLiteral("end")));
    char events[4096];
    EXPECT_LT(::read(watch, events, sizeof events), 0) << "a file was opened";
    ::close(watch);
}

TEST_F(Printing, NoElementOfOneQuoteHidesTheNext) {
    for (const char* opener : {"<link", "<LINK rel=x>", "<title>", "<style>", "<script type=x>",
                               "<head>", "<!--", "<!doctype", "<?xml"}) {
        const QString markup = QStringLiteral("<b>before</b> ") + QLatin1String(opener) +
                               QStringLiteral("<br />after");
        const QString out = path("out.pdf");
        ASSERT_FALSE(printToPdf(jobOf(markup), out, a4));
        EXPECT_TRUE(textOfPdf(out).contains(QStringLiteral("after"))) << opener;
    }
}

TEST_F(Printing, WhatIsNoElementIsTextAndWhiteSpaceStays) {
    EXPECT_EQ(
        textOfMarkup(QStringLiteral("if a < b & b > c then<br />    I <3  you\t<i>and</i> 1<2<")),
        "if a < b & b > c then\n    I <3  you\tand 1<2<");
    const QString text = printed(QStringLiteral("first<br />        indented   <b>words</b>"));
    EXPECT_TRUE(text.contains(QStringLiteral("indented"))) << text.toStdString();
}

TEST_F(Printing, FailureLeavesNoFile) {
    PrintJob job = jobOf(QStringLiteral("text"));
    job.insets = 400;
    EXPECT_TRUE(printToPdf(job, path("out.pdf"), a4));
    EXPECT_FALSE(QFile::exists(path("out.pdf")));
    EXPECT_TRUE(printToPdf(jobOf(QStringLiteral("text")), path("gone/out.pdf"), a4));
}

TEST_F(Printing, TheDialogPrintsToAPdfFile) {
    DesktopPlatform platform;
    EventLoopMainQueue queue;
    LongWork work(queue);
    std::vector<Outcome> outcomes;
    const Answer keep = [&](const Outcome& outcome) { outcomes.push_back(outcome); };
    platform.print(jobOf(QStringLiteral("Quote: Ёж")), work, keep);
    QPrintDialog* dialog = nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* shown = qobject_cast<QPrintDialog*>(widget))
            dialog = shown;
    }
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(dialog->isVisible());
    auto* fileName = dialog->findChild<QLineEdit*>(QStringLiteral("filename"));
    ASSERT_TRUE(fileName);
    EXPECT_TRUE(fileName->text().endsWith(QStringLiteral("/Quotes.pdf")));
    fileName->setText(path("out.pdf"));
    static_cast<QDialog*>(dialog)->accept();
    EXPECT_EQ(textOfPdf(path("out.pdf")).simplified(), QStringLiteral("Quote: Ёж"));
    ASSERT_EQ(outcomes.size(), 1);
    EXPECT_EQ(outcomes[0].kind, Outcome::Done);
    EXPECT_EQ(outcomes[0].text, QStringLiteral("PDF written to ") + path("out.pdf"));

    platform.print(jobOf(QStringLiteral("text")), work, keep);
    shownDialog<QPrintDialog>()->reject();
    EXPECT_EQ(outcomes.back().kind, Outcome::Cancelled);
}

} // namespace

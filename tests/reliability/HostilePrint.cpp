// Prints quotes whose markup names files and addresses, as PDF files in a folder that has a pipe
// "named.pipe": HostilePrint FOLDER. All that the quotes name has "named." in it.

#include "exchange/PrintQuoteViewController.h"
#include "platform/Print.h"
#include "quotes/DetailViewController.h"
#include "support/TestApplication.h"

#include <QGuiApplication>

#include <cstdio>

namespace {

QString hostileText(const QString& folder) {
    QString text;
    for (const QString& address :
         {folder + QStringLiteral("/named.pipe"),
          QStringLiteral("file://%1/named.pipe").arg(folder), QStringLiteral("named.png"),
          QStringLiteral(":/named.png"), QStringLiteral("/etc/../etc/named.conf"),
          QStringLiteral("http://127.0.0.1/named.png"), QStringLiteral("ftp://127.0.0.1/named.png"),
          QStringLiteral("//127.0.0.1/named.png")}) {
        for (const char* element :
             {"<link rel=\"stylesheet\" href=\"%1\">",
              "<style>@import url(\"%1\"); p { background-image: url(%1) }</style>",
              "<img src=\"%1\">", "<p style=\"background: url('%1')\">x</p>",
              "<body background=\"%1\">", "<ul style=\"list-style-image: url(%1)\"><li>y</ul>",
              "<object data=\"%1\"></object>", "<iframe src=\"%1\"></iframe>"})
            text += QString::fromLatin1(element).arg(address) + u'\n';
    }
    return text;
}

} // namespace

int main(int argc, char** argv) {
    const QGuiApplication gui(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: HostilePrint FOLDER\n");
        return EXIT_FAILURE;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const std::string text = hostileText(folder).toStdString();
    TestApplication application;
    const Event& quote = application.addQuote(
        {text.c_str(), text.c_str(), text.c_str(), text.c_str(), application.environment.now()});
    SelectionValues& selection = application.selection;
    selection.selectedAuthor = *quote.author();
    selection.selectedTopic = *quote.category();
    selection.selectedSource = *quote.source();
    selection.selectedDate = quote.timestamp();

    DetailViewController detail(application.delegate);
    detail.loadViewIfNeeded();
    detail.viewWillAppear();
    detail.QuoteTextView->setText(*quote.quote());
    detail.EmailFileClick();
    for (const char* breakdown : {"AuthorBreakdown", "SourceBreakdown", "TopicBreakdown"}) {
        selection.callingScreen = QLatin1String(breakdown);
        PrintQuoteViewController screen(application.delegate);
        screen.loadViewIfNeeded();
        screen.CreateFileClick();
    }

    const QPageLayout a4(QPageSize(QPageSize::A4), QPageLayout::Portrait, {});
    int number = 0;
    for (const PrintJob& job : application.platform.printed) {
        const QString path = folder + QStringLiteral("/%1.pdf").arg(++number);
        if (!job.markup.contains(QStringLiteral("named.pipe")) || printToPdf(job, path, a4))
            return EXIT_FAILURE;
    }
    return number == 4 ? EXIT_SUCCESS : EXIT_FAILURE;
}

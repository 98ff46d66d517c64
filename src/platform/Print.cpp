#include "Print.h"

#include "platform/Markup.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QTextOption>

#include <vector>

namespace {

constexpr double pointsPerInch = 72;
constexpr int fontPoints = 12;

void prepare(MarkupDocument& document, const QString& markup, QPaintDevice& device) {
    QFont font;
    font.setPointSize(fontPoints);
    document.setDefaultFont(font);
    document.setDocumentMargin(0);
    // A word wider than the page continues on the next line.
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    // Letters rounded to whole dots would stand unevenly.
    option.setUseDesignMetrics(true);
    document.setDefaultTextOption(option);
    document.documentLayout()->setPaintDevice(&device);
    document.setMarkup(markup);
    // Lines that markup forbids to break would leave the page.
    QTextCursor cursor(&document);
    cursor.select(QTextCursor::Document);
    QTextBlockFormat breakable;
    breakable.setNonBreakableLines(false);
    cursor.mergeBlockFormat(breakable);
}

struct PlacedLine {
    QTextLine line;
    QPointF place; ///< of the line's text block, on the page
};

/** The lines of each page. Drawn by the line, since a text layout that is told to draw a page of a
 * longer text draws lines of the pages beside it too. */
std::vector<std::vector<PlacedLine>> linesByPage(const QTextDocument& document) {
    const double height = document.pageSize().height();
    std::vector<std::vector<PlacedLine>> pages(std::size_t(document.pageCount()));
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QTextLayout& text = *block.layout();
        const QPointF place = document.documentLayout()->blockBoundingRect(block).topLeft();
        for (int i = 0; i < text.lineCount(); ++i) {
            const QTextLine line = text.lineAt(i);
            // A dot more, in case that the line begins a rounding error above its page.
            const auto page = std::size_t((place.y() + line.y() + 1) / height);
            if (page < pages.size())
                pages[page].push_back({line, place - QPointF(0, double(page) * height)});
        }
    }
    return pages;
}

} // namespace

bool printPages(const PrintJob& job, QPagedPaintDevice& device) {
    // The insets count from the edge of the paper, not from that of its printable part.
    QPageLayout layout = device.pageLayout();
    layout.setMode(QPageLayout::FullPageMode);
    device.setPageLayout(layout);
    const double inset = job.insets * device.logicalDpiX() / pointsPerInch;
    const QRectF body =
        QRectF(0, 0, device.width(), device.height()).adjusted(inset, inset, -inset, -inset);
    if (body.isEmpty())
        return false;

    MarkupDocument document;
    prepare(document, job.markup, device);
    document.setPageSize(body.size());
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    painter.translate(body.topLeft());
    const QPageRanges ranges = device.pageRanges();
    int number = 0;
    bool isFirst = true;
    for (const auto& lines : linesByPage(document)) {
        if (!ranges.isEmpty() && !ranges.contains(++number))
            continue;
        if (!isFirst)
            device.newPage();
        isFirst = false;
        for (const PlacedLine& placed : lines)
            placed.line.draw(&painter, placed.place);
    }
    return painter.end();
}

std::optional<WriteFailure> printToPdf(const PrintJob& job, const QString& path,
                                       const QPageLayout& layout, const QPageRanges& pages) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QBuffer::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(printResolution);
    writer.setPageLayout(layout);
    writer.setPageRanges(pages);
    writer.setTitle(job.jobName);
    if (!printPages(job, writer))
        return WriteFailure{QStringLiteral("The pages have no room for text.")};
    return writeFileAtomically(path, bytes);
}

#include "Print.h"

#include "platform/Markup.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QGlyphRun>
#include <QPainter>
#include <QPdfWriter>
#include <QRawFont>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QTextOption>

#include <map>
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

bool leavesPage(const QTextDocument& document, const QTextBlock& block) {
    const double left = document.documentLayout()->blockBoundingRect(block).left();
    const QTextLayout& text = *block.layout();
    for (int i = 0; i < text.lineCount(); ++i) {
        const QTextLine line = text.lineAt(i);
        if (left + line.x() + line.naturalTextWidth() > document.pageSize().width() + 1)
            return true;
    }
    return false;
}

/** After a line whose last letter leans over the edge, Qt breaks no more words of its block. Such a
 * block gets an edge that its lines end before. */
void keepOnPage(QTextDocument& document, double point) {
    constexpr int mostPoints = 2 * fontPoints;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (int points = 1; points <= mostPoints && leavesPage(document, block); ++points) {
            QTextBlockFormat narrower;
            narrower.setRightMargin(points * point);
            QTextCursor(block).mergeBlockFormat(narrower);
        }
    }
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

bool isColorBitmap(const QRawFont& font) {
    // Not by a glyph that lacks an outline: to ask for it spoils the font's measures.
    return !font.fontTable("CBLC").isEmpty() || !font.fontTable("sbix").isEmpty();
}

/** A font of colored emoji, at the size of its pictures; each is kept, so that the PDF file holds
 * it once. */
struct PictureFont {
    QRawFont font;
    std::map<quint32, QImage> pictures; ///< by glyph
};

QImage draw(const QRawFont& font, quint32 glyph, const QRect& box) {
    QImage picture(box.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QGlyphRun run;
    run.setRawFont(font);
    run.setGlyphIndexes({glyph});
    run.setPositions({-box.topLeft()});
    QPainter(&picture).drawGlyphRun({}, run);
    return picture;
}

/** Draws a line's emoji of color bitmap fonts, which the PDF engine leaves out since it knows
 * outlines only. The fonts, by their family, serve all lines. */
void drawColorBitmaps(QPainter& painter, const PlacedLine& placed,
                      std::map<QString, PictureFont>& fonts) {
    constexpr double pictureSize = 128; // dots, about what such fonts have
    for (const QGlyphRun& run : placed.line.glyphRuns()) {
        const QRawFont textFont = run.rawFont();
        if (!isColorBitmap(textFont))
            continue;
        auto& [font, pictures] = fonts[textFont.familyName()];
        if (!font.isValid()) {
            font = textFont;
            font.setPixelSize(pictureSize);
        }
        const double scale = textFont.pixelSize() / pictureSize;
        const auto glyphs = run.glyphIndexes();
        const auto positions = run.positions();
        for (qsizetype i = 0; i < glyphs.size(); ++i) {
            const QRect box = font.boundingRect(glyphs[i]).toAlignedRect();
            if (box.isEmpty()) // of a joiner, say
                continue;
            QImage& picture = pictures[glyphs[i]];
            if (picture.isNull())
                picture = draw(font, glyphs[i], box);
            const QPointF corner = placed.place + positions[i] + QPointF(box.topLeft()) * scale;
            painter.drawImage(QRectF(corner, QSizeF(box.size()) * scale), picture);
        }
    }
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
    keepOnPage(document, device.logicalDpiX() / pointsPerInch);
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    painter.translate(body.topLeft());
    const QPageRanges ranges = device.pageRanges();
    int number = 0;
    std::map<QString, PictureFont> pictureFonts;
    bool isFirst = true;
    for (const auto& lines : linesByPage(document)) {
        if (!ranges.isEmpty() && !ranges.contains(++number))
            continue;
        if (!isFirst)
            device.newPage();
        isFirst = false;
        for (const PlacedLine& placed : lines) {
            placed.line.draw(&painter, placed.place);
            drawColorBitmaps(painter, placed, pictureFonts);
        }
    }
    const bool isDone = painter.end();
    // The PDF engine ends by asking for outlines, after which these fonts would have wrong measures
    // in the next job. To open a font at another size than the text's mends that.
    for (auto& [family, pictured] : pictureFonts)
        pictured.font.setPixelSize(1);
    return isDone;
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

#include "Print.h"

#include "platform/Markup.h"

#include <QAbstractTextDocumentLayout>
#include <QGlyphRun>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <vector>

namespace {

constexpr double pointsPerInch = 72;
constexpr int fontPoints = 12;

void prepare(MarkupDocument& document, const QString& markup, QPaintDevice& device, double width) {
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
    document.setTextWidth(width);
}

/** Has a part of a paragraph run as the paragraph began. */
void continueDirection(const QTextBlock& block, std::optional<Qt::LayoutDirection>& begun) {
    if (!begun)
        begun = block.textDirection();
    if (block.blockFormat().hasProperty(QTextFormat::LayoutDirection))
        return;
    QTextBlockFormat direction;
    direction.setLayoutDirection(*begun);
    QTextCursor(block).mergeBlockFormat(direction);
}

bool leavesPage(const QTextDocument& document, const QTextBlock& block) {
    const double left = document.documentLayout()->blockBoundingRect(block).left();
    const QTextLayout& text = *block.layout();
    for (int i = 0; i < text.lineCount(); ++i) {
        const QTextLine line = text.lineAt(i);
        if (left + line.x() + line.naturalTextWidth() > document.textWidth() + 1)
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
    QPointF place; ///< of the line's text block

    double top() const { return place.y() + line.y(); }
};

/** The lines of a document from its top down, those of a table's row beside each other. */
std::vector<PlacedLine> linesOf(const QTextDocument& document) {
    std::vector<PlacedLine> lines;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QTextLayout& text = *block.layout();
        const QPointF place = document.documentLayout()->blockBoundingRect(block).topLeft();
        for (int i = 0; i < text.lineCount(); ++i)
            lines.push_back({text.lineAt(i), place});
    }
    std::ranges::stable_sort(lines, {}, &PlacedLine::top);
    return lines;
}

/** Where the part of markup ends that begins at a place: after a line, where no element is open
 * that shapes text. Such a part is laid out in a few milliseconds. */
qsizetype endOfPart(const QString& markup, qsizetype begin) {
    constexpr qsizetype least = 2'000;
    constexpr qsizetype most = 16'000; // whatever is open: it may never be closed
    static const QRegularExpression tag(QStringLiteral("<(/?)([a-z][a-z0-9]*)[^>]*>"),
                                        QRegularExpression::CaseInsensitiveOption |
                                            QRegularExpression::UseUnicodePropertiesOption);
    static const QStringList lineBreak{QStringLiteral("br"), QStringLiteral("hr"),
                                       QStringLiteral("img")};
    QStringList open;
    for (auto tags = tag.globalMatch(markup, begin); tags.hasNext();) {
        const auto found = tags.next();
        const QString name = found.captured(2).toLower();
        const qsizetype length = found.capturedEnd() - begin;
        if (name == lineBreak.constFirst()) {
            const bool endsLine = length >= least && (open.isEmpty() || length >= most);
            if (endsLine)
                return found.capturedEnd();
        } else if (!found.captured(1).isEmpty()) {
            open.removeOne(name);
        } else if (!lineBreak.contains(name)) {
            open.append(name);
        }
    }
    return markup.size();
}

bool isColorBitmap(const QRawFont& font) {
    // Not by a glyph that lacks an outline: to ask for it spoils the font's measures.
    return !font.fontTable("CBLC").isEmpty() || !font.fontTable("sbix").isEmpty();
}

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

PagePrinter::PagePrinter(const PrintJob& job, QPagedPaintDevice& device)
    : m_markup(job.markup)
    , m_device(device)
    , m_ranges(device.pageRanges()) {
    // The insets count from the edge of the paper, not from that of its printable part.
    QPageLayout layout = device.pageLayout();
    layout.setMode(QPageLayout::FullPageMode);
    device.setPageLayout(layout);
    const double inset = job.insets * device.logicalDpiX() / pointsPerInch;
    m_body = QRectF(0, 0, device.width(), device.height()).adjusted(inset, inset, -inset, -inset);
    if (m_body.isEmpty() || !m_painter.begin(&device))
        return;
    m_painter.translate(m_body.topLeft());
    beginPage();
}

void PagePrinter::beginPage() {
    ++m_page;
    m_used = 0;
    if (!isAsked())
        return;
    if (!m_isFirst)
        m_device.newPage();
    m_isFirst = false;
}

std::optional<double> PagePrinter::step() {
    if (!m_painter.isActive() || m_drawn == m_markup.size())
        return std::nullopt;
    const qsizetype end = endOfPart(m_markup, m_drawn);
    QStringView part = QStringView(m_markup).sliced(m_drawn, end - m_drawn);
    if (end < m_markup.size()) // the next part begins a line of itself
        part.truncate(part.lastIndexOf(u'<'));
    MarkupDocument document;
    prepare(document, part.toString(), m_device, m_body.width());
    continueDirection(document.begin(), m_direction);
    keepOnPage(document, m_device.logicalDpiX() / pointsPerInch);
    double pageTop = -m_used; // counted from the part's top
    for (const PlacedLine& placed : linesOf(document)) {
        constexpr double roundingError = 0.01;
        const double bottom = placed.top() + placed.line.height() - roundingError;
        if (bottom > pageTop + m_body.height() && placed.top() > pageTop) {
            beginPage();
            pageTop = placed.top();
        }
        if (!isAsked())
            continue;
        const PlacedLine onPage{placed.line, placed.place - QPointF(0, pageTop)};
        onPage.line.draw(&m_painter, onPage.place);
        drawColorBitmaps(m_painter, onPage, m_pictureFonts);
    }
    m_used = document.size().height() - pageTop;
    m_drawn = end;
    return double(m_drawn) / double(m_markup.size());
}

bool PagePrinter::end() {
    const bool isDone = m_painter.end();
    // The PDF engine ends by asking for outlines, after which these fonts would have wrong measures
    // in the next job. To open a font at another size than the text's mends that.
    for (auto& [family, pictured] : m_pictureFonts)
        pictured.font.setPixelSize(1);
    return isDone;
}

bool printPages(const PrintJob& job, QPagedPaintDevice& device) {
    PagePrinter pages(job, device);
    while (pages.step())
        ;
    return pages.end();
}

namespace {

QPdfWriter& prepared(QPdfWriter& writer, const QString& title, const QPageLayout& layout,
                     const QPageRanges& pages) {
    writer.setResolution(printResolution);
    writer.setPageLayout(layout);
    writer.setPageRanges(pages);
    writer.setTitle(title);
    return writer;
}

} // namespace

PdfPrinter::PdfPrinter(const PrintJob& job, const QString& path, const QPageLayout& layout,
                       const QPageRanges& pages)
    : m_path(path)
    , m_writer((m_buffer.open(QBuffer::WriteOnly), &m_buffer))
    , m_pages(job, prepared(m_writer, job.jobName, layout, pages)) {}

std::optional<WriteFailure> PdfPrinter::end() {
    if (!m_pages.end())
        return WriteFailure{QStringLiteral("The pages have no room for text.")};
    return writeFileAtomically(m_path, m_buffer.data());
}

std::optional<WriteFailure> printToPdf(const PrintJob& job, const QString& path,
                                       const QPageLayout& layout, const QPageRanges& pages) {
    PdfPrinter printer(job, path, layout, pages);
    while (printer.step())
        ;
    return printer.end();
}

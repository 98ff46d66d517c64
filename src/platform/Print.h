#pragma once

#include "foundation/Files.h"
#include "platform/Platform.h"

#include <QBuffer>
#include <QImage>
#include <QPageLayout>
#include <QPageRanges>
#include <QPainter>
#include <QPdfWriter>
#include <QRawFont>

#include <map>
#include <optional>

/** Dots per inch that printing lays out in; what is drawn is as fine as the device. */
constexpr int printResolution = 72;

/** A font of colored emoji, at the size of its pictures; each is kept, so that a PDF file holds it
 * once. */
struct PictureFont {
    QRawFont font;
    std::map<quint32, QImage> pictures; ///< by glyph
};

/**
 * Draws a job's pages, or those of the device's page ranges, on its paper, a part of the text at a
 * time. The markup's text is all that is drawn: no file and no address that it names is opened.
 */
class PagePrinter {
public:
    PagePrinter(const PrintJob& job, QPagedPaintDevice& device);

    /** Draws the next part, and tells how much of the text is drawn; nothing when there is none
     * left. */
    std::optional<double> step();
    /** False when the device cannot be drawn on, or its paper has no room between the insets. */
    bool end();

private:
    void beginPage();
    bool isAsked() const { return m_ranges.isEmpty() || m_ranges.contains(m_page); }

    QString m_markup;
    QPagedPaintDevice& m_device;
    QPageRanges m_ranges;
    QRectF m_body; ///< of a page, in dots from its corner
    QPainter m_painter;
    qsizetype m_drawn = 0;                          ///< of the markup
    std::optional<Qt::LayoutDirection> m_direction; ///< of its first part
    int m_page = 0;
    double m_used = 0; ///< of the page's height
    bool m_isFirst = true;
    std::map<QString, PictureFont> m_pictureFonts; ///< by family
};

/** Draws all of a job's pages at once; false as PagePrinter's end. */
bool printPages(const PrintJob& job, QPagedPaintDevice& device);

/** A job's pages as a PDF file, drawn a part at a time, and written when all are drawn, as
 * writeFileAtomically does. */
class PdfPrinter {
public:
    /** The layout gives the paper. */
    PdfPrinter(const PrintJob& job, const QString& path, const QPageLayout& layout,
               const QPageRanges& pages);

    std::optional<double> step() { return m_pages.step(); }
    std::optional<WriteFailure> end();

private:
    QString m_path;
    QBuffer m_buffer;
    QPdfWriter m_writer;
    PagePrinter m_pages;
};

/** Prints a PDF file at once. */
std::optional<WriteFailure> printToPdf(const PrintJob& job, const QString& path,
                                       const QPageLayout& layout, const QPageRanges& pages = {});

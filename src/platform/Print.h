#pragma once

#include "foundation/Files.h"
#include "platform/Platform.h"

#include <QPageLayout>
#include <QPageRanges>

class QPagedPaintDevice;

/** Dots per inch that printing lays out in; what is drawn is as fine as the device. A layout ends
 * at about 2^24 dots, which is some twenty thousand pages at this resolution. */
constexpr int printResolution = 72;

/**
 * Draws a job's pages, or those of the device's page ranges, on its paper. The markup's text is
 * all that is drawn: no file and no address that it names is opened.
 * False when the device cannot be drawn on, or its paper has no room between the insets.
 */
bool printPages(const PrintJob& job, QPagedPaintDevice& device);

/** Writes the pages as a PDF file, as writeFileAtomically does. The layout gives the paper. */
std::optional<WriteFailure> printToPdf(const PrintJob& job, const QString& path,
                                       const QPageLayout& layout, const QPageRanges& pages = {});

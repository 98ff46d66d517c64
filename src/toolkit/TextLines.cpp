#include "TextLines.h"

#include "foundation/LineEnds.h"

#include <algorithm>

namespace {
// Laying out a line of millions of characters to show its first words would stall the screen.
constexpr qsizetype longestShownLine = 1000;

bool isLineEnd(QChar character) {
    return character == QLatin1Char('\n') || character == QLatin1Char('\r');
}

QStringView withoutLineEnd(QStringView line) {
    while (!line.isEmpty() && isLineEnd(line.back()))
        line.chop(1);
    return line;
}

/** Where the rest of a line that is too long for one row begins: after a blank, if there is any. */
qsizetype continuationOf(QStringView line) {
    const qsizetype blank = line.left(longestShownLine).lastIndexOf(u' ');
    if (blank > 0)
        return blank + 1;
    return longestShownLine - (line.at(longestShownLine).isLowSurrogate() ? 1 : 0);
}

} // namespace

void TextLines::setText(const QString& text, LineBreakMode mode) {
    beginResetModel();
    m_text = text;
    m_starts.clear();
    const bool wraps = mode == LineBreakMode::WordWrapping;
    LineEnds ends(m_text);
    for (qsizetype start = 0; start < text.size();) {
        m_starts.append(start);
        const qsizetype end = ends.next(start);
        if (wraps && end - start > longestShownLine)
            start += continuationOf(QStringView(text).sliced(start, longestShownLine + 1));
        else
            start = end + std::max<qsizetype>(ends.length(end), 1);
    }
    endResetModel();
}

int TextLines::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_starts.size());
}

QString TextLines::textOfRows(int first, int last) const {
    return withoutLineEnd(
               QStringView(m_text).sliced(m_starts.at(first), endOf(last) - m_starts.at(first)))
        .toString();
}

qsizetype TextLines::endOf(int row) const {
    return row + 1 < m_starts.size() ? m_starts.at(row + 1) : m_text.size();
}

QVariant TextLines::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    const qsizetype start = m_starts.at(index.row());
    return withoutLineEnd(QStringView(m_text).sliced(
                              start, std::min(endOf(index.row()) - start, longestShownLine)))
        .toString();
}

QHash<int, QByteArray> TextLines::roleNames() const {
    return {{Qt::DisplayRole, "line"}};
}

#include "TextLines.h"

#include <algorithm>

namespace {
// Laying out a line of millions of characters to show its first words would stall the screen.
constexpr qsizetype longestShownLine = 1000;

bool isLineEnd(QChar character) {
    return character == QLatin1Char('\n') || character == QLatin1Char('\r');
}

} // namespace

void TextLines::setText(const QString& text) {
    beginResetModel();
    m_text = text;
    m_starts.clear();
    for (qsizetype start = 0; start < text.size();) {
        m_starts.append(start);
        const auto end = std::find_if(text.begin() + start, text.end(), isLineEnd);
        start =
            end - text.begin() + (text.mid(end - text.begin(), 2) == QLatin1String("\r\n") ? 2 : 1);
    }
    endResetModel();
}

int TextLines::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_starts.size());
}

QVariant TextLines::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    const qsizetype start = m_starts.at(index.row());
    const qsizetype next =
        index.row() + 1 < m_starts.size() ? m_starts.at(index.row() + 1) : m_text.size();
    QStringView line = QStringView(m_text).mid(start, std::min(next - start, longestShownLine));
    while (!line.isEmpty() && isLineEnd(line.back()))
        line.chop(1);
    return line.toString();
}

QHash<int, QByteArray> TextLines::roleNames() const {
    return {{Qt::DisplayRole, "line"}};
}

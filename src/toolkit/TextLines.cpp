#include "TextLines.h"

namespace {
// Laying out a line of millions of characters to show its first words would stall the screen.
constexpr qsizetype longestShownLine = 1000;
} // namespace

void TextLines::setText(const QString& text) {
    beginResetModel();
    m_text = text;
    m_starts.clear();
    for (qsizetype start = 0; start < text.size();) {
        m_starts.append(start);
        const qsizetype end = text.indexOf(QLatin1Char('\n'), start);
        start = end < 0 ? text.size() : end + 1;
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
    while (line.endsWith(QLatin1Char('\n')) || line.endsWith(QLatin1Char('\r')))
        line.chop(1);
    return line.toString();
}

QHash<int, QByteArray> TextLines::roleNames() const {
    return {{Qt::DisplayRole, "line"}};
}

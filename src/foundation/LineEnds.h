#pragma once

#include <QStringView>

#include <algorithm>

/** Finds the ends of a text's lines from its beginning on. CR LF, LF and CR each end a line. */
class LineEnds {
public:
    /** The text must stay as it is. */
    explicit LineEnds(QStringView text)
        : m_text(text) {}

    /** The first line end at a place or after it, or the text's end. Places may not fall. */
    qsizetype next(qsizetype from) {
        m_lineFeed = found(u'\n', m_lineFeed, from);
        m_carriageReturn = found(u'\r', m_carriageReturn, from);
        return std::min(m_lineFeed, m_carriageReturn);
    }

    /** How many characters end the line there: none at the text's end. */
    qsizetype length(qsizetype end) const {
        return end == m_text.size()                                   ? 0
               : m_text.sliced(end).startsWith(QLatin1String("\r\n")) ? 2
                                                                      : 1;
    }

private:
    // One character is found far faster than one of two; each is searched for only once.
    qsizetype found(char16_t character, qsizetype known, qsizetype from) const {
        if (known >= from)
            return known;
        const qsizetype place = m_text.indexOf(character, from);
        return place < 0 ? m_text.size() : place;
    }

    QStringView m_text;
    qsizetype m_lineFeed = -1;
    qsizetype m_carriageReturn = -1;
};

#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

/** A text as UTF-8 can hold it: a surrogate without its other half becomes U+FFFD. */
QString wellFormed(const QString& text);

/** The text of bytes in UTF-8, with a zero width no-break space that may begin it. */
QString fromUtf8(QByteArrayView text);

/** A text as the list search compares it. */
QString folded(const QString& text);

/** Folded texts in one run of memory, so that a search goes through all of them at once. */
class FoldedTexts {
public:
    /** Adds the folded form of a text in UTF-8. */
    void append(QByteArrayView text);
    void clear();
    std::size_t count() const { return m_ends.size(); }
    qsizetype size() const { return m_bytes.size(); } ///< bytes
    QByteArrayView text(std::size_t place) const;

    /** The places, in order, of the texts that contain a folded search text in UTF-8; an empty
     * text contains nothing. A search text that contains the one before narrows its result. */
    const std::vector<std::uint32_t>& containing(const QByteArray& searchText);

private:
    qsizetype start(std::size_t place) const { return place == 0 ? 0 : m_ends[place - 1] + 1; }
    void findAll(const QByteArray& searchText);

    QByteArray m_bytes; // each text followed by a byte that UTF-8 never has
    std::vector<qsizetype> m_ends;
    std::optional<QByteArray> m_lastSearchText; // until a text is added
    std::vector<std::uint32_t> m_found;         // by the last search
};

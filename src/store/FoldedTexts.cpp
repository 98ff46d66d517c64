#include "store/FoldedTexts.h"

#include <QChar>
#include <QList>
#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr char separator = '\xff';

const char* find(QByteArrayView text, const QByteArray& wanted) {
    return static_cast<const char*>(memmem(text.data(), std::size_t(text.size()),
                                           wanted.constData(), std::size_t(wanted.size())));
}

bool isContinuation(uchar byte) {
    return (byte & 0xC0) == 0x80;
}

using TwoBytes = std::array<char, 2>;

/** The folded forms of what UTF-8 has in two bytes; zeros for those of another length. */
const std::array<TwoBytes, 0x800>& twoByteForms() {
    static const auto forms = [] {
        std::array<TwoBytes, 0x800> made{};
        for (std::size_t character = 0x80; character < made.size(); ++character) {
            const QByteArray form = folded(QString(QChar(uint(character)))).toUtf8();
            if (form.size() == 2)
                made.at(character) = {form[0], form[1]};
        }
        return made;
    }();
    return forms;
}

/**
 * Writes the folded form of a text where it is as long as the text, and returns whether it is.
 * QString's way through UTF-16 takes several times as long.
 */
bool foldInPlaceOf(QByteArrayView text, char* target) {
    const auto& forms = twoByteForms();
    const auto* byte = reinterpret_cast<const uchar*>(text.begin());
    const auto* const end = byte + text.size();
    while (byte != end) {
        const uchar first = *byte;
        if (first < 0x80) {
            *target++ = char(first >= 'A' && first <= 'Z' ? first + ('a' - 'A') : first);
            ++byte;
        } else if (first < 0xE0) {
            if (first < 0xC0 || end - byte < 2 || !isContinuation(byte[1]))
                return false;
            const auto [lead, trail] = forms[std::size_t((first & 0x1F) << 6 | (byte[1] & 0x3F))];
            if (lead == 0)
                return false;
            *target++ = lead;
            *target++ = trail;
            byte += 2;
        } else {
            if (first >= 0xF0 || end - byte < 3 || !isContinuation(byte[1]) ||
                !isContinuation(byte[2]))
                return false;
            const char32_t character =
                char32_t(first & 0x0F) << 12 | char32_t(byte[1] & 0x3F) << 6 | (byte[2] & 0x3F);
            if (character < 0x800 || QChar::isSurrogate(character) ||
                QChar::toLower(character) != character)
                return false;
            target = std::copy_n(byte, 3, target);
            byte += 3;
        }
    }
    return true;
}

} // namespace

QString wellFormed(const QString& text) {
    if (text.isValidUtf16())
        return text;
    const auto codePoints = text.toUcs4();
    return QString::fromUcs4(reinterpret_cast<const char32_t*>(codePoints.constData()),
                             codePoints.size());
}

QString fromUtf8(QByteArrayView text) {
    if (!text.startsWith("\xEF\xBB\xBF"))
        return QString::fromUtf8(text);
    // Which would take it for a byte-order mark, and drop it.
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless |
                                                       QStringConverter::Flag::ConvertInitialBom);
    return decoder.decode(text);
}

QString folded(const QString& text) {
    // The two small sigmas are one letter, whose form tells that a word ends: one that is still
    // being typed does not.
    return wellFormed(text).toLower().replace(u'\u03c2', u'\u03c3');
}

void FoldedTexts::append(QByteArrayView text) {
    const qsizetype place = m_bytes.size();
    m_bytes.resize(place + text.size());
    if (!foldInPlaceOf(text, m_bytes.data() + place)) {
        m_bytes.truncate(place);
        m_bytes += folded(fromUtf8(text)).toUtf8();
    }
    m_ends.push_back(m_bytes.size());
    m_bytes += separator;
    m_lastSearchText.reset();
}

void FoldedTexts::clear() {
    *this = FoldedTexts();
}

const std::vector<std::uint32_t>& FoldedTexts::containing(const QByteArray& searchText) {
    if (m_lastSearchText && searchText.contains(*m_lastSearchText))
        std::erase_if(m_found,
                      [&](auto place) { return find(text(place), searchText) == nullptr; });
    else
        findAll(searchText);
    m_lastSearchText = searchText;
    return m_found;
}

QByteArrayView FoldedTexts::text(std::size_t place) const {
    return QByteArrayView(m_bytes).sliced(start(place), m_ends[place] - start(place));
}

void FoldedTexts::findAll(const QByteArray& searchText) {
    m_found.clear();
    const QByteArrayView all(m_bytes);
    for (std::size_t place = 0; place < count(); ++place) {
        const char* const found = find(all.sliced(start(place)), searchText);
        if (found == nullptr)
            break;
        while (m_ends[place] < found - all.data())
            ++place;
        // An empty search text is found in empty texts too.
        if (!text(place).isEmpty())
            m_found.push_back(std::uint32_t(place));
    }
}

#include "store/Columns.h"

#include <QHashFunctions>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <chrono>
#include <iterator>
#include <limits>
#include <numeric>
#include <utility>

namespace {

template <class ValueOf>
void sortByValue(std::vector<Row>& rows, bool ascending, const ValueOf& value) {
    std::stable_sort(rows.begin(), rows.end(), [&](Row left, Row right) {
        return ascending ? value(left) < value(right) : value(right) < value(left);
    });
}

QByteArray toUtf8(const QString& text) {
    return wellFormed(text).toUtf8();
}

std::uint32_t hashOf(QByteArrayView text) {
    return std::uint32_t(qHash(text, std::size_t(QHashSeed::globalSeed())));
}

} // namespace

std::optional<QString> NameColumn::value(Row row) const {
    const auto text = bytes(row);
    return text ? std::optional(fromUtf8(*text)) : std::nullopt;
}

std::optional<QByteArrayView> NameColumn::bytes(Row row) const {
    const auto number = m_values[row];
    return number == absent ? std::nullopt : std::optional(m_names[number]);
}

bool NameColumn::set(Row row, const std::optional<QString>& text) {
    if (!text)
        return setNumber(row, absent);
    const auto known = knownNumber(*text);
    return setNumber(row, known != absent ? known : numberOf(toUtf8(*text)));
}

void NameColumn::forget(Row row) {
    index();
    unindex(row);
}

void NameColumn::remember(Row row) {
    if (const auto number = std::exchange(m_values[row], absent); number != absent)
        setNumber(row, number);
}

void NameColumn::index() const {
    if (!m_rows.empty())
        return;
    m_rows.resize(m_names.size());
    for (Row row = 0; row < m_values.size(); ++row) {
        if (m_values[row] != absent)
            m_rows[m_values[row]].push_back(row);
    }
}

void NameColumn::unindex(Row row) {
    auto& rows = m_rows[m_values[row]];
    const auto place = std::lower_bound(rows.begin(), rows.end(), row);
    if (place != rows.end() && *place == row)
        rows.erase(place);
}

void NameColumn::read(Row row, Statement& statement, int column) {
    const auto text = statement.text(column);
    // Neighbours often share a name.
    const auto before = row == 0 ? absent : m_values[row - 1];
    if (!text)
        setNumber(row, absent);
    else if (before != absent && m_names[before] == *text)
        setNumber(row, before);
    else if (text->isValidUtf8())
        setNumber(row, numberOf(*text));
    else
        set(row, fromUtf8(*text));
}

void NameColumn::bind(Row row, Statement& statement, int parameter) const {
    statement.bindText(parameter, bytes(row));
}

const std::vector<Row>& NameColumn::rows(std::uint32_t number) const {
    index();
    return m_rows[number];
}

QStringList NameColumn::distinct(const std::vector<Row>& rows) const {
    std::vector<bool> isKnown(m_names.size());
    isKnown[absent] = true;
    QStringList texts;
    for (const Row row : rows) {
        const auto number = m_values[row];
        if (isKnown[number])
            continue;
        isKnown[number] = true;
        texts.append(fromUtf8(m_names[number]));
    }
    return texts;
}

RowTest NameColumn::equalTo(const std::variant<QString, Date>& value) const {
    const auto wanted = knownNumber(std::get<QString>(value));
    return [this, wanted](Row row) { return wanted != absent && m_values[row] == wanted; };
}

RowTest NameColumn::containing(const QString& searchText) const {
    while (m_folded.count() < m_names.size())
        m_folded.append(m_names[m_folded.count()]);
    std::vector<bool> answers(m_names.size());
    for (const auto number : m_folded.containing(searchText.toUtf8()))
        answers[number] = true;
    return [this, answers = std::move(answers)](Row row) { return answers[m_values[row]]; };
}

// Counts and places the rows by the rank of their text, so that no texts are compared; a few rows
// among many names are quicker sorted.
void NameColumn::sort(std::vector<Row>& rows, bool ascending) const {
    updateRanks();
    const auto last = std::uint32_t(m_names.size() - 1);
    const auto rank = [&](Row row) {
        const auto ascendingRank = m_ranks[m_values[row]];
        return ascending ? ascendingRank : last - ascendingRank;
    };
    if (rows.size() < m_names.size() / 64) {
        std::stable_sort(rows.begin(), rows.end(),
                         [&](Row left, Row right) { return rank(left) < rank(right); });
        return;
    }
    std::vector<std::uint32_t> places(m_names.size() + 1);
    for (const Row row : rows)
        ++places[rank(row) + 1];
    std::partial_sum(places.begin(), places.end(), places.begin());
    std::vector<Row> sorted(rows.size());
    for (const Row row : rows)
        sorted[places[rank(row)]++] = row;
    rows = std::move(sorted);
}

std::uint32_t NameColumn::numberOf(QByteArrayView text) {
    const auto hash = hashOf(text);
    auto slot = slotOf(text, hash);
    if (m_slots[slot].number != absent)
        return m_slots[slot].number;
    const auto number = std::uint32_t(m_names.size());
    auto* const bytes = static_cast<char*>(m_texts->allocate(std::size_t(text.size()), 1));
    std::copy(text.begin(), text.end(), bytes);
    m_names.emplace_back(bytes, text.size());
    if (!m_rows.empty())
        m_rows.emplace_back();
    m_slots[slot] = {hash, number};
    if (2 * m_names.size() > m_slots.size())
        addSlots();
    return number;
}

std::uint32_t NameColumn::knownNumber(const QString& text) const {
    if (m_lastNumber == absent || text != m_lastText) {
        const QByteArray bytes = toUtf8(text);
        m_lastNumber = m_slots[slotOf(bytes, hashOf(bytes))].number;
        m_lastText = text;
    }
    return m_lastNumber;
}

std::size_t NameColumn::slotOf(QByteArrayView text, std::uint32_t hash) const {
    const auto mask = m_slots.size() - 1;
    auto slot = hash & mask;
    while (m_slots[slot].number != absent &&
           (m_slots[slot].hash != hash || m_names[m_slots[slot].number] != text))
        slot = (slot + 1) & mask;
    return slot;
}

void NameColumn::addSlots() {
    const auto known = std::exchange(m_slots, std::vector<Slot>(2 * m_slots.size()));
    const auto mask = m_slots.size() - 1;
    for (const auto& [hash, number] : known) {
        if (number == absent)
            continue;
        auto slot = hash & mask;
        while (m_slots[slot].number != absent)
            slot = (slot + 1) & mask;
        m_slots[slot] = {hash, number};
    }
}

bool NameColumn::setNumber(Row row, std::uint32_t number) {
    if (m_values[row] == number)
        return false;
    if (!m_rows.empty())
        unindex(row);
    m_values[row] = number;
    if (!m_rows.empty() && number != absent) {
        auto& rows = m_rows[number];
        rows.insert(std::lower_bound(rows.begin(), rows.end(), row), row);
    }
    return true;
}

void NameColumn::updateRanks() const {
    if (m_ranks.size() == m_names.size())
        return;
    // Most comparisons need no more than the first eight bytes.
    struct Newest {
        quint64 beginning;
        std::uint32_t number;
    };
    std::vector<Newest> newest;
    newest.reserve(m_names.size() - 1 - m_order.size());
    for (auto number = std::uint32_t(m_order.size() + 1); number < m_names.size(); ++number) {
        const QByteArrayView text = m_names[number];
        std::array<char, sizeof(quint64)> beginning{};
        std::copy_n(text.begin(), std::min<qsizetype>(text.size(), beginning.size()),
                    beginning.begin());
        newest.push_back({qFromBigEndian<quint64>(beginning.data()), number});
    }
    std::sort(newest.begin(), newest.end(), [this](const Newest& left, const Newest& right) {
        return left.beginning != right.beginning ? left.beginning < right.beginning
                                                 : m_names[left.number] < m_names[right.number];
    });
    const auto known = std::ptrdiff_t(m_order.size());
    std::transform(newest.begin(), newest.end(), std::back_inserter(m_order),
                   [](const Newest& name) { return name.number; });
    std::inplace_merge(
        m_order.begin(), m_order.begin() + known, m_order.end(),
        [this](std::uint32_t left, std::uint32_t right) { return m_names[left] < m_names[right]; });
    m_ranks.assign(m_names.size(), 0);
    for (std::size_t i = 0; i < m_order.size(); ++i)
        m_ranks[m_order[i]] = std::uint32_t(i + 1);
}

std::optional<QString> TextColumn::value(Row row) const {
    const auto text = bytes(row);
    return text ? std::optional(fromUtf8(*text)) : std::nullopt;
}

bool TextColumn::set(Row row, const std::optional<QString>& text) {
    if (!text)
        return setBytes(row, std::nullopt);
    return setBytes(row, toUtf8(*text));
}

void TextColumn::read(Row row, Statement& statement, int column) {
    setBytes(row, statement.text(column));
}

void TextColumn::bind(Row row, Statement& statement, int parameter) const {
    statement.bindText(parameter, bytes(row));
}

RowTest TextColumn::equalTo(const std::variant<QString, Date>& value) const {
    return [this, wanted = toUtf8(std::get<QString>(value))](Row row) {
        return bytes(row) == QByteArrayView(wanted);
    };
}

bool TextColumn::foldSome(qsizetype most) const {
    if (m_changed.size() > 64 + m_places.size() / 64) {
        m_folded.clear();
        m_changed.clear();
    }
    const qsizetype before = m_folded.size();
    while (m_folded.count() < m_places.size() && m_folded.size() - before < most)
        m_folded.append(bytes(Row(m_folded.count())).value_or(QByteArrayView()));
    return m_folded.count() < m_places.size();
}

RowTest TextColumn::containing(const QString& searchText) const {
    foldSome(std::numeric_limits<qsizetype>::max());
    const QByteArray wanted = searchText.toUtf8();
    std::vector<bool> answers(m_places.size());
    for (const Row row : m_folded.containing(wanted))
        answers[row] = true;
    for (const Row row : m_changed) {
        FoldedTexts changed;
        changed.append(bytes(row).value_or(QByteArrayView()));
        answers[row] = !changed.containing(wanted).empty();
    }
    return [answers = std::move(answers)](Row row) { return answers[row]; };
}

void TextColumn::sort(std::vector<Row>& rows, bool ascending) const {
    sortByValue(rows, ascending, [this](Row row) { return bytes(row); });
}

std::optional<QByteArrayView> TextColumn::bytes(Row row) const {
    const Place place = m_places[row];
    return place.size < 0 ? std::nullopt
                          : std::optional(QByteArrayView(m_bytes).sliced(place.start, place.size));
}

bool TextColumn::setBytes(Row row, std::optional<QByteArrayView> text) {
    if (bytes(row) == text)
        return false;
    m_replacedSize += std::max<qsizetype>(m_places[row].size, 0);
    m_places[row] = Place();
    if (text) {
        m_places[row] = {m_bytes.size(), text->size()};
        m_bytes += *text;
    }
    if (m_replacedSize > m_bytes.size() / 2 && !m_keeps)
        tidy();
    if (row < m_folded.count())
        m_changed.push_back(row);
    return true;
}

TextColumn::Kept TextColumn::keep(Row row) {
    m_keeps = true;
    return m_places[row];
}

void TextColumn::giveBack(Row row, Kept place) {
    m_replacedSize += std::max<qsizetype>(m_places[row].size, 0);
    m_replacedSize -= std::max<qsizetype>(place.size, 0);
    m_places[row] = place;
    if (row < m_folded.count())
        m_changed.push_back(row);
}

void TextColumn::tidy() {
    QByteArray tidied;
    tidied.reserve(m_bytes.size() - m_replacedSize);
    for (auto& [start, size] : m_places) {
        const qsizetype place = tidied.size();
        if (size > 0)
            tidied += QByteArrayView(m_bytes).sliced(start, size);
        start = place;
    }
    m_bytes = tidied;
    m_replacedSize = 0;
}

bool DateColumn::set(Row row, std::optional<Date> date) {
    return std::exchange(m_dates[row], date) != date;
}

void DateColumn::read(Row row, Statement& statement, int column) {
    const auto time = statement.integer(column);
    m_dates[row] = time ? std::optional(Date(std::chrono::milliseconds(*time))) : std::nullopt;
}

void DateColumn::bind(Row row, Statement& statement, int parameter) const {
    const auto date = m_dates[row];
    statement.bindInteger(parameter,
                          date ? std::optional<std::int64_t>(date->time_since_epoch().count())
                               : std::nullopt);
}

RowTest DateColumn::equalTo(const std::variant<QString, Date>& value) const {
    return [this, wanted = std::get<Date>(value)](Row row) { return m_dates[row] == wanted; };
}

void DateColumn::sort(std::vector<Row>& rows, bool ascending) const {
    sortByValue(rows, ascending, [this](Row row) { return m_dates[row]; });
}

#include "store/Columns.h"

#include "store/TextOrder.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <numeric>
#include <utility>

namespace {

constexpr char separator = '\xff';

QByteArray foldedUtf8(const QByteArray& text) {
    // QByteArray lowers ASCII alone, many times as quickly.
    if (std::none_of(text.begin(), text.end(), [](char unit) { return (unit & 0x80) != 0; }))
        return text.toLower();
    return folded(QString::fromUtf8(text)).toUtf8();
}

template <class Value>
void sortByValue(std::vector<Row>& rows, bool ascending, const std::vector<Value>& values) {
    std::stable_sort(rows.begin(), rows.end(), [&](Row left, Row right) {
        return ascending ? values[left] < values[right] : values[right] < values[left];
    });
}

} // namespace

QString wellFormed(const QString& text) {
    if (text.isValidUtf16())
        return text;
    const auto codePoints = text.toUcs4();
    return QString::fromUcs4(reinterpret_cast<const char32_t*>(codePoints.constData()),
                             codePoints.size());
}

QString folded(const QString& text) {
    return wellFormed(text).toLower();
}

std::optional<QString> NameColumn::value(Row row) const {
    const auto number = m_values[row];
    return number == absent ? std::nullopt : std::optional(m_names[number].text);
}

bool NameColumn::set(Row row, const std::optional<QString>& text) {
    return setNumber(row, text ? numberOf(wellFormed(*text)) : absent);
}

void NameColumn::forget(Row row) {
    auto& rows = m_names[m_values[row]].rows;
    const auto place = std::lower_bound(rows.begin(), rows.end(), row);
    if (place != rows.end() && *place == row)
        rows.erase(place);
}

void NameColumn::read(Row row, Statement& statement, int column) {
    const auto text = statement.text(column);
    setNumber(row, text ? numberOf(QString::fromUtf8(*text)) : absent);
}

void NameColumn::bind(Row row, Statement& statement, int parameter) const {
    const auto text = value(row);
    statement.bindText(parameter, text ? std::optional(text->toUtf8()) : std::nullopt);
}

const std::vector<Row>& NameColumn::rows(const QString& text) const {
    return m_names[m_numbers.value(wellFormed(text), absent)].rows;
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
        texts.append(m_names[number].text);
    }
    return texts;
}

RowTest NameColumn::equalTo(const std::variant<QString, Date>& value) const {
    const auto wanted = m_numbers.value(wellFormed(std::get<QString>(value)), absent);
    return [this, wanted](Row row) { return wanted != absent && m_values[row] == wanted; };
}

RowTest NameColumn::containing(const QString& searchText) const {
    std::vector<std::optional<bool>> answers(m_names.size());
    answers[absent] = false;
    return [this, searchText, answers = std::move(answers)](Row row) mutable {
        auto& answer = answers[m_values[row]];
        if (!answer) {
            const Name& name = m_names[m_values[row]];
            if (!name.folded)
                name.folded = folded(name.text);
            answer = !name.folded->isEmpty() && name.folded->contains(searchText);
        }
        return *answer;
    };
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
    if (rows.size() < m_names.size() / 16) {
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

std::uint32_t NameColumn::numberOf(const QString& text) {
    auto& number = m_numbers[text];
    if (number == absent) {
        number = std::uint32_t(m_names.size());
        m_names.push_back({text, {}, {}});
    }
    return number;
}

bool NameColumn::setNumber(Row row, std::uint32_t number) {
    if (m_values[row] == number)
        return false;
    forget(row);
    m_values[row] = number;
    if (number != absent) {
        auto& rows = m_names[number].rows;
        rows.insert(std::lower_bound(rows.begin(), rows.end(), row), row);
    }
    return true;
}

void NameColumn::updateRanks() const {
    if (m_ranks.size() == m_names.size())
        return;
    const auto precedes = [this](std::uint32_t left, std::uint32_t right) {
        return compareByCodePoint(m_names[left].text, m_names[right].text) < 0;
    };
    const auto known = std::ptrdiff_t(m_order.size());
    m_order.resize(m_names.size() - 1);
    const auto newest = m_order.begin() + known;
    std::iota(newest, m_order.end(), std::uint32_t(known + 1));
    std::sort(newest, m_order.end(), precedes);
    std::inplace_merge(m_order.begin(), newest, m_order.end(), precedes);
    m_ranks.assign(m_names.size(), 0);
    for (std::size_t i = 0; i < m_order.size(); ++i)
        m_ranks[m_order[i]] = std::uint32_t(i + 1);
}

std::optional<QString> TextColumn::value(Row row) const {
    const auto& text = m_texts[row];
    return text ? std::optional(QString::fromUtf8(*text)) : std::nullopt;
}

bool TextColumn::set(Row row, const std::optional<QString>& text) {
    return setBytes(row, text ? std::optional(wellFormed(*text).toUtf8()) : std::nullopt);
}

void TextColumn::read(Row row, Statement& statement, int column) {
    const auto text = statement.text(column);
    setBytes(row, text ? std::optional(text->toByteArray()) : std::nullopt);
}

void TextColumn::bind(Row row, Statement& statement, int parameter) const {
    statement.bindText(parameter, m_texts[row]);
}

RowTest TextColumn::equalTo(const std::variant<QString, Date>& value) const {
    return [this, wanted = wellFormed(std::get<QString>(value)).toUtf8()](Row row) {
        return m_texts[row] == wanted;
    };
}

RowTest TextColumn::containing(const QString& searchText) const {
    if (searchText.isEmpty()) {
        return [this](Row row) {
            const auto& text = m_texts[row];
            return text && !text->isEmpty();
        };
    }
    if (m_starts.empty() || m_changed.size() > 64 + m_texts.size() / 64)
        foldAll();
    std::vector<bool> answers(m_texts.size());
    const QByteArray wanted = searchText.toUtf8();
    const char* const end = m_folded.constData() + m_folded.size();
    const char* place = m_folded.constData();
    for (Row row = 0; true; ++row) {
        place = static_cast<const char*>(memmem(place, std::size_t(end - place), wanted.constData(),
                                                std::size_t(wanted.size())));
        if (place == nullptr)
            break;
        while (m_starts[row + 1] <= place - m_folded.constData())
            ++row;
        answers[row] = true;
        place = m_folded.constData() + m_starts[row + 1];
    }
    for (const Row row : m_changed) {
        const auto& text = m_texts[row];
        answers[row] = text && foldedUtf8(*text).contains(wanted);
    }
    return [answers = std::move(answers)](Row row) { return answers[row]; };
}

void TextColumn::sort(std::vector<Row>& rows, bool ascending) const {
    sortByValue(rows, ascending, m_texts);
}

bool TextColumn::setBytes(Row row, std::optional<QByteArray> text) {
    if (m_texts[row] == text)
        return false;
    m_texts[row] = std::move(text);
    if (!m_starts.empty())
        m_changed.push_back(row);
    return true;
}

void TextColumn::foldAll() const {
    m_folded.clear();
    m_starts.assign(1, 0);
    m_changed.clear();
    for (const auto& text : m_texts) {
        if (text)
            m_folded += foldedUtf8(*text);
        m_folded += separator;
        m_starts.push_back(m_folded.size());
    }
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
    sortByValue(rows, ascending, m_dates);
}

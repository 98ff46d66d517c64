#include "store/NameCombinations.h"

#include <algorithm>
#include <bit>

namespace {

// The numbers count from 1: neighbours must not meet.
std::uint32_t mixed(std::uint32_t hash, std::uint32_t number) {
    hash = (hash ^ number) * 0x9e3779b1U;
    return hash ^ (hash >> 15);
}

} // namespace

std::vector<Row> NameCombinations::rows(std::span<const std::uint32_t> numbers,
                                        std::size_t rowCount) {
    if (rowCount + m_entries.size() - m_rowCount > m_firsts.size()) {
        m_firsts.assign(std::bit_ceil(2 * rowCount), none);
        m_entries.clear();
        m_rowCount = 0;
    }
    while (m_rowCount < rowCount)
        add(Row(m_rowCount++));

    std::uint32_t hash = 0;
    for (const auto number : numbers)
        hash = mixed(hash, number);
    std::vector<Row> found;
    for (auto place = placeOf(hash); place != none; place = m_entries[place].next)
        found.push_back(m_entries[place].row);
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

void NameCombinations::noteChange(Row row) {
    if (row < m_rowCount)
        add(row);
}

void NameCombinations::add(Row row) {
    std::uint32_t hash = 0;
    for (const auto* column : m_columns)
        hash = mixed(hash, column->number(row));
    auto& first = placeOf(hash);
    m_entries.push_back({row, first});
    first = std::uint32_t(m_entries.size() - 1);
}

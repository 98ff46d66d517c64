#pragma once

#include "store/Columns.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/**
 * Leads from a value in each of some name columns to the rows that have them all, where each value
 * alone has too many rows to go through. Takes in the rows as they come.
 */
class NameCombinations {
public:
    /** The columns must outlive this and keep their place. */
    explicit NameCombinations(std::vector<const NameColumn*> columns)
        : m_columns(std::move(columns)) {}

    /** Of the first so many rows, those whose names have these numbers, in row order. Some more may
     * be among them. */
    std::vector<Row> rows(std::span<const std::uint32_t> numbers, std::size_t rowCount);
    /** Takes in that a row may have got other values. */
    void noteChange(Row row);

private:
    static constexpr std::uint32_t none = UINT32_MAX;

    struct Entry {
        Row row;
        std::uint32_t next; // of those with the same place in m_firsts
    };

    std::uint32_t& placeOf(std::uint32_t hash) { return m_firsts[hash & (m_firsts.size() - 1)]; }
    void add(Row row);

    std::vector<const NameColumn*> m_columns;
    std::size_t m_rowCount = 0;
    // By hash, the newest entry. A row whose values changed has an old entry too.
    std::vector<std::uint32_t> m_firsts;
    std::vector<Entry> m_entries;
};

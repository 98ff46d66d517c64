#pragma once

#include "store/Schema.h"
#include "store/StorePages.h"
#include "store/TablePage.h"

#include <QByteArray>

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>

/** What can be read of a store, however much of its file is gone. */
struct FoundRows {
    /** The records of each entity by their ids. */
    std::array<std::map<std::int64_t, QByteArray>, entityCount> records;
    /** Names that are read, though nothing tells of which list. */
    std::size_t strayNames = 0;

    std::size_t count() const;
};

/**
 * Goes from the tables' first pages to their rows, and then through all pages that nothing leads
 * to. A quote is told by its columns. The three lists of names look alike: of a page of names whose
 * way is lost, the names count only where all but one list are there from end to end; and where
 * another list misses something, names count only on pages of which quotes use some as this list's.
 * Where the schema is gone, the tables begin on the pages on which Lantern makes them. The bytes
 * must outlive the result.
 */
FoundRows findRows(const StoreBytes& bytes);

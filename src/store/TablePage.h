#pragma once

#include "store/Schema.h"
#include "store/StorePages.h"

#include <QByteArrayView>

#include <cstdint>
#include <functional>
#include <optional>
#include <variant>
#include <vector>

/** A row as it stands on a page; what does not fit there begins a chain of other pages. */
struct Cell {
    std::int64_t id = 0;
    qsizetype size = 0; ///< of the record
    QByteArrayView beginning;
    PageNumber rest = 0;
};

/** The rows of a page, in the order of their ids. */
using LeafPage = std::vector<Cell>;

/** A page that leads to others. Each child has ids up to its last, and above those before it. */
struct InteriorPage {
    struct Child {
        PageNumber page;
        std::int64_t lastId;
    };
    std::vector<Child> children;
};

using TablePage = std::variant<std::monostate, LeafPage, InteriorPage>;

/**
 * Reads a page of a table as SQLite's file format describes it. Nothing where it is no such page.
 * An interior page must be sound from end to end. Of a leaf those rows come whose bytes end exactly
 * where others begin, so that a damaged row takes only its neighbours with it.
 * `start` is where the page's header stands: 100 on the first page.
 */
TablePage readTablePage(QByteArrayView page, qsizetype start = 0);

/** A column's value: nothing, an integer, or a text in UTF-8. */
using Value = std::variant<std::monostate, std::int64_t, QByteArrayView>;

/** Of how many columns a record tells, though its values may not all be there; 0 when it is none.
 */
std::size_t columnCount(QByteArrayView record);

/** The values of a record; nothing unless all bytes of it are as SQLite writes them, with nothing
 * but texts, integers and NULLs. */
std::optional<std::vector<Value>> readRecord(QByteArrayView record);

#include "store/FoundRows.h"

#include <QSet>
#include <QtEndian>

#include <algorithm>
#include <limits>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t quotes = 0; // the place of their entity in the schema; the others are names
constexpr PageNumber schemaPage = 1;

/** Whether a record can be one of the entity: the id, which stands beside the record, and then the
 * attributes, each of which may be absent. */
bool fits(const std::vector<Value>& values, std::size_t entity) {
    const auto& attributes = schema()[entity].attributes;
    if (values.size() != attributes.size() + 1 ||
        !std::holds_alternative<std::monostate>(values[0]))
        return false;
    for (std::size_t i = 0; i < attributes.size(); ++i) {
        const Value& value = values[i + 1];
        if (attributes[i].kind == AttributeKind::Moment
                ? std::holds_alternative<QByteArrayView>(value)
                : std::holds_alternative<std::int64_t>(value))
            return false;
    }
    return true;
}

/** A block that the disk lost is read as zeros. Texts that hold one of their own are so rare that
 * they are given up for it. */
bool mayHoldLostBlock(const std::vector<Value>& values) {
    return std::any_of(values.begin(), values.end(), [](const Value& value) {
        const auto* text = std::get_if<QByteArrayView>(&value);
        return text && text->contains('\0');
    });
}

struct Row {
    std::int64_t id = 0;
    QByteArray record;
    std::vector<PageNumber> chain; ///< the pages that hold the rest of it
};

/** Which ids a way through the tree allows on a page. */
struct Claim {
    std::size_t entity;
    std::int64_t above;
    std::int64_t last;
};

class Search {
public:
    explicit Search(StorePages pages)
        : m_pages(std::move(pages))
        , m_tablePages(m_pages.count() + 1)
        , m_claims(m_pages.count() + 1) {
        for (PageNumber number = schemaPage + 1; number <= m_pages.count(); ++number)
            m_tablePages[number] = readTablePage(m_pages.page(number));
    }

    /** How many rows stand on the pages, whatever their tables. */
    std::size_t rowCount() const {
        std::size_t count = 0;
        for (const auto& page : m_tablePages)
            count += rowsOn(page).size();
        return count;
    }

    FoundRows run() {
        const auto roots = findRoots();
        for (std::size_t entity = 0; entity < entityCount; ++entity)
            follow(roots[entity], {entity, std::numeric_limits<std::int64_t>::min(),
                                   std::numeric_limits<std::int64_t>::max()});
        distrustShared();
        distrustTwins();
        distrustMisplaced();
        readClaimed();
        readStray();
        keepTrusted();
        return std::move(m_found);
    }

private:
    static const LeafPage& rowsOn(const TablePage& page) {
        static const LeafPage none;
        const auto* rows = std::get_if<LeafPage>(&page);
        return rows ? *rows : none;
    }

    std::array<PageNumber, entityCount> findRoots() const {
        std::array<PageNumber, entityCount> roots{};
        for (std::size_t entity = 0; entity < entityCount; ++entity)
            roots[entity] = PageNumber(schemaPage + 1 + entity);
        const auto page = readTablePage(m_pages.page(schemaPage), 100);
        for (const Cell& cell : rowsOn(page)) {
            const auto values = readRecord(cell.beginning);
            if (!values || values->size() != 5 || (*values)[0] != Value(QByteArrayView("table")))
                continue;
            for (std::size_t entity = 0; entity < entityCount; ++entity) {
                const auto* root = std::get_if<std::int64_t>(&(*values)[3]);
                if (root && (*values)[1] == Value(QByteArrayView(schema()[entity].table)))
                    roots[entity] = PageNumber(*root);
            }
        }
        return roots;
    }

    /** Claims a page for a table, and all that it leads to. */
    void follow(PageNumber number, const Claim& claim) {
        constexpr std::size_t tooMany = 8; // ways to a page; a damaged tree may have a circle
        if (number <= schemaPage || number > m_pages.count() ||
            m_claims[number].size() >= tooMany || !canBelong(m_tablePages[number], claim)) {
            m_isIncomplete[claim.entity] = true;
            return;
        }
        m_claims[number].push_back(claim);
        const auto* interior = std::get_if<InteriorPage>(&m_tablePages[number]);
        std::int64_t above = claim.above;
        for (const auto& child :
             interior ? interior->children : std::vector<InteriorPage::Child>()) {
            const auto last = std::min(child.lastId, claim.last);
            follow(child.page, {claim.entity, above, last});
            above = last;
        }
    }

    static bool canBelong(const TablePage& page, const Claim& claim) {
        const auto* cells = std::get_if<LeafPage>(&page);
        if (!cells)
            return std::holds_alternative<InteriorPage>(page);
        const auto columns = schema()[claim.entity].attributes.size() + 1;
        return std::all_of(cells->begin(), cells->end(), [&](const Cell& cell) {
            return columnCount(cell.beginning) == columns && cell.id > claim.above &&
                   cell.id <= claim.last;
        });
    }

    void distrust(PageNumber number) {
        for (const Claim& claim : std::exchange(m_claims[number], {}))
            m_isIncomplete[claim.entity] = true;
    }

    /** Of two ways to a page, one is wrong. */
    void distrustShared() {
        for (PageNumber number = 0; number < m_claims.size(); ++number) {
            if (m_claims[number].size() > 1)
                distrust(number);
        }
    }

    /** Of two pages that hold the same rows, one was written in another's place. */
    void distrustTwins() {
        std::map<QByteArrayView, PageNumber> known;
        for (PageNumber number = 0; number < m_tablePages.size(); ++number) {
            if (rowsOn(m_tablePages[number]).empty())
                continue;
            const auto [twin, isNew] = known.try_emplace(m_pages.page(number), number);
            if (!isNew) {
                distrust(number);
                distrust(twin->second);
            }
        }
    }

    /** Where a list misses something, its pages may have been written in the place of another's. A
     * page stays with its list then as long as the quotes use its names so, and no more often as
     * the other's. */
    void distrustMisplaced() {
        const auto uses = namesInUse();
        const auto isIncomplete = m_isIncomplete;
        for (PageNumber number = 0; number < m_claims.size(); ++number) {
            const auto list = m_claims[number].empty() ? quotes : m_claims[number].front().entity;
            if (list == quotes || rowsOn(m_tablePages[number]).empty())
                continue;
            std::array<int, entityCount> count{};
            for (const Row& row : readRows(number, list)) {
                const auto values = readRecord(row.record);
                const auto* name = std::get_if<QByteArrayView>(&values->back());
                for (std::size_t use = quotes + 1; name && use < entityCount; ++use)
                    count[use] += int(uses[use].contains(name->toByteArray()));
            }
            for (std::size_t other = quotes + 1; other < entityCount; ++other) {
                if (other != list && isIncomplete[other] &&
                    (count[list] == 0 || count[other] > count[list]))
                    distrust(number);
            }
        }
    }

    /** By list, the names that quotes have. */
    std::array<QSet<QByteArray>, entityCount> namesInUse() const {
        std::array<QSet<QByteArray>, entityCount> uses;
        for (PageNumber number = 0; number < m_tablePages.size(); ++number) {
            for (const Row& row : readRows(number, quotes)) {
                const auto values = readRecord(row.record);
                for (std::size_t list = quotes + 1; list < entityCount; ++list) {
                    // The record has the id and the text of the quote before them.
                    if (const auto* name = std::get_if<QByteArrayView>(&(*values)[list + 1]))
                        uses[list].insert(name->toByteArray());
                }
            }
        }
        return uses;
    }

    void readClaimed() {
        for (PageNumber number = 0; number < m_claims.size(); ++number) {
            for (const Claim& claim : m_claims[number]) {
                for (auto& row : readRows(number, claim.entity))
                    take(std::move(row), claim.entity, true);
            }
        }
    }

    /** Reads the pages that nothing leads to. A sound file has such pages for later use alone. */
    void readStray() {
        const auto unused = unusedPages();
        std::vector<std::size_t> incomplete;
        for (std::size_t entity = quotes + 1; entity < entityCount; ++entity) {
            if (m_isIncomplete[entity])
                incomplete.push_back(entity);
        }
        for (PageNumber number = 0; number < m_tablePages.size(); ++number) {
            if (!m_claims[number].empty() || (unused && unused->contains(number)))
                continue;
            if (unused || m_isIncomplete[quotes]) {
                for (auto& row : readRows(number, quotes))
                    take(std::move(row), quotes, false);
            }
            auto names = readRows(number, quotes + 1);
            if (incomplete.size() != 1)
                m_found.strayNames += names.size();
            for (auto& row : incomplete.size() == 1 ? names : std::vector<Row>())
                take(std::move(row), incomplete.front(), false);
        }
    }

    /** The pages that the file keeps for later; nothing when their list is damaged. */
    std::optional<std::set<PageNumber>> unusedPages() const {
        const auto word = [](QByteArrayView page, qsizetype place) {
            return qFromBigEndian<quint32>(page.data() + place);
        };
        const QByteArrayView first = m_pages.page(schemaPage);
        if (!first.startsWith(QByteArrayView("SQLite format 3")))
            return std::nullopt;
        std::set<PageNumber> unused;
        PageNumber trunk = word(first, 32);
        while (trunk > schemaPage && trunk <= m_pages.count() && unused.insert(trunk).second) {
            const QByteArrayView page = m_pages.page(trunk);
            const auto count = page.isEmpty() ? 0 : qsizetype(word(page, 4));
            for (qsizetype i = 0; i < count && 4 * i + 12 <= page.size(); ++i)
                unused.insert(word(page, 4 * i + 8));
            trunk = page.isEmpty() ? 0 : word(page, 0);
        }
        return unused.size() == word(first, 36) ? std::optional(std::move(unused)) : std::nullopt;
    }

    /** The sound rows on a page that can be of a table. */
    std::vector<Row> readRows(PageNumber number, std::size_t entity) const {
        std::vector<Row> rows;
        for (const Cell& cell : rowsOn(m_tablePages[number])) {
            if (columnCount(cell.beginning) != schema()[entity].attributes.size() + 1)
                continue;
            auto row = assemble(cell);
            const auto values = row ? readRecord(row->record) : std::nullopt;
            if (values && fits(*values, entity) && !mayHoldLostBlock(*values))
                rows.push_back(std::move(*row));
        }
        return rows;
    }

    /** The whole record of a row; nothing when the chain to its end is broken. */
    std::optional<Row> assemble(const Cell& cell) const {
        Row row;
        row.id = cell.id;
        row.record = QByteArray::fromRawData(cell.beginning.data(), cell.beginning.size());
        PageNumber next = cell.rest;
        while (row.record.size() < cell.size) {
            const QByteArrayView page = m_pages.page(next);
            if (page.isEmpty() || !m_claims[next].empty())
                return std::nullopt;
            const auto part =
                page.sliced(4, std::min(page.size() - 4, cell.size - row.record.size()));
            row.chain.push_back(next);
            row.record.append(part);
            next = qFromBigEndian<quint32>(page.data());
        }
        return next == 0 ? std::optional(std::move(row)) : std::nullopt;
    }

    /** Of rows with one id that differ, none can be trusted; a stray one gives way to one that the
     * tree leads to. */
    void take(Row row, std::size_t entity, bool isCertain) {
        auto& rows = m_rows[entity];
        const auto [place, isNew] = rows.try_emplace(row.id);
        auto& known = place->second;
        if (isNew)
            known = {std::move(row), isCertain, false};
        else if (!known.isCertain && known.row.record != row.record)
            known.isDoubtful = true;
    }

    /** Takes what can be trusted. Of two pages that hold the same rest of a row, one was written in
     * another's place; and a page that two chains lead to holds the rest of one row at most. */
    void keepTrusted() {
        std::map<QByteArrayView, int> copies;
        for (PageNumber number = schemaPage + 1; number <= m_pages.count(); ++number)
            ++copies[m_pages.page(number)];
        std::map<PageNumber, int> uses;
        for (const auto& rows : m_rows) {
            for (const auto& [id, known] : rows) {
                for (const PageNumber page : known.row.chain)
                    ++uses[page];
            }
        }
        for (std::size_t entity = 0; entity < entityCount; ++entity) {
            for (auto& [id, known] : m_rows[entity]) {
                const auto& chain = known.row.chain;
                const bool isSound = std::all_of(chain.begin(), chain.end(), [&](PageNumber page) {
                    return uses[page] == 1 && copies[m_pages.page(page)] == 1;
                });
                if (!known.isDoubtful && isSound)
                    m_found.records[entity].emplace(id, std::move(known.row.record));
            }
        }
    }

    struct Known {
        Row row;
        bool isCertain = false;
        bool isDoubtful = false;
    };

    StorePages m_pages;
    std::vector<TablePage> m_tablePages;      // by number
    std::vector<std::vector<Claim>> m_claims; // by page
    std::array<bool, entityCount> m_isIncomplete{};
    std::array<std::map<std::int64_t, Known>, entityCount> m_rows;
    FoundRows m_found;
};

} // namespace

std::size_t FoundRows::count() const {
    std::size_t count = 0;
    for (const auto& rows : records)
        count += rows.size();
    return count;
}

// The size of the pages stands on the first, which may be gone: by the right one, most rows are
// read.
FoundRows findRows(const StoreBytes& bytes) {
    qsizetype best = 0;
    std::size_t most = 0;
    for (const qsizetype pageSize : {16384, 4096, 512, 1024, 2048, 8192, 32768, 65536}) {
        const auto count = Search(StorePages(bytes, pageSize)).rowCount();
        if (count > most) {
            most = count;
            best = pageSize;
        }
    }
    return best == 0 ? FoundRows() : Search(StorePages(bytes, best)).run();
}

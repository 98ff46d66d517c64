#include "store/TablePage.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <limits>

namespace {

constexpr unsigned char leafMark = 0x0d;
constexpr unsigned char interiorMark = 0x05;
constexpr int longestGap = 3; // a longer one is a free block
constexpr qsizetype leastCell = 4;

/** Reads one value after the other, and remembers when there was none. */
class Reader {
public:
    Reader(QByteArrayView bytes, qsizetype place)
        : m_bytes(bytes)
        , m_place(place) {}

    /** Big-endian, of so many bytes, with a sign. */
    std::int64_t integer(qsizetype size) {
        const QByteArrayView bytes = take(size);
        if (bytes.isEmpty())
            return 0;
        auto value = std::uint64_t(std::int64_t(static_cast<signed char>(bytes[0])));
        for (const char byte : bytes.sliced(1))
            value = value << 8 | static_cast<unsigned char>(byte);
        return std::int64_t(value);
    }

    quint32 unsignedInteger(qsizetype size) {
        return quint32(integer(size) & ((std::int64_t(1) << (8 * size)) - 1));
    }

    /** Seven bits a byte, the ninth with eight, and no longer than it must be. */
    std::int64_t varint() {
        std::uint64_t value = 0;
        for (int i = 0; i < 9; ++i) {
            const auto bytes = take(1);
            if (!m_isSound)
                return 0;
            const auto byte = static_cast<unsigned char>(bytes[0]);
            if (i == 0 && byte == 0x80)
                m_isSound = false;
            value = i == 8 ? value << 8 | byte : value << 7 | (byte & 0x7f);
            if (byte < 0x80)
                break;
        }
        return std::int64_t(value);
    }

    QByteArrayView take(qsizetype size) {
        if (!m_isSound || size < 0 || size > m_bytes.size() - m_place) {
            m_isSound = false;
            return {};
        }
        const auto taken = m_bytes.sliced(m_place, size);
        m_place += size;
        return taken;
    }

    bool isSound() const { return m_isSound; }
    qsizetype place() const { return m_place; }

private:
    QByteArrayView m_bytes;
    qsizetype m_place;
    bool m_isSound = true;
};

struct Extent {
    qsizetype begin;
    qsizetype end;
};

struct Header {
    qsizetype cellCount = 0;
    qsizetype pointers = 0; ///< where they begin
    qsizetype contents = 0; ///< where rows and free blocks begin
    qsizetype firstFree = 0;
    int gaps = 0; ///< bytes that are lost between
    PageNumber lastChild = 0;
};

std::optional<Header> readHeader(QByteArrayView page, qsizetype start, bool isLeaf) {
    Reader reader(page, start + 1);
    Header header;
    header.firstFree = reader.unsignedInteger(2);
    header.cellCount = reader.unsignedInteger(2);
    header.contents = reader.unsignedInteger(2);
    header.gaps = int(reader.unsignedInteger(1));
    if (!isLeaf)
        header.lastChild = reader.unsignedInteger(4);
    header.pointers = reader.place();
    if (header.contents == 0)
        header.contents = 65536;
    const bool fits = reader.isSound() && header.contents <= page.size() &&
                      header.pointers + 2 * header.cellCount <= header.contents;
    return fits ? std::optional(header) : std::nullopt;
}

/** The free blocks, each of which leads to the next; none when one leads astray. */
std::vector<Extent> freeBlocks(QByteArrayView page, const Header& header) {
    std::vector<Extent> blocks;
    qsizetype place = header.firstFree;
    while (place != 0) {
        if (place < header.contents || (!blocks.empty() && place < blocks.back().end))
            return {};
        Reader reader(page, place);
        const qsizetype next = reader.unsignedInteger(2);
        const qsizetype size = reader.unsignedInteger(2);
        if (!reader.isSound() || size < leastCell || place + size > page.size())
            return {};
        blocks.push_back({place, place + size});
        place = next;
    }
    return blocks;
}

std::optional<Cell> readCell(QByteArrayView page, Reader& reader) {
    Cell cell;
    cell.size = reader.varint();
    cell.id = reader.varint();
    const qsizetype most = page.size() - 35;
    const qsizetype least = (page.size() - 12) * 32 / 255 - 23;
    qsizetype here = cell.size;
    if (here > most) {
        const qsizetype wanted = least + (cell.size - least) % (page.size() - 4);
        here = wanted <= most ? wanted : least;
    }
    cell.beginning = reader.take(here);
    if (here < cell.size)
        cell.rest = reader.unsignedInteger(4);
    return reader.isSound() && cell.size > 0 ? std::optional(cell) : std::nullopt;
}

/** Whether the extents, in their order, fill the page but for the gaps that its header counts. */
bool areSound(const std::vector<Extent>& extents, qsizetype contents, qsizetype end, int gaps) {
    qsizetype place = contents;
    for (const auto& extent : extents) {
        if (extent.begin < place || extent.begin - place > longestGap)
            return false;
        gaps -= int(extent.begin - place);
        place = extent.end;
    }
    return place <= end && end - place <= longestGap && gaps == end - place;
}

LeafPage readLeaf(QByteArrayView page, const Header& header) {
    struct Found {
        Extent extent;
        std::optional<Cell> cell;
    };
    std::vector<Found> found;
    std::vector<qsizetype> beginnings{page.size()};
    for (const auto& block : freeBlocks(page, header))
        beginnings.push_back(block.begin);
    Reader pointers(page, header.pointers);
    for (qsizetype i = 0; i < header.cellCount; ++i) {
        const qsizetype begin = pointers.unsignedInteger(2);
        beginnings.push_back(begin);
        Reader reader(page, begin);
        auto cell = begin < header.contents ? std::nullopt : readCell(page, reader);
        const qsizetype end = std::max(reader.place(), begin + leastCell);
        found.push_back({{begin, end}, cell});
    }
    std::sort(beginnings.begin(), beginnings.end());
    LeafPage rows;
    for (const auto& [extent, cell] : found) {
        const auto next = std::upper_bound(beginnings.begin(), beginnings.end(), extent.begin);
        const bool isAlone = next == beginnings.end() || next - beginnings.begin() < 2 ||
                             *(next - 2) != extent.begin;
        if (cell && isAlone && next != beginnings.end() && *next >= extent.end &&
            *next - extent.end <= longestGap)
            rows.push_back(*cell);
    }
    return rows;
}

std::optional<InteriorPage> readInterior(QByteArrayView page, const Header& header) {
    InteriorPage result;
    auto extents = freeBlocks(page, header);
    Reader pointers(page, header.pointers);
    for (qsizetype i = 0; i < header.cellCount; ++i) {
        const qsizetype begin = pointers.unsignedInteger(2);
        Reader reader(page, begin);
        const PageNumber child = reader.unsignedInteger(4);
        const std::int64_t lastId = reader.varint();
        if (!reader.isSound() ||
            (!result.children.empty() && lastId <= result.children.back().lastId))
            return std::nullopt;
        result.children.push_back({child, lastId});
        extents.push_back({begin, reader.place()});
    }
    result.children.push_back({header.lastChild, std::numeric_limits<std::int64_t>::max()});
    std::sort(extents.begin(), extents.end(),
              [](const Extent& left, const Extent& right) { return left.begin < right.begin; });
    const bool isSound = areSound(extents, header.contents, page.size(), header.gaps);
    return isSound ? std::optional(std::move(result)) : std::nullopt;
}

/** How many bytes a value takes; nothing for one that no column of a store has. */
std::optional<qsizetype> sizeOf(std::int64_t type) {
    constexpr std::array<qsizetype, 10> sizes{0, 1, 2, 3, 4, 6, 8, -1, 0, 0};
    if (type >= 13 && type % 2 == 1)
        return qsizetype((type - 13) / 2);
    if (type < 0 || type >= std::ssize(sizes) || sizes[std::size_t(type)] < 0)
        return std::nullopt;
    return sizes[std::size_t(type)];
}

/** Of the types of an integer, the one that SQLite takes. */
std::int64_t typeOf(std::int64_t value) {
    if (value == 0 || value == 1)
        return 8 + value;
    constexpr std::array<int, 5> bits{8, 16, 24, 32, 48};
    for (std::size_t i = 0; i < bits.size(); ++i) {
        const auto limit = std::int64_t(1) << (bits[i] - 1);
        if (value >= -limit && value < limit)
            return std::int64_t(i + 1);
    }
    return 6;
}

} // namespace

TablePage readTablePage(QByteArrayView page, qsizetype start) {
    if (page.size() < start + 8)
        return {};
    const auto mark = static_cast<unsigned char>(page[start]);
    if (mark != leafMark && mark != interiorMark)
        return {};
    const auto header = readHeader(page, start, mark == leafMark);
    if (!header)
        return {};
    if (mark == leafMark)
        return readLeaf(page, *header);
    if (auto interior = readInterior(page, *header))
        return *interior;
    return {};
}

std::size_t columnCount(QByteArrayView record) {
    Reader types(record, 0);
    const qsizetype headerSize = types.varint();
    std::size_t count = 0;
    for (; types.isSound() && types.place() < headerSize; ++count)
        types.varint();
    return types.isSound() && types.place() == headerSize ? count : 0;
}

std::optional<std::vector<Value>> readRecord(QByteArrayView record) {
    Reader types(record, 0);
    const qsizetype headerSize = types.varint();
    Reader contents(record, headerSize);
    std::vector<Value> values;
    while (types.isSound() && types.place() < headerSize) {
        const std::int64_t type = types.varint();
        const auto size = sizeOf(type);
        if (!types.isSound() || !size)
            return std::nullopt;
        if (type == 0) {
            values.emplace_back();
        } else if (type < 13) {
            const std::int64_t value = type >= 8 ? type - 8 : contents.integer(*size);
            if (!contents.isSound() || typeOf(value) != type)
                return std::nullopt;
            values.emplace_back(value);
        } else {
            const QByteArrayView text = contents.take(*size);
            if (!contents.isSound() || !text.isValidUtf8())
                return std::nullopt;
            values.emplace_back(text);
        }
    }
    const bool isWhole = types.isSound() && types.place() == headerSize && contents.isSound() &&
                         contents.place() == record.size();
    return isWhole ? std::optional(std::move(values)) : std::nullopt;
}

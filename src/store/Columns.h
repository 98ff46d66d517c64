#pragma once

#include "foundation/Date.h"
#include "store/Connection.h"
#include "store/FoldedTexts.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <memory_resource>
#include <optional>
#include <variant>
#include <vector>

/** The place of a record in the columns of its table. */
using Row = std::uint32_t;
using RowTest = std::function<bool(Row)>;

/** Texts that many records share: each distinct text is kept once, in UTF-8, with its records. */
class NameColumn {
public:
    void resize(std::size_t rows) { m_values.resize(rows); }
    std::optional<QString> value(Row row) const;
    /** The bytes of the value, valid until the next change; nothing when it is absent. */
    std::optional<QByteArrayView> bytes(Row row) const;
    /** Returns whether this changed the value. */
    bool set(Row row, const std::optional<QString>& text);
    /** Takes a row that is deleted out of the index; its value stays. */
    void forget(Row row);
    /** Puts a row that is no longer deleted back into the index. */
    void remember(Row row);
    void read(Row row, Statement& statement, int column);
    void bind(Row row, Statement& statement, int parameter) const;
    /** What a row has now, so that it can be given back. */
    using Kept = std::uint32_t;
    Kept keep(Row row) { return m_values[row]; }
    void giveBack(Row row, Kept number) { setNumber(row, number); }
    void endKeeping() {}

    /** Texts are equal where their numbers are. */
    std::uint32_t number(Row row) const { return m_values[row]; }
    /** The number of a text; that of an absent value where no row has had the text. */
    std::uint32_t knownNumber(const QString& text) const;
    /** The rows whose text has this number, in row order. */
    const std::vector<Row>& rows(std::uint32_t number) const;
    /** The distinct texts of these rows, in the order in which they come. */
    QStringList distinct(const std::vector<Row>& rows) const;
    RowTest equalTo(const std::variant<QString, Date>& value) const;
    /** Whether the folded text of a row contains a folded search text. */
    RowTest containing(const QString& searchText) const;
    void sort(std::vector<Row>& rows, bool ascending) const;

private:
    static constexpr std::uint32_t absent = 0;

    /** Where the number of a text is found, or is to be written. */
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t number = absent;
    };

    std::uint32_t numberOf(QByteArrayView text);
    std::size_t slotOf(QByteArrayView text, std::uint32_t hash) const;
    void addSlots();
    bool setNumber(Row row, std::uint32_t number);
    /** Makes the index of rows by name where there is none yet; no row was deleted until then. */
    void index() const;
    void unindex(Row row);
    void updateRanks() const;

    std::unique_ptr<std::pmr::monotonic_buffer_resource> m_texts =
        std::make_unique<std::pmr::monotonic_buffer_resource>();
    // By number; the first stands for an absent value.
    std::vector<QByteArrayView> m_names{QByteArrayView()};
    // Numbers by the hash of their text, or in the next free slot; at least half are free. QHash
    // takes more than twice the memory, and the time.
    std::vector<Slot> m_slots = std::vector<Slot>(16);
    mutable QString m_lastText; // of the last question; the next is often about it again
    mutable std::uint32_t m_lastNumber = absent;
    std::vector<std::uint32_t> m_values;          // by row
    mutable std::vector<std::vector<Row>> m_rows; // by number; made by the first question
    mutable FoldedTexts m_folded;                 // by number, short of the newest names
    mutable std::vector<std::uint32_t> m_order; // numbers in text order, short of the newest names
    mutable std::vector<std::uint32_t> m_ranks; // by number, short of the newest names
};

/** Long texts of one record each, in UTF-8. */
class TextColumn {
public:
    void resize(std::size_t rows) { m_places.resize(rows); }
    std::optional<QString> value(Row row) const;
    /** As of a name; bytes that a store holds and that are no UTF-8 come as they are. */
    std::optional<QByteArrayView> bytes(Row row) const;
    bool set(Row row, const std::optional<QString>& text);
    void forget(Row /*row*/) {}
    void remember(Row /*row*/) {}
    void read(Row row, Statement& statement, int column);
    void bind(Row row, Statement& statement, int parameter) const;

    struct Place {
        qsizetype start = 0;
        qsizetype size = -1; ///< of an absent text
    };
    /** As of a name. Until the end of keeping, no text is moved. */
    using Kept = Place;
    Kept keep(Row row);
    void giveBack(Row row, Kept place);
    void endKeeping() { m_keeps = false; }

    RowTest equalTo(const std::variant<QString, Date>& value) const;
    /** Lowers some more texts, up to that many bytes at a time, for the search to come; whether it
     * has left any. */
    bool foldSome(qsizetype bytes) const;
    RowTest containing(const QString& searchText) const;
    void sort(std::vector<Row>& rows, bool ascending) const;

private:
    bool setBytes(Row row, std::optional<QByteArrayView> text);
    void tidy();

    QByteArray m_bytes; // all texts, and those that others have replaced
    qsizetype m_replacedSize = 0;
    bool m_keeps = false;               // what was replaced too, where it is
    std::vector<Place> m_places;        // by row
    mutable FoldedTexts m_folded;       // by row, short of the newest rows
    mutable std::vector<Row> m_changed; // after they were folded
};

/** Moments in time. */
class DateColumn {
public:
    void resize(std::size_t rows) { m_dates.resize(rows); }
    std::optional<Date> value(Row row) const { return m_dates[row]; }
    bool set(Row row, std::optional<Date> date);
    void forget(Row /*row*/) {}
    void remember(Row /*row*/) {}
    void read(Row row, Statement& statement, int column);
    void bind(Row row, Statement& statement, int parameter) const;
    using Kept = std::optional<Date>;
    Kept keep(Row row) { return m_dates[row]; }
    void giveBack(Row row, Kept date) { m_dates[row] = date; }
    void endKeeping() {}

    RowTest equalTo(const std::variant<QString, Date>& value) const;
    void sort(std::vector<Row>& rows, bool ascending) const;

private:
    std::vector<std::optional<Date>> m_dates;
};

using Column = std::variant<NameColumn, TextColumn, DateColumn>;

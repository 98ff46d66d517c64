#pragma once

#include "foundation/Date.h"
#include "store/Connection.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <variant>
#include <vector>

/** The place of a record in the columns of its table. */
using Row = std::uint32_t;
using RowTest = std::function<bool(Row)>;

/** A text as UTF-8 can hold it: a surrogate without its other half becomes U+FFFD. */
QString wellFormed(const QString& text);

/** A text as the list search compares it. */
QString folded(const QString& text);

/** Texts that many records share: each distinct text is kept once, with its records. */
class NameColumn {
public:
    void resize(std::size_t rows) { m_values.resize(rows); }
    std::optional<QString> value(Row row) const;
    /** Returns whether this changed the value. */
    bool set(Row row, const std::optional<QString>& text);
    /** Takes a row that is deleted out of the index; its value stays. */
    void forget(Row row);
    void read(Row row, Statement& statement, int column);
    void bind(Row row, Statement& statement, int parameter) const;

    /** The rows that have this text, in row order. */
    const std::vector<Row>& rows(const QString& text) const;
    /** The distinct texts of these rows, in the order in which they come. */
    QStringList distinct(const std::vector<Row>& rows) const;
    RowTest equalTo(const std::variant<QString, Date>& value) const;
    /** Whether the folded text of a row contains a folded search text. */
    RowTest containing(const QString& searchText) const;
    void sort(std::vector<Row>& rows, bool ascending) const;

private:
    struct Name {
        QString text;
        std::vector<Row> rows;
        mutable std::optional<QString> folded;
    };
    static constexpr std::uint32_t absent = 0;

    std::uint32_t numberOf(const QString& text);
    bool setNumber(Row row, std::uint32_t number);
    void updateRanks() const;

    std::vector<Name> m_names{Name{}}; // by number; the first stands for an absent value
    QHash<QString, std::uint32_t> m_numbers;
    std::vector<std::uint32_t> m_values;        // by row
    mutable std::vector<std::uint32_t> m_order; // numbers in text order, short of the newest names
    mutable std::vector<std::uint32_t> m_ranks; // by number, short of the newest names
};

/** Long texts of one record each, in UTF-8. */
class TextColumn {
public:
    void resize(std::size_t rows) { m_texts.resize(rows); }
    std::optional<QString> value(Row row) const;
    bool set(Row row, const std::optional<QString>& text);
    void forget(Row /*row*/) {}
    void read(Row row, Statement& statement, int column);
    void bind(Row row, Statement& statement, int parameter) const;

    RowTest equalTo(const std::variant<QString, Date>& value) const;
    RowTest containing(const QString& searchText) const;
    void sort(std::vector<Row>& rows, bool ascending) const;

private:
    bool setBytes(Row row, std::optional<QByteArray> text);
    void foldAll() const;

    std::vector<std::optional<QByteArray>> m_texts;
    // All folded texts, each followed by a byte that UTF-8 never has; made by the first search.
    mutable QByteArray m_folded;
    mutable std::vector<qsizetype> m_starts; // of the rows that were folded, and the end
    mutable std::vector<Row> m_changed;      // since then
};

/** Moments in time. */
class DateColumn {
public:
    void resize(std::size_t rows) { m_dates.resize(rows); }
    std::optional<Date> value(Row row) const { return m_dates[row]; }
    bool set(Row row, std::optional<Date> date);
    void forget(Row /*row*/) {}
    void read(Row row, Statement& statement, int column);
    void bind(Row row, Statement& statement, int parameter) const;

    RowTest equalTo(const std::variant<QString, Date>& value) const;
    void sort(std::vector<Row>& rows, bool ascending) const;

private:
    std::vector<std::optional<Date>> m_dates;
};

using Column = std::variant<NameColumn, TextColumn, DateColumn>;

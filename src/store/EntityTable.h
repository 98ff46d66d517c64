#pragma once

#include "foundation/Date.h"
#include "store/Columns.h"
#include "store/Connection.h"
#include "store/FetchRequest.h"
#include "store/ManagedObject.h"
#include "store/NameCombinations.h"
#include "store/StoreError.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

/**
 * The records of one entity in the memory of one context, a column for each attribute. Rows are in
 * the order of insertion and are never taken away, so that a record keeps its row.
 */
class EntityTable {
public:
    explicit EntityTable(std::size_t entity);
    EntityTable(const EntityTable&) = delete;
    EntityTable& operator=(const EntityTable&) = delete;

    static EntityTable& of(const ManagedObject& object) { return *object.m_table; }
    static Row rowOf(const ManagedObject& object) { return object.m_row; }

    /** The connection must outlive the table. */
    void connect(StoreConnection& connection) { m_connection = &connection; }

    /** Reads what is not in memory yet, or was changed by another context since. */
    std::optional<StoreError> refresh(bool withValues);

    /** The rows that pass all tests, in order. */
    std::vector<Row> rows(const std::vector<AttributeOrder>& order,
                          const std::vector<AttributeEquals>& tests) const;
    /** How many rows pass all tests. */
    std::size_t count(const std::vector<AttributeEquals>& tests) const;
    /** The distinct texts of a name attribute, in the order of the rows. */
    QStringList distinctNames(std::size_t attribute, const std::vector<Row>& rows) const;
    std::size_t rowCount() const { return m_states.size(); }

    Row insert();
    void remove(Row row);
    /** Takes a removal back, with the values and the identity that the row had. */
    void restore(Row row);
    bool isDeleted(Row row) const { return m_states[row].isDeleted; }
    bool hasChanges(Row row) const { return m_states[row].needsWriting(); }

    std::optional<QString> text(Row row, std::size_t attribute);
    std::optional<QByteArrayView> utf8(Row row, std::size_t attribute);
    std::optional<Date> date(Row row, std::size_t attribute);
    /** A change of a deleted record is ignored. */
    void setText(Row row, std::size_t attribute, const std::optional<QString>& text);
    void setDate(Row row, std::size_t attribute, std::optional<Date> date);
    /** Of an attribute that holds long texts; whether there is more to fold. */
    bool foldSome(std::size_t attribute, qsizetype bytes);
    RowTest containing(std::size_t attribute, const QString& foldedSearchText);

    bool hasChanges() const;
    /** Takes note that all changes of now are to be written. */
    void noteSave() { m_notedCount = m_changed.size(); }
    bool hasNotedChanges() const;
    std::size_t notedCount() const { return m_notedCount; }
    /** How many of them are written. */
    std::size_t writtenCount() const { return m_writtenCount; }
    /** Writes at most so many more of what is noted, within a transaction; SQLITE_DONE or an error
     * code. What is written is not changed before the transaction ends. */
    int writeNoted(std::size_t most);
    /** To be called when the transaction has succeeded. */
    void finishNoted();
    /** To be called when the transaction has not succeeded. */
    void forgetWritten() { m_writtenCount = 0; }

    /** From now on, keeps what is needed to take insertions and changes back. */
    void beginKeeping();
    void endKeeping();
    /** Takes back what was inserted and changed since then. */
    void takeBack();

private:
    enum class Contents { Nothing, Identities, Values };

    struct State {
        bool isOnDisk = false;
        bool isUpdated = false;
        bool isDeleted = false;

        bool needsWriting() const { return isOnDisk ? isUpdated || isDeleted : !isDeleted; }
    };

    /** What a row had before it was changed. */
    struct Change {
        Row row;
        std::size_t attribute;
        std::variant<NameColumn::Kept, TextColumn::Kept, DateColumn::Kept> value;
        State state;
    };

    /** What there was when the keeping began, and what was changed since. */
    struct Before {
        std::size_t rowCount;
        std::size_t changedCount;
        std::size_t notedCount;
        std::vector<Change> changes;
    };

    /** Reads all rows of the file, and marks those found that were known before; SQLITE_DONE or an
     * error code. */
    int readRows(bool withValues, std::vector<bool>& isFound);
    /** The rows that the tests of names leave; nothing when there are no such tests. */
    std::optional<std::vector<Row>> rowsOfNames(const std::vector<AttributeEquals>& tests) const;
    Row append(std::int64_t id);
    void needValues();
    void markUpdated(Row row);
    void markDeleted(Row row);
    int write(Row row);

    template <class Kind, class Value>
    void set(Row row, std::size_t attribute, const Value& value);

    std::size_t m_entity;
    StoreConnection* m_connection = nullptr;
    Contents m_contents = Contents::Nothing;
    std::uint64_t m_seenChanges = 0;
    std::vector<Column> m_columns;
    // By the attributes that a fetch has tested together, as digits of a number.
    mutable std::map<std::uint64_t, NameCombinations> m_combinations;
    std::vector<std::int64_t> m_ids;
    std::vector<State> m_states;
    std::vector<Row> m_changed; // since the last save; the first of them are noted for writing
    std::size_t m_notedCount = 0;
    std::size_t m_writtenCount = 0; // of those that are noted
    std::optional<Before> m_before;
};

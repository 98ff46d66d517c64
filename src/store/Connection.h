#pragma once

#include "store/Backups.h"
#include "store/FileMark.h"
#include "store/ProcessLock.h"
#include "store/Schema.h"
#include "store/StoreError.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <sqlite3.h>
#include <variant>
#include <vector>

/** A prepared statement. Columns and parameters count from 0. */
class Statement {
public:
    /** Null when the text does not fit the database. */
    static std::optional<Statement> prepare(sqlite3* database, const QByteArray& sql);

    /** A value that cannot be bound, such as a text over SQLite's limit, fails the next step. The
     * bytes must stay as they are until then. */
    void bindText(int parameter, std::optional<QByteArrayView> text);
    void bindInteger(int parameter, std::optional<std::int64_t> value);

    /** SQLITE_ROW, SQLITE_DONE or an error code. */
    int step() { return m_bindError != SQLITE_OK ? m_bindError : sqlite3_step(m_statement.get()); }
    /** Makes it ready for the next use. */
    void reset();

    /** The bytes, valid until the next step; nothing for NULL. */
    std::optional<QByteArrayView> text(int column);
    std::optional<std::int64_t> integer(int column);

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    void noteBinding(int code);

    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
    int m_bindError = SQLITE_OK;
};

/** The statements of one entity, prepared once. Parameters and columns are the attributes in
 * order; the id comes first when reading, and last when writing. */
struct EntityStatements {
    Statement selectAll;
    Statement selectIds;
    Statement insert;
    Statement update;
    Statement remove;
};

/** The one connection of this process to a store's file, which it locks against all others. */
class StoreConnection {
public:
    /** Opens the store, or joins the connection that has it open. */
    static std::variant<std::shared_ptr<StoreConnection>, StoreError> open(const QString& folder,
                                                                           const QString& name);
    ~StoreConnection();
    StoreConnection(const StoreConnection&) = delete;
    StoreConnection& operator=(const StoreConnection&) = delete;

    /** From now on, has the store copied before the first change of each day, such as
     * "2021-03-01". */
    void keepBackups(std::function<QString()> today) { m_today = std::move(today); }

    /** Whether another program has taken the file away or written to it. From then on nothing is
     * written; what the file held is copied, and the log does not stay beside what is there now. */
    std::optional<StoreError> findLoss();

    /** Takes note of what the file holds, unless that is known, so that another time on it alone is
     * no loss. Reads all of it. */
    void noteContents();

    EntityStatements& statements(std::size_t entity) { return m_statements[entity]; }

    /** An id that no record of the entity has had while this connection was open. */
    std::int64_t takeId(std::size_t entity) { return ++m_lastIds[entity]; }

    /** How often saves have changed the entity. */
    std::uint64_t changeCount(std::size_t entity) const { return m_changeCounts[entity]; }
    void countChange(std::size_t entity) { ++m_changeCounts[entity]; }

    /** Begins a transaction, unless the store is lost or cannot be written. */
    std::optional<StoreError> begin();
    /** Ends it: the changes are on disk, or were taken back after an error. The code is that of the
     * work in it, SQLITE_DONE or an error. */
    std::optional<StoreError> end(int code);
    /** Ends it, and takes its changes back. */
    void rollBack();

    /** Gives back the memory of pages that were read and will hardly be read again soon. */
    void releaseMemory() { sqlite3_db_release_memory(m_database.get()); }

    /** The error of the last call, in a sentence that says what could not be done. */
    StoreError error(const QString& verb) const;

private:
    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
    };

    StoreConnection(const QString& folder, const QString& name);

    std::optional<StoreError> openDatabase();
    /** The error of the last call, after the transaction was taken back. */
    StoreError rolledBackError();
    void backUp();
    void noteFiles();
    /** A hash of all bytes of the file; nothing when they cannot be read. */
    std::optional<std::size_t> contents() const;
    /** Whether the log still stands at its path, if there was one. */
    bool hasLog() const;
    std::optional<StoreError> replaceLostLog();
    QString log() const { return m_path + QStringLiteral("-wal"); }
    std::optional<StoreError> findDamage();
    std::optional<StoreError> findLostMark();
    std::optional<StoreError> migrate(std::size_t version);
    /** Whether the pragma's answer is that changes go into a log first. */
    bool keepsLog(const QByteArray& pragma);
    std::optional<StoreError> prepareStatements();
    /** The first value of a query's first row; nothing after an error. */
    std::optional<std::int64_t> number(const QByteArray& sql);
    int execute(const char* sql);
    StoreError damaged(const QString& finding) const;
    StoreError unfit(const QString& reason) const;

    QString m_path;
    std::shared_ptr<ProcessLock> m_lock;        // given up after the database is closed
    std::unique_ptr<sqlite3, Close> m_database; // closed after its statements
    Backups m_backups;
    std::function<QString()> m_today;
    std::optional<FileMark> m_mark; // of the file and its log, as this connection left them
    std::optional<FileMark> m_logMark;
    std::optional<std::size_t> m_contents; // of the file then; absent until noted
    std::optional<StoreError> m_loss;
    std::array<EntityStatements, entityCount> m_statements;
    std::array<std::int64_t, entityCount> m_lastIds{};
    std::array<std::uint64_t, entityCount> m_changeCounts{};
};

#pragma once

#include "foundation/FatalError.h"
#include "store/FetchRequest.h"
#include "store/Records.h"
#include "store/StoreError.h"

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <tuple>
#include <vector>

class EntityTable;
class StoreConnection;

/**
 * The records of a store in memory: fetched, inserted, changed and deleted here, and written by
 * save(). A record has one address per context, and keeps it for the life of the context.
 */
class ManagedObjectContext {
public:
    ManagedObjectContext();
    ~ManagedObjectContext();
    ManagedObjectContext(const ManagedObjectContext&) = delete;
    ManagedObjectContext& operator=(const ManagedObjectContext&) = delete;

    /** Fetches with all unsaved changes taken into account. */
    template <class Record>
    [[nodiscard]] FetchResult<Record> fetch(const FetchRequest<Record>& request) {
        std::vector<AttributeOrder> order;
        order.reserve(request.sortDescriptors.size());
        for (const auto& descriptor : request.sortDescriptors)
            order.push_back(descriptor.order);
        FetchResult<Record> result;
        std::vector<std::uint32_t> rows;
        result.error = fetchRows(tableOf<Record>(), order,
                                 request.predicate.value_or(Predicate<Record>{}).tests,
                                 request.includesPropertyValues, rows);
        auto& objects = objectsOf<Record>();
        result.records.reserve(rows.size());
        for (const auto row : rows)
            result.records.push_back(&objects[row]);
        return result;
    }

    /** How many records a fetch would give; 0 when there is an error, which is logged. */
    template <class Record>
    [[nodiscard]] std::size_t count(const FetchRequest<Record>& request) {
        return countRows(tableOf<Record>(), request.predicate.value_or(Predicate<Record>{}).tests);
    }

    /** A new record with all attributes absent; a fatal error when the store cannot be read. */
    template <class Record>
    Record* insert() {
        const auto row = insertRow(tableOf<Record>());
        return &objectsOf<Record>()[row];
    }

    /** Deletes a record of this context; once more changes nothing. */
    void deleteObject(ManagedObject& object);

    /** Takes the deletion of a record back, saved or not: it is what it was, in the place among
     * its like that it had. It was fetched with its values. */
    void restoreObject(ManagedObject& object);

    /** Whether save() would write anything. */
    bool hasChanges() const;

    /** The records with changes that are not saved, among them deleted ones. */
    template <class Record>
    std::vector<Record*> changed() {
        std::vector<Record*> records;
        for (auto& record : objectsOf<Record>()) {
            if (record.hasChanges())
                records.push_back(&record);
        }
        return records;
    }

    /** Has `observer` called before a save takes its changes, for as long as the result lives. */
    using Observation = std::shared_ptr<const std::function<void()>>;
    [[nodiscard]] Observation observeChanges(std::function<void()> observer);

    /** Has `observer` told of each try to write all changes: why it failed, or nothing. */
    void observeWriting(std::function<void(const std::optional<StoreError>&)> observer) {
        m_writingObserver = std::move(observer);
    }

    /**
     * Writes all changes in one transaction; they are on disk when this returns, unless a
     * SaveGroup is open. After an error all of them are still pending.
     */
    [[nodiscard]] std::optional<StoreError> save();

private:
    friend class PersistentContainer;
    friend class SaveGroup;

    template <class Record>
    using Objects = std::deque<Record>;
    using AllObjects =
        std::tuple<Objects<Event>, Objects<Authors>, Objects<Sources>, Objects<Topics>>;

    template <class Record>
    EntityTable& tableOf() const {
        return *m_tables[Record::entity];
    }

    /** The records of one class, as many as its table has rows. */
    template <class Record>
    Objects<Record>& objectsOf() {
        auto& objects = std::get<Objects<Record>>(m_objects);
        const auto count = rowCount(tableOf<Record>());
        while (objects.size() < count)
            objects.emplace_back(tableOf<Record>(), std::uint32_t(objects.size()));
        return objects;
    }

    void connect(std::shared_ptr<StoreConnection> connection);
    static std::optional<StoreError> fetchRows(EntityTable& table,
                                               const std::vector<AttributeOrder>& order,
                                               const std::vector<AttributeEquals>& tests,
                                               bool withValues, std::vector<std::uint32_t>& rows);
    static std::size_t countRows(EntityTable& table, const std::vector<AttributeEquals>& tests);
    static std::uint32_t insertRow(EntityTable& table);
    static std::size_t rowCount(const EntityTable& table);
    std::optional<StoreError> writeWhatWasSaved();
    /** Writes so many records more of what was saved, in a transaction that it begins. */
    std::optional<StoreError> writePart(std::size_t most);
    void tellOfWriting(const std::optional<StoreError>& error) const;

    std::shared_ptr<StoreConnection> m_connection;
    std::array<std::unique_ptr<EntityTable>, 4> m_tables;
    AllObjects m_objects;
    std::vector<std::weak_ptr<const std::function<void()>>> m_observers;
    std::function<void(const std::optional<StoreError>&)> m_writingObserver;
    int m_openGroups = 0;
    bool m_isWriting = false; // in parts
};

/**
 * Makes the saves of a context one transaction: while a group is open, save() takes note of what
 * it is asked to write, and the end of the last open group writes that. A fatal error meanwhile
 * writes it first; a kill leaves the store as it was before the group.
 */
class SaveGroup {
public:
    enum class Kind { Lasting, Cancellable };

    explicit SaveGroup(ManagedObjectContext& context, Kind kind = Kind::Lasting);
    /** Finishes the group; an error is logged and leaves the changes pending. */
    ~SaveGroup();
    SaveGroup(const SaveGroup&) = delete;
    SaveGroup& operator=(const SaveGroup&) = delete;

    /** Ends the group early; after an error all changes are still pending. */
    [[nodiscard]] std::optional<StoreError> finish();

    /** Writes a part of what finish() is to write, which nothing may change from now on, and tells
     * how much of it is written; nothing when there is none left, or it cannot be written. */
    std::optional<double> writePart();
    /** Ends a group that can be cancelled as if it had never begun: what was inserted and changed
     * in it is taken back, in memory and on disk. Deletions stay. */
    void cancel();

private:
    void finishAndLog();

    ManagedObjectContext& m_context;
    Kind m_kind;
    bool m_isOpen = true;
    FatalErrorCleanup m_cleanup;
};

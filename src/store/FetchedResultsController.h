#pragma once

#include "store/ManagedObjectContext.h"

#include <optional>
#include <utility>
#include <vector>

/** What happened to one record of a fetched list. */
enum class FetchedResultsChangeType { Insert, Delete, Move, Update };

/** Told of the changes of a fetched list, one record at a time. Rows count in the list as it was
 * before all changes, new rows in the list as it is after them. */
class FetchedResultsControllerDelegate {
public:
    virtual void controllerWillChangeContent() {}
    /** `row` is absent for an insertion, `newRow` for all but insertions and moves. */
    virtual void didChangeObject(std::optional<int> row, FetchedResultsChangeType type,
                                 std::optional<int> newRow) = 0;
    virtual void controllerDidChangeContent() {}

protected:
    ~FetchedResultsControllerDelegate() = default;
};

/** What a fetched list tells its delegate, as values. */
struct FetchedResultsChange {
    std::optional<int> row;
    FetchedResultsChangeType type = FetchedResultsChangeType::Update;
    std::optional<int> newRow;

    bool operator==(const FetchedResultsChange&) const = default;
};

/** What leads from one list of records to the other: records that both have are told of only where
 * they have unsaved changes. */
std::vector<FetchedResultsChange> changesBetween(const std::vector<const ManagedObject*>& before,
                                                 const std::vector<const ManagedObject*>& after);

/** The records of a fetch request, kept up to date with every save of their context. */
template <class Record>
class FetchedResultsController {
public:
    FetchedResultsController(FetchRequest<Record> request, ManagedObjectContext& context,
                             FetchedResultsControllerDelegate& delegate)
        : m_request(std::move(request))
        , m_context(context)
        , m_delegate(delegate) {}

    ManagedObjectContext& managedObjectContext() const { return m_context; }

    /** Fetches for the first time, and follows the context from then on. */
    [[nodiscard]] std::optional<StoreError> performFetch() {
        auto result = m_context.fetch(m_request);
        m_fetchedObjects = std::move(result.records);
        if (!result.error)
            m_observation = m_context.observeChanges([this] { update(); });
        return result.error;
    }

    const std::vector<Record*>& fetchedObjects() const { return m_fetchedObjects; }

private:
    void update() {
        auto result = m_context.fetch(m_request);
        if (result.error)
            return;
        const auto changes = changesBetween({m_fetchedObjects.begin(), m_fetchedObjects.end()},
                                            {result.records.begin(), result.records.end()});
        m_fetchedObjects = std::move(result.records);
        if (changes.empty())
            return;
        m_delegate.controllerWillChangeContent();
        for (const auto& change : changes)
            m_delegate.didChangeObject(change.row, change.type, change.newRow);
        m_delegate.controllerDidChangeContent();
    }

    FetchRequest<Record> m_request;
    ManagedObjectContext& m_context;
    FetchedResultsControllerDelegate& m_delegate;
    std::vector<Record*> m_fetchedObjects;
    ManagedObjectContext::Observation m_observation;
};

#include "store/ManagedObjectContext.h"

#include "store/EntityTable.h"

#include <QLoggingCategory>

#include <algorithm>
#include <utility>

Q_LOGGING_CATEGORY(storeLog, "lantern.store")

ManagedObjectContext::ManagedObjectContext() {
    for (std::size_t i = 0; i < m_tables.size(); ++i)
        m_tables[i] = std::make_unique<EntityTable>(i);
}

ManagedObjectContext::~ManagedObjectContext() = default;

void ManagedObjectContext::connect(std::shared_ptr<StoreConnection> connection) {
    m_connection = std::move(connection);
    for (const auto& table : m_tables)
        table->connect(*m_connection);
}

std::optional<StoreError> ManagedObjectContext::fetchRows(EntityTable& table,
                                                          const std::vector<AttributeOrder>& order,
                                                          const std::vector<AttributeEquals>& tests,
                                                          bool withValues,
                                                          std::vector<std::uint32_t>& rows) {
    if (auto error = table.refresh(withValues || !tests.empty() || !order.empty()))
        return error;
    rows = table.rows(order, tests);
    return std::nullopt;
}

std::size_t ManagedObjectContext::countRows(EntityTable& table,
                                            const std::vector<AttributeEquals>& tests) {
    if (const auto error = table.refresh(!tests.empty())) {
        qCWarning(storeLog) << error->description;
        return 0;
    }
    return table.count(tests);
}

std::uint32_t ManagedObjectContext::insertRow(EntityTable& table) {
    return table.insert();
}

std::size_t ManagedObjectContext::rowCount(const EntityTable& table) {
    return table.rowCount();
}

void ManagedObjectContext::deleteObject(ManagedObject& object) {
    object.m_table->remove(object.m_row);
}

void ManagedObjectContext::restoreObject(ManagedObject& object) {
    object.m_table->restore(object.m_row);
}

bool ManagedObjectContext::hasChanges() const {
    return std::any_of(m_tables.begin(), m_tables.end(),
                       [](const auto& table) { return table->hasChanges(); });
}

ManagedObjectContext::Observation
ManagedObjectContext::observeChanges(std::function<void()> observer) {
    auto observation = std::make_shared<const std::function<void()>>(std::move(observer));
    m_observers.push_back(observation);
    return observation;
}

std::optional<StoreError> ManagedObjectContext::save() {
    std::erase_if(m_observers, [](const auto& observer) { return observer.expired(); });
    for (const auto& observer : std::vector(m_observers)) {
        if (const auto alive = observer.lock())
            (*alive)();
    }
    for (const auto& table : m_tables)
        table->noteSave();
    return m_openGroups > 0 ? std::nullopt : writeWhatWasSaved();
}

std::optional<StoreError> ManagedObjectContext::writeWhatWasSaved() {
    const bool hasWork = std::any_of(m_tables.begin(), m_tables.end(),
                                     [](const auto& table) { return table->hasNotedChanges(); });
    if (hasWork) {
        const auto error = m_connection->transaction([this] {
            int code = SQLITE_DONE;
            for (const auto& table : m_tables) {
                if (code == SQLITE_DONE)
                    code = table->writeNoted();
            }
            return code;
        });
        if (error) {
            tellOfWriting(error);
            return error;
        }
    }
    for (const auto& table : m_tables)
        table->finishNoted();
    tellOfWriting(std::nullopt);
    return std::nullopt;
}

void ManagedObjectContext::tellOfWriting(const std::optional<StoreError>& error) const {
    if (m_writingObserver)
        m_writingObserver(error);
}

SaveGroup::SaveGroup(ManagedObjectContext& context)
    : m_context(context)
    , m_cleanup([this] { finishAndLog(); }) {
    ++m_context.m_openGroups;
}

SaveGroup::~SaveGroup() {
    finishAndLog();
}

std::optional<StoreError> SaveGroup::finish() {
    if (!std::exchange(m_isOpen, false) || --m_context.m_openGroups > 0)
        return std::nullopt;
    return m_context.writeWhatWasSaved();
}

void SaveGroup::finishAndLog() {
    if (const auto error = finish())
        qCWarning(storeLog).noquote() << error->unresolved();
}

#include "store/ManagedObjectContext.h"

#include "store/EntityTable.h"

#include <QLoggingCategory>

#include <algorithm>
#include <cstdint>
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
    auto error = writePart(SIZE_MAX);
    if (!error && std::exchange(m_isWriting, false))
        error = m_connection->end(SQLITE_DONE);
    for (const auto& table : m_tables) {
        if (error)
            table->forgetWritten();
        else
            table->finishNoted();
    }
    tellOfWriting(error);
    return error;
}

std::optional<StoreError> ManagedObjectContext::writePart(std::size_t most) {
    const bool hasWork = std::any_of(m_tables.begin(), m_tables.end(),
                                     [](const auto& table) { return table->hasNotedChanges(); });
    if (!hasWork)
        return std::nullopt;
    if (!m_isWriting) {
        if (auto error = m_connection->begin())
            return error;
        m_isWriting = true;
    }
    for (const auto& table : m_tables) {
        const auto written = table->writtenCount();
        if (const int code = table->writeNoted(most); code != SQLITE_DONE) {
            m_isWriting = false;
            auto error = m_connection->end(code);
            for (const auto& other : m_tables)
                other->forgetWritten();
            return error;
        }
        most -= table->writtenCount() - written;
    }
    return std::nullopt;
}

void ManagedObjectContext::tellOfWriting(const std::optional<StoreError>& error) const {
    if (m_writingObserver)
        m_writingObserver(error);
}

SaveGroup::SaveGroup(ManagedObjectContext& context, Kind kind)
    : m_context(context)
    , m_kind(kind)
    , m_cleanup([this] { finishAndLog(); }) {
    ++m_context.m_openGroups;
    if (kind == Kind::Cancellable) {
        for (const auto& table : m_context.m_tables)
            table->beginKeeping();
    }
}

SaveGroup::~SaveGroup() {
    finishAndLog();
}

std::optional<StoreError> SaveGroup::finish() {
    if (!std::exchange(m_isOpen, false))
        return std::nullopt;
    if (m_kind == Kind::Cancellable) {
        for (const auto& table : m_context.m_tables)
            table->endKeeping();
    }
    return --m_context.m_openGroups > 0 ? std::nullopt : m_context.writeWhatWasSaved();
}

std::optional<double> SaveGroup::writePart() {
    constexpr std::size_t fewMilliseconds = 500;
    if (m_context.m_openGroups > 1 || m_context.writePart(fewMilliseconds))
        return std::nullopt;
    std::size_t noted = 0;
    std::size_t written = 0;
    for (const auto& table : m_context.m_tables) {
        noted += table->notedCount();
        written += table->writtenCount();
    }
    return written == noted ? std::nullopt : std::optional(double(written) / double(noted));
}

void SaveGroup::cancel() {
    if (!std::exchange(m_isOpen, false))
        return;
    --m_context.m_openGroups;
    if (std::exchange(m_context.m_isWriting, false))
        m_context.m_connection->rollBack();
    for (const auto& table : m_context.m_tables)
        table->takeBack();
}

void SaveGroup::finishAndLog() {
    if (const auto error = finish())
        qCWarning(storeLog).noquote() << error->unresolved();
}

#include "store/PersistentContainer.h"

#include "store/Connection.h"

#include <utility>
#include <variant>

PersistentContainer::PersistentContainer(QString name, QString folder,
                                         std::function<QString()> today)
    : m_name(std::move(name))
    , m_folder(std::move(folder))
    , m_today(std::move(today)) {}

std::optional<StoreError> PersistentContainer::loadPersistentStores() {
    if (m_connection)
        return std::nullopt;
    auto opened = StoreConnection::open(m_folder, m_name);
    if (const auto* error = std::get_if<StoreError>(&opened))
        return *error;
    m_connection = std::get<std::shared_ptr<StoreConnection>>(std::move(opened));
    if (m_today)
        m_connection->keepBackups(m_today);
    m_viewContext.connect(m_connection);
    return std::nullopt;
}

std::optional<StoreError> PersistentContainer::findLoss() {
    return m_connection ? m_connection->findLoss() : std::nullopt;
}

void PersistentContainer::noteContents() {
    if (m_connection)
        m_connection->noteContents();
}

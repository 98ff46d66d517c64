#include "store/PersistentContainer.h"

#include "store/Connection.h"

#include <utility>
#include <variant>

PersistentContainer::PersistentContainer(QString name, QString folder)
    : m_name(std::move(name))
    , m_folder(std::move(folder)) {}

std::optional<StoreError> PersistentContainer::loadPersistentStores() {
    if (m_isLoaded)
        return std::nullopt;
    auto opened = StoreConnection::open(m_folder, m_name);
    if (const auto* error = std::get_if<StoreError>(&opened))
        return *error;
    m_viewContext.connect(std::get<std::shared_ptr<StoreConnection>>(std::move(opened)));
    m_isLoaded = true;
    return std::nullopt;
}

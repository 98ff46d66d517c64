#pragma once

#include "store/ManagedObjectContext.h"
#include "store/StoreError.h"

#include <QString>

#include <memory>
#include <optional>

/**
 * A store on disk, the file "<folder>/<name>.sqlite", and the context that shows it. Containers of
 * the same file share one connection; what one saves, the others see at their next fetch.
 */
class PersistentContainer {
public:
    PersistentContainer(QString name, QString folder);

    /**
     * Opens the store, or makes it, readable by its owner alone. A file that is no store of this
     * program, is newer than it, or is open in another process is an error and stays as it is.
     */
    [[nodiscard]] std::optional<StoreError> loadPersistentStores();

    ManagedObjectContext& viewContext() { return m_viewContext; }

private:
    QString m_name;
    QString m_folder;
    ManagedObjectContext m_viewContext;
    bool m_isLoaded = false;
};

#pragma once

#include "store/ManagedObjectContext.h"
#include "store/StoreError.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

/**
 * A store on disk, the file "<folder>/<name>.sqlite", and the context that shows it. Containers of
 * the same file share one connection; what one saves, the others see at their next fetch.
 */
class PersistentContainer {
public:
    /** Where it is told which day it is, such as "2021-03-01", it keeps backups. */
    PersistentContainer(QString name, QString folder, std::function<QString()> today = {});

    /**
     * Opens the store, or makes it, readable by its owner alone. A file that is no store of this
     * program, is newer than it, or is open in another process is an error and stays as it is.
     */
    [[nodiscard]] std::optional<StoreError> loadPersistentStores();

    /** Whether another program has taken the store away, or written to it. */
    [[nodiscard]] std::optional<StoreError> findLoss();

    /** To be called when there is time: from then on another time on the store's file is no loss.
     */
    void noteContents();

    ManagedObjectContext& viewContext() { return m_viewContext; }

private:
    QString m_name;
    QString m_folder;
    std::function<QString()> m_today;
    std::shared_ptr<StoreConnection> m_connection;
    ManagedObjectContext m_viewContext;
};

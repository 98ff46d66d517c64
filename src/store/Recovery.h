#pragma once

#include "store/Schema.h"
#include "store/StoreError.h"

#include <QString>

#include <array>
#include <cstddef>
#include <optional>
#include <variant>

/** What was found in a damaged store. */
struct Rescued {
    std::array<std::size_t, entityCount> counts{}; ///< by entity, in the schema's order
    std::size_t strayNames = 0; ///< names left out, since nothing tells of which list they are
};

/**
 * Puts another store in the place of "<folder>/<name>.sqlite", which nothing may have open: the
 * backup of a day, or one with all that can be read of the file. What stood there stays beside it,
 * with its log, under a name with today's date.
 */
std::optional<StoreError> restoreBackup(const QString& folder, const QString& name,
                                        const QString& day, const QString& today);
std::variant<Rescued, StoreError> rescueStore(const QString& folder, const QString& name,
                                              const QString& today);

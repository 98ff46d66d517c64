#pragma once

#include "foundation/Date.h"

#include <QByteArrayView>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <optional>

class EntityTable;

/**
 * A record of the store: a place in the memory of one context, and nothing that tells it from
 * others but its address. It is readable for the life of the context, also after its deletion.
 */
class ManagedObject {
public:
    /** For the context alone. */
    ManagedObject(EntityTable& table, std::uint32_t row)
        : m_table(&table)
        , m_row(row) {}
    ManagedObject(const ManagedObject&) = delete;
    ManagedObject& operator=(const ManagedObject&) = delete;

    /** Whether the record was deleted, saved or not. */
    bool isDeleted() const;
    /** Whether the record has changes that are not saved. */
    bool hasChanges() const;

protected:
    ~ManagedObject() = default;

    std::optional<QString> text(std::size_t attribute) const;
    std::optional<QByteArrayView> utf8(std::size_t attribute) const;
    void setText(std::size_t attribute, const std::optional<QString>& text);
    std::optional<Date> date(std::size_t attribute) const;
    void setDate(std::size_t attribute, std::optional<Date> date);

private:
    friend class ManagedObjectContext;
    friend class EntityTable;

    EntityTable* m_table;
    std::uint32_t m_row;
};

#pragma once

#include <array>
#include <cstddef>
#include <vector>

/** How an attribute is kept in memory: texts that many records share are names. */
enum class AttributeKind { Name, Text, Moment };

struct Attribute {
    const char* column;
    AttributeKind kind;
};

/** A class of records and its table, whose columns are "id" and the attributes. */
struct Entity {
    const char* table;
    std::vector<Attribute> attributes;
};

constexpr std::size_t entityCount = 4;

/** The entities, in the order of the records' `entity` constants. */
const std::array<Entity, entityCount>& schema();

/** Of a new file. Reading all of it takes a quarter of the calls that pages of 4 KiB take. */
constexpr auto storePages = "PRAGMA page_size = 16384;";

/** What makes each version of the file from the one before; the first from an empty file. */
const std::vector<const char*>& migrations();

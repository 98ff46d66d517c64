#include "store/Schema.h"

const std::array<Entity, entityCount>& schema() {
    using enum AttributeKind;
    static const std::array<Entity, entityCount> entities{{
        {"event",
         {{"quote", Text},
          {"author", Name},
          {"source", Name},
          {"category", Name},
          {"timestamp", Moment}}},
        {"authors", {{"name", Name}}},
        {"sources", {{"name", Name}}},
        {"topics", {{"topic", Name}}},
    }};
    return entities;
}

const std::vector<const char*>& migrations() {
    static const std::vector<const char*> scripts{
        // 1: timestamps are milliseconds since 1970-01-01 00:00 UTC.
        "CREATE TABLE event(id INTEGER PRIMARY KEY, quote TEXT, author TEXT, source TEXT,"
        " category TEXT, timestamp INTEGER);"
        "CREATE TABLE authors(id INTEGER PRIMARY KEY, name TEXT);"
        "CREATE TABLE sources(id INTEGER PRIMARY KEY, name TEXT);"
        "CREATE TABLE topics(id INTEGER PRIMARY KEY, topic TEXT);",
    };
    return scripts;
}

#pragma once

#include "foundation/Date.h"
#include "store/StoreError.h"

#include <QString>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

/** An attribute of a record class: its place among the attributes, and the type of its values. */
template <class Record, class Value>
struct Key {
    std::size_t attribute;
};
template <class Record>
using TextKey = Key<Record, QString>;
template <class Record>
using DateKey = Key<Record, Date>;

/** A sort key whose record class is no longer known. */
struct AttributeOrder {
    std::size_t attribute;
    bool ascending;
};

/** A test for equality whose record class is no longer known. */
struct AttributeEquals {
    std::size_t attribute;
    std::variant<QString, Date> value;
};

/** Orders by one attribute: texts by code point, dates by time, absent values before all others
 * when ascending. Records that tie keep the order in which they were inserted. */
template <class Record>
struct SortDescriptor {
    template <class Value>
    SortDescriptor(Key<Record, Value> key, bool ascending)
        : order{key.attribute, ascending} {}

    AttributeOrder order;
};

/** Tests that must all hold: `Event::Keys::author == name && Event::Keys::source == title`. An
 * absent value equals nothing, not even the empty text. */
template <class Record>
struct Predicate {
    std::vector<AttributeEquals> tests;
};

template <class Record, class Value>
Predicate<Record> operator==(Key<Record, Value> key, const std::type_identity_t<Value>& value) {
    return {{{key.attribute, value}}};
}

template <class Record>
Predicate<Record> operator&&(Predicate<Record> left, Predicate<Record> right) {
    std::ranges::move(right.tests, std::back_inserter(left.tests));
    return left;
}

/** Which records of one class to fetch, and in which order; without sort descriptors in the order
 * in which they were inserted. */
template <class Record>
struct FetchRequest {
    std::vector<SortDescriptor<Record>> sortDescriptors;
    std::optional<Predicate<Record>> predicate;
    /** False reads identities alone, as far as neither order nor predicate asks for more; the
     * attributes are read from the store when one of them is. */
    bool includesPropertyValues = true;
    /** Kept for the caller's statement of intent: attributes that were read are in memory. */
    bool returnsObjectsAsFaults = true;
};

/** The fetched records, which live as long as their context; none when there is an error. */
template <class Record>
struct FetchResult {
    std::vector<Record*> records;
    std::optional<StoreError> error;
};

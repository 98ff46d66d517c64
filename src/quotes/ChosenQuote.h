#pragma once

#include "foundation/FatalError.h"
#include "shared/SelectionValues.h"
#include "store/Records.h"

#include <functional>

/** Tells of a quote that cannot be opened, for it has no author, say. */
QString lacks(const char* what, const QString& quote);

/** What a chosen quote must have; to lack it is a fatal error, which names the quote by its text,
 * or by its source when it has none. */
template <class Value>
Value required(const Event& quote, const std::optional<Value>& value, const char* what) {
    if (!value)
        fatalError(lacks(what, quote.quote().value_or(quote.source().value_or(QString()))));
    return *value;
}

/** Hands a quote to the next screen. Every attribute is required; those that come before the first
 * absent one stay chosen. */
void chooseQuote(const Event& quote, SelectionValues& selection,
                 const std::function<QString(Date)>& dateText);

#pragma once

#include "foundation/FatalError.h"
#include "shared/SelectionValues.h"
#include "store/Records.h"

#include <functional>

/** What a chosen quote must have; to lack it is a fatal error. */
template <class Value>
Value required(const std::optional<Value>& value, const char* what) {
    if (!value)
        fatalError(QStringLiteral("The chosen quote has no %1").arg(QLatin1String(what)));
    return *value;
}

/** Hands a quote to the next screen. Every attribute is required; those that come before the first
 * absent one stay chosen. */
void chooseQuote(const Event& quote, SelectionValues& selection,
                 const std::function<QString(Date)>& dateText);

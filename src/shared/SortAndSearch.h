#pragma once

#include "foundation/Environment.h"
#include "toolkit/TableViewController.h"

#include <functional>
#include <optional>

/** Puts a search field above the rows of a screen, which stays in sight while it is used. */
void installSearch(TableViewController& screen, SearchController& search,
                   const QString& placeholder, std::function<void(SearchController&)> update);

/** Shows a bar button by its symbol, on systems that have symbols. */
void showSymbol(BarButtonItem& item, const QString& symbol, const SystemVersion& version);

/** Turns the direction of a list, which must have been loaded. */
void reverse(std::optional<bool>& ascending);

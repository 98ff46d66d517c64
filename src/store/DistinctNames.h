#pragma once

#include "store/Records.h"

#include <QStringList>

#include <vector>

/** The distinct texts of an author, source or category of quotes, which are all of one context, in
 * the order of the list. Absent values are left out. */
QStringList distinctNames(const std::vector<Event*>& list, TextKey<Event> key);

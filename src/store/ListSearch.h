#pragma once

#include "store/FetchRequest.h"
#include "store/Records.h"

#include <QString>
#include <QStringList>

#include <vector>

/**
 * The search of every list: the entries whose text, in lower case, contains the search text in
 * lower case, in the order of the list. An absent or empty text never matches.
 */
QStringList matching(const QStringList& list, const QString& searchText);

/** The same for one text of quotes, which are all of one context. */
std::vector<Event*> matching(const std::vector<Event*>& list, TextKey<Event> key,
                             const QString& searchText);

/** Does a millisecond or so of what the first search of the quotes' own texts needs, for all quotes
 * of the list's context; whether there is more to do. A search does what is left. */
bool prepareSearch(const std::vector<Event*>& list);

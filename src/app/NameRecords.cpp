#include "NameRecords.h"

#include "foundation/FatalError.h"
#include "store/DistinctNames.h"

QStringList namesOfAllQuotes(ManagedObjectContext& context, TextKey<Event> key) {
    auto request = Event::fetchRequest();
    request.sortDescriptors = {{key, true}};
    const auto quotes = fetchOrLog(context, request, lcApp);
    // Absent values come first.
    if (!quotes.empty() && !quotes.front()->value(key))
        fatalError(
            QStringLiteral("A quote has no %1, so that the list of names cannot be made: \"%2\"\n\n"
                           "It can be deleted in the quote list.")
                .arg(key.attribute == Event::Keys::author.attribute ? QStringLiteral("author")
                                                                    : QStringLiteral("source"),
                     quotes.front()->quote().value_or(QString()).left(200)));
    return distinctNames(quotes, key);
}

#include "NameRecords.h"

#include "foundation/FatalError.h"
#include "store/DistinctNames.h"

QStringList namesOfAllQuotes(ManagedObjectContext& context, TextKey<Event> key) {
    auto request = Event::fetchRequest();
    request.sortDescriptors = {{key, true}};
    const auto result = context.fetch(request);
    if (result.error)
        qCWarning(lcApp) << result.error->description;
    // Absent values come first.
    if (!result.records.empty() && !result.records.front()->value(key))
        fatalError(QStringLiteral("A quote has no author or no source"));
    return distinctNames(result.records, key);
}

#include "Collection.h"

#include "app/FetchOrLog.h"
#include "foundation/FatalError.h"

#include <QSet>

Q_LOGGING_CATEGORY(lcExchange, "lantern.exchange")

namespace {

/** Adds a line's quote, or brings the one that is there up to date. Answers with those that were
 * there. */
std::vector<Event*> importQuote(ManagedObjectContext& context, const QuoteLine& line,
                                const QString& fileName, const Environment& environment) {
    auto request = Event::fetchRequest();
    request.predicate = Event::Keys::author == line.author && Event::Keys::category == line.topic &&
                        Event::Keys::source == line.source;
    auto found = fetchOrLog(context, request, lcExchange);
    if (found.size() > 1)
        return found;

    // Read before the record is touched, so that a line that ends the program leaves no half quote.
    std::optional<Date> timestamp;
    if (!line.date.isEmpty()) {
        timestamp = readDate(line.date, environment);
        if (!timestamp)
            fatalError(QStringLiteral("Line %1 of %2 has a date that cannot be read: \"%3\"")
                           .arg(line.number)
                           .arg(fileName, line.date.left(100)));
    }
    Event& quote = found.empty() ? *context.insert<Event>() : *found.front();
    if (!line.author.isEmpty())
        quote.setAuthor(line.author);
    quote.setCategory(line.topic);
    if (!line.source.isEmpty())
        quote.setSource(line.source);
    if (timestamp)
        quote.setTimestamp(timestamp);
    if (!line.quote.isEmpty())
        quote.setQuote(line.quote);
    if (found.empty())
        logError(context.save(), lcExchange);
    return found;
}

/** Writes a known topic's name once more, and answers with the topics that had it. */
std::vector<Topics*> updateTopic(ManagedObjectContext& context, const QString& name) {
    auto request = Topics::fetchRequest();
    request.predicate = Topics::Keys::topic == name;
    auto found = fetchOrLog(context, request, lcExchange);
    if (found.empty())
        fatalError(
            QStringLiteral("The topic \"%1\" is stored only with blanks around it").arg(name));
    found.front()->setTopic(name);
    return found;
}

} // namespace

QStringList topicNames(ManagedObjectContext& context) {
    auto request = Topics::fetchRequest();
    request.sortDescriptors = {{Topics::Keys::topic, true}};
    QStringList names;
    for (const Topics* topic : fetchOrLog(context, request, lcExchange)) {
        if (const auto name = topic->topic())
            names.append(trimmedOfBlanks(*name));
    }
    return names;
}

Imported importCollection(ManagedObjectContext& context, const QString& document,
                          const QStringList& knownTopics, const QString& fileName,
                          const Environment& environment) {
    Imported imported;
    SaveGroup group(context);
    imported.isCollection = readQuoteLines(document, [&](const QuoteLine& line) {
        imported.line = line;
        if (!line.topic.isEmpty())
            imported.quotes = importQuote(context, line, fileName, environment);
    });
    if (imported.isCollection) {
        const QSet<QString> known(knownTopics.cbegin(), knownTopics.cend());
        readTopicNames(document, [&](const QString& name) {
            imported.topic = name;
            if (known.contains(name)) {
                imported.topics = updateTopic(context, name);
                return;
            }
            context.insert<Topics>()->setTopic(name);
            logError(context.save(), lcExchange);
        });
    }
    logError(group.finish(), lcExchange);
    return imported;
}

Exported exportCollection(ManagedObjectContext& context, const std::function<void()>& quoteDone,
                          const std::function<void()>& topicDone) {
    Exported exported;
    exported.quotes = sortedRecords<Event>(
        context,
        {{Event::Keys::author, true}, {Event::Keys::category, true}, {Event::Keys::source, true}},
        lcExchange);
    exported.file = quoteSectionMarker.toUtf8() + '\n';
    for (const Event* quote : exported.quotes) {
        appendLine(exported.file, *quote);
        quoteDone();
    }
    exported.topics = sortedRecords<Topics>(context, {{Topics::Keys::topic, true}}, lcExchange);
    exported.file += topicSectionMarker.toUtf8() + '\n';
    for (const Topics* topic : exported.topics) {
        appendLine(exported.file, *topic);
        topicDone();
    }
    exported.text = QString::fromUtf8(exported.file);
    // Bytes of a damaged store would have the whole file taken for another encoding.
    if (exported.text.contains(QChar::ReplacementCharacter))
        exported.file = exported.text.toUtf8();
    return exported;
}

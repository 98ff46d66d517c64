#include "Collection.h"

#include "app/FetchOrLog.h"
#include "foundation/FatalError.h"

Q_LOGGING_CATEGORY(lcExchange, "lantern.exchange")

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

CollectionImport::CollectionImport(ManagedObjectContext& context, QString document,
                                   const QStringList& knownTopics, QString fileName,
                                   const Environment& environment)
    : m_context(context)
    , m_document(std::move(document))
    , m_knownTopics(knownTopics.cbegin(), knownTopics.cend())
    , m_fileName(std::move(fileName))
    , m_environment(environment)
    , m_quotes(m_document)
    , m_group(context, SaveGroup::Kind::Cancellable) {
    m_imported.isCollection = isQuoteCollection(m_document);
}

std::optional<double> CollectionImport::step() {
    // To merge and to write take about the same time.
    constexpr double merged = 0.5;
    constexpr int fewMilliseconds = 100;
    if (!m_imported.isCollection)
        return std::nullopt;
    for (int lines = 0; lines < fewMilliseconds && m_phase == Phase::Quotes; ++lines) {
        if (auto line = m_quotes.next()) {
            if (!line->topic.isEmpty())
                importQuote(*line);
            m_imported.line = std::move(line);
        } else {
            m_topics.emplace(m_quotes.topicSection());
            m_phase = Phase::Topics;
        }
    }
    for (int lines = 0; lines < fewMilliseconds && m_phase == Phase::Topics; ++lines) {
        if (const auto name = m_topics->next())
            importTopic(*name);
        else
            m_phase = Phase::Writing;
    }
    if (m_phase != Phase::Writing)
        return merged * m_quotes.share();
    const auto written = m_group.writePart();
    return written ? std::optional(merged + (1 - merged) * *written) : std::nullopt;
}

Imported CollectionImport::end() {
    logError(m_group.finish(), lcExchange);
    return std::move(m_imported);
}

void CollectionImport::cancel() {
    m_group.cancel();
}

/** Adds a line's quote, or brings the one that is there up to date. */
void CollectionImport::importQuote(const QuoteLine& line) {
    auto request = Event::fetchRequest();
    request.predicate = Event::Keys::author == line.author && Event::Keys::category == line.topic &&
                        Event::Keys::source == line.source;
    auto& found = m_imported.quotes;
    found = fetchOrLog(m_context, request, lcExchange);
    if (found.size() > 1)
        return;

    // Read before the record is touched, so that a line that ends the program leaves no half quote.
    std::optional<Date> timestamp;
    if (!line.date.isEmpty()) {
        timestamp = readDate(line.date, m_environment);
        if (!timestamp)
            fatalError(QStringLiteral("Line %1 of %2 has a date that cannot be read: \"%3\"")
                           .arg(line.number)
                           .arg(m_fileName, line.date.left(100)));
    }
    Event& quote = found.empty() ? *m_context.insert<Event>() : *found.front();
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
        logError(m_context.save(), lcExchange);
}

/** Adds a topic, or writes the name of a known one once more. */
void CollectionImport::importTopic(const QString& name) {
    m_imported.topic = name;
    if (!m_knownTopics.contains(name)) {
        m_context.insert<Topics>()->setTopic(name);
        logError(m_context.save(), lcExchange);
        return;
    }
    auto request = Topics::fetchRequest();
    request.predicate = Topics::Keys::topic == name;
    m_imported.topics = fetchOrLog(m_context, request, lcExchange);
    if (m_imported.topics.empty())
        fatalError(
            QStringLiteral("The topic \"%1\" is stored only with blanks around it").arg(name));
    m_imported.topics.front()->setTopic(name);
}

Imported importCollection(ManagedObjectContext& context, const QString& document,
                          const QStringList& knownTopics, const QString& fileName,
                          const Environment& environment) {
    CollectionImport import(context, document, knownTopics, fileName, environment);
    while (import.step())
        ;
    return import.end();
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

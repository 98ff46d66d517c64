#pragma once

#include "exchange/CollectionFile.h"
#include "store/ManagedObjectContext.h"

#include <QSet>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

/** Whether an import changed anything, and what it came to last. */
struct Imported {
    bool isCollection = false; ///< else nothing was changed
    std::optional<QuoteLine> line;
    std::vector<Event*> quotes; ///< that were there for the last line with a topic
    std::optional<QString> topic;
    std::vector<Topics*> topics; ///< that were there for the last topic known before
};

/** The names of all topics, trimmed, as an import compares them. */
QStringList topicNames(ManagedObjectContext& context);

/**
 * Merges the text of a collection file into a context, in one transaction, a part at a time. The
 * only quote of a line's author, topic and source takes over its date and text; where there are
 * several, the line is passed over; where there is none, it becomes one. A topic is added unless it
 * is known. A date that cannot be read is a fatal error, which names the file.
 */
class CollectionImport {
public:
    CollectionImport(ManagedObjectContext& context, QString document,
                     const QStringList& knownTopics, QString fileName,
                     const Environment& environment);

    /** Does some milliseconds' work, and tells how much of all is done, 0 to 1; nothing when only
     * the end is left. */
    std::optional<double> step();
    /** Puts all on disk. */
    Imported end();
    /** Ends it as if it had never begun. */
    void cancel();

private:
    void importQuote(const QuoteLine& line);
    void importTopic(const QString& name);

    ManagedObjectContext& m_context;
    QString m_document;
    QSet<QString> m_knownTopics;
    QString m_fileName;
    const Environment& m_environment;
    QuoteLineReader m_quotes;
    std::optional<TopicNameReader> m_topics;
    SaveGroup m_group;
    Imported m_imported;
    enum class Phase { Quotes, Topics, Writing } m_phase = Phase::Quotes;
};

/** Imports all at once. */
Imported importCollection(ManagedObjectContext& context, const QString& document,
                          const QStringList& knownTopics, const QString& fileName,
                          const Environment& environment);

/** The whole collection as a file. */
struct Exported {
    std::vector<Event*> quotes;
    std::vector<Topics*> topics;
    QByteArray file; ///< in UTF-8
    QString text;
};

/** Composes the file of all quotes and topics; calls back after each of them. */
Exported exportCollection(ManagedObjectContext& context, const std::function<void()>& quoteDone,
                          const std::function<void()>& topicDone);

#include "exchange/UnsavedChanges.h"

#include "exchange/CollectionFile.h"
#include "foundation/Files.h"

#include <QFile>
#include <QStringList>

namespace {

QString counted(qsizetype count, const char* one, const char* many) {
    return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : many));
}

/** The changes of a context: a collection file with those that one can hold, and how many there are
 * of the others. */
struct Changes {
    QByteArray quoteLines;
    QByteArray topicLines;
    qsizetype quotes = 0;
    qsizetype topics = 0;
    qsizetype deletions = 0;
    qsizetype others = 0; ///< quotes that an import passes over, and names of authors and sources
};

template <class Record, class Use>
void forChanged(ManagedObjectContext& context, Changes& changes, Use use) {
    for (Record* record : context.changed<Record>())
        record->isDeleted() ? void(++changes.deletions) : use(*record);
}

Changes changesOf(ManagedObjectContext& context) {
    Changes changes;
    forChanged<Event>(context, changes, [&](Event& quote) {
        if (quote.category().value_or(QString()).isEmpty()) {
            ++changes.others;
            return;
        }
        // Nothing else in a collection file stands for a source that is absent.
        if (!quote.source())
            quote.setSource(QString());
        appendLine(changes.quoteLines, quote);
        ++changes.quotes;
    });
    forChanged<Topics>(context, changes, [&](const Topics& topic) {
        appendLine(changes.topicLines, topic);
        ++changes.topics;
    });
    const auto count = [&](const auto&) { ++changes.others; };
    forChanged<Authors>(context, changes, count);
    forChanged<Sources>(context, changes, count);
    return changes;
}

QString freeName(const QString& folder, const QString& day) {
    const QString begin = QStringLiteral("%1/Lantern, not saved %2").arg(folder, day);
    QString path = begin + QStringLiteral(".csv");
    for (int i = 2; QFile::exists(path); ++i)
        path = QStringLiteral("%1 (%2).csv").arg(begin).arg(i);
    return path;
}

} // namespace

QString keepUnsavedChanges(ManagedObjectContext& context, const QString& folder,
                           const QString& day) {
    const Changes changes = changesOf(context);
    QStringList keepable;
    if (changes.quotes > 0)
        keepable.append(counted(changes.quotes, "quote", "quotes"));
    if (changes.topics > 0)
        keepable.append(counted(changes.topics, "topic", "topics"));
    QStringList lost;
    if (changes.others > 0)
        lost.append(counted(changes.others, "other record", "other records"));
    if (changes.deletions > 0)
        lost.append(counted(changes.deletions, "deletion", "deletions"));

    QString sentences;
    if (!keepable.isEmpty()) {
        const QByteArray file = quoteSectionMarker.toUtf8() + '\n' + changes.quoteLines +
                                topicSectionMarker.toUtf8() + '\n' + changes.topicLines;
        const QString path = freeName(folder, day);
        if (const auto failure = writeFileAtomically(path, file, ownerFile))
            lost = keepable + lost;
        else
            sentences = QStringLiteral("Not saved, but kept in \"%1\", which Import reads: %2.")
                            .arg(path, keepable.join(QStringLiteral(", ")));
    }
    if (!lost.isEmpty())
        sentences += (sentences.isEmpty() ? QString() : QStringLiteral("\n")) +
                     QStringLiteral("Not kept: %1.").arg(lost.join(QStringLiteral(", ")));
    return sentences;
}

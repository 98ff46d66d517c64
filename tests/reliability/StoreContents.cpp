#include "StoreContents.h"

#include "store/Connection.h"

#include <QFile>

#include <memory>
#include <sqlite3.h>

namespace {

QString shown(const std::optional<QString>& text) {
    return text ? QStringLiteral("\"%1\"").arg(*text) : QStringLiteral("-");
}

QString shown(const std::optional<Date>& date) {
    return date ? QString::number(date->time_since_epoch().count()) : QStringLiteral("-");
}

template <class Record, class Line>
void addLines(QStringList& lines, ManagedObjectContext& context, Line line) {
    const auto result = context.fetch(Record::fetchRequest());
    if (result.error)
        throw *result.error;
    for (const Record* record : result.records)
        lines.append(Record::entityName + u' ' + line(*record));
}

} // namespace

QStringList contentsOf(ManagedObjectContext& context) {
    QStringList lines;
    addLines<Event>(lines, context, [](const Event& quote) {
        return QStringList({shown(quote.author()), shown(quote.category()), shown(quote.source()),
                            shown(quote.timestamp()), shown(quote.quote())})
            .join(u'^');
    });
    addLines<Authors>(lines, context, [](const Authors& record) { return shown(record.name()); });
    addLines<Sources>(lines, context, [](const Sources& record) { return shown(record.name()); });
    addLines<Topics>(lines, context, [](const Topics& record) { return shown(record.topic()); });
    lines.sort();
    return lines;
}

QString integrityOf(const QString& path) {
    sqlite3* handle = nullptr;
    const int code = sqlite3_open_v2(QFile::encodeName(path).constData(), &handle,
                                     SQLITE_OPEN_READWRITE, nullptr);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database(handle, &sqlite3_close);
    if (code != SQLITE_OK)
        return QString::fromUtf8(sqlite3_errmsg(handle));
    sqlite3_exec(handle, "PRAGMA locking_mode = EXCLUSIVE", nullptr, nullptr, nullptr);
    auto check = Statement::prepare(handle, "PRAGMA integrity_check");
    if (!check || check->step() != SQLITE_ROW)
        return QString::fromUtf8(sqlite3_errmsg(handle));
    return QString::fromUtf8(check->text(0).value_or(QByteArrayView()));
}

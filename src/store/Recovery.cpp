#include "store/Recovery.h"

#include "foundation/Files.h"
#include "store/Backups.h"
#include "store/Connection.h"
#include "store/FoundRows.h"

#include <QFile>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

StoreError failure(const QString& path, const QString& reason) {
    return {QStringLiteral("The store \"%1\" could not be replaced: %2").arg(path, reason),
            QStringLiteral("{path = %1}").arg(path), reason};
}

bool moves(const QString& from, const QString& to) {
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

/** The draft of a store, until it has taken the other's place. */
class Draft {
public:
    Draft(const QString& folder, const QString& name)
        : m_folder(folder)
        , m_name(name)
        , m_path(folder + u'/' + name + QStringLiteral(".sqlite.part")) {
        QFile::remove(m_path);
    }
    ~Draft() { QFile::remove(m_path); }
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    const QString& path() const { return m_path; }

    std::optional<StoreError> takePlace(const QString& today) const {
        const QString store = m_folder + u'/' + m_name + QStringLiteral(".sqlite");
        if (!isSynced(m_path) || !isWhole(m_path))
            return failure(store, QStringLiteral("the new one is not whole on the disk"));
        const QString aside = freeName(today);
        const QString log = store + QStringLiteral("-wal");
        // By a second name, so that there is a store at each moment: without one, a start would
        // make one. A file system without second names takes the moment without.
        if (::link(QFile::encodeName(store).constData(), QFile::encodeName(aside).constData()) !=
                0 &&
            !moves(store, aside))
            return failure(store, qt_error_string());
        if (QFile::exists(log) && !moves(log, aside + QStringLiteral("-wal")))
            return failure(store, qt_error_string());
        syncFolder(m_folder);
        if (!moves(m_path, store))
            return failure(store, qt_error_string());
        syncFolder(m_folder);
        return std::nullopt;
    }

private:
    QString freeName(const QString& today) const {
        const QString begin = QStringLiteral("%1/%2-damaged-%3").arg(m_folder, m_name, today);
        QString path = begin + QStringLiteral(".sqlite");
        for (int i = 2; QFile::exists(path); ++i)
            path = QStringLiteral("%1-%2.sqlite").arg(begin).arg(i);
        return path;
    }

    QString m_folder;
    QString m_name;
    QString m_path;
};

using Database = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;

int insertRows(sqlite3* database, std::size_t entity,
               const std::map<std::int64_t, QByteArray>& records) {
    const Entity& table = schema()[entity];
    QByteArray columns = "id";
    QByteArray parameters = "?";
    for (const auto& attribute : table.attributes) {
        columns += QByteArray(", ") + attribute.column;
        parameters += ", ?";
    }
    auto insert = Statement::prepare(database, QByteArray("INSERT INTO ") + table.table + "(" +
                                                   columns + ") VALUES(" + parameters + ")");
    if (!insert)
        return sqlite3_errcode(database);
    for (const auto& [id, record] : records) {
        const auto values = readRecord(record).value_or(std::vector<Value>());
        insert->bindInteger(0, id);
        for (std::size_t i = 1; i < values.size(); ++i) {
            if (const auto* number = std::get_if<std::int64_t>(&values[i]))
                insert->bindInteger(int(i), *number);
            else if (const auto* text = std::get_if<QByteArrayView>(&values[i]))
                insert->bindText(int(i), *text);
            else
                insert->bindText(int(i), std::nullopt);
        }
        if (const int code = insert->step(); code != SQLITE_DONE)
            return code;
        insert->reset();
    }
    return SQLITE_OK;
}

int writeRows(const QString& path, const FoundRows& rows) {
    sqlite3* handle = nullptr;
    const int opened = sqlite3_open_v2(
        QFile::encodeName(path).constData(), &handle,
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOFOLLOW | SQLITE_OPEN_NOMUTEX, nullptr);
    const Database database(handle, sqlite3_close);
    if (opened != SQLITE_OK)
        return opened;
    QByteArray script = storePages;
    script += "PRAGMA journal_mode = OFF; BEGIN;";
    for (const char* migration : migrations())
        script += migration;
    script += "PRAGMA user_version = " + QByteArray::number(qsizetype(migrations().size()));
    int code = sqlite3_exec(handle, script.constData(), nullptr, nullptr, nullptr);
    for (std::size_t entity = 0; entity < entityCount && code == SQLITE_OK; ++entity)
        code = insertRows(handle, entity, rows.records[entity]);
    return code == SQLITE_OK ? sqlite3_exec(handle, "COMMIT", nullptr, nullptr, nullptr) : code;
}

} // namespace

std::optional<StoreError> restoreBackup(const QString& folder, const QString& name,
                                        const QString& day, const QString& today) {
    const Draft draft(folder, name);
    QFile backup(Backups(folder, name).pathOf(day));
    if (!backup.copy(draft.path()) || !QFile::setPermissions(draft.path(), ownerFile))
        return failure(draft.path(), backup.errorString());
    return draft.takePlace(today);
}

std::variant<Rescued, StoreError> rescueStore(const QString& folder, const QString& name,
                                              const QString& today) {
    const QString store = folder + u'/' + name + QStringLiteral(".sqlite");
    const StoreBytes bytes = StoreBytes::read(store);
    const FoundRows rows = findRows(bytes);
    const Draft draft(folder, name);
    if (!makeEmptyFile(draft.path()))
        return failure(store, qt_error_string());
    if (const int code = writeRows(draft.path(), rows); code != SQLITE_OK)
        return failure(store, QString::fromUtf8(sqlite3_errstr(code)));
    if (const auto error = draft.takePlace(today))
        return *error;
    Rescued rescued;
    for (std::size_t entity = 0; entity < entityCount; ++entity)
        rescued.counts[entity] = rows.records[entity].size();
    rescued.strayNames = rows.strayNames;
    return rescued;
}

#include "store/Backups.h"

#include "foundation/Files.h"
#include "store/Connection.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QRegularExpression>
#include <QSet>
#include <QUrl>

#include <cstdio>
#include <memory>
#include <utility>

Q_DECLARE_LOGGING_CATEGORY(storeLog)

namespace {

using Database = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;

Database openFile(const QByteArray& name, int flags, const char* system) {
    sqlite3* database = nullptr;
    const int code = sqlite3_open_v2(name.constData(), &database,
                                     flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, system);
    Database result(database, sqlite3_close);
    if (code != SQLITE_OK)
        result.reset();
    return result;
}

} // namespace

bool isWhole(const QString& path) {
    // Read as a file that nobody writes, or its log would be made beside it; and not by what stands
    // in for SQLite's files on the main thread.
    const auto database = openFile(QUrl::fromLocalFile(path).toEncoded() + "?immutable=1",
                                   SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, "unix");
    auto check =
        database ? Statement::prepare(database.get(), "PRAGMA quick_check(1)") : std::nullopt;
    return check && check->step() == SQLITE_ROW && check->text(0) == QByteArrayView("ok");
}

QStringList superfluousDays(QStringList days) {
    constexpr int keptDays = 7;
    constexpr int keptWeeks = 4;
    std::sort(days.begin(), days.end(), std::greater<>());
    QStringList superfluous;
    QSet<std::pair<int, int>> weeks;
    for (qsizetype i = 0; i < days.size(); ++i) {
        int year = 0;
        const int week = QDate::fromString(days[i], Qt::ISODate).weekNumber(&year);
        const bool isLastOfWeek = !weeks.contains({year, week});
        weeks.insert({year, week});
        if (i >= keptDays && !(isLastOfWeek && weeks.size() <= keptWeeks))
            superfluous.append(days[i]);
    }
    return superfluous;
}

Backups::Backups(const QString& folder, const QString& name)
    : m_folder(folder + QStringLiteral("/backups"))
    , m_name(name) {}

QString Backups::pathOf(const QString& day) const {
    return path(QStringLiteral("-%1.sqlite").arg(day));
}

QStringList Backups::days() const {
    const QRegularExpression pattern(QStringLiteral("^%1-(\\d{4}-\\d\\d-\\d\\d)\\.sqlite$")
                                         .arg(QRegularExpression::escape(m_name)));
    QStringList days;
    for (const QString& file : QDir(m_folder).entryList(QDir::Files, QDir::Name | QDir::Reversed)) {
        if (const auto match = pattern.match(file); match.hasMatch())
            days.append(match.captured(1));
    }
    return days;
}

std::optional<QString> Backups::newestWholeDay() const {
    const QStringList all = days();
    const auto newest = std::find_if(all.begin(), all.end(),
                                     [this](const QString& day) { return isWhole(pathOf(day)); });
    return newest == all.end() ? std::nullopt : std::optional(*newest);
}

void Backups::copyOnce(sqlite3* database, const QString& day) {
    if (std::exchange(m_lastDay, day) == day || QFile::exists(pathOf(day)))
        return;
    const QString draft = path(QStringLiteral(".part"));
    if (m_finishing.valid())
        m_finishing.wait();
    if (!makeDraft(database, draft))
        return;
    m_finishing = std::async(std::launch::async, [this, draft, day] {
        if (!finish(draft, pathOf(day)))
            return;
        for (const QString& old : superfluousDays(days()))
            QFile::remove(pathOf(old));
    });
}

std::optional<QString> Backups::copyOfLost(sqlite3* database, const QString& day) {
    if (m_finishing.valid())
        m_finishing.wait();
    const QString draft = path(QStringLiteral(".part"));
    QString copy = path(QStringLiteral("-%1-lost.sqlite").arg(day));
    for (int i = 2; QFile::exists(copy); ++i)
        copy = path(QStringLiteral("-%1-lost-%2.sqlite").arg(day).arg(i));
    return makeDraft(database, draft) && finish(draft, copy) ? std::optional(copy) : std::nullopt;
}

// Neither waits for the disk nor keeps a journal: who comes upon a draft removes it.
bool Backups::makeDraft(sqlite3* database, const QString& draft) const {
    const auto fails = [&draft](const QString& reason) {
        qCWarning(storeLog) << "The backup" << draft << "cannot be made:" << reason;
        return false;
    };
    if (const int code = makeOwnFolder(m_folder); code != 0)
        return fails(qt_error_string(code));
    if (!makeEmptyFile(draft))
        return fails(qt_error_string());
    const auto copy =
        openFile(QFile::encodeName(draft), SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOFOLLOW, nullptr);
    if (!copy)
        return fails(QStringLiteral("it does not open"));
    sqlite3_exec(copy.get(), "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF", nullptr,
                 nullptr, nullptr);
    auto* backup = sqlite3_backup_init(copy.get(), "main", database, "main");
    constexpr int allPages = -1;
    const int code = backup ? sqlite3_backup_step(backup, allPages) : SQLITE_ERROR;
    sqlite3_backup_finish(backup);
    if (code == SQLITE_DONE)
        return true;
    QFile::remove(draft);
    return fails(QString::fromUtf8(sqlite3_errstr(code)));
}

bool Backups::finish(const QString& draft, const QString& path) {
    if (isSynced(draft) && isWhole(draft) &&
        std::rename(QFile::encodeName(draft).constData(), QFile::encodeName(path).constData()) ==
            0) {
        syncFolder(QFileInfo(path).path());
        return true;
    }
    qCWarning(storeLog) << "The backup" << path << "cannot be written:" << qt_error_string();
    QFile::remove(draft);
    return false;
}

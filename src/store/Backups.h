#pragma once

#include <QString>
#include <QStringList>

#include <future>
#include <optional>
#include <sqlite3.h>

/** Whether SQLite finds no damage in a store that no program has open. */
bool isWhole(const QString& path);

/** Which of the days, such as "2021-03-01", need no backup any longer: all but the last seven, and
 * the last of each of the last four weeks. */
QStringList superfluousDays(QStringList days);

/**
 * The copies of the store "<folder>/<name>.sqlite", in the folder "backups" beside it: one for each
 * day, as it stood before the day's first change.
 */
class Backups {
public:
    Backups(const QString& folder, const QString& name);

    QString pathOf(const QString& day) const;
    /** The days of which there is a copy, the newest first. */
    QStringList days() const;
    /** The newest day whose copy is whole. */
    std::optional<QString> newestWholeDay() const;

    /** Whether the day's copy was made or tried since the start. */
    bool isDoneOn(const QString& day) const { return day == m_lastDay; }
    /** Copies a store, once a day. What waits for the disk goes on when this returns, and older
     * copies go when the new one is there. A failure is logged. */
    void copyOnce(sqlite3* database, const QString& day);
    /** Copies a store that this program had open and has no longer. Returns the copy's path;
     * nothing after a failure, which is logged. */
    std::optional<QString> copyOfLost(sqlite3* database, const QString& day);

private:
    QString path(const QString& rest) const { return m_folder + u'/' + m_name + rest; }
    bool makeDraft(sqlite3* database, const QString& draft) const;
    static bool finish(const QString& draft, const QString& path);

    QString m_folder;
    QString m_name;
    QString m_lastDay;
    std::future<void> m_finishing; // ends before the rest of this
};

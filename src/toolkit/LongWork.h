#pragma once

#include "foundation/MainQueue.h"

#include <QObject>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

#include <functional>
#include <optional>

/** Work of the main thread that may last: it is done in slices, between which the window lives. As
 * long as it lasts, the window shows how far it is and takes no other input than its cancelling. */
class LongWork : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes the one place for long work")
    Q_PROPERTY(QString title READ title NOTIFY titleChanged)
    Q_PROPERTY(double done READ done NOTIFY doneChanged)

public:
    /** Does a little, some milliseconds at most, and tells how much of all is done, 0 to 1; nothing
     * when that was the last of it. */
    using Step = std::function<std::optional<double>()>;
    /** Called once, after the last step or in its place. */
    using End = std::function<void(bool isCancelled)>;

    explicit LongWork(MainQueue& queue);

    /** The first slice is done at once. Work that runs already is cancelled. */
    void run(const QString& title, Step step, End end);
    /** Ends the work that runs, if any. */
    Q_INVOKABLE void cancel();

    QString title() const { return m_title; } ///< of the work that runs; empty when none does
    double done() const { return m_done; }    ///< 0 to 1

Q_SIGNALS:
    void titleChanged();
    void doneChanged();

private:
    void runSlice();
    void end(bool isCancelled);

    MainQueue& m_queue;
    QString m_title;
    double m_done = 0;
    Step m_step;
    End m_end;
    quint64 m_runs = 0; ///< tells a slice of earlier work from those of the one that runs
};

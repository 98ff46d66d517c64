#include "LongWork.h"

#include <QElapsedTimer>
#include <QPointer>

#include <utility>

LongWork::LongWork(MainQueue& queue)
    : m_queue(queue) {}

void LongWork::run(const QString& title, Step step, End end) {
    cancel();
    ++m_runs;
    m_step = std::move(step);
    m_end = std::move(end);
    m_done = 0;
    m_title = title;
    Q_EMIT titleChanged();
    Q_EMIT doneChanged();
    runSlice();
}

void LongWork::cancel() {
    if (m_step)
        end(true);
}

void LongWork::runSlice() {
    constexpr qint64 sliceMilliseconds = 20;
    QElapsedTimer slice;
    slice.start();
    std::optional<double> done;
    do {
        done = m_step();
        if (!done) {
            end(false);
            return;
        }
    } while (slice.elapsed() < sliceMilliseconds);
    m_done = *done;
    Q_EMIT doneChanged();
    m_queue.after(0, [work = QPointer(this), run = m_runs] {
        if (work && work->m_step && work->m_runs == run)
            work->runSlice();
    });
}

void LongWork::end(bool isCancelled) {
    m_step = nullptr;
    m_title.clear();
    Q_EMIT titleChanged();
    const auto end = std::exchange(m_end, nullptr);
    end(isCancelled);
}

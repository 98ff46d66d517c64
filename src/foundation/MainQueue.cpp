#include "MainQueue.h"

#include <QTimer>

#include <chrono>
#include <utility>

void EventLoopMainQueue::async(std::function<void()> work) {
    if (m_waiting.empty())
        QMetaObject::invokeMethod(
            &m_event, [this] { runAll(); }, Qt::QueuedConnection);
    m_waiting.push_back(std::move(work));
}

void EventLoopMainQueue::after(double seconds, std::function<void()> work) {
    const auto delay = std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::duration<double>(seconds));
    QTimer::singleShot(delay, &m_event, std::move(work));
}

void EventLoopMainQueue::runAll() {
    for (const auto& work : std::exchange(m_waiting, {}))
        work();
}

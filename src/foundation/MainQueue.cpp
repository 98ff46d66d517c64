#include "MainQueue.h"

#include <QTimer>

#include <chrono>

void EventLoopMainQueue::async(std::function<void()> work) {
    after(0, std::move(work));
}

void EventLoopMainQueue::after(double seconds, std::function<void()> work) {
    const auto delay = std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::duration<double>(seconds));
    QTimer::singleShot(delay, std::move(work));
}

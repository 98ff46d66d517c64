#pragma once

#include <QObject>

#include <functional>
#include <vector>

/** Work for the main thread, later: as soon as possible, or after some seconds. */
class MainQueue {
public:
    virtual ~MainQueue() = default;
    virtual void async(std::function<void()> work) = 0;
    virtual void after(double seconds, std::function<void()> work) = 0;
};

/** The main queue of a running program: Qt's event loop. What waits when it goes is not done. */
class EventLoopMainQueue final : public MainQueue {
public:
    void async(std::function<void()> work) override;
    void after(double seconds, std::function<void()> work) override;

private:
    void runAll();

    // One event for all of it: the loop takes far longer over an event than most work does.
    std::vector<std::function<void()>> m_waiting;
    QObject m_event; // of what waits, which goes with this
};

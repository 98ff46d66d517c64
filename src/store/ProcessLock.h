#pragma once

#include <QString>

#include <memory>
#include <variant>

/**
 * Keeps other processes away from a store by a lock on a file beside it. SQLite's own locks on the
 * store's file go as soon as this process closes any other descriptor of that file, as it does when
 * the user has it read for something else.
 */
class ProcessLock {
public:
    /** Takes the lock of the store "<folder>/<name>.sqlite", or shares it where this process has it
     * already. Else an errno: EWOULDBLOCK when another process has it. */
    static std::variant<std::shared_ptr<ProcessLock>, int> take(const QString& folder,
                                                                const QString& name);
    ~ProcessLock();
    ProcessLock(const ProcessLock&) = delete;
    ProcessLock& operator=(const ProcessLock&) = delete;

private:
    explicit ProcessLock(int descriptor)
        : m_descriptor(descriptor) {}

    int m_descriptor;
};

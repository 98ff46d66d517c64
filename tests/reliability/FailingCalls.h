#pragma once

#include <string>

/**
 * While it lives, what this thread asks of files in a folder fails: the n-th of its opens, writes,
 * syncs, moves and links (from 1), and with it, where it keeps failing, all after it. A write
 * stores its first half. A program that has this in it makes these calls through it, those of its
 * libraries too.
 */
class FailingCalls {
public:
    FailingCalls(std::string folder, int call, int error, bool keepsFailing);
    ~FailingCalls();
    FailingCalls(const FailingCalls&) = delete;
    FailingCalls& operator=(const FailingCalls&) = delete;

    bool hasFailed() const { return m_hasFailed; }

    /** Whether a call for this path or descriptor fails; errno then says why. */
    static bool strikes(const std::string& path);
    static bool strikes(int descriptor);

private:
    std::string m_folder;
    int m_countdown;
    int m_error;
    bool m_keepsFailing;
    bool m_hasFailed = false;
};

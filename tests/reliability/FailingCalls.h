#pragma once

#include <map>
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
    /** How many calls of each kind, such as "sync", there were for the folder and what is in it,
     * though not for what is in folders below. */
    const std::map<std::string, int>& counts() const { return m_counts; }

    /** Whether a call of a kind for this path or descriptor fails; errno then says why. */
    static bool strikes(const char* kind, const std::string& path);
    static bool strikes(const char* kind, int descriptor);

private:
    std::string m_folder;
    int m_countdown;
    int m_error;
    bool m_keepsFailing;
    bool m_hasFailed = false;
    std::map<std::string, int> m_counts;
};

#pragma once

#include <QString>

#include <functional>
#include <source_location>
#include <stdexcept>

/** What ended the program, and the place in its source that found it. */
struct FatalError {
    QString message;
    QString file;
    int line = 0;

    /** "Fatal error: <message> (<file>, line <line>)" */
    QString report() const;
};

/**
 * The one way to end the program: runs the open FatalErrorCleanups, then hands the error to the
 * handler and leaves with a non-zero exit status. A second fatal error on the way ends at once.
 */
[[noreturn]] void fatalError(const QString& message,
                             std::source_location place = std::source_location::current());

/** Whether a fatal error is on its way. */
bool isEnding();

using FatalErrorHandler = std::function<void(const FatalError&)>;

/** Sets what shows the error to the user (a null handler: standard error alone). A handler may
 * throw; a test's does. Returns the handler that was set before. */
FatalErrorHandler setFatalErrorHandler(FatalErrorHandler handler);

/** Work that a fatal error must not skip, such as committing what was already saved. Runs once,
 * only if a fatal error comes while this object lives. */
class FatalErrorCleanup {
public:
    explicit FatalErrorCleanup(std::function<void()> cleanup);
    ~FatalErrorCleanup();
    FatalErrorCleanup(const FatalErrorCleanup&) = delete;
    FatalErrorCleanup& operator=(const FatalErrorCleanup&) = delete;

private:
    friend void fatalError(const QString&, std::source_location);
    std::function<void()> m_cleanup;
};

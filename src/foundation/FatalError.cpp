#include "FatalError.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <utility>
#include <vector>

namespace {

FatalErrorHandler& handler() {
    static FatalErrorHandler instance;
    return instance;
}

std::vector<FatalErrorCleanup*>& cleanups() {
    static std::vector<FatalErrorCleanup*> instance;
    return instance;
}

bool ending = false;

// Marks the program as ending, until a handler that throws (a test's) unwinds it.
struct Ending {
    Ending() { ending = true; }
    ~Ending() { ending = false; }
    Ending(const Ending&) = delete;
    Ending& operator=(const Ending&) = delete;
};

void writeToStandardError(const FatalError& error) {
    std::fprintf(stderr, "%s\n", error.report().toLocal8Bit().constData());
    std::fflush(stderr);
}

} // namespace

QString FatalError::report() const {
    return QStringLiteral("Fatal error: %1 (%2, line %3)")
        .arg(message, file, QString::number(line));
}

void fatalError(const QString& message, std::source_location place) {
    std::string_view path = place.file_name();
    path.remove_prefix(path.find_last_of('/') + 1);
    const FatalError error{message, QString::fromUtf8(path.data(), qsizetype(path.size())),
                           int(place.line())};
    writeToStandardError(error);
    // Not std::exit: static destructors would run below the frames that still use them.
    if (ending)
        std::_Exit(EXIT_FAILURE);
    const Ending mark;
    while (!cleanups().empty()) {
        const auto cleanup = std::move(cleanups().back()->m_cleanup);
        cleanups().pop_back();
        cleanup();
    }
    if (handler())
        handler()(error);
    std::_Exit(EXIT_FAILURE);
}

bool isEnding() {
    return ending;
}

FatalErrorHandler setFatalErrorHandler(FatalErrorHandler next) {
    return std::exchange(handler(), std::move(next));
}

FatalErrorCleanup::FatalErrorCleanup(std::function<void()> cleanup)
    : m_cleanup(std::move(cleanup)) {
    cleanups().push_back(this);
}

FatalErrorCleanup::~FatalErrorCleanup() {
    std::erase(cleanups(), this);
}

#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/** One run with these bytes; returns 0. What libFuzzer and the replay call. */
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count);

/** Before the first run. */
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);

/** Ends the process, as a find, when something does not hold. */
inline void require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "Does not hold: %s\n", what);
        std::abort();
    }
}

/** The bytes, read as choices one after the other; zeros when they have come to their end. */
class Choices {
public:
    Choices(const std::uint8_t* bytes, std::size_t count)
        : m_next(bytes)
        , m_end(bytes + count) {}

    bool isAtEnd() const { return m_next == m_end; }
    /** A number from 0 to below the limit, which is at most 256. */
    int below(int limit) { return isAtEnd() ? 0 : *m_next++ % limit; }

private:
    const std::uint8_t* m_next;
    const std::uint8_t* m_end;
};

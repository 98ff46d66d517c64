#pragma once

#include <cstddef>
#include <malloc.h>

#if defined(__SANITIZE_ADDRESS__)
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // Debian has no header of it
#endif

/** The bytes of the heap that are in use. */
inline std::size_t memoryInUse() {
#if defined(__SANITIZE_ADDRESS__)
    return __sanitizer_get_current_allocated_bytes();
#else
    return ::mallinfo2().uordblks;
#endif
}

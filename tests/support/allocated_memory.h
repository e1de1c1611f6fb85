// SPDX-License-Identifier: MIT
//
// The program's use of the heap.

#pragma once

#include <malloc.h>

#include <cstddef>

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // of the sanitizer's run time
#endif

namespace quandrel {

/// The bytes that this program has allocated and not freed. The address sanitizer keeps freed
/// memory for a while, so its own count is used.
inline std::size_t AllocatedBytes() {
#ifdef __SANITIZE_ADDRESS__
    return __sanitizer_get_current_allocated_bytes();
#else
    const struct mallinfo2 heap = ::mallinfo2();
    return heap.uordblks + heap.hblkhd;
#endif
}

} // namespace quandrel

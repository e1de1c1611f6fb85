// SPDX-License-Identifier: MIT
//
// Operators new and delete that count the allocated bytes, and that can refuse memory to all
// threads but one. At most one source of a test program may include this header. The address
// sanitizer has operators of its own: then neither QUANDREL_HAS_TEST_HEAP nor anything else here is
// defined.

#pragma once

#if !defined(__SANITIZE_ADDRESS__)
#define QUANDREL_HAS_TEST_HEAP

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <thread>

namespace quandrel {

/// Bytes allocated by all threads, including freed ones. A test sets it to 0 before counting.
inline std::atomic<std::size_t> gBytesTaken{0};

inline std::atomic<bool> gIsHeapRefused{false};
inline std::atomic<int> gHeapRefusals{0};
inline std::thread::id gThreadWithHeap;

/// Until the end of a block, only this thread can allocate memory.
class MemoryForThisThreadAlone {
public:
    MemoryForThisThreadAlone() {
        gThreadWithHeap = std::this_thread::get_id();
        gHeapRefusals = 0;
        gIsHeapRefused = true;
    }

    ~MemoryForThisThreadAlone() { gIsHeapRefused = false; }

    MemoryForThisThreadAlone(const MemoryForThisThreadAlone&) = delete;
    MemoryForThisThreadAlone& operator=(const MemoryForThisThreadAlone&) = delete;

    static void AwaitFailure() { gHeapRefusals.wait(0); }
};

} // namespace quandrel

[[gnu::noinline]] void* operator new(std::size_t size) {
    using namespace quandrel;
    gBytesTaken += size;
    if (gIsHeapRefused && std::this_thread::get_id() != gThreadWithHeap) {
        ++gHeapRefusals;
        gHeapRefusals.notify_all();
        throw std::bad_alloc();
    }
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

#endif

// SPDX-License-Identifier: MIT
//
// The blocks of a text in order, read by two threads: a thread of the reader, which stays some
// blocks ahead, and the caller's thread when the next block is not ready yet. Or by the caller's
// thread alone.

#pragma once

#include "input/line_block.h"

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <string_view>
#include <thread>
#include <vector>

namespace quandrel {

class BlockReader {
public:
    /// Starts reading. With one thread, or where no second one can be started, blocks are read as
    /// they are taken.
    ///
    /// @param text        must outlive the reader
    /// @param blockBytes  approximate length of a block (EndOfBlock), above 0
    /// @param threads     above 1 for a thread of its own
    BlockReader(std::string_view text, const LineRules& rules, std::size_t blockBytes,
                unsigned threads);

    /// Ends the thread after the block that it is reading.
    ~BlockReader();

    BlockReader(const BlockReader&) = delete;
    BlockReader& operator=(const BlockReader&) = delete;

    /// The next block, valid until the next call; nullptr at the end of the text. Throws what
    /// reading the block threw (std::bad_alloc); all blocks before it have been returned by then.
    [[nodiscard]] const LineBlock* Next();

private:
    /// A slot for a block. A thread that works on a slot has exclusive use of its block.
    struct Place {
        enum class State { Free, InWork, Read };

        State state = State::Free;
        LineBlock block;
        std::exception_ptr failure;
    };

    /// Blocks that are read ahead. A few even out the pace of the two threads, and are still in the
    /// cache when they are taken.
    static constexpr std::size_t kMostAhead = 8;

    using Lock = std::unique_lock<std::mutex>;

    [[nodiscard]] Place& PlaceOf(std::size_t block) { return places_[block % places_.size()]; }

    /// True when a slot and text for another block are available.
    [[nodiscard]] bool CanBegin() const;

    /// Reads the next block that no thread has begun. The lock is released meanwhile.
    void ReadOne(Lock& lock);

    /// The loop of the reader's own thread.
    void Work();

    const std::string_view text_;
    const LineRules rules_;
    const std::size_t blockBytes_;

    std::mutex mutex_; ///< guards all members below, but not blocks being read
    std::condition_variable changed_;
    std::vector<Place> places_; ///< one holds the block that was returned last
    std::size_t position_ = 0;  ///< start of the next block that no thread has begun
    std::size_t begun_ = 0;     ///< blocks that a thread has begun
    std::size_t given_ = 0;
    bool isEnding_ = false;

    std::thread thread_; // the last member, as it uses the others
};

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// The blocks of a text in their order, read by two threads: one of its own, which keeps some blocks
// ahead, and whoever takes the blocks, when the next one is not there yet. Or by the latter alone.

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
    /// Begins to read. With one thread, or where no further one can be had, the blocks are read as
    /// they are taken.
    ///
    /// @param text        has to outlive the reader
    /// @param blockBytes  about how long a block is (EndOfBlock), above 0
    /// @param threads     above 1 for a thread of its own
    BlockReader(std::string_view text, const LineRules& rules, std::size_t blockBytes,
                unsigned threads);

    /// Ends the thread, after the block that it reads.
    ~BlockReader();

    BlockReader(const BlockReader&) = delete;
    BlockReader& operator=(const BlockReader&) = delete;

    /// The next block, to be used until the next call; nullptr at the end of the text. Throws what
    /// reading the block threw (std::bad_alloc); the blocks before it have all been given.
    [[nodiscard]] const LineBlock* Next();

private:
    /// A place for a block. The thread that works on a place is alone with its block.
    struct Place {
        enum class State { Free, InWork, Read };

        State state = State::Free;
        LineBlock block;
        std::exception_ptr failure;
    };

    /// Blocks that are read and not yet given. A few even out the pace of both threads, and are
    /// still in the cache when they are taken.
    static constexpr std::size_t kMostAhead = 8;

    using Lock = std::unique_lock<std::mutex>;

    [[nodiscard]] Place& PlaceOf(std::size_t block) { return places_[block % places_.size()]; }

    /// True when a place and text for a further block are there.
    [[nodiscard]] bool CanBegin() const;

    /// Reads the next block that nobody has begun. The lock is open meanwhile.
    void ReadOne(Lock& lock);

    /// What the reader's own thread does.
    void Work();

    const std::string_view text_;
    const LineRules rules_;
    const std::size_t blockBytes_;

    std::mutex mutex_; ///< over all that follows, but for blocks in work
    std::condition_variable changed_;
    std::vector<Place> places_; ///< one holds the block that was given last
    std::size_t position_ = 0;  ///< where the next block begins that nobody has begun
    std::size_t begun_ = 0;     ///< blocks that somebody has begun
    std::size_t given_ = 0;
    bool isEnding_ = false;

    std::thread thread_; // the last member: it uses the others
};

} // namespace quandrel

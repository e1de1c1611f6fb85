// SPDX-License-Identifier: MIT

#include "orientation/repeated_tries.h"

#include <algorithm>
#include <atomic>
#include <thread>
#include <utility>
#include <vector>

namespace quandrel {

namespace {

/// The blocks that are left.
class Blocks {
public:
    explicit Blocks(const Repetition& repetition)
        : repetition_(repetition)
        , blocks_((repetition.tries + kTriesOfBlock - 1) / kTriesOfBlock) {}

    /// Works on blocks until none is left, for the caller. The first one is left to it, so that it
    /// asks at least once, however fast the other threads are.
    ///
    /// @param goesOn  returns false to stop all threads
    void WorkForCaller(const RandomBlock& run, const std::function<bool(double)>& goesOn) {
        for (int block = 0; block < blocks_ && !isStopped_; block = next_++) {
            Run(run, block);
            if (!goesOn(static_cast<double>(done_) / repetition_.tries)) {
                isStopped_ = true;
            }
        }
    }

    /// The same for another thread.
    void Work(const RandomBlock& run) {
        for (int block = next_++; block < blocks_ && !isStopped_; block = next_++) {
            Run(run, block);
        }
    }

    [[nodiscard]] bool IsStopped() const { return isStopped_; }

private:
    void Run(const RandomBlock& run, int block) {
        RandomStream random(repetition_.seed, static_cast<std::uint64_t>(block));
        const int first = block * kTriesOfBlock;
        const int last = std::min(first + kTriesOfBlock, repetition_.tries);
        run(random, first, last);
        done_ += last - first;
    }

    const Repetition& repetition_;
    int blocks_;
    std::atomic<int> next_ = 1;
    std::atomic<int> done_ = 0;
    std::atomic<bool> isStopped_ = false;
};

} // namespace

bool RunBlocks(const Repetition& repetition, const std::function<RandomBlock()>& makeBlock) {
    Blocks blocks(repetition);
    const auto goesOn = repetition.goesOn ? repetition.goesOn : [](double) { return true; };
    {
        std::vector<std::jthread> others; // their destructors wait for them
        for (unsigned thread = 1; thread < repetition.threads; ++thread) {
            others.emplace_back([&blocks, run = makeBlock()] { blocks.Work(run); });
        }
        blocks.WorkForCaller(makeBlock(), goesOn);
    }
    return !blocks.IsStopped();
}

std::optional<int> CountTries(const Repetition& repetition,
                              const std::function<RandomTry()>& makeTry) {
    std::atomic<int> counted = 0;
    const bool isDone = RunBlocks(repetition, [&]() -> RandomBlock {
        return [&counted, isCounted = makeTry()](RandomStream& random, int first, int last) {
            int countedOfBlock = 0;
            for (int i = first; i < last; ++i) {
                countedOfBlock += isCounted(random) ? 1 : 0;
            }
            counted += countedOfBlock;
        };
    });
    return isDone ? std::optional<int>(counted) : std::nullopt;
}

std::optional<double> ProbabilityByTries(const Repetition& repetition,
                                         const std::function<RandomTry()>& makeTry) {
    const std::optional<int> counted = CountTries(repetition, makeTry);
    if (!counted) {
        return std::nullopt;
    }
    return (1.0 + *counted) / (1.0 + repetition.tries);
}

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Random numbers that are the same on any machine, in streams that can be drawn in any order.
//
// The generator of the standard library is portable, its distributions are not: draws are written
// out here.

#pragma once

#include <cstdint>
#include <random>

namespace quandrel {

/// One of many streams of the same seed.
class RandomStream {
public:
    /// Streams of one seed with different numbers have unrelated generators.
    explicit RandomStream(std::uint64_t seed, std::uint64_t stream = 0)
        : random_(Mixed(seed, stream)) {}

    /// 64 random bits.
    [[nodiscard]] std::uint64_t Bits() { return random_(); }

    /// A multiple of 2^-53 from 0, below 1.
    [[nodiscard]] double Uniform() { return static_cast<double>(random_() >> 11U) * 0x1p-53; }

    /// A whole number from 0, below a limit of 1 or more, all equally likely.
    ///
    /// Method: D. Lemire (2019), ACM Trans. Model. Comput. Simul. 29 (1), 3.
    [[nodiscard]] std::uint32_t Below(std::uint32_t limit) {
        std::uint64_t product = (random_() >> 32U) * limit;
        // Of the 2^32 products, those with the least lower halves are in excess of equal shares.
        if (static_cast<std::uint32_t>(product) < limit) {
            const std::uint32_t excess = (0U - limit) % limit;
            while (static_cast<std::uint32_t>(product) < excess) {
                product = (random_() >> 32U) * limit;
            }
        }
        return static_cast<std::uint32_t>(product >> 32U);
    }

private:
    /// The mixing function of G. L. Steele, D. Lea, C. H. Flood (2014), Proc. OOPSLA, 453-472.
    static std::uint64_t Mixed(std::uint64_t seed, std::uint64_t stream) {
        std::uint64_t bits = seed + (stream + 1) * 0x9e3779b97f4a7c15U;
        bits = (bits ^ (bits >> 30U)) * 0xbf58476d1ce4e5b9U;
        bits = (bits ^ (bits >> 27U)) * 0x94d049bb133111ebU;
        return bits ^ (bits >> 31U);
    }

    std::mt19937_64 random_;
};

} // namespace quandrel

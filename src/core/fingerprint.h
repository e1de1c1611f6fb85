// SPDX-License-Identifier: MIT
//
// Hashes of the states of a plot.

#pragma once

#include <bit>
#include <cstdint>
#include <span>
#include <string_view>

namespace quandrel {

/// Combines numbers into one: the prime and the start value of the 64-bit FNV hash, applied to
/// numbers instead of bytes.
class Fingerprint {
public:
    void Add(std::uint64_t number) {
        constexpr std::uint64_t kPrime = 1099511628211U;
        mix_ = (mix_ ^ number) * kPrime;
        mix_ ^= mix_ >> 32;
    }

    void AddWhole(std::int32_t number) { Add(std::uint64_t{static_cast<std::uint32_t>(number)}); }

    void Add(std::string_view text) {
        Add(std::uint64_t{text.size()});
        for (const char c : text) {
            Add(std::uint64_t{static_cast<unsigned char>(c)});
        }
    }

    template <class T>
    void AddCells(std::span<const T> cells) {
        Add(std::uint64_t{cells.size()});
        for (const T cell : cells) {
            Add(std::uint64_t{std::bit_cast<std::uint32_t>(cell)});
        }
    }

    [[nodiscard]] std::uint64_t Value() const { return mix_; }

private:
    std::uint64_t mix_ = 14695981039346656037U;
};

} // namespace quandrel

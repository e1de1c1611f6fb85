// SPDX-License-Identifier: MIT
//
// Hashes of the states of a plot.

#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

namespace quandrel {

/// Combines numbers into one: the prime and the start value of the 64-bit FNV hash, applied to
/// numbers instead of bytes. The hash of bytes depends on the byte order of the machine.
class Fingerprint {
public:
    void Add(std::uint64_t number) {
        constexpr std::uint64_t kPrime = 1099511628211U;
        mix_ = (mix_ ^ number) * kPrime;
        mix_ ^= mix_ >> 32;
    }

    void AddWhole(std::int32_t number) { Add(std::uint64_t{static_cast<std::uint32_t>(number)}); }

    void Add(std::string_view text) { AddBytes(text.data(), text.size()); }

    /// Bytes and their number, eight bytes a step.
    void AddBytes(const void* data, std::size_t size) {
        Add(std::uint64_t{size});
        const auto* bytes = static_cast<const char*>(data);
        for (std::size_t left = size; left > 0;) { // an empty range may have no address
            std::uint64_t word = 0;
            const std::size_t step = left < sizeof(word) ? left : sizeof(word);
            std::memcpy(&word, bytes, step);
            Add(word);
            bytes += step;
            left -= step;
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

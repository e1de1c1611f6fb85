// SPDX-License-Identifier: MIT
//
// Random places of a list with given probabilities, in constant time.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace quandrel {

/// Draws a place evenly, and keeps it or takes its other one: A. J. Walker (1977), ACM Trans. Math.
/// Software 3, 253-256. Integer arithmetic gives the same places on any machine.
class PlaceTable {
public:
    /// @param weights  above 0, to which the probabilities are proportional
    explicit PlaceTable(std::span<const double> weights);

    /// @param bits  32 random ones. The probability of a place is right to its number over 2^32.
    [[nodiscard]] std::size_t Place(std::uint32_t bits) const {
        const std::uint64_t product = std::uint64_t{bits} * columns_.size();
        const auto place = static_cast<std::size_t>(product >> 32U);
        const Column& column = columns_[place];
        return static_cast<std::uint32_t>(product) < column.kept ? place : column.other;
    }

private:
    struct Column {
        std::uint32_t kept = 0; ///< below this share of 2^32 the place is kept
        std::uint32_t other = 0;
    };

    std::vector<Column> columns_;
};

} // namespace quandrel

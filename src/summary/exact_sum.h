// SPDX-License-Identifier: MIT
//
// Sums of numbers without any rounding error.
//
// A sum is a whole number of the least double, 2^-1074, in digits of 32 bits over the whole range
// of exponents. Additions in any order, and of sums of parts, give the same digits; a sum is
// rounded once, when it is read. (U. Kulisch, Computer Arithmetic and Validity, 2008, ch. 8,
// describes such accumulators.)

#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace quandrel {

/// A sum of doubles whose digits are `kPlaces` from place `kFirst` on; digit k of all has the value
/// 2^(32 k - 1074).
template <std::size_t kFirst, std::size_t kPlaces>
class BasicExactSum {
public:
    /// The digits of the magnitude of a sum that are not 0: a number of the canonical form, which
    /// equal sums share.
    struct Digits {
        bool isNegative = false;
        std::uint32_t first = 0;           ///< the place of the first digit; 0 for a sum of 0
        std::vector<std::uint32_t> digits; ///< neither the first nor the last one is 0

        friend bool operator==(const Digits&, const Digits&) = default;
    };

    static constexpr std::size_t kLastPlace = kFirst + kPlaces - 1;

    /// @param value  finite, and 0 or with all 53 bits of its mantissa, also those that are 0, from
    ///               the first digit on
    void Add(double value) {
        const auto bits = std::bit_cast<std::uint64_t>(value);
        const auto exponent = static_cast<unsigned>(bits >> 52U & 0x7ffU);
        const std::uint64_t fraction = bits & ((std::uint64_t{1} << 52U) - 1);
        const std::uint64_t mantissa =
            exponent == 0 ? fraction : fraction | std::uint64_t{1} << 52U;
        const unsigned position = exponent == 0 ? 0 : exponent - 1;
        const unsigned shift = position % 32;
        const std::uint64_t low = mantissa << shift;
        const std::uint64_t high = shift == 0 ? 0 : mantissa >> (64 - shift);
        std::int64_t* const digit = digits_.data() + (mantissa == 0 ? 0 : position / 32 - kFirst);
        // All ones for a negative number: x ^ mask - mask is -x.
        const auto mask = -static_cast<std::int64_t>(bits >> 63U);
        digit[0] += (static_cast<std::int64_t>(low & 0xffffffffU) ^ mask) - mask;
        digit[1] += (static_cast<std::int64_t>(low >> 32U) ^ mask) - mask;
        digit[2] += (static_cast<std::int64_t>(high) ^ mask) - mask;
        if (++added_ == kMostAdded) {
            Carry();
        }
    }

    /// Adds a value a number of times.
    ///
    /// @param value  finite
    void Add(double value, std::uint64_t times);

    void Add(const BasicExactSum& other);

    /// The canonical form. Inverse: OfDigits.
    [[nodiscard]] Digits Canonical() const;

    /// The sum of a canonical form; nothing for digits in no such form, or beyond the places.
    [[nodiscard]] static std::optional<BasicExactSum> OfDigits(const Digits& digits);

    /// The sum rounded to the nearest double, halves to even; infinite beyond the greatest.
    [[nodiscard]] double Value() const;

    friend bool operator==(const BasicExactSum& one, const BasicExactSum& other) {
        return one.Canonical() == other.Canonical();
    }

private:
    /// Each addition changes a digit by less than 2^32.
    static constexpr std::uint32_t kMostAdded = std::uint32_t{1} << 30U;

    /// Brings each digit but the last into 0 to below 2^32.
    void Carry();

    std::array<std::int64_t, kPlaces> digits_{};
    std::uint32_t added_ = 0; ///< since the last carry
};

/// A sum of any doubles: up to 2^63 times the greatest of them.
using ExactSum = BasicExactSum<0, 70>;

/// A sum of numbers of 32 bits, in less memory. The last bit of the least of them, 2^-149, as a
/// double is 2^-201, in digit 27.
using FloatSum = BasicExactSum<27, 13>;

extern template class BasicExactSum<0, 70>;
extern template class BasicExactSum<27, 13>;

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "summary/exact_sum.h"

#include <cmath>
#include <limits>

namespace quandrel {

namespace {

constexpr unsigned kDigitBits = 32;
constexpr std::int64_t kBase = std::int64_t{1} << kDigitBits;
constexpr int kLeastExponent = -1074; ///< of two, that of the first bit of the first digit

/// The bits of a magnitude from a position on, at most 64; 0 beyond its digits.
std::uint64_t BitsFrom(const std::vector<std::uint32_t>& digits, std::size_t position) {
    const auto digitAt = [&digits](std::size_t place) {
        return place < digits.size() ? std::uint64_t{digits[place]} : 0;
    };
    const std::size_t place = position / kDigitBits;
    const std::size_t shift = position % kDigitBits;
    const std::uint64_t low = digitAt(place) | digitAt(place + 1) << kDigitBits;
    return shift == 0 ? low : low >> shift | digitAt(place + 2) << (64 - shift);
}

/// Whether a bit below a position is set.
bool HasBitsBelow(const std::vector<std::uint32_t>& digits, std::size_t position) {
    const std::size_t place = position / kDigitBits;
    for (std::size_t i = 0; i < place; ++i) {
        if (digits[i] != 0) {
            return true;
        }
    }
    const std::uint32_t below = (std::uint32_t{1} << position % kDigitBits) - 1;
    return (digits[place] & below) != 0;
}

} // namespace

template <std::size_t kFirst, std::size_t kPlaces>
void BasicExactSum<kFirst, kPlaces>::Carry() {
    std::int64_t carry = 0;
    for (std::size_t place = 0; place + 1 < kPlaces; ++place) {
        const std::int64_t sum = digits_[place] + carry;
        carry = sum >> kDigitBits; // towards minus infinity
        digits_[place] = sum - carry * kBase;
    }
    digits_.back() += carry;
    added_ = 0;
}

template <std::size_t kFirst, std::size_t kPlaces>
void BasicExactSum<kFirst, kPlaces>::Add(double value, std::uint64_t times) {
    BasicExactSum once;
    once.Add(std::abs(value));
    once.Carry();
    Carry();
    const std::int64_t sign = std::signbit(value) ? -1 : 1;
    for (std::size_t place = 0; place < kPlaces; ++place) {
        const auto digit = static_cast<std::uint64_t>(once.digits_[place]);
        for (unsigned half = 0; digit != 0 && half < 2; ++half) {
            // Both factors are below 2^32. The places suffice for 2^63 times the greatest double.
            const std::uint64_t product = digit * (times >> (half * kDigitBits) & 0xffffffffU);
            const std::size_t at = place + half;
            digits_[at] += sign * static_cast<std::int64_t>(product & 0xffffffffU);
            digits_[at + 1] += sign * static_cast<std::int64_t>(product >> kDigitBits);
        }
    }
    Carry();
}

template <std::size_t kFirst, std::size_t kPlaces>
void BasicExactSum<kFirst, kPlaces>::Add(const BasicExactSum& other) {
    BasicExactSum added = other;
    added.Carry();
    Carry();
    for (std::size_t place = 0; place < kPlaces; ++place) {
        digits_[place] += added.digits_[place];
    }
    Carry();
}

template <std::size_t kFirst, std::size_t kPlaces>
typename BasicExactSum<kFirst, kPlaces>::Digits BasicExactSum<kFirst, kPlaces>::Canonical() const {
    BasicExactSum sum = *this;
    sum.Carry();
    Digits canonical;
    canonical.isNegative = sum.digits_.back() < 0;
    if (canonical.isNegative) {
        for (std::int64_t& digit : sum.digits_) {
            digit = -digit;
        }
        sum.Carry();
    }
    std::size_t end = kPlaces;
    while (end > 0 && sum.digits_[end - 1] == 0) {
        --end;
    }
    std::size_t first = 0;
    while (first < end && sum.digits_[first] == 0) {
        ++first;
    }
    canonical.first = end == 0 ? 0 : static_cast<std::uint32_t>(kFirst + first);
    for (std::size_t place = first; place < end; ++place) {
        canonical.digits.push_back(static_cast<std::uint32_t>(sum.digits_[place]));
    }
    return canonical;
}

template <std::size_t kFirst, std::size_t kPlaces>
std::optional<BasicExactSum<kFirst, kPlaces>>
BasicExactSum<kFirst, kPlaces>::OfDigits(const Digits& digits) {
    const auto& list = digits.digits;
    const bool isZero = list.empty();
    const bool isCanonical =
        isZero ? !digits.isNegative && digits.first == 0 : list.front() != 0 && list.back() != 0;
    if (!isCanonical) {
        return std::nullopt;
    }
    if (!isZero
        && (digits.first < kFirst || list.size() > kPlaces
            || digits.first - kFirst > kPlaces - list.size())) {
        return std::nullopt;
    }
    BasicExactSum sum;
    for (std::size_t i = 0; i < list.size(); ++i) {
        const auto digit = static_cast<std::int64_t>(list[i]);
        sum.digits_[digits.first - kFirst + i] = digits.isNegative ? -digit : digit;
    }
    sum.Carry();
    return sum;
}

template <std::size_t kFirst, std::size_t kPlaces>
double BasicExactSum<kFirst, kPlaces>::Value() const {
    constexpr std::size_t kMantissaBits = 53;
    const Digits canonical = Canonical();
    if (canonical.digits.empty()) {
        return 0;
    }
    const std::vector<std::uint32_t>& digits = canonical.digits;
    const std::size_t bits =
        digits.size() * kDigitBits - static_cast<std::size_t>(std::countl_zero(digits.back()));
    const int exponent =
        kLeastExponent + static_cast<int>(canonical.first) * static_cast<int>(kDigitBits);
    const std::size_t dropped = bits > kMantissaBits ? bits - kMantissaBits : 0;
    std::uint64_t mantissa = BitsFrom(digits, dropped) & ((std::uint64_t{1} << kMantissaBits) - 1);
    if (dropped > 0) {
        const bool isHalf = (BitsFrom(digits, dropped - 1) & 1U) != 0;
        const bool isMore = HasBitsBelow(digits, dropped - 1);
        mantissa += isHalf && (isMore || (mantissa & 1U) != 0) ? 1 : 0;
    }
    // A sum is a multiple of the least double, so that this is exact, or infinite.
    const double magnitude =
        std::ldexp(static_cast<double>(mantissa), exponent + static_cast<int>(dropped));
    return canonical.isNegative ? -magnitude : magnitude;
}

template class BasicExactSum<0, 70>;
template class BasicExactSum<27, 13>;

} // namespace quandrel

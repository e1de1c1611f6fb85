// SPDX-License-Identifier: MIT

#include "classify/class_limits.h"

#include "core/appended_number.h"
#include "core/letter_case.h"
#include "core/plot_store.h"
#include "orientation/number_text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

namespace quandrel {

namespace {

constexpr const char* kTooFewClasses = "You must select at least two classes for this option.";
constexpr int kShownDigits = 7; ///< digits that a 32-bit number can hold
constexpr int kShortDigits = 5;
constexpr double kLeastPlain = 1e-7; ///< smaller numbers are written with a power of ten

std::size_t At(int place) {
    return static_cast<std::size_t>(place);
}

/// A value with at most this many significant digits, as "1.25E-9".
std::string ScientificText(double value, int digits) {
    const int power = static_cast<int>(std::floor(std::log10(std::abs(value))));
    // The full power of ten of the smallest numbers would underflow.
    constexpr int kHalfWay = 150;
    const int most = std::max(power, -kHalfWay);
    double mantissa = value / std::pow(10.0, most) / std::pow(10.0, power - most);
    int shown = power;
    const std::string format = "0." + std::string(At(digits - 1), '#');
    if (std::abs(ReadNumber(FormatNumber(mantissa, format)).value_or(0)) >= 10) {
        mantissa /= 10; // rounded up to the next power
        ++shown;
    }
    return FormatNumber(mantissa, format) + "E" + std::to_string(shown);
}

/// A value with this many significant digits, but its whole part in full.
std::string TextOfDigits(double value, int digits) {
    if (value != 0 && std::abs(value) < kLeastPlain) {
        return ScientificText(value, digits);
    }
    const int whole = value == 0 ? 0 : static_cast<int>(std::floor(std::log10(std::abs(value))));
    constexpr int kMostDecimals = 15;
    if (whole >= kMostDecimals) {
        return FormatNumber(value, "General Number");
    }
    const int decimals = std::clamp(digits - 1 - whole, 0, kMostDecimals);
    return FormatNumber(value, "0." + std::string(At(decimals), '#'));
}

/// The digits of a written number without leading zeros and without its power of ten.
int SignificantDigits(const std::string& text) {
    const std::size_t first = text.find_first_of("123456789");
    if (first == std::string::npos) {
        return 0;
    }
    const std::string_view digits = std::string_view(text).substr(first, text.find('E') - first);
    return static_cast<int>(
        std::ranges::count_if(digits, [](char c) { return c >= '0' && c <= '9'; }));
}

/// A name and the key that it is sorted by.
struct OrderedName {
    std::string name;
    std::string folded;
    std::optional<double> number;
};

bool StandsBefore(const OrderedName& a, const OrderedName& b) {
    if (a.number && b.number) {
        return *a.number < *b.number;
    }
    if (a.number.has_value() != b.number.has_value()) {
        return a.number.has_value();
    }
    return a.folded < b.folded;
}

} // namespace

double LowerLimit(const ClassLimits& limits, int k) {
    return limits.limits[At(std::clamp(k - 1, 0, kMostRanges - 1))];
}

double UpperLimit(const ClassLimits& limits, int k) {
    return k >= limits.base ? limits.top : limits.limits[At(std::clamp(k, 0, kMostRanges - 1))];
}

ClassLimits EqualRanges(double least, double greatest, int classes) {
    ClassLimits result;
    result.base = std::clamp(classes, 1, kMostRanges);
    for (int k = 0; k < result.base; ++k) {
        result.limits[At(k)] = least + k * (greatest - least) / result.base;
    }
    result.top = greatest;
    return result;
}

Result<ClassLimits> DeviationSplits(double mean, double deviation, int classes) {
    if (classes < 2) {
        return Failure{kTooFewClasses};
    }
    ClassLimits result;
    result.base = std::min(classes, kMostRanges);
    const auto limit = [&](int k) { return mean + (k - result.base / 2.0) * deviation; };
    for (int k = 0; k < result.base; ++k) {
        result.limits[At(k)] = limit(k);
    }
    result.top = limit(result.base);
    return result;
}

bool AreAlike(const ClassLimits& a, const ClassLimits& b) {
    constexpr double kRounding = 1e-6; // of tables that hold 32-bit numbers
    const double tolerance = kRounding * std::max(std::abs(b.top), std::abs(b.limits[0]));
    bool alike = a.base == b.base && std::abs(a.top - b.top) <= tolerance;
    for (int k = 1; alike && k <= a.base; ++k) {
        alike = std::abs(LowerLimit(a, k) - LowerLimit(b, k)) <= tolerance;
    }
    return alike;
}

ClassLimits ValueRanges(std::span<const double> values) {
    std::vector<double> sorted(values.begin(), values.end());
    sorted.resize(std::max(sorted.size(), At(1)));
    std::ranges::sort(sorted);
    ClassLimits result;
    result.base = static_cast<int>(std::min(sorted.size(), At(kMostRanges)));
    std::copy_n(sorted.begin(), result.base, result.limits.begin());
    result.top = sorted.back();
    return result;
}

std::vector<std::string> OrderNames(std::vector<std::string> names, NameOrder order) {
    if (order == NameOrder::FirstFound) {
        return names;
    }
    std::vector<OrderedName> ordered;
    for (std::string& name : names) {
        const std::optional<double> number = ParseAppendedNumber(name);
        std::string folded = LowerCase(name);
        ordered.push_back({std::move(name), std::move(folded), number});
    }
    std::ranges::stable_sort(ordered, [order](const OrderedName& a, const OrderedName& b) {
        return order == NameOrder::Ascending ? StandsBefore(a, b) : StandsBefore(b, a);
    });
    std::ranges::transform(ordered, names.begin(), [](OrderedName& held) { return held.name; });
    return names;
}

ClassTableCells DefaultClassTable(double lowestNumber, double lowestTextNumber) {
    ClassTableCells table;
    table[kBaseRow][kNumberClasses] = std::int16_t{0};
    table[kBaseRow][kTextNumberClasses] = std::int16_t{0};
    table[kLowestRow][kNumberClasses] = lowestNumber;
    table[kLowestRow][kTextNumberClasses] = lowestTextNumber;
    table[kTopRow][kNumberClasses] = kOpenTop;
    table[kTopRow][kTextNumberClasses] = kOpenTop;
    table[kFlagRow][kNumberClasses] = std::int16_t{1};
    return table;
}

std::string LimitText(double limit) {
    std::string text = TextOfDigits(limit, kShownDigits);
    return SignificantDigits(text) < kShownDigits ? text : TextOfDigits(limit, kShortDigits);
}

std::string WithRegionalDelimiter(std::string text) {
    if (gDecimalIsComma) {
        std::ranges::replace(text, '.', ',');
    }
    return text;
}

std::string DeviationLimitText(double limit, double deviation) {
    constexpr double kCoarse = 10;
    constexpr double kFinest = 0.01;
    if (std::abs(deviation) < kFinest) {
        return LimitText(limit);
    }
    return FormatNumber(limit, std::abs(deviation) < kCoarse ? "0.0##" : "0.0");
}

} // namespace quandrel

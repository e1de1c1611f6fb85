// SPDX-License-Identifier: MIT

#include "quandrel/classes.h"

#include "border/border.h"
#include "classify/class_limits.h"
#include "classify/class_rule.h"
#include "core/letter_case.h"
#include "core/number_statistics.h"

#include <algorithm>
#include <stdexcept>

namespace quandrel::api {

namespace {

static_assert(kMostRangeClasses == kMostRanges && kMostNameClasses == kMostNames);

ClassRule RuleOf(const Ranges& ranges) {
    Within(static_cast<double>(ranges.limits.size()), 2, kMostRangeClasses + 1,
           "the number of limits");
    for (const double limit : ranges.limits) {
        Finite(limit, "limit");
    }
    if (!std::ranges::is_sorted(ranges.limits)) {
        throw std::invalid_argument("the limits of ranges are not ascending");
    }
    ClassRule rule;
    rule.column = kTextNumberClasses; // its limits are 64-bit
    rule.base = static_cast<int>(ranges.limits.size()) - 1;
    std::copy(ranges.limits.begin(), ranges.limits.end() - 1, rule.limits.begin());
    rule.top = ranges.limits.back();
    rule.keepLow = ranges.keepsBelow;
    rule.keepHigh = ranges.keepsAbove;
    return rule;
}

ClassRule RuleOf(const Names& names) {
    Within(static_cast<double>(names.names.size()), 0, kMostNameClasses, "the number of names");
    ClassRule rule;
    rule.column = kNameClasses;
    rule.base = static_cast<int>(names.names.size());
    std::ranges::transform(names.names, rule.names.begin(), [&names](const std::string& name) {
        return names.isCaseSensitive ? name : LowerCase(name);
    });
    rule.keepLow = names.keepsOthers;
    rule.caseSensitive = names.isCaseSensitive;
    return rule;
}

/// The kernel gives the first class the number 1, whether it is kept or not, and has no class 0.
int ClassOut(int classNumber) {
    return classNumber == 0 ? kNoClass : classNumber - 1;
}

Ranges RangesOut(const ClassLimits& limits) {
    Ranges ranges;
    ranges.limits.assign(limits.limits.begin(), limits.limits.begin() + limits.base);
    ranges.limits.push_back(limits.top);
    return ranges;
}

} // namespace

int ClassOf(double value, const Ranges& ranges) {
    return ClassOut(ClassOfNumber(RuleOf(ranges), value));
}

void FindClasses(std::span<const double> values, const Ranges& ranges, std::span<int> classes) {
    SameLength(values.size(), classes.size(), "values and classes");
    const ClassRule rule = RuleOf(ranges);
    std::ranges::transform(values, classes.begin(),
                           [&rule](double value) { return ClassOut(ClassOfNumber(rule, value)); });
}

Ranges EqualRanges(double least, double greatest, int classes) {
    Within(classes, 1, kMostRangeClasses, "the number of classes");
    if (!(Finite(least, "least value") <= Finite(greatest, "greatest value"))) {
        throw std::invalid_argument("the least value is above the greatest");
    }
    return RangesOut(quandrel::EqualRanges(least, greatest, classes));
}

Ranges DeviationRanges(double mean, double deviation, int classes) {
    Within(classes, 2, kMostRangeClasses, "the number of classes");
    NotNegative(std::span(&deviation, 1), "deviation");
    return RangesOut(*DeviationSplits(Finite(mean, "mean"), deviation, classes));
}

Ranges RangesFrom(std::span<const double> values) {
    if (values.empty()) {
        throw std::invalid_argument("no values to make ranges from");
    }
    for (const double value : values) {
        Finite(value, "value");
    }
    return RangesOut(ValueRanges(values));
}

int ClassOf(std::string_view text, const Names& names) {
    return ClassOut(ClassOfName(RuleOf(names), text));
}

std::optional<NumberStatistics> NumberStatisticsOf(std::span<const double> values) {
    for (const double value : values) {
        Finite(value, "value");
    }
    const std::optional<quandrel::NumberStatistics> statistics = StatisticsOfNumbers(values);
    if (!statistics) {
        return std::nullopt;
    }
    return NumberStatistics{statistics->count, statistics->least, statistics->greatest,
                            statistics->mean, statistics->standardDeviation};
}

} // namespace quandrel::api

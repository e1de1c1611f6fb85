// SPDX-License-Identifier: MIT

#include "classify/class_rule.h"

#include "core/letter_case.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quandrel {

namespace {

/// Number of base classes in a cell, 0 to `most`.
int BaseOf(const TaggedValue& cell, int most) {
    const double number = NumberOf(cell);
    return number > 0 ? static_cast<int>(std::min(number, static_cast<double>(most))) : 0;
}

/// A limit in the precision of the values' column. Appended numbers are 32-bit: one that was read
/// from "2.1" must equal the limit 2.1 and not be just below it.
double LimitOf(const TaggedValue& cell, ClassColumn column) {
    const double limit = NumberOf(cell);
    const bool isNarrow =
        column == kNumberClasses
        && std::abs(limit) <= static_cast<double>(std::numeric_limits<float>::max());
    return isNarrow ? static_cast<double>(static_cast<float>(limit)) : limit;
}

void ReadLimits(ClassRule& rule, const ClassTableCells& table) {
    for (std::size_t k = 0; k < rule.limits.size(); ++k) {
        rule.limits[k] = LimitOf(table[kLowestRow + k][rule.column], rule.column);
    }
    rule.top = LimitOf(table[kTopRow][rule.column], rule.column);
    const double flags = NumberOf(table[kFlagRow][rule.column]);
    rule.keepLow = rule.base > 0 && std::fmod(std::trunc(flags), 2) == 1;
    rule.keepHigh = flags > 1;
}

void ReadNames(ClassRule& rule, const ClassTableCells& table) {
    rule.caseSensitive = NumberOf(table[kFlagRow][kNameClasses]) == 1;
    for (std::size_t k = 0; k < rule.names.size(); ++k) {
        std::string name = NameOfCell(table[kLowestRow + k][kNameClasses]);
        rule.names[k] = rule.caseSensitive ? std::move(name) : LowerCase(std::move(name));
    }
    rule.keepLow = NumberOf(table[kFlagRow][kTextNumberClasses]) > 0;
}

} // namespace

std::string NameOfCell(const TaggedValue& cell) {
    const auto* const name = std::get_if<std::string>(&cell);
    return name != nullptr ? *name : std::string();
}

ClassRule RuleOfClassTable(const ClassTableCells& table, ClassColumn column) {
    ClassRule rule;
    rule.column = column;
    if (column == kNameClasses) {
        rule.base = BaseOf(table[kBaseRow][kTextNumberClasses], kMostNames);
        ReadNames(rule, table);
    } else {
        rule.base = BaseOf(table[kBaseRow][column], kMostRanges);
        ReadLimits(rule, table);
    }
    return rule;
}

int LastClass(const ClassRule& rule) {
    return rule.base + (rule.keepHigh ? 2 : 1);
}

bool CanHoldValues(const ClassRule& rule, int classNumber) {
    const int base = classNumber - 1;
    if (base < 1) {
        return rule.base > 0 || rule.column == kNameClasses ? rule.keepLow
                                                            : rule.limits[0] <= rule.top;
    }
    if (base > rule.base) {
        return rule.keepHigh;
    }
    const auto place = static_cast<std::size_t>(base);
    if (rule.column == kNameClasses) {
        const auto name = rule.names.begin() + base - 1;
        return !name->empty() && std::find(rule.names.begin(), name, *name) == name;
    }
    // Limits are tried in order: values that an earlier limit takes do not get here.
    const double least = *std::max_element(rule.limits.begin(), rule.limits.begin() + base);
    return least <= rule.top && (base == rule.base || least < rule.limits[place]);
}

int ClassOfNumber(const ClassRule& rule, double value) {
    if (std::isnan(value)) {
        return 0;
    }
    if (value < rule.limits[0]) {
        return rule.keepLow ? 1 : 0;
    }
    if (value > rule.top) {
        return rule.keepHigh ? rule.base + 2 : 0;
    }
    for (int k = 1; k < rule.base; ++k) {
        if (value < rule.limits[static_cast<std::size_t>(k)]) {
            return k + 1;
        }
    }
    return rule.base + 1;
}

int ClassOfName(const ClassRule& rule, std::string_view text) {
    if (!text.empty()) {
        for (int k = 0; k < rule.base; ++k) {
            const std::string& name = rule.names[static_cast<std::size_t>(k)];
            if (rule.caseSensitive ? name == text : EqualWithoutCase(name, text)) {
                return k + 2;
            }
        }
    }
    return rule.keepLow ? 1 : 0;
}

} // namespace quandrel

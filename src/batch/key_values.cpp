// SPDX-License-Identifier: MIT

#include "batch/key_values.h"

#include "core/record_fields.h"
#include "orientation/number_text.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

std::vector<std::string> SplitAtCommas(const std::string& text) {
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == ',') {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

std::optional<int> WholeNumber(const std::string& text, int lowest, int highest) {
    const std::optional<double> value = ReadNumber(text);
    if (!value || *value != std::floor(*value) || *value < lowest || *value > highest) {
        return std::nullopt;
    }
    return static_cast<int>(*value);
}

std::string NameOf(const Names& names, int value) {
    for (const auto& [name, valueOfName] : names) {
        if (valueOfName == value) {
            return name;
        }
    }
    return {};
}

std::string TakeSwitch(const std::string& value, std::int16_t& field) {
    return TakeName({{"yes", kTrue}, {"no", 0}}, value, field);
}

std::string TakeNumber(const std::string& value, double& field) {
    const std::optional<double> number = ReadNumber(value);
    if (!number) {
        return "'" + value + "' is not a number";
    }
    field = *number;
    return {};
}

std::string TakeNumber(const std::string& value, double lowest, double highest, double& field) {
    const std::optional<double> number = ReadNumber(value);
    if (!number || *number < lowest || *number > highest) {
        return "'" + value + "' is not a number from " + FormatNumber(lowest, "0.##") + " to "
               + FormatNumber(highest, "0.##");
    }
    field = *number;
    return {};
}

std::string TakeMillimetres(const std::string& value, double lowest, double highest,
                            double& field) {
    constexpr std::string_view kUnit = "mm";
    const bool hasUnit = value.ends_with(kUnit);
    const std::optional<double> number =
        ReadNumber(hasUnit ? value.substr(0, value.size() - kUnit.size()) : value);
    if (!number || *number < lowest || *number > highest) {
        return "'" + value + "' is not a length from " + FormatNumber(lowest, "0.##") + "mm to "
               + FormatNumber(highest, "0.##") + "mm";
    }
    field = *number;
    return {};
}

bool IsGiven(const std::vector<Argument>& arguments, std::string_view key) {
    return std::any_of(arguments.begin(), arguments.end(),
                       [key](const Argument& argument) { return argument.name == key; });
}

std::string LackOfValue(const std::string& key) {
    return "'" + key + "' lacks a value: " + key + "=...";
}

} // namespace quandrel

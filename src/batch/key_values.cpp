// SPDX-License-Identifier: MIT

#include "batch/key_values.h"

#include "orientation/number_text.h"

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

std::string TakeNumber(const std::string& value, double& field) {
    const std::optional<double> number = ReadNumber(value);
    if (!number) {
        return "'" + value + "' is not a number";
    }
    field = *number;
    return {};
}

std::string LackOfValue(const std::string& key) {
    return "'" + key + "' lacks a value: " + key + "=...";
}

} // namespace quandrel

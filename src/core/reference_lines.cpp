// SPDX-License-Identifier: MIT

#include "core/reference_lines.h"

#include "orientation/angles.h"
#include "orientation/number_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace quandrel {

namespace {

std::string AllDigits(double value) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return std::string(digits.data(), end);
}

std::optional<double> InDegrees(std::optional<double> radians) {
    return radians ? std::optional(RadToDeg(*radians)) : std::nullopt;
}

} // namespace

void ReferenceLines::Add(std::string_view name, std::optional<double> value) {
    lines_.push_back({std::string(name), value, {}});
}

void ReferenceLines::AddBesideWords(std::string_view name, std::optional<double> value,
                                    const std::string& words) {
    lines_.push_back({std::string(name), value, words});
}

void ReferenceLines::Add(std::string_view name, std::optional<double> value, double printed,
                         std::string_view format) {
    const std::string text = FormatNumber(printed, format);
    const bool agree = value && text == FormatNumber(*value, format);
    lines_.push_back({std::string(name), value, agree ? std::string() : text});
}

void ReferenceLines::AddAngle(std::string_view name, std::optional<double> value, double printed,
                              std::string_view format) {
    Add(name, InDegrees(value), RadToDeg(printed), format);
}

void ReferenceLines::AddDirection(std::string_view name, std::optional<double> value,
                                  double printed, std::string_view format, double period) {
    const double periods = value ? std::nearbyint((printed - *value) / period) : 0;
    AddAngle(name, value, printed - periods * period, format);
    if (!lines_.back().printed.empty()) {
        lines_.back().printed = FormatNumber(RadToDeg(printed), format);
    }
}

std::vector<ReferenceLine> ReferenceLines::Take() {
    return std::exchange(lines_, {});
}

std::string TextOfReference(const std::vector<ReferenceLine>& lines) {
    std::string text;
    for (const ReferenceLine& line : lines) {
        text += line.name + " = " + (line.value ? AllDigits(*line.value) : "undetermined");
        if (!line.printed.empty()) {
            text += " (printed " + line.printed + ")";
        }
        text += '\n';
    }
    return text;
}

} // namespace quandrel

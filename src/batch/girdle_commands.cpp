// SPDX-License-Identifier: MIT

#include "batch/girdle_commands.h"

#include "batch/key_values.h"
#include "core/data_format.h"
#include "core/plot_store.h"
#include "edit/girdles.h"
#include "edit/small_circles.h"

#include <algorithm>
#include <array>
#include <optional>

namespace quandrel {

namespace {

constexpr const char* kOn = "on";
constexpr const char* kOff = "off";
constexpr const char* kGirdleUse =
    "a row from 1 to 8 with a plane such as 45/120, or a row from 1 to 10 with on or off";
constexpr const char* kCircleUse = "a number from 1 to 4 with plunge and azimuth of the axis and "
                                   "the angle, or with on or off";

/// What is wrong before anything is read, or nothing.
std::string RefusedPlot(const char* what) {
    if (!IsOpenSlot(gActivePlot)) {
        return "no plot is open";
    }
    return ActiveRecord().PlotKind == kRose ? std::string("a rose has no ") + what : std::string();
}

/// The bare words of a command, or nothing when one has a name.
std::optional<std::vector<std::string>> BareWords(const std::vector<Argument>& arguments) {
    std::vector<std::string> words;
    for (const Argument& argument : arguments) {
        if (!argument.name.empty()) {
            return std::nullopt;
        }
        words.push_back(argument.value);
    }
    return words;
}

bool IsSwitch(const std::string& word) {
    return word == kOn || word == kOff;
}

std::string TypeGirdle(int row, const std::string& text) {
    if (!IsUserGirdle(row)) {
        return "girdle " + std::to_string(row) + " is that of the statistics";
    }
    const auto plane = ReadGirdleText(text, gPlaneSeparator, LineFormatFromGlobals(false), row);
    if (!plane) {
        return plane.Error();
    }
    UpdateGirdle(row, text);
    ShowGirdle(row, true);
    return {};
}

/// Stores the three texts of a set, and shows it.
std::string TypeCircle(int set, const std::vector<std::string>& words) {
    constexpr std::array<CirclePart, kTextsOfCircle> kParts = {
        CirclePart::kPlunge, CirclePart::kAzimuth, CirclePart::kAngle};
    for (std::size_t i = 0; i < kParts.size(); ++i) {
        if (!CircleValue(kParts[i], words[i + 1])) {
            return "'" + words[i + 1] + "': " + CircleRule(kParts[i]);
        }
    }
    for (std::size_t i = 0; i < kParts.size(); ++i) {
        TypeCircleText(set, kParts[i], words[i + 1]);
    }
    return ShowSmallCircle(set, true);
}

} // namespace

std::string ApplyGirdleArguments(const std::vector<Argument>& arguments) {
    const std::string refused = RefusedPlot("girdles");
    const auto words = BareWords(arguments);
    if (!refused.empty()) {
        return refused;
    }
    if (!words || words->size() != 2) {
        return std::string("a girdle is ") + kGirdleUse;
    }
    const std::optional<int> row = WholeNumber(words->front(), kFirstUserGirdle, kAxisItems - 1);
    if (!row) {
        return "'" + words->front() + "' is no girdle: " + kGirdleUse;
    }
    const std::string& text = words->back();
    if (!IsSwitch(text)) {
        return TypeGirdle(*row, text);
    }
    return ShowGirdle(*row, text == kOn) ? std::string()
                                         : "there is no girdle " + std::to_string(*row) + " yet";
}

std::string ApplySmallCircleArguments(const std::vector<Argument>& arguments) {
    const std::string refused = RefusedPlot("small circles");
    const auto words = BareWords(arguments);
    if (!refused.empty()) {
        return refused;
    }
    const bool isSwitch = words && words->size() == 2 && IsSwitch(words->back());
    if (!isSwitch && (!words || words->size() != kTextsOfCircle + 1)) {
        return std::string("a small circle is ") + kCircleUse;
    }
    const std::optional<int> set = WholeNumber(words->front(), 1, kUserCircles);
    if (!set) {
        return "'" + words->front() + "' is no small circle: " + kCircleUse;
    }
    return isSwitch ? ShowSmallCircle(*set, words->back() == kOn) : TypeCircle(*set, *words);
}

} // namespace quandrel

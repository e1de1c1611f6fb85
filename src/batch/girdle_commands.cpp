// SPDX-License-Identifier: MIT

#include "batch/girdle_commands.h"

#include "batch/key_values.h"
#include "core/plot_store.h"
#include "edit/marks/girdles.h"
#include "edit/marks/small_circles.h"
#include "input/format_model.h"
#include "orientation/notation.h"

#include <algorithm>
#include <array>
#include <optional>

namespace quandrel {

namespace {

constexpr const char* kOn = "on";
constexpr const char* kOff = "off";
constexpr const char* kCircleUse = "a number from 1 to 4 with plunge and azimuth of the axis and "
                                   "the angle, or with on or off";

/// An error that is known before parsing, or nothing.
std::string RefusedPlot(const char* what) {
    if (!IsOpenSlot(gActivePlot)) {
        return "no plot is open";
    }
    return ActiveRecord().PlotKind == kRose ? std::string("a rose has no ") + what : std::string();
}

/// The bare words of a command, or nothing if a word has a name.
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

/// The notation of a plane in the current conventions: their order with an example, always of the
/// same plane.
std::string ExpectedPlane() {
    constexpr std::array<const char*, 7> kExamples = {"45/120",  "45/120", "120/45", "30/45SE",
                                                      "45SE/30", "45/30",  "30/45"};
    const int convention = LineFormatFromGlobals(false).planeConvention;
    const auto place = static_cast<std::size_t>(std::clamp<int>(convention, 0, 6));
    return "a plane as " + std::string(PlaneConventionCaption(convention)) + ", such as "
           + kExamples[place];
}

/// The rows that hold a girdle, with their captions and whether they are visible.
std::string RowsInUse() {
    std::string rows;
    for (int row = kFirstUserGirdle; row < kAxisItems; ++row) {
        const std::string text = GirdleText(row);
        if (text.empty()) {
            continue;
        }
        rows += rows.empty() ? "; in use: " : ", ";
        rows += std::to_string(row) + " (" + GirdleCaption(row, ActiveRecord().DataKind) + ") "
                + text + (IsGirdleShown(row) ? " on" : " off");
    }
    return rows;
}

std::string GirdleUse() {
    return "a row from 1 to 8 with " + ExpectedPlane() + ", or a row from 1 to 10 with on or off"
           + RowsInUse();
}

bool IsSwitch(const std::string& word) {
    return word == kOn || word == kOff;
}

std::string TypeGirdle(int row, const std::string& text) {
    if (!IsUserGirdle(row)) {
        return "girdle " + std::to_string(row) + " belongs to the statistics: " + GirdleUse();
    }
    const auto plane = ReadGirdleText(text, gPlaneSeparator, LineFormatFromGlobals(false), row);
    if (!plane) {
        return "'" + text + "' cannot be read as a plane: " + GirdleUse();
    }
    UpdateGirdle(row, text);
    ShowGirdle(row, true);
    return {};
}

/// Stores the three texts of a set, and shows the set.
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
        return "a girdle is " + GirdleUse();
    }
    const std::optional<int> row = WholeNumber(words->front(), kFirstUserGirdle, kAxisItems - 1);
    if (!row) {
        return "'" + words->front() + "' is not a girdle: " + GirdleUse();
    }
    const std::string& text = words->back();
    if (!IsSwitch(text)) {
        return TypeGirdle(*row, text);
    }
    return ShowGirdle(*row, text == kOn)
               ? std::string()
               : "there is no girdle " + std::to_string(*row) + " yet: " + GirdleUse();
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
        return "'" + words->front() + "' is not a small circle: " + kCircleUse;
    }
    return isSwitch ? ShowSmallCircle(*set, words->back() == kOn) : TypeCircle(*set, *words);
}

} // namespace quandrel

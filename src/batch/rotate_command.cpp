// SPDX-License-Identifier: MIT

#include "batch/rotate_command.h"

#include "batch/key_values.h"
#include "orientation/number_text.h"
#include "rotation/rotate_data.h"

#include <algorithm>
#include <optional>

namespace quandrel {

namespace {

/// A draft of the settings, with the word that gave their orientation.
struct Draft {
    RotationSettings settings;
    std::string orientationKey;
};

/// Reads "30,120" after the word axis, plane or line.
std::string TakeOrientation(const char* key, const std::string& value, Draft& draft) {
    if (!draft.orientationKey.empty()) {
        return "an orientation is already given: " + draft.orientationKey;
    }
    const std::vector<std::string> parts = SplitAtCommas(value);
    const std::optional<double> inclination = ReadNumber(parts[0]);
    const std::optional<double> azimuth = parts.size() == 2 ? ReadNumber(parts[1]) : std::nullopt;
    if (!inclination || !azimuth) {
        return "'" + value + "' is not a pair of numbers such as 20,135";
    }
    draft.orientationKey = key;
    draft.settings.inclination = inclination;
    draft.settings.azimuth = azimuth;
    return {};
}

std::string TakeAngle(const std::string& value, std::optional<double>& field) {
    return TakeNumber(value, field.emplace());
}

const Takers<Draft>& RotateTakers() {
    static const Takers<Draft> takers = {
        {"op",
         [](auto& v, Draft& d) {
             return TakeWhole(v, kUnfoldAboutAppended, kLineToVertical, d.settings.operation);
         }},
        {"axis", [](auto& v, Draft& d) { return TakeOrientation("axis", v, d); }},
        {"plane", [](auto& v, Draft& d) { return TakeOrientation("plane", v, d); }},
        {"line", [](auto& v, Draft& d) { return TakeOrientation("line", v, d); }},
        {"angle", [](auto& v, Draft& d) { return TakeAngle(v, d.settings.angle); }},
        {"newstrike", [](auto& v, Draft& d) { return TakeAngle(v, d.settings.angle); }},
        {"pitch", [](auto& v, Draft& d) { return TakeAngle(v, d.settings.pitch); }},
        {"sense",
         [](auto& v, Draft& d) {
             d.settings.sense = v;
             return std::string();
         }},
        {"force", [](auto& v, Draft& d) { return TakeTruth(v, d.settings.forceIntoBeds); }},
    };
    return takers;
}

/// The words that an operation accepts. An axis can be given by any of its orientations.
std::vector<std::string> WordsOf(int operation) {
    switch (operation) {
    case kUnfoldAboutAppended:
        return {"force"};
    case kUnfoldAboutSelected:
        return {"axis", "line", "force"};
    case kRotateAboutAxis:
        return {"axis", "line", "angle"};
    case kPlaneToVertical:
        return {"axis", "plane", "newstrike", "pitch", "sense"};
    default:
        return {"axis", "line"};
    }
}

/// The error of the combination of words, or nothing.
std::string RefusedWords(const std::vector<Argument>& arguments, int operation) {
    const auto isGiven = [&arguments](const char* name) {
        return std::ranges::any_of(arguments, [name](auto& a) { return a.name == name; });
    };
    if (!isGiven("op")) {
        return "'op' is missing: 1 unfold about appended axes, 2 unfold about an axis, 3 rotate "
               "about an axis, 4 plane to vertical, 5 line to vertical";
    }
    const std::vector<std::string> words = WordsOf(operation);
    for (const Argument& argument : arguments) {
        if (argument.name != "op" && std::ranges::find(words, argument.name) == words.end()) {
            return "op=" + std::to_string(operation) + " does not use '" + argument.name + "'";
        }
    }
    return {};
}

} // namespace

std::string ApplyRotateArguments(const std::vector<Argument>& arguments, std::string& note) {
    note.clear();
    Draft draft;
    std::string error = TakeArguments(arguments, RotateTakers(), "a rotation", draft);
    if (error.empty()) {
        error = RefusedWords(arguments, draft.settings.operation);
    }
    if (!error.empty()) {
        return error;
    }
    if (draft.settings.operation == kPlaneToVertical && !draft.settings.pitch) {
        draft.settings.pitch = 0;
    }
    RotationReport report;
    if (const std::optional<RotationRefusal> refusal = ApplyRotation(draft.settings, report)) {
        return refusal->reason;
    }
    note = NoteOnRotation(report);
    return {};
}

} // namespace quandrel

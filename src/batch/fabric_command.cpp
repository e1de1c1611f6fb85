// SPDX-License-Identifier: MIT

#include "batch/fabric_command.h"

#include "batch/key_values.h"
#include "core/plot_store.h"
#include "core/settings_value.h"
#include "qt/fabric_picture.h"

#include <nlohmann/json.hpp>

#include <optional>

namespace quandrel {

namespace {

using Json = nlohmann::ordered_json;

constexpr int kOfAllPlots = 8; ///< beside RegionsOfCode
constexpr int kLeastHeight = 50;
constexpr int kMostHeight = 20000;

struct FabricChoice {
    int of = kRegionsOfPlot;
    FabricDiagram diagram = FabricDiagram::Both;
    int height = 2000;
};

std::string TakeOf(const std::string& value, int& of) {
    static const Names names = {{"plot", kRegionsOfPlot},
                                {"overlays", kRegionsOfOverlays},
                                {"classes", kRegionsOfClasses},
                                {"all", kOfAllPlots}};
    of = 0;
    for (const std::string& name : SplitAtCommas(value)) {
        int code = 0;
        if (std::string error = TakeName(names, name, code); !error.empty()) {
            return error;
        }
        of |= code;
    }
    if (of == kOfAllPlots) {
        of |= kRegionsOfPlot; // all plots by themselves
    }
    return {};
}

const Takers<FabricChoice>& FabricTakers() {
    using Choice = FabricChoice;
    static const Names kinds = {{"woodcock", static_cast<int>(FabricDiagram::LogRatios)},
                                {"triangle", static_cast<int>(FabricDiagram::Triangle)},
                                {"both", static_cast<int>(FabricDiagram::Both)}};
    static const Takers<Choice> takers = {
        {kFabricOf, [](auto& v, Choice& c) { return TakeOf(v, c.of); }},
        {kFabricKind, [](auto& v, Choice& c) { return TakeName(kinds, v, c.diagram); }},
        {kFabricSize,
         [](auto& v, Choice& c) { return TakeWhole(v, kLeastHeight, kMostHeight, c.height); }},
    };
    return takers;
}

/// The words of the command without its path.
std::vector<Argument> KeysOf(const Command& command) {
    std::vector<Argument> keys;
    for (const Argument& argument : command.arguments) {
        if (!argument.name.empty()) {
            keys.push_back(argument);
        }
    }
    return keys;
}

Json NumberJson(const std::optional<double>& number) {
    return number ? Json(*number) : Json(nullptr);
}

} // namespace

std::string MakeFabricPlot(const Command& command, std::vector<FabricPoint>& points) {
    FabricChoice choice;
    std::string error = TakeArguments(KeysOf(command), FabricTakers(), "fabric", choice);
    if (!error.empty()) {
        return error;
    }
    const std::vector<Plot*> plots =
        (choice.of & kOfAllPlots) != 0 ? OpenPlots() : std::vector<Plot*>{&ActivePlot()};
    points = FabricPointsOf(plots, gSettings.styles, static_cast<std::int16_t>(choice.of));
    if (points.empty()) {
        return "there are no such rows";
    }
    const std::optional<std::string> path = command.Bare(0);
    return path ? SaveFabricPicture(*path, choice.diagram, points, choice.height) : std::string();
}

Json FabricJson(std::span<const FabricPoint> points) {
    Json json = Json::array();
    for (const FabricPoint& point : points) {
        Json one = {
            {"rows", point.name}, {"count", point.count}, {"eigenvalues", point.eigenvalues}};
        const std::optional<LogRatioPlace>& place = point.place;
        one["lnS2S3"] = place ? Json(place->x) : Json(nullptr);
        one["lnS1S2"] = place ? Json(place->y) : Json(nullptr);
        one["K"] = place ? NumberJson(place->k) : Json(nullptr);
        one["C"] = place ? Json(place->c) : Json(nullptr);
        one["P"] = point.shares.point;
        one["G"] = point.shares.girdle;
        one["R"] = point.shares.random;
        one["B"] = CylindricityOf(point.shares);
        json.push_back(std::move(one));
    }
    return json;
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "batch/region_command.h"

#include "batch/key_values.h"
#include "core/plot_store.h"
#include "edit/marks/plot_views.h"
#include "statistics/fabric_kernels.h"
#include "statistics/plot_regions.h"
#include "statistics/region_form.h"
#include "statistics/region_texts.h"

#include <nlohmann/json.hpp>

#include <array>
#include <limits>
#include <optional>

namespace quandrel {

namespace {

using Json = nlohmann::ordered_json;

const Names kAbout = {
    {"axis", kRegionOfAxis}, {"girdle", kRegionOfGirdle}, {"mean", kRegionOfMean}};

const Names kOf = {
    {"plot", kRegionsOfPlot}, {"overlays", kRegionsOfOverlays}, {"classes", kRegionsOfClasses}};

const Names kLevels = {{"63", 63}, {"90", 90}, {"95", 95}, {"99", 99}};

const Names kMethods = {{"auto", kRegionAutomatic},
                        {"fisher", kRegionByFisher},
                        {"ellipse", kRegionByEllipseOfDirections},
                        {"watson", kRegionByWatson},
                        {"prentice", kRegionByPrentice},
                        {"bingham", kRegionByBingham},
                        {"bootstrap", kRegionByBootstrap}};

const Takers<RecordRegions>& RegionTakers() {
    using Regions = RecordRegions;
    static const Takers<Regions> takers = {
        {"about", [](auto& v, Regions& r) { return TakeSum(kAbout, v, r.RegionsAbout); }},
        {"of", [](auto& v, Regions& r) { return TakeSum(kOf, v, r.RegionsOf); }},
        {"level", [](auto& v, Regions& r) { return TakeName(kLevels, v, r.RegionLevel); }},
        {"method", [](auto& v, Regions& r) { return TakeName(kMethods, v, r.RegionMethod); }},
        {"despite", [](auto& v, Regions& r) { return TakeSwitch(v, r.RegionDespite); }},
        {"cloud", [](auto& v, Regions& r) { return TakeSwitch(v, r.RegionCloud); }},
        {"resamples",
         [](auto& v, Regions& r) {
             return TakeWhole(v, kFewestResamples, kMostResamples, r.RegionResamples);
         }},
        {"seed",
         [](auto& v, Regions& r) {
             return TakeWhole(v, 0, std::numeric_limits<std::int32_t>::max(), r.RegionSeed);
         }},
    };
    return takers;
}

bool IsOff(const std::vector<Argument>& arguments) {
    return arguments.size() == 1 && arguments[0].name.empty() && arguments[0].value == "off";
}

const char* NameOfTarget(RegionTarget target) {
    constexpr std::array<const char*, 3> kNames = {"axis", "girdle", "mean"};
    return kNames[static_cast<std::size_t>(target)];
}

const char* NameOfState(RegionState state) {
    constexpr std::array<const char*, 3> kNames = {"given", "refused", "undefined"};
    return kNames[static_cast<std::size_t>(state)];
}

Json LineJson(const Direction& direction) {
    if (LengthOf(direction) < 0.5) {
        return nullptr;
    }
    double plunge = 0;
    double trend = 0;
    DirectedLine(direction, plunge, trend);
    return {{"plunge", RadToDeg(plunge)}, {"trend", RadToDeg(trend)}};
}

Json NumberJson(const std::optional<double>& number) {
    return number ? Json(*number) : Json(nullptr);
}

void AddValues(Json& json, const ConfidenceRegion& region) {
    json["method"] = NameOfMethod(region.method, region.target);
    json["count"] = region.count;
    json["state"] = NameOfState(region.state);
    json["reason"] = ReasonText(region);
    json["centre"] = LineJson(region.centre);
    json["semiAxes"] = nullptr;
    json["longAxis"] = nullptr;
    if (const auto semiAxes = SemiAxes(region)) {
        json["semiAxes"] = {RadToDeg((*semiAxes)[0]), RadToDeg((*semiAxes)[1])};
        json["longAxis"] = LineJson(region.frame[0]);
    }
    json["symmetry"] = NumberJson(region.symmetry);
    json["otherSymmetry"] = NumberJson(region.otherSymmetry);
    json["concentration"] = NumberJson(region.concentration);
    json["resamples"] = region.resamples;
}

} // namespace

std::string ApplyRegionArguments(const std::vector<Argument>& arguments) {
    RecordRegions regions = ActiveRecord();
    if (IsOff(arguments)) {
        regions.RegionsAbout = 0;
        ChangeRegions(gActivePlot, regions);
        return {};
    }
    std::string error = TakeArguments(arguments, RegionTakers(), "regions", regions);
    if (!error.empty()) {
        return error;
    }
    if (ActiveRecord().PlotKind == kRose) {
        return "a rose has no confidence regions";
    }
    if (regions.RegionsAbout == 0) {
        return "about is missing: axis, girdle or mean";
    }
    if (!HasMethod(regions.RegionsAbout, regions.RegionMethod)) {
        return "method: none of these regions can be computed by "
               + NameOf(kMethods, regions.RegionMethod);
    }
    ChangeRegions(gActivePlot, regions);
    return {};
}

Json RegionsJson(const Plot& plot) {
    Json json = Json::array();
    for (const PlotRegion& region : RegionsOfPlot(plot)) {
        Json one = {{"rows", region.rows},
                    {"about", NameOfTarget(region.target)},
                    {"level", plot.record.RegionLevel}};
        if (region.chosen) {
            AddValues(one, region.chosen->region);
        } else {
            one["state"] = "stopped";
        }
        json.push_back(std::move(one));
    }
    return json;
}

} // namespace quandrel

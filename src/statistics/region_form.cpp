// SPDX-License-Identifier: MIT

#include "statistics/region_form.h"

#include "statistics/plot_region_texts.h"
#include "statistics/plot_regions.h"

#include <array>

namespace quandrel {

namespace {

constexpr std::array kMethodEntries = {
    RegionMethodEntry{kRegionAutomatic, "Automatic"},
    RegionMethodEntry{kRegionByBootstrap, "Bootstrap"},
    RegionMethodEntry{kRegionByWatson, "Cone of Watson (axes)"},
    RegionMethodEntry{kRegionByPrentice, "Ellipse of Prentice (axes)"},
    RegionMethodEntry{kRegionByBingham, "Ellipse of Bingham (axes)"},
    RegionMethodEntry{kRegionByFisher, "Cone of Fisher (mean)"},
    RegionMethodEntry{kRegionByEllipseOfDirections, "Ellipse of large samples (mean)"},
};

constexpr std::array<std::int16_t, 4> kLevelEntries = {63, 90, 95, 99};

constexpr const char* kOfRose = "A rose has no confidence regions.";
constexpr const char* kNone = "Choose what regions are to be about.";
constexpr const char* kNoRows = "No rows have these regions.";

std::int16_t WithPart(std::int16_t sum, std::int16_t part, bool isWanted) {
    return static_cast<std::int16_t>(isWanted ? sum | part : sum & ~part);
}

bool TargetHas(RegionTarget target, std::int16_t method) {
    return MethodOfCode(method, target).has_value();
}

} // namespace

std::span<const RegionMethodEntry> RegionMethodEntries() {
    return kMethodEntries;
}

std::span<const std::int16_t> RegionLevelEntries() {
    return kLevelEntries;
}

bool HasMethod(std::int16_t about, std::int16_t method) {
    const bool isOfAxes = (about & (kRegionOfAxis | kRegionOfGirdle)) != 0;
    const bool isOfMean = (about & kRegionOfMean) != 0;
    return method == kRegionAutomatic || about == 0
           || (isOfAxes && TargetHas(RegionTarget::PrincipalAxis, method))
           || (isOfMean && TargetHas(RegionTarget::MeanDirection, method));
}

RegionFormState RegionFormOf(const Plot* plot) {
    RegionFormState state;
    if (plot == nullptr || plot->record.PlotKind == kRose) {
        return state;
    }
    const PlotRecord& record = plot->record;
    const RegionRows rows = RegionRowsOf(record);
    state.isUsable = true;
    state.hasMean = rows.hasPolarLines;
    state.hasOverlays = rows.hasOverlays;
    state.hasClasses = rows.hasClasses;
    state.canResample =
        record.RegionMethod == kRegionAutomatic || record.RegionMethod == kRegionByBootstrap;
    for (const PlotRegion& region : RegionsOfPlot(*plot)) {
        if (region.chosen) {
            state.hasRefused =
                state.hasRefused || region.chosen->region.state == RegionState::Refused;
            state.hasResamples = state.hasResamples || !region.chosen->resampled.centres.empty();
        }
    }
    return state;
}

std::string RegionFormText(const Plot* plot) {
    if (plot == nullptr) {
        return {};
    }
    if (plot->record.PlotKind == kRose) {
        return kOfRose;
    }
    if (plot->record.RegionsAbout == 0) {
        return kNone;
    }
    const std::string text = TextOfRegions(*plot, "\n");
    return text.empty() ? kNoRows : text;
}

RecordRegions WithTarget(RecordRegions choice, std::int16_t code, bool isWanted) {
    choice.RegionsAbout = WithPart(choice.RegionsAbout, code, isWanted);
    if (!HasMethod(choice.RegionsAbout, choice.RegionMethod)) {
        choice.RegionMethod = kRegionAutomatic;
    }
    return choice;
}

RecordRegions WithRows(RecordRegions choice, std::int16_t code, bool isWanted) {
    choice.RegionsOf = WithPart(choice.RegionsOf, code, isWanted);
    if (choice.RegionsOf == 0) {
        choice.RegionsOf = kRegionsOfPlot;
    }
    return choice;
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "batch/density_command.h"

#include "batch/key_values.h"
#include "core/plot_store.h"
#include "density/density_levels.h"
#include "density/maxima_table.h"
#include "edit/marks/plot_views.h"
#include "orientation/number_text.h"

namespace quandrel {

namespace {

using View = RecordDensityView;

const Names kMethods = {{"cone", kDensityByCone},
                        {"kamb", kDensityByKamb},
                        {"kamb linear", kDensityByKambLinear},
                        {"kamb square", kDensityByKambSquare},
                        {"kamb exponential", kDensityByKambExponential},
                        {"kernel", kDensityByKernel}};

const Names kUnits = {{"percent", kPerCentInConeUnit},
                      {"counts", kCountsUnit},
                      {"sigma", kSigmaUnit},
                      {"deviation", kDeviationUnit},
                      {"uniform", kMultiplesUnit}};

const Names kPictures = {
    {"lines", kContourLines}, {"bands", kFilledBands}, {"both", kLinesOverBands}};

const Names kPalettes = {{"levels", 0}, {"warm", 1}, {"cool", 2}, {"diverging", 3}, {"grey", 4}};

std::string TakeWidth(const std::string& value, View& view) {
    if (value == "auto") {
        view.KernelWidth = 0;
        return {};
    }
    return TakeNumber(value, 2, 60, view.KernelWidth);
}

/// "doubling", "even", "even:2" or a list of numbers.
std::string TakeLevels(const std::string& value, View& view) {
    constexpr std::string_view kEven = "even";
    if (value == "doubling") {
        view.LevelRule = kDoublingLevels;
        return {};
    }
    if (value.starts_with(kEven)) {
        view.LevelRule = kEvenLevels;
        view.LevelStep = 0;
        const std::string step = value.substr(kEven.size());
        if (step.empty()) {
            return {};
        }
        const std::optional<double> number = ReadNumber(step.substr(1));
        if (step.front() != ':' || !number || !(*number > 0)) {
            return "'" + value + "' is not a step such as even:2";
        }
        view.LevelStep = *number;
        return {};
    }
    if (!LevelsOfText(value)) {
        return "'" + value + "' is neither doubling, even nor a list of levels such as 2,4,8";
    }
    view.LevelRule = kLevelsByHand;
    view.LevelsByHand = value;
    return {};
}

const Takers<View>& DensityTakers() {
    static const Takers<View> takers = {
        {"method", [](auto& v, View& s) { return TakeName(kMethods, v, s.DensityMethod); }},
        {"k", [](auto& v, View& s) { return TakeNumber(v, 1, 1000, s.DensityK); }},
        {"width", TakeWidth},
        {"unit", [](auto& v, View& s) { return TakeName(kUnits, v, s.DensityUnit); }},
        {"levels", TakeLevels},
        {"picture", [](auto& v, View& s) { return TakeName(kPictures, v, s.ContourPicture); }},
        {"palette", [](auto& v, View& s) { return TakeName(kPalettes, v, s.BandPalette); }},
        {"reversed", [](auto& v, View& s) { return TakeSwitch(v, s.PaletteReversed); }},
        {"opacity", [](auto& v, View& s) { return TakeNumber(v, 0, 1, s.BandOpacity); }},
        {"envelope", [](auto& v, View& s) { return TakeSwitch(v, s.ShowEnvelope); }},
        {"maxima", [](auto& v, View& s) { return TakeSwitch(v, s.ShowMaxima); }},
    };
    return takers;
}

/// Why a unit was refused; a method without one takes its first unit.
std::string CheckUnit(bool isGiven, View& view) {
    const auto method = static_cast<DensityMethod>(view.DensityMethod);
    const bool hasUnit = HasUnit(method, static_cast<DensityUnit>(view.DensityUnit));
    if (isGiven && !hasUnit) {
        return "unit: the method does not have this unit";
    }
    view.DensityUnit = static_cast<std::int16_t>(UnitShown(view));
    return {};
}

} // namespace

std::string ApplyDensityArguments(const std::vector<Argument>& arguments) {
    View view = ActiveRecord();
    std::string error = TakeArguments(arguments, DensityTakers(), "densities", view);
    if (error.empty()) {
        error = CheckUnit(IsGiven(arguments, "unit"), view);
    }
    if (error.empty()) {
        ChangeDensities(gActivePlot, view);
    }
    return error;
}

std::string MaximaText() {
    const std::vector<DensityMaximum> maxima = MaximaOf(ActivePlot());
    return maxima.empty() ? std::string() : TextOfMaxima(ActivePlot(), maxima);
}

} // namespace quandrel

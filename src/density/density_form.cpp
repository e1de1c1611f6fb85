// SPDX-License-Identifier: MIT

#include "density/density_form.h"

#include "density/density_levels.h"
#include "density/plot_density.h"
#include "orientation/number_text.h"
#include "stereo/axis_rows.h"
#include "stereo/row_drawing.h"
#include "stereo/shown_layers.h"

#include <array>
#include <cmath>

namespace quandrel {

namespace {

constexpr std::size_t kLongestLevelText = 400; ///< as RecordDensityView allows

constexpr std::array kUnits = {DensityUnit::PerCentInCone, DensityUnit::Counts, DensityUnit::Sigma,
                               DensityUnit::Deviation, DensityUnit::MultiplesOfUniform};

std::string RefusalOf(const PlotRecord& record) {
    if (record.PlotKind == kRose) {
        return "A rose has no densities.";
    }
    if (record.NumValidData <= 0) {
        return "A plot without rows has no densities.";
    }
    if (HoldsBothAxes(record)) {
        return kMixedAxesRefusal;
    }
    if (!ShowsMainRows(record)) {
        return "The plot shows the values of its rows on a grid. Its densities need the rows.";
    }
    return {};
}

Result<double> NumberWithin(std::string_view text, double lowest, double highest,
                            const char* refusal) {
    const std::optional<double> number = ReadNumber(text);
    if (!number || *number < lowest || *number > highest) {
        return Failure{refusal};
    }
    return *number;
}

} // namespace

DensityOffer OfferOf(const PlotRecord& record) {
    DensityOffer offer;
    offer.refusal = RefusalOf(record);
    if (!offer.refusal.empty()) {
        return offer;
    }
    const auto method = static_cast<DensityMethod>(record.DensityMethod);
    offer.isDrawn = ShowsDensities(record);
    offer.hasK = method != DensityMethod::Cone && method != DensityMethod::Kernel;
    offer.hasWidth = method == DensityMethod::Kernel;
    offer.hasStep = record.LevelRule == kEvenLevels;
    offer.hasList = record.LevelRule == kLevelsByHand;
    offer.hasBands = record.ContourPicture != kContourLines;
    if (!HasDensityChoice(record)) {
        offer.onFieldOnly = "The counting cone in per cent, with doubling levels as lines, has no "
                            "envelope and no table of maxima.";
    }
    for (const DensityUnit unit : kUnits) {
        if (HasUnit(method, unit)) {
            offer.units.push_back(unit);
        }
    }
    return offer;
}

RecordDensityView WithMethod(RecordDensityView view, std::int16_t method) {
    view.DensityMethod = method;
    view.DensityUnit = static_cast<std::int16_t>(UnitShown(view));
    return view;
}

RecordDensityView WithLevelRule(RecordDensityView view, std::int16_t rule,
                                std::span<const double> shown) {
    view.LevelRule = rule;
    if (rule != kLevelsByHand || LevelsOfText(view.LevelsByHand)) {
        return view;
    }
    view.LevelsByHand.clear();
    for (const double level : shown) {
        view.LevelsByHand += (view.LevelsByHand.empty() ? "" : ", ") + TextInBox(level);
    }
    if (!LevelsOfText(view.LevelsByHand)) {
        view.LevelsByHand = "2, 4, 8";
    }
    return view;
}

ConeInWords ConeOf(const DensityFormula& formula) {
    const double halfAngle = ArcCos(formula.cosine);
    ConeInWords words;
    words.angle = FormatNumber(RadToDeg(halfAngle), "0.0") + "°";
    // An angle that is shown as 3.0 is wide enough.
    constexpr double kHalfOfTenth = 0.05;
    if (RadToDeg(halfAngle) >= RadToDeg(kNarrowCone) - kHalfOfTenth) {
        return words;
    }
    words.warning = "The cone is " + FormatNumber(RadToDeg(halfAngle), "0.0")
                    + " degrees wide: narrower than most measurements.";
    const double k = KambKOfHalfAngle(kNarrowCone, formula.rows, formula.sense);
    constexpr double kTenths = 10;
    constexpr double kRounding = 1e-9;
    const double rounded = std::ceil(k * kTenths - kRounding) / kTenths;
    if (rounded <= kLargestKambK) {
        words.widerK = rounded;
    }
    return words;
}

Result<double> KOfText(std::string_view text) {
    return NumberWithin(text, kSmallestKambK, kLargestKambK,
                        "k has to be a number from 1 to 1,000.");
}

Result<double> WidthOfText(std::string_view text) {
    constexpr double kNarrowest = 2;
    constexpr double kWidest = 60;
    return NumberWithin(text, kNarrowest, kWidest,
                        "The half-width has to be a number from 2 to 60 degrees.");
}

Result<double> StepOfText(std::string_view text) {
    if (WithoutBlanks(text).empty()) {
        return 0.0;
    }
    const std::optional<double> step = ReadNumber(text);
    if (!step || !(*step > 0)) {
        return Failure{"The step has to be a number above 0, or empty for a round one."};
    }
    return *step;
}

Result<std::string> LevelListOfText(std::string_view text) {
    const std::string_view kept = WithoutBlanks(text);
    if (kept.size() > kLongestLevelText || !LevelsOfText(kept)) {
        return Failure{"Levels have to be 1 to 24 different numbers above 0, such as 2, 4, 8."};
    }
    return std::string(kept);
}

std::string TextInBox(double value) {
    return FormatNumber(value, "0.####");
}

} // namespace quandrel

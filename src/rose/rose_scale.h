// SPDX-License-Identifier: MIT
//
// The scale of a rose: its interval and its marks.
//
// A scale runs in per cent of the total, along the radius. The stored text of a scale is four
// letters for its form, "tick" or "circ", and the interval behind them: a number, or "auto".

#pragma once

#include "core/plot_record.h"

#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// The most marks of a scale; an interval that would give more is too small.
inline constexpr int kMostRoseMarks = 100;

/// The interval that suits a largest sector of so many per cent: 1 below 7, 2 up to 13, 3 up to 18,
/// 5 up to 30, 10 up to 60, 20 above.
[[nodiscard]] double AutomaticRoseInterval(double largestPerCent);

/// True when a scale's text leaves the interval to the program.
[[nodiscard]] bool HasAutomaticInterval(std::string_view scaleType);

/// True for a scale of circles; any other text is one of tick marks.
[[nodiscard]] bool HasScaleCircles(std::string_view scaleType);

/// The interval of a scale's text, per cent, above 0. A text that leaves it open gives the
/// automatic one; no number, or 0, a quarter of the largest sector as a whole number, or 1 up to
/// 4 %; one that gives more than kMostRoseMarks is raised to the smallest that does not.
///
/// @param largestPerCent  the largest sector, 0 or more
[[nodiscard]] double IntervalOfScale(std::string_view scaleType, double largestPerCent);

/// The interval of a plot's rose as last worked out.
[[nodiscard]] double RoseScaleInterval(const PlotRecord& record);

/// What the marks of a scale are worked out from.
struct RoseScaleSettings {
    double interval = 0;       ///< per cent
    double largestPerCent = 0; ///< of the largest sector
    double unitsPerCent = 0;   ///< radial units of 1 %, or their squares of equal area
    double zeroRadius = 0;     ///< where 0 % is
    bool equalArea = false;
    bool circles = false;
    double shortening = 1; ///< of equal area: that of all petals, to make room for the last one
};

/// A mark of the scale.
struct RoseScaleMark {
    double perCent = 0;
    double radius = 0;
};

/// The marks, from the centre outward: at each multiple of the interval, below the largest sector
/// for circles, up to it for tick marks. None for an interval that is not above 0.
[[nodiscard]] std::vector<RoseScaleMark> MarksOfScale(const RoseScaleSettings& settings);

/// The scale of the rose of a plot as last worked out: its marks stand where petals of their value
/// end, but for the smaller last sector of equal area, which is longer.
[[nodiscard]] RoseScaleSettings ScaleOfRose(const PlotRecord& record);

/// Writes the interval behind the form in RoseScaleType, as far as one was given: "auto" stays.
void StoreRoseInterval(PlotRecord& record);

/// A scale's text with its interval, or "auto", behind another form.
[[nodiscard]] std::string ScaleTypeWithForm(std::string_view scaleType, bool circles);

} // namespace quandrel

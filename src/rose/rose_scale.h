// SPDX-License-Identifier: MIT
//
// The scale of a rose: its interval and its marks.
//
// A scale shows per cent of the total along the radius. The stored text of a scale is four letters
// for its form, "tick" or "circ", followed by the interval: a number, or "auto".

#pragma once

#include "core/plot_record.h"

#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// The largest number of marks of a scale. An interval that would give more is too small.
inline constexpr int kMostRoseMarks = 100;

/// The automatic interval for a largest sector in per cent: 1 below 7, 2 up to 13, 3 up to 18, 5 up
/// to 30, 10 up to 60, 20 above.
[[nodiscard]] double AutomaticRoseInterval(double largestPerCent);

/// Whether a scale's text leaves the interval to the program.
[[nodiscard]] bool HasAutomaticInterval(std::string_view scaleType);

/// True for a scale of circles; any other text means tick marks.
[[nodiscard]] bool HasScaleCircles(std::string_view scaleType);

/// The interval of a scale's text, per cent, above 0. If the text does not give one, it is
/// automatic. An invalid number, or 0, gives a quarter of the largest sector as a whole number, or
/// 1 up to 4 %. An interval that gives more than kMostRoseMarks is raised to the smallest that does
/// not.
///
/// @param largestPerCent  the largest sector, 0 or more
[[nodiscard]] double IntervalOfScale(std::string_view scaleType, double largestPerCent);

/// The interval of a plot's rose as last computed.
[[nodiscard]] double RoseScaleInterval(const PlotRecord& record);

/// The input for the marks of a scale.
struct RoseScaleSettings {
    double interval = 0;       ///< per cent
    double largestPerCent = 0; ///< of the largest sector
    double unitsPerCent = 0;   ///< radial units per 1 %; with equal area, their squares
    double zeroRadius = 0;     ///< the radius of 0 %
    bool equalArea = false;
    bool circles = false;
    double shortening = 1; ///< with equal area: of all petals, to make room for the last one
};

/// A mark of the scale.
struct RoseScaleMark {
    double perCent = 0;
    double radius = 0;
};

/// The marks, from the centre outward: at each multiple of the interval, below the largest sector
/// for circles, up to it for tick marks. Empty for an interval that is not above 0.
[[nodiscard]] std::vector<RoseScaleMark> MarksOfScale(const RoseScaleSettings& settings);

/// The scale of the rose of a plot as last computed. Its marks are where petals of their value end,
/// except for the smaller last sector of equal area, which is longer.
[[nodiscard]] RoseScaleSettings ScaleOfRose(const PlotRecord& record);

/// Writes the interval after the form in RoseScaleType, if one was given: "auto" stays.
void StoreRoseInterval(PlotRecord& record);

/// A scale's text with its interval, or "auto", after another form.
[[nodiscard]] std::string ScaleTypeWithForm(std::string_view scaleType, bool circles);

} // namespace quandrel

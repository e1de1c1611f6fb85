// SPDX-License-Identifier: MIT

#include "rose/rose_scale.h"

#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "orientation/projection.h"
#include "rose/rose_radii.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr std::size_t kFormLength = 4;
constexpr const char* kCircleForm = "circ";
constexpr const char* kTickForm = "tick";

std::string_view IntervalText(std::string_view scaleType) {
    return scaleType.substr(std::min(kFormLength, scaleType.size()));
}

/// The factor by which the petals and the scale of a rose of equal area were shortened: below 1
/// where the largest value does not fill the ring.
double ShorteningOfRose(const PlotRecord& record, double zeroRadius) {
    const double ring = kNetRadius * kNetRadius - zeroRadius * zeroRadius;
    const double filled =
        record.RoseRangeA[kTopRoseLayer][kInUnits] * record.RoseRangeB[kTopRoseLayer][kInUnits];
    const bool isShorter = record.RoseEqualArea != 0 && filled > 0 && filled < ring * (1 - 1e-9);
    return isShorter ? filled / ring : 1;
}

} // namespace

double AutomaticRoseInterval(double largestPerCent) {
    if (largestPerCent < 7) {
        return 1;
    }
    if (largestPerCent <= 13) {
        return 2;
    }
    if (largestPerCent <= 18) {
        return 3;
    }
    if (largestPerCent <= 30) {
        return 5;
    }
    return largestPerCent <= 60 ? 10 : 20;
}

bool HasAutomaticInterval(std::string_view scaleType) {
    const std::string_view interval = IntervalText(scaleType);
    return !interval.empty() && (interval.front() == 'a' || interval.front() == 'A');
}

bool HasScaleCircles(std::string_view scaleType) {
    return scaleType.substr(0, kFormLength) == kCircleForm;
}

double IntervalOfScale(std::string_view scaleType, double largestPerCent) {
    if (HasAutomaticInterval(scaleType)) {
        return AutomaticRoseInterval(largestPerCent);
    }
    const double interval = ParseNumber(IntervalText(scaleType));
    if (!(interval > 0)) {
        return largestPerCent > 4 ? RoundToEven(largestPerCent / 4) : 1;
    }
    return std::max(interval, largestPerCent / kMostRoseMarks);
}

double RoseScaleInterval(const PlotRecord& record) {
    return IntervalOfScale(record.RoseScaleType, record.RoseRangeB[kTopRoseLayer][kInPerCent]);
}

std::vector<RoseScaleMark> MarksOfScale(const RoseScaleSettings& settings) {
    // Multiples of a fraction can miss the largest sector by rounding.
    const double tolerance = 1e-9 * settings.largestPerCent;
    const double last = settings.largestPerCent + (settings.circles ? -tolerance : tolerance);
    const double r0 = settings.zeroRadius;
    std::vector<RoseScaleMark> marks;
    if (!(settings.interval > 0)) {
        return marks;
    }
    for (int i = 1; i <= kMostRoseMarks; ++i) {
        const double perCent = i * settings.interval;
        if (!(perCent <= last)) {
            break;
        }
        const double length = settings.unitsPerCent * perCent;
        marks.push_back(
            {perCent,
             r0
                 + (settings.equalArea ? settings.shortening * (std::sqrt(length + r0 * r0) - r0)
                                       : length)});
    }
    return marks;
}

RoseScaleSettings ScaleOfRose(const PlotRecord& record) {
    RoseScaleSettings settings;
    settings.interval = RoseScaleInterval(record);
    settings.largestPerCent = record.RoseRangeB[kTopRoseLayer][kInPerCent];
    settings.zeroRadius = ZeroRadiusOfRose(record);
    settings.shortening = ShorteningOfRose(record, settings.zeroRadius);
    settings.unitsPerCent = record.RoseRangeA[kTopRoseLayer][kInPerCent] / settings.shortening;
    settings.equalArea = record.RoseEqualArea != 0;
    settings.circles = HasScaleCircles(record.RoseScaleType);
    return settings;
}

void StoreRoseInterval(PlotRecord& record) {
    if (HasAutomaticInterval(record.RoseScaleType)) {
        return; // "auto" stays, for files and for the next Go
    }
    const char* const form = HasScaleCircles(record.RoseScaleType) ? kCircleForm : kTickForm;
    record.RoseScaleType = form + FormatNumber(RoseScaleInterval(record), "General Number");
}

std::string ScaleTypeWithForm(std::string_view scaleType, bool circles) {
    const std::string_view interval = IntervalText(scaleType);
    return std::string(circles ? kCircleForm : kTickForm)
           + std::string(interval.empty() ? "auto" : interval);
}

} // namespace quandrel

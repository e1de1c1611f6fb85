// SPDX-License-Identifier: MIT

#include "quandrel/region.h"

#include "border/border.h"
#include "border/row_lines.h"
#include "statistics/plot_regions.h"
#include "statistics/region_texts.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace quandrel::api {

namespace {

constexpr std::size_t kSides = 180;

RegionTarget TargetIn(RegionAbout about) {
    switch (about) {
    case RegionAbout::kPrincipalAxis:
        return RegionTarget::PrincipalAxis;
    case RegionAbout::kGirdlePole:
        return RegionTarget::GirdlePole;
    case RegionAbout::kMeanDirection:
        return RegionTarget::MeanDirection;
    }
    throw std::invalid_argument("a region is about an axis, a girdle's pole or a mean");
}

quandrel::RegionChoice ChoiceIn(const RegionChoice& choice) {
    quandrel::RegionChoice in;
    in.target = TargetIn(choice.about);
    in.method = MethodOfCode(static_cast<std::int16_t>(choice.method), in.target);
    if (choice.method != RegionMethod::kAutomatic && !in.method) {
        throw std::invalid_argument("what the region is about does not have this method");
    }
    in.level = choice.level;
    if (!(choice.level > 0 && choice.level < 1)) {
        throw std::invalid_argument("the level of a region is not above 0 and below 1");
    }
    in.bootstrap.resamples =
        static_cast<int>(Within(choice.resamples, kFewestResamples, kMostResamples, "resamples"));
    in.bootstrap.seed = choice.seed;
    in.bootstrap.threads = std::max(choice.threads, 1U);
    return in;
}

RegionSample SampleIn(std::span<const Line> lines, std::span<const double> counts,
                      RegionTarget target) {
    const bool areDirections = target == RegionTarget::MeanDirection;
    WeightedDirections rows;
    if (counts.empty()) {
        rows = DirectionsOf(RowLinesIn(lines),
                            areDirections ? LinePolarity::kDirected : LinePolarity::kAxial);
    } else {
        std::ranges::transform(lines, std::back_inserter(rows.directions), [&](const Line& line) {
            const MeasuredLine measured = MeasuredIn(line);
            return areDirections ? quandrel::DirectionOf(measured) : quandrel::AxisOf(measured);
        });
        rows.weights.assign(counts.begin(), counts.end());
    }
    return RegionSampleOf(rows, areDirections ? RowsAre::Directions : RowsAre::Axes);
}

Line DirectedOut(const Direction& direction) {
    RadianLine line;
    DirectedLine(direction, line.plunge, line.trend);
    return LineOut(line.plunge, line.trend);
}

Region Out(const ConfidenceRegion& region) {
    Region out;
    out.isGiven = region.state == RegionState::Given;
    out.reason = ReasonText(region);
    out.method = NameOfMethod(region.method, region.target);
    out.count = region.count;
    if (LengthOf(region.centre) > 0.5) {
        out.centre = DirectedOut(region.centre);
    }
    if (const auto semiAxes = SemiAxes(region)) {
        out.semiAxes = {RadToDeg((*semiAxes)[0]), RadToDeg((*semiAxes)[1])};
        out.towards = DirectedOut(region.frame[0]);
    }
    std::ranges::transform(RegionOutline(region, kSides), std::back_inserter(out.outline),
                           DirectedOut);
    out.symmetry = region.symmetry;
    out.resamples = region.resamples;
    return out;
}

} // namespace

std::optional<Region> RegionOf(std::span<const Line> lines, const RegionChoice& choice,
                               std::span<const double> counts) {
    if (!counts.empty()) {
        SameLength(lines.size(), counts.size(), "lines and counts");
        NotNegative(counts, "count");
    }
    const quandrel::RegionChoice in = ChoiceIn(choice);
    const RegionSample sample = SampleIn(lines, counts, in.target);
    if (sample.rows.directions.empty()) {
        return std::nullopt;
    }
    const std::optional<ChosenRegion> chosen = ChooseRegion(sample, in);
    return chosen ? std::optional(Out(chosen->region)) : std::nullopt;
}

} // namespace quandrel::api

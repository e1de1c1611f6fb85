// SPDX-License-Identifier: MIT

#include "quandrel/row_tests.h"

#include "border/border.h"
#include "border/row_lines.h"
#include "hypotheses/row_tests.h"
#include "rose/azimuth_tests.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace quandrel::api {

namespace {

TestSample SampleIn(std::span<const Line> lines, Sense sense) {
    TestSample sample;
    const bool areAxes = sense == Sense::kAxes;
    sample.as = areAxes ? RowsTestedAs::Axes : RowsTestedAs::Directions;
    sample.directions = EachRow(
        DirectionsOf(RowLinesIn(lines), areAxes ? LinePolarity::kAxial : LinePolarity::kDirected));
    return sample;
}

TestSample SampleIn(std::span<const double> azimuths, Sense sense) {
    TestSample sample;
    const bool areAxes = sense == Sense::kAxes;
    sample.as = areAxes ? RowsTestedAs::AxialAzimuths : RowsTestedAs::PolarAzimuths;
    sample.azimuths.areAxes = areAxes;
    std::ranges::transform(azimuths, std::back_inserter(sample.azimuths.angles),
                           [areAxes](double azimuth) {
                               const double angle = AzimuthIn(azimuth, "azimuth");
                               return areAxes ? 2 * angle : angle;
                           });
    if (std::ranges::all_of(azimuths,
                            [](double azimuth) { return azimuth == std::floor(azimuth); })) {
        sample.azimuths.steps = areAxes ? kStepsOfAxes : kStepsOfDirections;
    }
    return sample;
}

quandrel::TestChoice ChoiceIn(const TestChoice& choice) {
    quandrel::TestChoice in;
    in.tries = static_cast<int>(Within(choice.tries, kFewestTries, kMostTries, "tries"));
    in.seed = choice.seed;
    return in;
}

std::vector<RowTest> Out(const RowTests& tests) {
    std::vector<RowTest> out;
    for (const quandrel::RowTest& test : tests.tests) {
        out.push_back({test.name, test.symbol, test.statistic, test.probability, test.sentence});
    }
    return out;
}

template <class Rows>
std::vector<RowTest> Tested(const Rows& rows, Sense sense, const TestChoice& choice) {
    return Out(quandrel::TestsOf(SampleIn(rows, sense), ChoiceIn(choice)));
}

template <class Rows>
std::vector<RowTest> Compared(const Rows& first, const Rows& second, Sense sense,
                              const TestChoice& choice) {
    return Out(
        quandrel::TestsOf(SampleIn(first, sense), SampleIn(second, sense), ChoiceIn(choice)));
}

} // namespace

std::vector<RowTest> TestsOf(std::span<const Line> lines, Sense sense, const TestChoice& choice) {
    return Tested(lines, sense, choice);
}

std::vector<RowTest> TestsOf(std::span<const Line> first, std::span<const Line> second, Sense sense,
                             const TestChoice& choice) {
    return Compared(first, second, sense, choice);
}

std::vector<RowTest> TestsOf(std::span<const double> azimuths, Sense sense,
                             const TestChoice& choice) {
    return Tested(azimuths, sense, choice);
}

std::vector<RowTest> TestsOf(std::span<const double> first, std::span<const double> second,
                             Sense sense, const TestChoice& choice) {
    return Compared(first, second, sense, choice);
}

} // namespace quandrel::api

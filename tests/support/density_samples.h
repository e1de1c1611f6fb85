// SPDX-License-Identifier: MIT
//
// Random lines for tests of densities: the same on every machine.

#pragma once

#include "density/density_method.h"
#include "orientation/angles.h"
#include "orientation/random_stream.h"
#include "stereo/measured_line.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

namespace quandrel {

/// Random numbers and lines from a seed.
class RandomLines {
public:
    explicit RandomLines(std::uint64_t seed)
        : random_(seed) {}

    /// 0 up to 1, in 53 bits.
    double Fraction() { return random_.Uniform(); }

    /// Any direction of the sphere, or with equal chance any axis, by its lower end.
    MeasuredLine Even(LineSense sense) {
        const double sine = sense == LineSense::Axes ? Fraction() : 2 * Fraction() - 1;
        return {ArcSin(sine), Fraction() * kTwoPi};
    }

    /// Within some degrees of a line in plunge and trend, across the pole and the rim.
    MeasuredLine Near(const MeasuredLine& line, double degrees, LineSense sense) {
        const double reach = DegToRad(degrees);
        const Direction centre = DirectionOf(line);
        const auto offset = [this, reach] { return reach * (2 * Fraction() - 1); };
        MeasuredLine near;
        CosinesToLine(centre.l + offset(), centre.m + offset(), centre.n + offset(), near.plunge,
                      near.trend);
        if (sense == LineSense::Axes) {
            near.plunge = std::abs(near.plunge);
        }
        return near;
    }

private:
    RandomStream random_;
};

inline MeasuredLine InWholeDegrees(const MeasuredLine& line) {
    return {DegToRad(RoundToEven(RadToDeg(line.plunge))),
            DegToRad(RoundToEven(RadToDeg(line.trend)))};
}

enum class Precision { WholeDegrees, Decimals };

enum class Fabric { Even, Cluster, Girdle };

inline constexpr std::array kFabrics = {Fabric::Even, Fabric::Cluster, Fabric::Girdle};
inline constexpr std::array kSenses = {LineSense::Axes, LineSense::Directions};
inline constexpr std::array kPrecisions = {Precision::WholeDegrees, Precision::Decimals};

/// Rows of a fabric. The cluster is on the rim in the north, the girdle vertical and through the
/// pole. The first rows are vertical, to the north and on the rim.
inline std::vector<MeasuredLine> RowsOf(Fabric fabric, LineSense sense, Precision precision,
                                        std::size_t count, std::uint64_t seed) {
    RandomLines random(seed);
    const MeasuredLine centre{DegToRad(4), DegToRad(358)};
    std::vector<MeasuredLine> rows = {{kPi / 2, 0}, {DegToRad(30), 0}, {0, DegToRad(225)}};
    while (rows.size() < count) {
        MeasuredLine row = random.Even(sense);
        if (fabric == Fabric::Cluster) {
            row = random.Near(centre, 15, sense);
        } else if (fabric == Fabric::Girdle) {
            const MeasuredLine along{row.trend / 4,
                                     row.plunge < 0.5 ? DegToRad(40) : DegToRad(220)};
            row = random.Near(along, 4, sense);
        }
        rows.push_back(row);
    }
    if (precision == Precision::WholeDegrees) {
        std::transform(rows.begin(), rows.end(), rows.begin(), InWholeDegrees);
    }
    return rows;
}

inline std::vector<Direction> DirectionsOfLines(const std::vector<MeasuredLine>& lines) {
    std::vector<Direction> directions;
    for (const MeasuredLine& line : lines) {
        directions.push_back(DirectionOf(line));
    }
    return directions;
}

/// Places to compare densities at: random ones, some near a row, and the vertical, north, the rim
/// and whole degrees.
inline std::vector<MeasuredLine> PlacesFor(const std::vector<MeasuredLine>& rows, LineSense sense,
                                           std::size_t count, std::uint64_t seed) {
    RandomLines random(seed);
    std::vector<MeasuredLine> places = {{kPi / 2, 0},
                                        {kPi / 2, DegToRad(77)},
                                        {0, 0},
                                        {0, kTwoPi},
                                        {0, DegToRad(180)},
                                        {DegToRad(45), kTwoPi},
                                        {DegToRad(89.7), 1},
                                        {DegToRad(0.3), DegToRad(359.8)},
                                        {DegToRad(30), DegToRad(60)}};
    if (sense == LineSense::Directions) {
        places.push_back({-kPi / 2, 0});
        places.push_back({DegToRad(-0.3), DegToRad(359.8)});
        places.push_back({DegToRad(-89.9), DegToRad(33)});
    }
    while (places.size() < count) {
        const std::size_t row =
            static_cast<std::size_t>(random.Fraction() * static_cast<double>(rows.size()));
        places.push_back(random.Even(sense));
        places.push_back(random.Near(rows[row], 3, sense));
    }
    return places;
}

/// For messages.
inline std::string NameOf(const DensityFormula& formula) {
    constexpr std::array kNames = {"cone", "kamb", "linear", "square", "exponential", "kernel"};
    return std::string(kNames[static_cast<std::size_t>(formula.method)])
           + (formula.sense == LineSense::Axes ? " of axes, " : " of directions, ")
           + std::to_string(RadToDeg(HalfAngleOf(formula))) + " degrees, "
           + std::to_string(formula.rows) + " rows";
}

} // namespace quandrel

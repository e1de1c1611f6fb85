// SPDX-License-Identifier: MIT

#include "input/suggest/angle_columns.h"

#include "orientation/angles.h"
#include "orientation/notation.h"

#include <array>
#include <cmath>
#include <optional>

namespace quandrel {

namespace {

constexpr double kSteepest = 90;
constexpr double kHalfTurn = 180;

/// A column without a heading that could be an azimuth and not a dip.
bool IsOnlyAzimuth(const ColumnEvidence& column) {
    return IsAzimuth(column) && !column.rises && (column.most > kSteepest || column.quadrants > 0);
}

/// The azimuth of a cell, degrees.
std::optional<double> AzimuthOfCell(const std::string& cell) {
    const auto quadrant = QuadrantDegrees(cell);
    return quadrant ? quadrant : NumberOfCell(cell);
}

/// A unit vector: east, north, up.
std::array<double, 3> VectorOf(double plunge, double trend) {
    const double p = DegToRad(plunge);
    const double t = DegToRad(trend);
    return {std::cos(p) * std::sin(t), std::cos(p) * std::cos(t), -std::sin(p)};
}

/// Whether a line lies in a plane within ten degrees.
bool LiesIn(double dip, double dipDirection, double plunge, double trend) {
    constexpr double kWithin = 10;
    const auto pole = VectorOf(kSteepest - dip, dipDirection + kHalfTurn);
    const auto line = VectorOf(plunge, trend);
    const double along = pole[0] * line[0] + pole[1] * line[1] + pole[2] * line[2];
    return std::abs(along) <= std::sin(DegToRad(kWithin));
}

} // namespace

bool IsDip(const ColumnEvidence& column) {
    return column.filled > 0 && column.IsMostly(column.steep);
}

bool IsAzimuth(const ColumnEvidence& column) {
    return column.filled > 0
           && (column.IsMostly(column.quadrants)
               || (column.IsMostly(column.turns) && column.dipsWithSense == 0));
}

std::vector<AnglePair> PairsByValues(const std::vector<ColumnEvidence>& columns) {
    std::vector<AnglePair> pairs;
    std::vector<bool> taken(columns.size(), false);
    const auto isFree = [&](std::size_t i) {
        return i < columns.size() && !taken[i] && columns[i].meaning == HeadingMeaning::None
               && !columns[i].rises;
    };
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!isFree(i) || !IsOnlyAzimuth(columns[i])) {
            continue;
        }
        for (const std::size_t dip : {i - 1, i + 1}) {
            if (dip < columns.size() && isFree(dip) && IsDip(columns[dip])
                && !IsOnlyAzimuth(columns[dip])) {
                taken[i] = taken[dip] = true;
                pairs.push_back({dip, i});
                break;
            }
        }
    }
    return pairs;
}

double ShareInPlane(const std::vector<std::vector<std::string>>& rows, const AnglePair& plane,
                    const AnglePair& line, double turn) {
    std::size_t lying = 0;
    for (const std::vector<std::string>& row : rows) {
        const auto dip = NumberOfCell(row[plane.dip]);
        const auto azimuth = AzimuthOfCell(row[plane.azimuth]);
        const auto plunge = NumberOfCell(row[line.dip]);
        const auto trend = AzimuthOfCell(row[line.azimuth]);
        lying += dip && azimuth && plunge && trend && LiesIn(*dip, *azimuth + turn, *plunge, *trend)
                     ? 1
                     : 0;
    }
    return static_cast<double>(lying) / static_cast<double>(rows.size());
}

} // namespace quandrel

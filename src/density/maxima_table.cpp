// SPDX-License-Identifier: MIT

#include "density/maxima_table.h"

#include "density/density_levels.h"
#include "density/plot_density.h"
#include "orientation/direction_vectors.h"
#include "orientation/number_text.h"
#include "stereo/distinct_lines.h"

#include <cmath>

namespace quandrel {

namespace {

/// How many rows are within an angle of a place.
std::int32_t RowsWithin(const RowLines& lines, LineSense sense, const Direction& place,
                        double cosine) {
    const auto isWithin = [&](const MeasuredLine& line) {
        const Direction row = DirectionOf(line);
        const double c = DotProduct(row, place);
        return (sense == LineSense::Axes ? std::abs(c) : c) >= cosine - kCosineRounding;
    };
    std::int32_t rows = 0;
    for (const DistinctLine& line : lines.whole) {
        rows += isWithin({DegToRad(line.plunge), DegToRad(line.trend)}) ? line.rows : 0;
    }
    for (const MeasuredLine& line : lines.measured) {
        rows += isWithin(line) ? 1 : 0;
    }
    return rows;
}

} // namespace

std::vector<DensityMaximum> MaximaOf(Plot& plot) {
    const PlotDensity* const density = DensityOf(plot);
    std::vector<DensityMaximum> maxima;
    if (density == nullptr) {
        return maxima;
    }
    const double cosine = std::cos(HalfAngleOf(density->Formula()));
    for (const FieldMaximum& maximum : density->Maxima()) {
        maxima.push_back({maximum, RowsWithin(LinesOf(plot), density->Formula().sense,
                                              DirectionOf(maximum.place), cosine)});
    }
    return maxima;
}

std::string TextOfMaxima(const Plot& plot, const std::vector<DensityMaximum>& maxima) {
    const PlotDensity* const density = DensityOf(plot);
    const std::string unit = density == nullptr ? "Density" : NameOfUnit(density->Unit());
    std::string text = "No.\tPlunge\tTrend\t" + unit + "\tRows\n";
    int rank = 0;
    for (const DensityMaximum& maximum : maxima) {
        text += std::to_string(++rank) + "\t" + FormatNumber(maximum.at.place.plunge, "0.0") + "\t"
                + FormatNumber(maximum.at.place.trend, "000.0") + "\t"
                + FormatNumber(maximum.at.value, "0.00") + "\t" + std::to_string(maximum.rows)
                + "\n";
    }
    return text;
}

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Rows with decimals, for tests.

#pragma once

#include "core/measured_rows.h"
#include "core/plot_rows.h"
#include "core/plot_store.h"
#include "core/row_room.h"
#include "orientation/angles.h"
#include "orientation/vectors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

namespace quandrel::testing {

/// The orientations of a set in all rows of a plot, as they were measured; element 0 is row 1.
inline std::vector<Attitude> MeasuredRowsOf(int slot, RowAngles which) {
    std::vector<Attitude> rows;
    for (std::int32_t row = 1; row <= RecordOf(slot).NumLoadedData; ++row) {
        rows.push_back(MeasuredAttitude(PlotOf(slot).rows, which, row));
    }
    return rows;
}

/// Random orientations to six decimals.
///
/// @param least  the smallest dip or plunge: 0, or -90 for lines with a sense
inline std::vector<Attitude> RandomAttitudes(int count, double least, unsigned int seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> dip(least, 90);
    std::uniform_real_distribution<double> azimuth(0, 359.999);
    std::vector<Attitude> rows;
    for (int i = 0; i < count; ++i) {
        const double first = dip(random);
        rows.push_back(ToMicrodegree(Attitude{first, azimuth(random)}));
    }
    return rows;
}

/// Gives a row of a plot a measured orientation and the whole degrees that a load makes of it.
inline void Measure(int slot, RowAngles which, std::int32_t row, const Attitude& measured,
                    bool isPlane) {
    PlotRows& rows = PlotOf(slot).rows;
    const Attitude whole = RoundedAttitude(measured, isPlane);
    if (which == RowAngles::Primary) {
        SetMeasuredOrientation(PlotOf(slot), row, whole, measured);
        return;
    }
    SetWholeAttitude(rows, which, row, whole);
    ASSERT_TRUE(SetDecimals(rows, which, row, measured));
}

inline Vector VectorOf(const Attitude& line) {
    return LineVector(Radians(line.dip), Radians(line.azimuth));
}

inline Vector NormalOfPlane(const Attitude& plane) {
    return PlaneNormal(Radians(std::abs(plane.dip)), Radians(plane.azimuth));
}

inline double DegreesOf(double radians) {
    return radians * 180 / std::numbers::pi;
}

} // namespace quandrel::testing

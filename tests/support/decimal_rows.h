// SPDX-License-Identifier: MIT
//
// Plots of random rows with decimals, and their comparison.

#pragma once

#include "core/data_format.h"
#include "core/measured_rows.h"
#include "core/plot_rows.h"
#include "orientation/attitude.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <random>

namespace quandrel {

/// A random angle with 0 to 6 decimals.
inline double AngleWithDecimals(std::mt19937& random, double least, double most) {
    const double scale = std::pow(10, random() % 7);
    const double share = static_cast<double>(random()) / 4294967295.0;
    return std::clamp(std::round((least + share * (most - least)) * scale) / scale, least, most);
}

/// A random attitude as it was measured, and in whole degrees.
struct RandomAttitude {
    Attitude measured;
    Attitude whole;

    RandomAttitude(std::mt19937& random, bool isPlane)
        : measured(AngleWithDecimals(random, isPlane ? 0 : -90, 90),
                   AngleWithDecimals(random, 0, 360))
        , whole(RoundedAttitude(measured, isPlane)) {}

    [[nodiscard]] std::optional<Attitude> Decimals() const {
        return measured == whole ? std::nullopt : std::optional(measured);
    }
};

/// Rows with all orientations that the record of a plot has.
inline RowValues RandomDecimalRow(std::mt19937& random, const PlotRecord& record, bool isMain) {
    const RandomAttitude first(random, record.PrimaryFormat == kPrimaryPlane);
    const RandomAttitude second(random, record.SecondaryFormat == kSecondaryPlane);
    const RandomAttitude line(random, false);
    RowValues row;
    row.isData = true;
    row.dip = WholeDegree(first.whole.dip);
    row.azimuth = WholeDegree(first.whole.azimuth);
    row.measured[0] = first.Decimals();
    if (record.SecondaryFormat != kNoSecondary) {
        row.hasSecondary = true;
        row.dip2 = WholeDegree(second.whole.dip);
        row.azimuth2 = WholeDegree(second.whole.azimuth);
        row.measured[1] = second.Decimals();
    }
    if (isMain && record.HasAppendedLine != 0) {
        row.lineDip = WholeDegree(line.whole.dip);
        row.lineAzimuth = WholeDegree(line.whole.azimuth);
        row.measured[2] = line.Decimals();
    }
    return row;
}

/// Fills an empty plot with planes, their lines and appended lines, an overlay of a tenth of the
/// rows, and an error row among every fifty.
inline void FillWithDecimals(Plot& plot, std::int32_t rows, std::uint32_t seed) {
    std::mt19937 random(seed);
    plot.record.PrimaryFormat = kPrimaryPlane;
    plot.record.SecondaryFormat = kSecondaryLine;
    plot.record.HasAppendedLine = kTrue;
    const auto append = [&](int overlay, std::int32_t count) {
        for (std::int32_t i = 1; i <= count; ++i) {
            const RowValues row =
                i % 50 == 0 ? RowValues() : RandomDecimalRow(random, plot.record, overlay == 0);
            ASSERT_TRUE(AppendRow(plot, overlay, row));
        }
    };
    append(0, rows);
    append(OpenOverlay(plot.record, kOverlayPoles), rows / 10);
}

/// Expects equal rows, in whole degrees and as they were measured.
inline void ExpectSameDecimals(const Plot& plot, const Plot& expected) {
    ASSERT_EQ(plot.record.NumLoadedData, expected.record.NumLoadedData);
    std::int32_t withDecimals = 0;
    for (std::int32_t row = 1; row <= expected.record.NumLoadedData; ++row) {
        for (const RowAngles which : kRowAngles) {
            if (which == RowAngles::Line && row > expected.record.NumData) {
                continue; // files do not keep appended lines of overlays
            }
            ASSERT_EQ(WholeAttitude(plot.rows, which, row),
                      WholeAttitude(expected.rows, which, row))
                << row;
            ASSERT_EQ(DecimalsOf(plot.rows, which, row), DecimalsOf(expected.rows, which, row))
                << row;
            withDecimals += DecimalsOf(plot.rows, which, row) ? 1 : 0;
        }
    }
    EXPECT_GT(withDecimals, expected.record.NumLoadedData) << "the rows have decimals";
}

} // namespace quandrel

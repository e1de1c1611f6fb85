// SPDX-License-Identifier: MIT
//
// Plots of rows with decimals for tests.

#pragma once

#include "core/measured_rows.h"
#include "core/plot_rows.h"
#include "core/plot_store.h"
#include "stereo/row_positions.h"
#include "support/plot_rows.h"

#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace quandrel {

/// Orientations with up to six decimals.
struct MeasuredSample {
    std::string name;
    std::vector<Attitude> rows;
};

/// Three samples of lines: spread over the net, clustered about the primitive, and a girdle of one
/// decimal with whole degrees and equal rows among them.
inline std::vector<MeasuredSample> MeasuredSamples(int count) {
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> unit;
    std::normal_distribution<double> normal;
    std::vector<MeasuredSample> samples = {{"spread", {}}, {"cluster", {}}, {"girdle", {}}};
    for (int i = 0; i < count; ++i) {
        samples[0].rows.push_back(ToMicrodegree({90 * unit(random), 360 * unit(random)}));
        samples[1].rows.push_back(ToMicrodegree(
            {std::abs(8 * normal(random)), std::fmod(720 + 12 * normal(random), 360)}));
        const double decimals = i % 3 == 0 ? 1 : 10;
        samples[2].rows.push_back({RoundToEven(90 * unit(random) * decimals) / decimals,
                                   RoundToEven((40 + 5 * normal(random)) * decimals) / decimals
                                       + (i % 2 == 0 ? 180 : 0)});
    }
    return samples;
}

/// Gives a new active plot rows with decimals. Whole degrees are their rounding.
inline void AddMeasuredRows(const std::vector<Attitude>& rows) {
    const bool isPlane = ShowsPlaneData(ActiveRecord());
    for (const Attitude& measured : rows) {
        const Attitude whole = RoundedAttitude(measured, isPlane);
        AddRow(WholeDegree(whole.dip), WholeDegree(whole.azimuth));
        SetMeasuredOrientation(ActivePlot(), ActiveRecord().NumData, whole, measured);
    }
    RebuildRowTable(gActivePlot);
}

/// Switches the decimals of the active plot on or off.
inline void UseDecimals(bool on) {
    ActiveRecord().UseDecimals = on ? kTrue : std::int16_t{0};
    RebuildRowTable(gActivePlot);
}

/// The active plot gets its whole degrees alone.
inline void RemoveDecimals() {
    for (std::int32_t row = 1; row <= ActiveRecord().NumData; ++row) {
        ClearDecimals(ActivePlot().rows, RowAngles::Primary, row);
    }
    RebuildRowTable(gActivePlot);
}

} // namespace quandrel

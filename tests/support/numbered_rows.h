// SPDX-License-Identifier: MIT
//
// Rows with appended numbers for tests, put directly into the store.

#pragma once

#include "support/plot_rows.h"

#include <gtest/gtest.h>

namespace quandrel {

/// Adds a main row with an appended number to the active plot.
inline void AddNumberedRow(std::int32_t dip, std::int32_t azimuth, float number) {
    PlotRecord& record = ActiveRecord();
    record.HasAppendedNumeric = kTrue;
    AddRow(dip, azimuth);
    ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
    gAppNumeric.At(gActivePlot, record.NumData) = number;
}

} // namespace quandrel

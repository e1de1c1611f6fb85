// SPDX-License-Identifier: MIT
//
// The range and the first distinct values of appended numbers and texts, as records hold them.

#pragma once

#include "core/plot.h"

#include <cstdint>
#include <string_view>

namespace quandrel {

/// No value yet: the minimum is above the maximum, so that the first value replaces both.
inline constexpr double kNoMinimum = 999999999999999.0;
inline constexpr double kNoMaximum = -999999999999999.0;

/// The range of rows that are not in a plot yet. It starts without a value.
struct AppendedRange : RecordRanges {
    AppendedRange() {
        AppendedMin.fill(kNoMinimum);
        AppendedMax.fill(kNoMaximum);
    }
};

/// Clears the range and the distinct values of a record.
void ResetAppendedRange(PlotRecord& record);

/// Extends the range of a plot's record by the appended values of a row, for the columns that the
/// record has. Texts are stored as first typed and compared without case.
void TrackAppendedRange(Plot& plot, std::int32_t row);

/// Extends a range by a number; kInvalidNumber is ignored.
void TrackNumber(AppendedRange& range, float number);

/// Extends a range by a text; an empty one is ignored.
void TrackText(AppendedRange& range, std::string_view text);

/// Merges the range of the rows that follow those of a record into it. The result is the same as if
/// the rows had been added one by one.
void MergeAppendedRange(PlotRecord& record, const AppendedRange& later);

} // namespace quandrel

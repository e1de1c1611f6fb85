// SPDX-License-Identifier: MIT
//
// The range and the first distinct values of appended numbers and texts, as records hold them.

#pragma once

#include "core/plot.h"

#include <cstdint>
#include <string_view>

namespace quandrel {

/// No value yet: any value is within [kNoMinimum, kNoMaximum] turned round.
inline constexpr double kNoMinimum = 999999999999999.0;
inline constexpr double kNoMaximum = -999999999999999.0;

/// The range of rows that are not in a plot yet, without a value at first.
struct AppendedRange : RecordRanges {
    AppendedRange() {
        AppendedMin.fill(kNoMinimum);
        AppendedMax.fill(kNoMaximum);
    }
};

/// Forgets range and distinct values of a record.
void ResetAppendedRange(PlotRecord& record);

/// Takes the appended values of a row of a plot into the range of its record, as far as the record
/// has them. Texts are kept as first typed and compared without case.
void TrackAppendedRange(Plot& plot, std::int32_t row);

/// Takes a number into a range; kInvalidNumber is passed over.
void TrackNumber(AppendedRange& range, float number);

/// Takes a text into a range; an empty one is passed over.
void TrackText(AppendedRange& range, std::string_view text);

/// Takes the range of rows that follow those of a record into it: the record then is as if the rows
/// had been taken in one by one.
void MergeAppendedRange(PlotRecord& record, const AppendedRange& later);

} // namespace quandrel

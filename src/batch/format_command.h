// SPDX-License-Identifier: MIT
//
// The data format, stated in words.

#pragma once

#include "batch/script.h"
#include "core/data_format.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// What a script states of a format beside the format globals: the ticks of the format dialog.
struct StatedFormat {
    bool showSecondary = false;
    bool frequencyColumn = false;
    std::optional<std::int16_t>
        dataKind; ///< a DataKindCode; without one it follows from the format
};

/// The first word of a `format` that changes the one in force instead of stating a new one.
inline constexpr const char* kAddToFormat = "add";

/// Sets the format globals from arguments such as `primary=plane`, `conventions=6`,
/// `delimiter=tab`, `columns=1,0,2,3,4,5,6,7,8,9`. What is not stated is as in the defaults, or
/// stays as it is after the word `add`. Nothing changes when one of the arguments is wrong.
///
/// @param defaults  of all that the keys state; the kind of plot, separators and symbols stay
/// @return empty, or what is wrong
[[nodiscard]] std::string ApplyFormatArguments(const std::vector<Argument>& arguments,
                                               const FormatSettings& defaults,
                                               StatedFormat& stated);

/// Sets the kind in which the data of a file are plotted: the file's own, else the stated one, else
/// the one that its format leads to: planes, or lines for lines and directions.
///
/// @param kindFromFile  DataKindCode, or 0 where the file does not say. Planes count as not said in
///                      a file of directions
/// @return empty, or why the stated kind cannot be had
[[nodiscard]] std::string TakeDataKind(const StatedFormat& stated, int kindFromFile);

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// The data format, stated in words.

#pragma once

#include "batch/script.h"

#include <string>
#include <vector>

namespace quandrel {

/// What a script states of a format beside the format globals: the ticks of the format dialog.
struct StatedFormat {
    bool showSecondary = false;
    bool frequencyColumn = false;
};

/// Sets the format globals from arguments such as `primary=plane`, `conventions=6`,
/// `delimiter=tab`, `columns=1,0,2,3,4,5,6,7,8,9`. Nothing changes when one of them is wrong.
///
/// @return empty, or what is wrong
[[nodiscard]] std::string ApplyFormatArguments(const std::vector<Argument>& arguments,
                                               StatedFormat& stated);

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Conversion of the public format of a text to that of the line parser.

#pragma once

#include "core/format_settings.h"
#include "input/data_line.h"
#include "quandrel/table.h"

#include <string>
#include <string_view>

namespace quandrel::api {

/// The checked format for the line parser.
[[nodiscard]] LineFormat LineFormatIn(const TableFormat& format);

/// A checked format changed by the parameter lines of a text.
[[nodiscard]] TableFormat WithParameterLines(std::string_view text, const TableFormat& format);

/// The public form of settings.
///
/// @param format  supplies the values that the settings do not state
[[nodiscard]] TableFormat FormatOut(const FormatSettings& settings, TableFormat format);

/// The reason why a line with a given status is not a row.
[[nodiscard]] std::string ReasonOf(LineStatus status);

} // namespace quandrel::api

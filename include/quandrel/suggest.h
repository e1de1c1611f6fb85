// SPDX-License-Identifier: MIT
//
// Formats suggested for a text whose columns are not known, from its headings and its values.
//
// Example: a table from a phone.
//
//     namespace qd = quandrel::api;
//     const std::string text = "dip,dip direction,rock\n40,120,slate\n71,302,gneiss\n";
//     const qd::Result<qd::TableFormat> format = qd::SureFormat(text);
//     const qd::Table table = qd::ReadTable(text, *format);
//     std::cout << table.planes[1].dip << ' ' << table.texts[1] << '\n'; // -> 71 gneiss
//     std::cout << qd::SuggestFormats(text)[0].reasons.empty() << '\n'; // -> 0

#pragma once

#include "quandrel/result.h"
#include "quandrel/table.h"

#include <string>
#include <string_view>
#include <vector>

namespace quandrel::api {

/// A suggestion of at least this probability can be taken without a question.
inline constexpr double kSureFormat = 0.9;

struct SuggestedFormat {
    TableFormat format;
    double probability = 0;           ///< 0 to 1
    std::vector<std::string> reasons; ///< phrases: "column 2 is headed 'dip' and lies in 0..90"
    std::string numberName;           ///< of the appended number, from its heading
    std::string textName;             ///< of the appended text
};

/// Formats for a text, the most probable first; at most one has kSureFormat. Empty for a text that
/// states its format by parameter lines, and for one without rows. O(lines looked at), at most
/// 2,000.
///
/// @param text  UTF-8, see DecodedText
[[nodiscard]] std::vector<SuggestedFormat> SuggestFormats(std::string_view text);

/// The format that a text states, or the one suggestion that is sure; else a text for the user that
/// names the most probable ones.
[[nodiscard]] Result<TableFormat> SureFormat(std::string_view text);

} // namespace quandrel::api

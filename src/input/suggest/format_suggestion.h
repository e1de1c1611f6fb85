// SPDX-License-Identifier: MIT
//
// Formats suggested for a text that does not state its own.

#pragma once

#include "input/format_choice.h"
#include "input/remembered_formats.h"
#include "input/suggest/text_sample.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// A suggestion of at least this probability can be taken without a question.
inline constexpr double kSureEnough = 0.9;

struct FormatSuggestion {
    FormatChoice choice;
    double probability = 0;           ///< 0 to 1
    std::vector<std::string> reasons; ///< phrases: "column 2 is headed 'dip' and lies in 0..90"
    bool decimalIsComma = false;      ///< most of the numbers with decimals have a comma
};

struct SuggestionOptions {
    /// The rows join those of a plot: only formats with the primary and secondary data of `base`
    /// are suggested.
    bool kindIsFixed = false;
    FormatChoice base; ///< what a suggestion does not say is as here
    std::vector<RememberedFormat> remembered;
};

/// Formats for the lines of a text, the most probable first; at most one has kSureEnough. Empty for
/// a text that states its format (a parameter line, or the program's own head), and for one without
/// rows. Every suggestion reads most of its rows. O(lines looked at).
[[nodiscard]] std::vector<FormatSuggestion> SuggestFormats(std::span<const std::string> lines,
                                                           const SuggestionOptions& options = {});

} // namespace quandrel

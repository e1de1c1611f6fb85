// SPDX-License-Identifier: MIT
//
// Lines of printed results, with the textbook's value below those of the program's own formulas
// that it differs from.

#pragma once

#include <string>

namespace quandrel {

/// A result as it is printed, with its unit, and as the textbook's formula would have it printed.
/// Both are the same text where the textbook's formulas are in force.
struct PrintedResult {
    std::string value;
    std::string textbook;
};

/// The line "before value after", ended by CR LF. Where the textbook has another text, the line
/// "(textbook: ...)" follows.
[[nodiscard]] std::string ResultLine(const std::string& before, const PrintedResult& result,
                                     const std::string& after = {});

} // namespace quandrel

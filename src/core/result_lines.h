// SPDX-License-Identifier: MIT
//
// Lines of printed results. The textbook's value follows a result of the program's own formulas
// that differs from it.

#pragma once

#include <string>

namespace quandrel {

/// A printed result with its unit, and the same result by the textbook's formula. Both texts are
/// the same while the textbook's formulas are chosen.
struct PrintedResult {
    std::string value;
    std::string textbook;
};

/// The line "before value after", ended by CR LF. If the textbook's text differs, the line
/// "(textbook: ...)" follows.
[[nodiscard]] std::string ResultLine(const std::string& before, const PrintedResult& result,
                                     const std::string& after = {});

} // namespace quandrel

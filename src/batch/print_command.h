// SPDX-License-Identifier: MIT
//
// The command that does the work of the print dialog.

#pragma once

#include "batch/script.h"

#include <iosfwd>
#include <string>

namespace quandrel {

/// Prints plots on a page of a PDF file: `print PATH.pdf` with
///   plots=1,3           slots of open plots; without it gActivePlot
///   units=cms|inches    of all lengths, cms at first
///   size=10,5           radius of each net, or one for all; without it plots fit the page
///   centre=8,12,15,12   a pair for each plot, from the top left corner of the paper
///   paper=a4|a3|a5|letter|legal
///   orientation=portrait|landscape
/// The order of the words does not matter. If one of them is invalid, nothing is printed.
///
/// @param log  receives a note about nets that extend beyond the paper
/// @return empty, or an error message
[[nodiscard]] std::string PrintToFile(const Command& command, std::ostream& log);

} // namespace quandrel

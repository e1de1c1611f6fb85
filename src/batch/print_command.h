// SPDX-License-Identifier: MIT
//
// The print dialog in words.

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
/// The order of the words does not matter. Nothing is printed when one of them is wrong.
///
/// @param log  takes a note of nets that reach over the edge of the paper
/// @return empty, or what is wrong
[[nodiscard]] std::string PrintToFile(const Command& command, std::ostream& log);

} // namespace quandrel

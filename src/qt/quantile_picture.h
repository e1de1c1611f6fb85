// SPDX-License-Identifier: MIT
//
// Quantile plots as a picture in a file.

#pragma once

#include "hypotheses/row_tests.h"

#include <span>
#include <string>

namespace quandrel {

/// Draws quantile plots side by side into a file whose ending gives its type: .png, .svg, .pdf.
///
/// @param title  of the file
/// @param height of a PNG, pixels; lines and texts grow with it
/// @return as SavePicture
[[nodiscard]] std::string SaveQuantilePicture(const std::string& path, const std::string& title,
                                              std::span<const QuantilePlot> plots,
                                              int height = 750);

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Files of styles (core/figure_style_text.h).

#pragma once

#include "core/figure_style.h"
#include "core/result.h"
#include "core/style_choice.h"

#include <string>

namespace quandrel {

/// Suffix and filter of dialogs.
inline constexpr const char* kStyleFilter = "Styles (*.json)|*.json|All Files|*.*";

/// The style of a file. Fails for a file that cannot be read, or is no style.
[[nodiscard]] Result<StyleChoice> ReadStyleFile(const std::string& path);

/// Writes a style with all properties.
///
/// @return empty, or why the file was not written
[[nodiscard]] std::string WriteStyleFile(const std::string& path, const FigureStyle& style);

} // namespace quandrel

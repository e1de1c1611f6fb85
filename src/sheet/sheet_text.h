// SPDX-License-Identifier: MIT
//
// Figure sheets as text, and their files (.qsheet). docs/file_formats.md describes the format.

#pragma once

#include "core/result.h"
#include "sheet/figure_sheet.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace quandrel {

inline constexpr const char* kSheetEnding = ".qsheet";

/// The longest text that is read as a sheet, bytes.
inline constexpr std::size_t kLongestSheetFile = std::size_t{256} << 20;

/// The text of a sheet, a JSON object.
///
/// @param folder  of its file: paths below it are written from there on, others in full
[[nodiscard]] std::string TextOfSheet(const FigureSheet& sheet, const std::string& folder);

/// Inverse of TextOfSheet. What is missing is as in a new sheet. Anything that is unknown, of
/// another kind or beyond its limits is a failure that names it.
[[nodiscard]] Result<FigureSheet> SheetOfText(std::string_view text, const std::string& folder);

/// Reads a sheet. Its plots are not opened.
[[nodiscard]] Result<FigureSheet> ReadSheetFile(const std::string& path);

/// The sheet that a picture holds. A failure as SheetOfText, and for a sheet that names files: it
/// must hold all that it shows.
[[nodiscard]] Result<FigureSheet> SheetOfPicture(std::string_view text);

/// Writes a sheet, completely or not at all.
///
/// @return empty, or why the file was not written
[[nodiscard]] std::string WriteSheetFile(const std::string& path, const FigureSheet& sheet);

} // namespace quandrel

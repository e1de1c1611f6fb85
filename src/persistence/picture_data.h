// SPDX-License-Identifier: MIT
//
// Plot files and figure sheets in pictures. A picture can carry what it shows: an SVG in an element
// of its metadata, a PNG in a compressed text, a PDF as an attached file. docs/file_formats.md
// describes the formats.
//
// Input: the bytes of pictures, which are never trusted.
// Output: the bytes of a binary plot file or of a figure sheet, which are not yet examined.

#pragma once

#include "core/result.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// The names of the plot file and of the figure sheet that are attached to a PDF.
inline constexpr const char* kPlotOfPdf = "plot.qpx";
inline constexpr const char* kSheetOfPdf = "figure.qsheet";

/// Whether a file begins as a figure sheet.
[[nodiscard]] bool IsSheetText(std::string_view start);

/// The keyword of the text of a PNG that holds the plot.
inline constexpr const char* kPlotOfPng = "Quandrel plot";

/// A larger plot file is neither put into a picture nor taken out of one.
inline constexpr std::size_t kLargestPlotInPicture = std::size_t{256} << 20;

/// The most characters of a text of a PNG that programs can be relied on to read.
inline constexpr std::size_t kLongestPngText = 6'000'000;

enum class PictureKind { Svg, Png, Pdf, Tiff };

/// The kind of picture that a file is, by its first bytes; nothing for other files. An XML file is
/// an SVG where its first 4096 bytes name the element.
[[nodiscard]] std::optional<PictureKind> KindOfPicture(std::string_view start);

/// Reads a file that is attached to a PDF, given its name and the most bytes that it may have:
/// empty when there is none. AttachmentOfPdf (pdf/pdf_file.h) is one.
using AttachmentReader = Result<std::string> (*)(std::string_view pdf, const std::string& name,
                                                 std::size_t mostBytes);

/// The plot file or the figure sheet in a picture, uncompressed.
///
/// @param readPdf  null when there is none
/// @return a failure, a sentence for the user, for a picture without one, or where it is damaged
[[nodiscard]] Result<std::string> PlotFileOfPicture(std::string_view picture,
                                                    AttachmentReader readPdf);

/// A plot file as the text in an SVG or a PNG: compressed (RFC 1950), in base64 (RFC 4648, section
/// 4) without ends of lines. A failure when there is no memory for it, or it is larger than
/// kLargestPlotInPicture.
[[nodiscard]] Result<std::string> TextOfPlotFile(std::string_view plotFile);

/// Inverse of TextOfPlotFile, without blanks in the text. A failure for any other text.
[[nodiscard]] Result<std::string> PlotFileOfText(std::string_view text);

} // namespace quandrel

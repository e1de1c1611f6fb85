// SPDX-License-Identifier: MIT
//
// PDF files: the exact size of their page, and the files attached to them.
//
// Input: the bytes of a PDF, which are never trusted.
// Output: the bytes of another one, or what is in it.
//
// Pages are drawn elsewhere (qt); this folder alone includes libqpdf, and throws none of its
// exceptions.
//
// Nothing in a PDF is run, and nothing outside it is opened.

#pragma once

#include "core/result.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// Points, 72 an inch.
struct PdfPageSize {
    double width = 0;
    double height = 0;
};

/// The PDF with pages of a size, measured from their top left corner, and a subject. What is on the
/// pages stays where it is. The same PDF gives the same bytes.
///
/// @param size     from 1 to 14400 points, rounded to a ten-thousandth
/// @param subject  UTF-8 for the document's information; empty for none
/// @return a failure, a text for the user, for bytes that are not a PDF
[[nodiscard]] Result<std::string> WithPageSize(std::string_view pdf, PdfPageSize size,
                                               const std::string& subject);

/// A file attached to a PDF; empty when it has none of this name.
///
/// @param name       without a path, as it was attached
/// @param mostBytes  of the file; a larger one is a failure, and is never unpacked as a whole
/// @return a failure, a text for the user, for bytes that are not a PDF, or a file that is damaged
[[nodiscard]] Result<std::string> AttachmentOfPdf(std::string_view pdf, const std::string& name,
                                                  std::size_t mostBytes);

/// What a PDF says about itself.
struct PdfFacts {
    std::vector<PdfPageSize> pages;          ///< the media boxes
    std::map<std::string, std::string> info; ///< texts by key, such as "/Title", UTF-8
    std::vector<std::string> attachments;    ///< names
};

[[nodiscard]] Result<PdfFacts> FactsOfPdf(std::string_view pdf);

} // namespace quandrel

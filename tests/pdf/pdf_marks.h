// SPDX-License-Identifier: MIT
//
// What is drawn on a page of a PDF, as a reader of it sees it.

#pragma once

#include <string>
#include <vector>

namespace quandrel {

/// A piece of text on a page.
struct PdfText {
    std::string text; ///< UTF-8
    double x = 0;     ///< points from the left of the page, of the start of the base line
    double y = 0;     ///< points from the top of the page
    double size = 0;  ///< points, of the font
    std::string font; ///< its name in the file, such as "/ABCDEF+LiberationSans-Bold"
};

struct PdfMarks {
    std::vector<PdfText> texts;
    std::vector<double> lineWidths; ///< points, of each path that is stroked
};

/// The marks on the first page of a PDF. Throws what the library throws for a damaged one.
[[nodiscard]] PdfMarks MarksOfPdf(const std::string& pdf);

} // namespace quandrel

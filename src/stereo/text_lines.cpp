// SPDX-License-Identifier: MIT

#include "stereo/text_lines.h"

#include "stereo/drawable_text.h"

#include <cmath>
#include <functional>
#include <sstream>

namespace quandrel {

namespace {

/// Passes each cell of a line to a function with its distance from the start. Returns the width.
double EachCell(const Surface& surface, const std::string& line,
                const std::function<void(double left, const std::string& cell)>& tell) {
    const double tab = surface.TextWidth(kTabSample);
    double left = 0;
    double right = 0;
    std::istringstream cells(line);
    for (std::string cell; std::getline(cells, cell, '\t');) {
        cell = DrawableText(cell);
        tell(left, cell);
        right = left + surface.TextWidth(cell);
        left = tab * (std::floor(right / tab) + 1);
    }
    return right;
}

} // namespace

std::vector<std::string> WrappedLines(const Surface& surface, const std::string& text,
                                      double width) {
    const auto widthOf = [&surface](const std::string& part) {
        return surface.TextWidth(DrawableText(part));
    };
    std::vector<std::string> lines;
    std::istringstream paragraphs(text);
    for (std::string paragraph; std::getline(paragraphs, paragraph);) {
        std::erase(paragraph, '\r');
        const bool isTooWide =
            paragraph.find('\t') == std::string::npos && widthOf(paragraph) > width;
        std::string line;
        std::istringstream words(isTooWide ? paragraph : "");
        for (std::string word; words >> word;) {
            if (!line.empty() && widthOf(line + " " + word) > width) {
                lines.push_back(line);
                line.clear();
            }
            line += (line.empty() ? "" : " ") + word;
        }
        lines.push_back(line.empty() ? paragraph : line);
    }
    return lines;
}

void DrawTabbedLine(Surface& surface, Point topLeft, const std::string& line) {
    EachCell(surface, line, [&](double left, const std::string& cell) {
        surface.Text({topLeft.x + left, topLeft.y}, cell);
    });
}

double TabbedWidth(const Surface& surface, const std::string& line) {
    return EachCell(surface, line, [](double, const std::string&) {});
}

} // namespace quandrel

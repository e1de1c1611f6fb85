// SPDX-License-Identifier: MIT

#include "fabric/fabric_texts.h"

#include "orientation/number_text.h"

#include <algorithm>

namespace quandrel {

namespace {

constexpr const char* kUndeterminedCell = "-";

std::string Cell(double number) {
    return FormatNumber(number, "0.000");
}

std::string Cell(const std::optional<double>& number) {
    return number ? Cell(*number) : std::string(kUndeterminedCell);
}

void AddLine(std::string& table, const std::vector<std::string>& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        std::string cell = cells[i];
        std::ranges::replace_if(
            cell, [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
        table += (i == 0 ? "" : "\t") + cell;
    }
    table += '\n';
}

} // namespace

const std::vector<std::string>& FabricHeadings() {
    static const std::vector<std::string> headings = {
        "Rows", "n", "S1", "S2", "S3", "ln(S2/S3)", "ln(S1/S2)", "K", "C", "P", "G", "R", "B"};
    return headings;
}

std::vector<std::string> FabricCells(const FabricPoint& point) {
    std::vector<std::string> cells = {point.name, FormatNumber(point.count, "0.##")};
    for (const double eigenvalue : point.eigenvalues) {
        cells.push_back(Cell(eigenvalue));
    }
    if (const std::optional<LogRatioPlace>& place = point.place) {
        cells.insert(cells.end(), {Cell(place->x), Cell(place->y), Cell(place->k), Cell(place->c)});
    } else {
        cells.insert(cells.end(), 4, kUndeterminedCell);
    }
    const FabricShares& shares = point.shares;
    cells.insert(cells.end(), {Cell(shares.point), Cell(shares.girdle), Cell(shares.random),
                               Cell(CylindricityOf(shares))});
    return cells;
}

std::string FabricTable(std::span<const FabricPoint> points) {
    std::string table;
    AddLine(table, FabricHeadings());
    for (const FabricPoint& point : points) {
        AddLine(table, FabricCells(point));
    }
    return table;
}

std::string FabricNote(std::span<const FabricPoint> points) {
    if (points.empty()) {
        return "There are no rows to show.";
    }
    const auto without = std::ranges::count_if(
        points, [](const FabricPoint& point) { return !point.place.has_value(); });
    if (without == 0) {
        return {};
    }
    return (without == 1 ? std::string("One fabric is") : std::to_string(without) + " fabrics are")
           + " not in the diagram of log ratios, because S3 is 0: the rows lie in one plane.";
}

} // namespace quandrel

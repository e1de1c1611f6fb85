// SPDX-License-Identifier: MIT

#include "fabric/draw_fabric.h"

#include "fabric/fabric_canvas.h"
#include "orientation/number_text.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace quandrel {

namespace {

constexpr double kPointsInMillimetre = 72 / 25.4;
constexpr double kColumnWidth = 84 * kPointsInMillimetre;
constexpr double kPageWidth = 174 * kPointsInMillimetre;

/// Heights of the diagrams on paper.
constexpr double kLogRatioHeight = 228;
constexpr double kTriangleHeight = 212;

constexpr double kMargin = 3;
constexpr double kLegendLine = 10.5;
constexpr double kLegendColumn = 112; ///< at least
constexpr double kLegendGap = 6;      ///< above the legend, and between its columns

bool ShowsLogRatios(FabricDiagram diagram) {
    return diagram != FabricDiagram::Triangle;
}

bool ShowsTriangle(FabricDiagram diagram) {
    return diagram != FabricDiagram::LogRatios;
}

bool HasNumbers(std::span<const FabricPoint> points) {
    return points.size() > 1;
}

std::size_t ColumnsIn(double width) {
    return static_cast<std::size_t>(std::max((width - 2 * kMargin) / kLegendColumn, 1.0));
}

std::size_t RowsOf(std::size_t points, std::size_t columns) {
    return (points + columns - 1) / columns;
}

/// What is said of fabrics that have no place by log ratios; empty where all have one.
std::string NoteOf(FabricDiagram diagram, std::span<const FabricPoint> points) {
    std::string numbers;
    int without = 0;
    for (std::size_t i = 0; i < points.size() && ShowsLogRatios(diagram); ++i) {
        if (!points[i].place) {
            numbers += (numbers.empty() ? " " : ", ") + std::to_string(i + 1);
            ++without;
        }
    }
    if (without == 0) {
        return {};
    }
    return "Not in the diagram of log ratios, S3 = 0" + (HasNumbers(points) ? ":" + numbers : "");
}

/// Height of the legend with the note.
double LegendHeight(FabricDiagram diagram, std::span<const FabricPoint> points, double width) {
    const std::size_t lines =
        RowsOf(points.size(), ColumnsIn(width)) + (NoteOf(diagram, points).empty() ? 0 : 1);
    return lines == 0 ? 0 : kLegendGap + static_cast<double>(lines) * kLegendLine;
}

/// The legend, column by column from the top.
class FabricLegend {
public:
    FabricLegend(FabricCanvas& canvas, std::span<const FabricPoint> points, double top)
        : canvas_(canvas)
        , points_(points)
        , top_(top)
        , columns_(ColumnsIn(canvas.Width())) {}

    void Draw(const std::string& note);

private:
    void DrawLine(std::size_t i, Point at, double width);

    [[nodiscard]] double MiddleOf(std::size_t line) const {
        return top_ - (static_cast<double>(line) + 0.5) * kLegendLine;
    }

    FabricCanvas& canvas_;
    std::span<const FabricPoint> points_;
    double top_;
    std::size_t columns_;
};

void FabricLegend::DrawLine(std::size_t i, Point at, double width) {
    const FabricPoint& point = points_[i];
    double left = at.x;
    if (HasNumbers(points_)) {
        const double numberWidth = canvas_.BoxOf(std::to_string(points_.size()), {}, {}).width;
        const std::string number = std::to_string(i + 1);
        canvas_.Write(canvas_.BoxOf(number, {left + numberWidth, at.y}, {1, 0.5}), number);
        left += numberWidth + 2;
    }
    canvas_.Marker({left + kMarkerReach + 1, at.y}, point);
    left += 2 * kMarkerReach + 4;
    const std::string count = " (n = " + FormatNumber(point.count, "0.##") + ")";
    const double room = at.x + width - left - canvas_.BoxOf(count, {}, {}).width;
    const std::string text = canvas_.Cut(point.name, room) + count;
    canvas_.Write(canvas_.BoxOf(text, {left, at.y}, {0, 0.5}), text);
}

void FabricLegend::Draw(const std::string& note) {
    const std::size_t noteLines = note.empty() ? 0 : 1;
    const auto lines = static_cast<std::size_t>(std::max((top_ - kMargin) / kLegendLine, 0.0));
    const std::size_t room = lines > noteLines ? lines - noteLines : 0;
    const std::size_t rows = RowsOf(points_.size(), columns_);
    const std::size_t columns = RowsOf(points_.size(), std::max<std::size_t>(rows, 1));
    const double width =
        (canvas_.Width() - 2 * kMargin) / static_cast<double>(std::max<std::size_t>(columns, 1));
    const std::size_t shown = std::min(rows, room);
    for (std::size_t i = 0; i < points_.size(); ++i) {
        const std::size_t row = i % std::max<std::size_t>(rows, 1);
        const double left =
            kMargin + static_cast<double>(i / std::max<std::size_t>(rows, 1)) * width;
        const bool isCut = shown < rows && row + 1 == shown;
        if (isCut) {
            canvas_.Write(canvas_.BoxOf("...", {left, MiddleOf(row)}, {0, 0.5}), "...");
        } else if (row < shown) {
            DrawLine(i, {left, MiddleOf(row)}, width - kLegendGap);
        }
    }
    if (!note.empty() && lines > 0) {
        const std::string text = canvas_.Cut(note, canvas_.Width() - 2 * kMargin);
        canvas_.Write(canvas_.BoxOf(text, {kMargin, MiddleOf(shown)}, {0, 0.5}), text);
    }
}

NumberedFabrics NumberedOf(std::span<const FabricPoint> points) {
    NumberedFabrics fabrics;
    for (std::size_t i = 0; i < points.size(); ++i) {
        fabrics.points.push_back(&points[i]);
        if (HasNumbers(points)) {
            fabrics.numbers.push_back(static_cast<int>(i) + 1);
        }
    }
    return fabrics;
}

/// The height for the diagrams: the legend may take half of a small surface.
double DiagramHeight(const FabricCanvas& canvas, double legend) {
    const double whole = canvas.Height() - 2 * kMargin;
    return std::max(whole - legend, whole / 2);
}

} // namespace

FabricPictureSize PaperSizeOf(FabricDiagram diagram, std::span<const FabricPoint> points) {
    const double width = diagram == FabricDiagram::Both ? kPageWidth : kColumnWidth;
    const double height = ShowsLogRatios(diagram) ? kLogRatioHeight : kTriangleHeight;
    return {width, height + LegendHeight(diagram, points, width) + 2 * kMargin};
}

void DrawFabric(Surface& surface, FabricDiagram diagram, std::span<const FabricPoint> points) {
    surface.Clear(kWhite);
    FabricCanvas canvas(surface);
    const NumberedFabrics fabrics = NumberedOf(points);
    const double height = DiagramHeight(canvas, LegendHeight(diagram, points, canvas.Width()));
    const double bottom = canvas.Height() - kMargin - height;
    const double width = canvas.Width() - 2 * kMargin;
    const bool areBoth = diagram == FabricDiagram::Both;
    const double half = (width - kLegendGap) / 2;
    if (ShowsLogRatios(diagram)) {
        DrawLogRatios(canvas, {kMargin, bottom, areBoth ? half : width, height}, fabrics);
    }
    if (ShowsTriangle(diagram)) {
        const double left = areBoth ? kMargin + half + kLegendGap : kMargin;
        DrawShares(canvas, {left, bottom, areBoth ? half : width, height}, fabrics);
    }
    FabricLegend(canvas, points, bottom - kLegendGap).Draw(NoteOf(diagram, points));
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "shell/plot/plot_layout.h"

#include <algorithm>

namespace quandrel {

namespace {

constexpr int kGap = 4;
constexpr int kNarrowestColumn = 190;
constexpr int kWidestColumn = 420;
constexpr double kColumnShare = 0.36;
constexpr double kNetShare = 0.64; ///< largest share of the height for a net with boxes below it
constexpr int kSmallestNet = 40;
constexpr int kDescriptionLines = 3;
constexpr double kStatisticsShare = 0.55; ///< of the space of legend and statistics

bool HasBoxes(const PlotParts& parts) {
    return parts.fabric || parts.description || parts.legend || parts.statistics;
}

/// Cuts a piece off the top of an area, with a gap below it.
QRect TakeTop(QRect& area, int height) {
    const QRect top(area.left(), area.top(), area.width(), std::min(height, area.height()));
    area.setTop(std::min(area.top() + height + kGap, area.bottom() + 1));
    return top;
}

/// The legend's part of a height; the statistics have the rest. The two share the height in
/// proportion to what they need.
int LegendHeight(int height, const PlotMetrics& metrics) {
    const int needed = metrics.legend.height() + metrics.statistics.height();
    if (metrics.legend.isEmpty() || metrics.statistics.isEmpty()) {
        return static_cast<int>(height * (1 - kStatisticsShare));
    }
    return static_cast<int>(static_cast<double>(height) * metrics.legend.height() / needed);
}

/// Stacks the boxes; legend and statistics share the remaining height.
void StackBoxes(PlotLayout& layout, QRect area, const PlotParts& parts,
                const PlotMetrics& metrics) {
    if (parts.fabric) {
        layout.fabric = TakeTop(area, metrics.line);
    }
    if (parts.description) {
        layout.description =
            TakeTop(area, std::min(kDescriptionLines * metrics.line, area.height() / 4));
    }
    if (parts.legend && parts.statistics) {
        layout.legend = TakeTop(area, LegendHeight(area.height() - kGap, metrics));
        layout.statistics = area;
    } else if (parts.legend) {
        layout.legend = area;
    } else if (parts.statistics) {
        layout.statistics = area;
    }
}

/// Boxes below a net: names and legend on the left, statistics on the right.
void PlaceBoxesBelow(PlotLayout& layout, const QRect& area, const PlotParts& parts,
                     const PlotMetrics& metrics) {
    PlotParts left = parts;
    left.statistics = false;
    if (!parts.statistics || !HasBoxes(left)) {
        StackBoxes(layout, area, parts, metrics);
        return;
    }
    QRect leftArea = area;
    leftArea.setWidth((area.width() - kGap) / 2);
    StackBoxes(layout, leftArea, left, metrics);
    layout.statistics = area;
    layout.statistics.setLeft(leftArea.right() + 1 + kGap);
}

/// The width of the boxes beside a net: a share of the window, more where a box needs it.
int ColumnWidth(int width, const PlotParts& parts, const PlotMetrics& metrics) {
    const int share =
        std::clamp(static_cast<int>(width * kColumnShare), kNarrowestColumn, kWidestColumn);
    const int legend = parts.legend ? metrics.legend.width() : 0;
    const int statistics = parts.statistics ? metrics.statistics.width() : 0;
    const int needed = std::min(std::max(legend, statistics), kWidestColumn);
    return std::min(std::max(share, needed), width / 2);
}

} // namespace

PlotLayout LayOutPlot(QSize window, const PlotParts& parts, const PlotMetrics& metrics) {
    PlotLayout layout;
    QRect area = QRect(QPoint(0, 0), window).adjusted(kGap, kGap, -kGap, -kGap);
    const QRect top = TakeTop(area, metrics.tabs);
    layout.resizeButton =
        QRect(top.right() + 1 - metrics.tabs, top.top(), metrics.tabs, metrics.tabs);
    layout.tabs = top.adjusted(0, 0, -metrics.tabs - kGap, 0);
    const int whole = std::min(area.width(), area.height());
    const int beside =
        std::min(whole, area.width() - ColumnWidth(window.width(), parts, metrics) - kGap);
    const int above = std::min(area.width(), static_cast<int>(area.height() * kNetShare));
    int side = whole;
    if (!HasBoxes(parts)) {
        side = std::max(whole, kSmallestNet);
        layout.net = QRect(area.left() + (area.width() - side) / 2,
                           area.top() + (area.height() - side) / 2, side, side);
    } else if (above > beside) {
        side = std::max(above, kSmallestNet);
        layout.net = QRect(area.left() + (area.width() - side) / 2, area.top(), side, side);
        area.setTop(layout.net.bottom() + 1 + kGap);
        PlaceBoxesBelow(layout, area, parts, metrics);
    } else {
        side = std::max(beside, kSmallestNet);
        layout.net = QRect(area.left(), area.top() + (area.height() - side) / 2, side, side);
        area.setLeft(layout.net.right() + 1 + kGap);
        StackBoxes(layout, area, parts, metrics);
    }
    if (parts.number) {
        layout.number = QRect(layout.net.left() + kGap, layout.net.bottom() - metrics.line,
                              side / 3, metrics.line);
    }
    return layout;
}

} // namespace quandrel

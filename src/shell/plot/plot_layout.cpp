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

/// The height of the description within that of all boxes.
int DescriptionHeight(int height, const PlotMetrics& metrics) {
    const int most = std::min(kDescriptionLines * metrics.line, height / 4);
    return metrics.description == 0
               ? most
               : std::clamp(metrics.description, std::min(metrics.line, most), most);
}

/// The legend's part of a height, below which the statistics begin. Where the two need more than
/// there is, each has its part in proportion.
int LegendHeight(int height, const PlotMetrics& metrics) {
    const int needed = metrics.legend.height() + metrics.statistics.height();
    if (metrics.legend.isEmpty() || metrics.statistics.isEmpty()) {
        return static_cast<int>(height * (1 - kStatisticsShare));
    }
    return needed <= height
               ? metrics.legend.height()
               : static_cast<int>(static_cast<double>(height) * metrics.legend.height() / needed);
}

/// The top of an area, as high as a box needs if that is known.
QRect Needed(QRect area, const QSize& size) {
    if (!size.isEmpty()) {
        area.setHeight(std::min(area.height(), size.height()));
    }
    return area;
}

/// Stacks the boxes.
void StackBoxes(PlotLayout& layout, QRect area, const PlotParts& parts,
                const PlotMetrics& metrics) {
    if (parts.fabric) {
        layout.fabric = TakeTop(area, metrics.line);
    }
    if (parts.description) {
        layout.description = TakeTop(area, DescriptionHeight(area.height(), metrics));
    }
    if (parts.legend && parts.statistics) {
        layout.legend = TakeTop(area, LegendHeight(area.height() - kGap, metrics));
    } else if (parts.legend) {
        layout.legend = Needed(area, metrics.legend);
    }
    if (parts.statistics) {
        layout.statistics = Needed(area, metrics.statistics);
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
    QRect right = area;
    right.setLeft(leftArea.right() + 1 + kGap);
    layout.statistics = Needed(right, metrics.statistics);
}

/// The height that the boxes below a net need, up to the most that they may have; that most while
/// the contents of a box are unknown.
int HeightBelow(int most, const PlotParts& parts, const PlotMetrics& metrics) {
    const bool isKnown = (!parts.legend || !metrics.legend.isEmpty())
                         && (!parts.statistics || !metrics.statistics.isEmpty());
    if (!isKnown) {
        return most;
    }
    const int names = (parts.fabric ? metrics.line + kGap : 0)
                      + (parts.description ? DescriptionHeight(most, metrics) + kGap : 0);
    const int left = names + (parts.legend ? metrics.legend.height() : 0);
    const int right = parts.statistics ? metrics.statistics.height() : 0;
    const bool areBeside = parts.statistics && (parts.legend || names > 0);
    return std::min(areBeside ? std::max(left, right) : left + right, most);
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
    const int most = area.height() - static_cast<int>(area.height() * kNetShare) - kGap;
    const int above =
        std::min(area.width(), area.height() - kGap - HeightBelow(most, parts, metrics));
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

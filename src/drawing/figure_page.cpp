// SPDX-License-Identifier: MIT

#include "drawing/figure_page.h"

namespace quandrel {

namespace {

constexpr double kSlack = 1e-6;
constexpr double kPlotReach = 1.1; ///< of FigureLayout::net
constexpr const char* kTooLow = "the page is too low for the net and its legend";

double DiameterOf(const FigureLayout& layout) {
    return layout.net.width / kPlotReach;
}

void MoveDown(FigureLayout& layout, double distance) {
    layout.net.top += distance;
    for (PlacedEntry& entry : layout.entries) {
        entry.box.top += distance;
    }
    for (PlacedBar& bar : layout.bars) {
        bar.box.top += distance;
        bar.colours.top += distance;
    }
}

/// The layout with a net so small that a page is not too high, if that is enough. The height of a
/// page grows with the diameter of its net along a straight line, which two layouts give.
Result<FigureLayout> WithSmallerNet(const Plot& plot, const Drawing& drawing, FigureSize size,
                                    const FigureLayout& high, double height) {
    size.netDiameter = DiameterOf(high) - (high.height - height);
    const Result<FigureLayout> low = LayOutFigure(plot, drawing, size);
    if (!low || low->height >= high.height) {
        return Failure{kTooLow};
    }
    size.netDiameter = DiameterOf(*low)
                       + (DiameterOf(high) - DiameterOf(*low)) * (height - low->height)
                             / (high.height - low->height);
    return LayOutFigure(plot, drawing, size);
}

} // namespace

Result<FigureLayout> LayOutFigureOnPage(const Plot& plot, const Drawing& drawing,
                                        const FigureSize& size, double height) {
    Result<FigureLayout> layout = LayOutFigure(plot, drawing, size);
    if (!layout || height == 0) {
        return layout;
    }
    if (layout->height > height && size.netDiameter == 0) {
        layout = WithSmallerNet(plot, drawing, size, *layout, height);
    }
    if (!layout) {
        return layout;
    }
    if (layout->height > height + kSlack) {
        return Failure{kTooLow};
    }
    MoveDown(*layout, (height - layout->height) / 2);
    layout->height = height;
    return layout;
}

} // namespace quandrel

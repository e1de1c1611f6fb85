// SPDX-License-Identifier: MIT

#include "drawing/figure_layout.h"

#include "drawing/draw_plot.h"
#include "drawing/figure_reach.h"
#include "drawing/figure_text_rule.h"
#include "drawing/legend_placer.h"
#include "orientation/projection.h"
#include "stereo/drawable_text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quandrel {

namespace {

constexpr double kGap = kLegendGap; ///< between net and legend
constexpr double kLineSpan = 5;     ///< length of the sign of a line
constexpr double kSignMiddle =
    0.53; ///< of the height of a text: between capitals and small letters
constexpr double kMostOfWidth = 0.45; ///< share of a legend beside its net
constexpr double kLeastRadius = 8;
constexpr double kPlotReach = 1.1; ///< of kPlotScale
constexpr const char* kTooNarrow = "the figure is too narrow for its net or rose";
constexpr const char* kNoRoom = "the figure is too narrow for its legend: choose another width or "
                                "place, or shorter names";

bool IsLegendWithin(const FigureLayout& layout) {
    constexpr double kSlack = 1e-6;
    const auto isWithin = [&layout](const FigureBox& box) {
        return box.left >= kFigureMargin - kSlack
               && box.left + box.width <= layout.width - kFigureMargin + kSlack;
    };
    return std::ranges::all_of(layout.entries, isWithin, &PlacedEntry::box)
           && std::ranges::all_of(layout.bars, isWithin, &PlacedBar::box);
}

/// Sets the square of a net by its centre and radius.
void PlaceNet(FigureLayout& layout, double x, double y, double radius) {
    layout.net = {x - kPlotReach * radius, y - kPlotReach * radius, 2 * kPlotReach * radius,
                  2 * kPlotReach * radius};
}

void LayOutRight(const FigureSize& size, const FigureReach& reach, const LegendPlacer& placer,
                 FigureLayout& layout) {
    const double natural = std::max(placer.EntryWidth(), placer.BarWidth());
    const double inner = size.width - 2 * kFigureMargin;
    double radius = size.netDiameter / 2;
    double legend = natural;
    if (radius == 0) {
        legend = std::min(natural, kMostOfWidth * inner);
        radius = std::max(reach.RadiusOfWidth(inner - kGap - legend), 0.0);
    } else if (size.width > 0) {
        legend = std::min(natural, inner - kGap - reach.Width(radius));
    }
    const double side = reach.Width(radius);
    layout.width = size.width > 0 ? size.width : 2 * kFigureMargin + side + kGap + legend;
    // What remains is to both sides of the whole.
    const double left = (layout.width - side - kGap - legend) / 2;
    const double height =
        placer.InColumn(left + side + kGap, kFigureMargin, std::max(legend, 1.0), layout);
    const double inside = std::max(reach.Height(radius), height);
    layout.height = inside + 2 * kFigureMargin;
    PlaceNet(layout, left + reach.left.At(radius),
             kFigureMargin + (inside - reach.Height(radius)) / 2 + reach.top.At(radius), radius);
    const double shift = (inside - height) / 2;
    for (PlacedEntry& entry : layout.entries) {
        entry.box.top += shift;
    }
    for (PlacedBar& bar : layout.bars) {
        bar.box.top += shift;
        bar.colours.top += shift;
    }
}

void LayOutBelow(const FigureSize& size, const FigureReach& reach, const LegendPlacer* placer,
                 FigureLayout& layout) {
    double radius = size.netDiameter / 2;
    if (radius == 0) {
        radius = std::max(reach.RadiusOfWidth(size.width - 2 * kFigureMargin), 0.0);
    }
    const double side = reach.Width(radius);
    layout.width = size.width;
    if (size.width == 0) {
        const double legend =
            placer != nullptr ? std::max(placer->EntryWidth(), placer->BarWidth()) : 0;
        layout.width = std::max(side, legend) + 2 * kFigureMargin;
    }
    PlaceNet(layout, (layout.width - side) / 2 + reach.left.At(radius),
             kFigureMargin + reach.top.At(radius), radius);
    layout.height = kFigureMargin + reach.Height(radius) + kFigureMargin;
    if (placer != nullptr) {
        const double top = layout.height - kFigureMargin + kGap;
        layout.height =
            top + placer->Below(kFigureMargin, top, layout.width - 2 * kFigureMargin, layout)
            + kFigureMargin;
    }
}

/// Draws the texts and signs of a legend. The surface has `unit` user units in a millimetre, with y
/// downward below 0.
class LegendInk {
public:
    LegendInk(const Drawing& drawing, double unit, double lineHeight)
        : drawing_(drawing)
        , page_(drawing.legend)
        , unit_(unit)
        , line_(lineHeight) {}

    void DrawEntry(const PlacedEntry& placed) const {
        const FigureBox& box = placed.box;
        const double height = page_.TextHeight();
        const double top = -box.top * unit_ - (line_ * unit_ - height) / 2;
        DrawFigureSign(page_, drawing_, placed.entry,
                       {(box.left + kLegendSignWidth / 2) * unit_, top - kSignMiddle * height},
                       kLineSpan * unit_);
        const double left =
            box.left
            + (placed.entry.sign == FigureSign::None ? 0 : kLegendSignWidth + kLegendSignGap);
        DrawLines(placed.lines, left, box.top);
    }

    void DrawBar(const PlacedBar& placed) const {
        const FigureBox& box = placed.colours;
        const auto count = placed.bar.colours.size();
        const double pitch = box.width / static_cast<double>(count);
        for (std::size_t i = 0; i < count; ++i) {
            const double left = box.left + pitch * static_cast<double>(i);
            DrawBand({left, box.top, pitch, box.height}, placed.bar.colours[i], placed.bar.opacity);
            DrawNumber(placed, i, left);
        }
        DrawLines(placed.title, placed.box.left, box.top + box.height + kLegendBarTick + line_);
    }

private:
    void DrawLines(const std::vector<std::string>& lines, double left, double top) const {
        const double lead = (line_ * unit_ - page_.TextHeight()) / 2;
        for (const std::string& line : lines) {
            page_.Text({left * unit_, -top * unit_ - lead}, DrawableText(line));
            top += line_;
        }
    }

    void SetLine() const {
        DrawState state = page_.State();
        state.widthInPoints = FigureOf(drawing_).lines.contourWidth;
        page_.SetState(state);
    }

    void DrawBand(const FigureBox& box, Colour colour, double opacity) const {
        const SavedState saved(page_);
        SetLine();
        DrawState state = page_.State();
        state.fillStyle = kSolidFill;
        state.fillColour = colour;
        state.fillOpacity = opacity;
        page_.SetState(state);
        const std::array<Point, 4> corners = {
            At(box.left, box.top), At(box.left + box.width, box.top),
            At(box.left + box.width, box.top + box.height), At(box.left, box.top + box.height)};
        page_.Polygon(corners, kBlack);
    }

    void DrawNumber(const PlacedBar& placed, std::size_t i, double left) const {
        const double bottom = placed.colours.top + placed.colours.height;
        {
            const SavedState saved(page_);
            SetLine();
            page_.Line(At(left, bottom), At(left, bottom + kLegendBarTick), kBlack);
        }
        if (i % placed.stride == 0) {
            const std::string& number = placed.bar.numbers[i];
            DrawLines({number}, left - page_.TextWidth(number) / 2 / unit_,
                      bottom + kLegendBarTick);
        }
    }

    [[nodiscard]] Point At(double x, double y) const { return {x * unit_, -y * unit_}; }

    const Drawing& drawing_;
    Surface& page_;
    double unit_;
    double line_;
};

} // namespace

LegendPlace UsualPlace(double width) {
    return width >= kHalfPageWidth ? LegendPlace::Right : LegendPlace::Below;
}

Result<FigureLayout> LayOutFigure(const Plot& plot, const Drawing& drawing,
                                  const FigureSize& size) {
    const FigureReach reach = ReachOfFigure(plot, drawing);
    const TextRule rule(drawing.legend, FontOfLegend(drawing));
    FigureLayout layout;
    layout.lineHeight = rule.Height() * kLegendLeading;
    const LegendPlacer placer(LegendOfFigure(plot, drawing), rule);
    if (size.legend == LegendPlace::Right && !placer.IsEmpty()) {
        LayOutRight(size, reach, placer, layout);
    } else {
        const bool hasLegend = size.legend != LegendPlace::None && !placer.IsEmpty();
        LayOutBelow(size, reach, hasLegend ? &placer : nullptr, layout);
    }
    const double radius = layout.net.width / (2 * kPlotReach);
    if (radius < kLeastRadius || reach.Width(radius) > layout.width - 2 * kFigureMargin + 1e-6) {
        return Failure{kTooNarrow};
    }
    if (!IsLegendWithin(layout)) {
        return Failure{kNoRoom};
    }
    return layout;
}

void DrawFigure(const Plot& plot, const Drawing& drawing, const FigureLayout& layout) {
    DrawNetOfFigure(plot, drawing);
    DrawLegendOfFigure(drawing, layout);
}

void DrawLegendOfFigure(const Drawing& drawing, const FigureLayout& layout) {
    const NamedGroup group(drawing.legend, "legend", "Legend");
    const double unit = 2 * kPlotReach * kNetRadius / layout.net.width;
    Surface& page = drawing.legend;
    page.SetUserScale({0, 0, layout.width * unit, -layout.height * unit});
    DrawState state;
    state.font = FontOfLegend(drawing);
    page.SetState(state);
    const LegendInk ink(drawing, unit, layout.lineHeight);
    for (const PlacedEntry& entry : layout.entries) {
        ink.DrawEntry(entry);
    }
    for (const PlacedBar& bar : layout.bars) {
        ink.DrawBar(bar);
    }
}

} // namespace quandrel

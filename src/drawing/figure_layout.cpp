// SPDX-License-Identifier: MIT

#include "drawing/figure_layout.h"

#include "drawing/draw_plot.h"
#include "drawing/figure_reach.h"
#include "drawing/figure_text_rule.h"
#include "orientation/projection.h"
#include "stereo/drawable_text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quandrel {

namespace {

constexpr double kGap = 3; ///< between net, entries and bar
constexpr double kSignWidth = 6;
constexpr double kSignGap = 1.5; ///< from a sign to its text
constexpr double kLineSpan = 5;  ///< length of the sign of a line
constexpr double kLeading = 1.2; ///< from line to line, in heights of the text
constexpr double kSignMiddle =
    0.53; ///< of the height of a text: between capitals and small letters
constexpr double kBarLength = 32;
constexpr double kBarHeight = 3;
constexpr double kBarTick = 0.8;
constexpr double kNumberGap = 1;
constexpr double kMostOfWidth = 0.45; ///< share of a legend beside its net
constexpr double kLeastRadius = 8;
constexpr double kPlotReach = 1.1; ///< of kPlotScale
constexpr const char* kTooNarrow = "the figure is too narrow for its net or rose";
constexpr const char* kNoRoom = "the figure is too narrow for its legend: choose another width or "
                                "place, or shorter names";

/// Arranges a legend in a width.
class LegendPlacer {
public:
    LegendPlacer(FigureLegend legend, const TextRule& rule)
        : legend_(std::move(legend))
        , rule_(rule)
        , line_(rule.Height() * kLeading) {}

    [[nodiscard]] bool IsEmpty() const { return legend_.entries.empty() && legend_.bars.empty(); }

    /// The width of the widest entry in one line.
    [[nodiscard]] double EntryWidth() const {
        double width = 0;
        for (const FigureEntry& entry : legend_.entries) {
            width = std::max(width, SignSpace(entry) + rule_.Width(entry.text));
        }
        return width;
    }

    [[nodiscard]] double BarWidth() const {
        double width = 0;
        for (const FigureBar& bar : legend_.bars) {
            width = std::max({width, kBarLength, rule_.Width(bar.title)});
        }
        return width;
    }

    /// One column, the bars last. Returns its height.
    [[nodiscard]] double InColumn(double left, double top, double width,
                                  FigureLayout& layout) const {
        double at = top;
        at += Entries(0, legend_.entries.size(), {left, at, width, 0}, layout);
        if (!legend_.bars.empty()) {
            at += at > top ? kGap : 0;
            at += BarsInColumn({left, at, width, 0}, layout);
        }
        return at - top;
    }

    /// Below a net: as many columns as fit. Returns the height.
    [[nodiscard]] double Below(double left, double top, double width, FigureLayout& layout) const {
        const double entry = EntryWidth();
        const std::size_t count = legend_.entries.size();
        if (!legend_.bars.empty() && count > 0 && BarWidth() + kGap + entry <= width) {
            const double start = left + (width - BarWidth() - kGap - entry) / 2;
            const double bar = BarsInColumn({start, top, BarWidth(), 0}, layout);
            const double rest =
                Entries(0, count, {start + BarWidth() + kGap, top, entry, 0}, layout);
            return std::max(bar, rest);
        }
        if (count < 2 || 2 * entry + kGap > width) {
            const double column = std::min(width, std::max(entry, BarWidth()));
            return InColumn(left + (width - column) / 2, top, column, layout);
        }
        const double start = left + (width - 2 * entry - kGap) / 2;
        const std::size_t half = (count + 1) / 2;
        double height = Entries(0, half, {start, top, entry, 0}, layout);
        height =
            std::max(height, Entries(half, count, {start + entry + kGap, top, entry, 0}, layout));
        if (!legend_.bars.empty()) {
            const double column = std::min(width, BarWidth());
            height += kGap;
            height += BarsInColumn({left + (width - column) / 2, top + height, column, 0}, layout);
        }
        return height;
    }

private:
    [[nodiscard]] static double SignSpace(const FigureEntry& entry) {
        return entry.sign == FigureSign::None ? 0 : kSignWidth + kSignGap;
    }

    [[nodiscard]] double Entries(std::size_t first, std::size_t last, const FigureBox& column,
                                 FigureLayout& layout) const {
        double top = column.top;
        for (std::size_t i = first; i < last; ++i) {
            PlacedEntry placed;
            placed.entry = legend_.entries[i];
            const double room = column.width - SignSpace(placed.entry);
            placed.lines = rule_.Wrapped(placed.entry.text, room);
            const double height = line_ * static_cast<double>(placed.lines.size());
            placed.box = {column.left, top, SignSpace(placed.entry) + rule_.Width(placed.lines),
                          height};
            top += height;
            layout.entries.push_back(std::move(placed));
        }
        return top - column.top;
    }

    /// The numbers of a bar must not touch.
    [[nodiscard]] std::size_t StrideOf(const FigureBar& bar, double length) const {
        const double pitch = length / static_cast<double>(bar.colours.size());
        std::size_t stride = 1;
        while (static_cast<double>(stride) * pitch < rule_.Width(bar.numbers) + kNumberGap
               && stride < bar.numbers.size()) {
            ++stride;
        }
        return stride;
    }

    /// All bars, one below the other. Returns their height.
    [[nodiscard]] double BarsInColumn(const FigureBox& column, FigureLayout& layout) const {
        double height = 0;
        for (const FigureBar& bar : legend_.bars) {
            height += height > 0 ? kGap : 0;
            height += Bar(bar, {column.left, column.top + height, column.width, 0}, layout);
        }
        return height;
    }

    [[nodiscard]] double Bar(const FigureBar& bar, const FigureBox& column,
                             FigureLayout& layout) const {
        PlacedBar placed;
        placed.bar = bar;
        const double inset = rule_.Width(placed.bar.numbers.front()) / 2;
        placed.colours = {column.left + inset, column.top + (line_ - kBarHeight) / 2,
                          std::min(kBarLength, column.width) - 2 * inset, kBarHeight};
        placed.colours.top = std::max(placed.colours.top, column.top);
        placed.stride = StrideOf(placed.bar, placed.colours.width);
        placed.title = rule_.Wrapped(placed.bar.title, column.width);
        const double numbers = placed.colours.top + kBarHeight + kBarTick - column.top;
        placed.box = {column.left, column.top,
                      std::max(placed.colours.width + 2 * inset, rule_.Width(placed.title)),
                      numbers + line_ * static_cast<double>(1 + placed.title.size())};
        const double height = placed.box.height;
        layout.bars.push_back(std::move(placed));
        return height;
    }

    FigureLegend legend_;
    const TextRule& rule_;
    double line_;
};

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
                       {(box.left + kSignWidth / 2) * unit_, top - kSignMiddle * height},
                       kLineSpan * unit_);
        const double left =
            box.left + (placed.entry.sign == FigureSign::None ? 0 : kSignWidth + kSignGap);
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
        DrawLines(placed.title, placed.box.left, box.top + box.height + kBarTick + line_);
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
            page_.Line(At(left, bottom), At(left, bottom + kBarTick), kBlack);
        }
        if (i % placed.stride == 0) {
            const std::string& number = placed.bar.numbers[i];
            DrawLines({number}, left - page_.TextWidth(number) / 2 / unit_, bottom + kBarTick);
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
    layout.lineHeight = rule.Height() * kLeading;
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

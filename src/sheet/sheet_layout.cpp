// SPDX-License-Identifier: MIT

#include "sheet/sheet_layout.h"

#include "core/plot_formulas.h"
#include "drawing/figure_text_rule.h"
#include "drawing/legend_placer.h"
#include "sheet/legend_parts.h"
#include "sheet/panel_grid.h"
#include "sheet/shared_legend.h"
#include "stereo/text_lines.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace quandrel {

namespace {

constexpr double kSlack = 1e-6;
constexpr int kMostSteps = 20;   ///< towards the height of a page
constexpr double kHeadGap = 0.8; ///< below letter and title

constexpr double kLeastText = 6;     ///< points, where the style has no least size
constexpr double kTextStep = 0.25;   ///< points
constexpr double kFabricLine = 3.8;  ///< of the legend of a fabric plot
constexpr double kLeastFabric = 45;  ///< width
constexpr double kMostOfWidth = 0.3; ///< share of a legend beside the panels
constexpr double kPlotReach = 1.1;   ///< of FigureLayout::net
constexpr double kPointsInMillimetre = 72 / 25.4;

Failure NoRoom(const FigureSheet& sheet, std::size_t panel, const std::string& reason) {
    const std::string letter = LetterOf(sheet, panel);
    return {"panel " + (letter.empty() ? std::to_string(panel + 1) : letter) + ": " + reason};
}

/// Divides a page step by step, from what the panels need.
class SheetPlacer {
public:
    SheetPlacer(const FigureSheet& sheet, const std::vector<PanelContent>& contents,
                const SheetLook& look, Surface& unseen)
        : sheet_(sheet)
        , contents_(contents)
        , look_(look)
        , unseen_(unseen)
        , grid_(GridOfPanels(sheet)) {}

    [[nodiscard]] Result<SheetLayout> Placed();

private:
    [[nodiscard]] std::string PlaceAll(double shrink);
    void PlaceLegendRight();
    void PlaceLegendBelow();
    [[nodiscard]] std::string PlaceColumn(double left, double top, double width);
    void PlaceHeads();
    [[nodiscard]] std::string PlaceNets(double shrink);
    [[nodiscard]] std::string PlaceTexts();
    [[nodiscard]] std::string PlaceTexts(PlacedPanel& placed, const std::string& text);
    void PlaceFabrics(double shrink);
    void PlaceRows();
    void AlignNets(int row);
    void MoveInto(double top, std::size_t index);

    [[nodiscard]] double WidthOf(std::size_t panel) const {
        const int columns = sheet_.panels[panel].columns;
        return columns * columnWidth_ + (columns - 1) * sheet_.gapAcross;
    }

    [[nodiscard]] bool IsNet(std::size_t panel) const {
        return sheet_.panels[panel].kind == PanelKind::Plot;
    }

    [[nodiscard]] Result<FigureLayout> NetOf(std::size_t panel, double diameter) const {
        const Plot& plot = *contents_[panel].plot;
        return LayOutFigure(plot, DrawingOfPanel(plot, look_, unseen_, unseen_),
                            {WidthOf(panel) + 2 * kFigureMargin, diameter, LegendPlace::None});
    }

    [[nodiscard]] FontSpec Font() const { return FontOfLegend(DrawingOfLegend(look_, unseen_)); }

    const FigureSheet& sheet_;
    const std::vector<PanelContent>& contents_;
    const SheetLook& look_;
    Surface& unseen_;
    PanelGrid grid_;
    SheetLayout layout_;
    double columnWidth_ = 0;
    double legendWidth_ = 0;         ///< of a legend beside the panels
    std::vector<double> heads_;      ///< heights, of the rows
    std::vector<double> heights_;    ///< of what is below the heads, of the panels
    std::vector<FigureLayout> nets_; ///< of the panels
    double smallestNet_ = 0;         ///< diameter
};

void SheetPlacer::PlaceHeads() {
    FontSpec bold = Font();
    bold.points = std::max(kLetterSize, bold.points);
    bold.bold = true;
    std::vector<double> letters;
    for (std::size_t i = 0; i < contents_.size(); ++i) {
        const std::string letter = LetterOf(sheet_, i);
        letters.push_back(letter.empty() ? 0 : TextRule(unseen_, bold).Width(letter));
    }
    layout_.headHeight = TextRule(unseen_, bold).Height() * kLegendLeading;
    const TextRule rule(unseen_, Font());
    heads_.assign(static_cast<std::size_t>(grid_.rows), 0);
    for (std::size_t i = 0; i < contents_.size(); ++i) {
        PlacedPanel placed;
        placed.panel = i;
        placed.letter = LetterOf(sheet_, i);
        placed.letterWidth = letters[i];
        const double before = placed.letter.empty() ? 0 : letters[i] + kLetterGap;
        if (!sheet_.panels[i].title.empty()) {
            placed.title = rule.Wrapped(sheet_.panels[i].title, WidthOf(i) - before);
        }
        const std::size_t lines =
            std::max(placed.title.size(), static_cast<std::size_t>(placed.letter.empty() ? 0 : 1));
        double& head = heads_[static_cast<std::size_t>(grid_.places[i].row)];
        if (lines > 0) {
            head = std::max(head, static_cast<double>(lines) * layout_.headHeight + kHeadGap);
        }
        layout_.panels.push_back(std::move(placed));
    }
}

/// Nets as large as those of their row and of their number of columns allow.
std::string SheetPlacer::PlaceNets(double shrink) {
    std::vector<double> diameters(contents_.size(), 0);
    for (std::size_t i = 0; i < contents_.size(); ++i) {
        if (IsNet(i)) {
            const Result<FigureLayout> net = NetOf(i, 0);
            if (!net) {
                return NoRoom(sheet_, i, net.Error()).text;
            }
            diameters[i] = net->net.width / kPlotReach;
        }
    }
    const auto equalise = [&](const auto& belong) {
        std::vector<double> equal = diameters;
        for (std::size_t i = 0; i < equal.size(); ++i) {
            for (std::size_t k = 0; k < equal.size(); ++k) {
                if (IsNet(i) && IsNet(k) && belong(i, k)) {
                    equal[i] = std::min(equal[i], diameters[k]);
                }
            }
        }
        diameters = std::move(equal);
    };
    equalise([&](auto i, auto k) { return sheet_.panels[i].columns == sheet_.panels[k].columns; });
    equalise([&](auto i, auto k) { return grid_.places[i].row == grid_.places[k].row; });
    smallestNet_ = 0;
    for (std::size_t i = 0; i < contents_.size(); ++i) {
        if (!IsNet(i)) {
            continue;
        }
        Result<FigureLayout> net = NetOf(i, std::max(diameters[i] - shrink, kSlack));
        if (!net) {
            return NoRoom(sheet_, i, net.Error()).text;
        }
        const double diameter = net->net.width / kPlotReach;
        smallestNet_ = smallestNet_ == 0 ? diameter : std::min(smallestNet_, diameter);
        heights_[i] = net->height - 2 * kFigureMargin;
        nets_[i] = std::move(*net);
    }
    return {};
}

std::string SheetPlacer::PlaceTexts() {
    for (PlacedPanel& placed : layout_.panels) {
        const SheetPanel& panel = sheet_.panels[placed.panel];
        if (panel.kind == PanelKind::Text || panel.kind == PanelKind::Statistics) {
            const std::string error = PlaceTexts(placed, panel.text);
            if (!error.empty()) {
                return NoRoom(sheet_, placed.panel, error).text;
            }
        }
    }
    return {};
}

/// A text in its panel: smaller where a table would be too wide, down to the least size.
std::string SheetPlacer::PlaceTexts(PlacedPanel& placed, const std::string& text) {
    FontSpec font = Font();
    const double least = look_.style->text.leastSize > 0 ? look_.style->text.leastSize : kLeastText;
    const double room = WidthOf(placed.panel);
    for (;; font.points -= kTextStep) {
        const TextRule rule(unseen_, font);
        placed.lines = rule.Wrapped(text, room);
        placed.textSize = font.points;
        placed.lineHeight = rule.Height() * kLegendLeading;
        const double unit = kMillimetresInPixel / unseen_.PixelSize().x;
        const bool fits = std::ranges::all_of(placed.lines, [&](const std::string& line) {
            return TabbedWidth(unseen_, line) * unit <= room + kSlack;
        });
        if (fits) {
            heights_[placed.panel] = placed.lineHeight * static_cast<double>(placed.lines.size());
            return {};
        }
        if (font.points - kTextStep < least) {
            return "its text is wider than the panel: give it more columns, or the page fewer";
        }
    }
}

/// A fabric plot is as much lower than on paper as it is narrower, but for its legend, which has
/// one column then.
void SheetPlacer::PlaceFabrics(double shrink) {
    for (std::size_t i = 0; i < contents_.size(); ++i) {
        if (sheet_.panels[i].kind == PanelKind::Fabric) {
            const std::size_t count = contents_[i].fabrics.size();
            const FabricPictureSize paper =
                PaperSizeOf(FabricDiagram::LogRatios, contents_[i].fabrics);
            const double narrower = paper.width / kPointsInMillimetre - WidthOf(i);
            heights_[i] = paper.height / kPointsInMillimetre - narrower
                          + static_cast<double>(count / 2) * kFabricLine;
            heights_[i] = std::max(heights_[i] - shrink, std::min(heights_[i], kLeastFabric));
        }
    }
}

/// Gives a panel its place, below the top of its row.
void SheetPlacer::MoveInto(double top, std::size_t index) {
    PlacedPanel& placed = layout_.panels[index];
    const GridPlace& place = grid_.places[index];
    const double left = kFigureMargin + place.column * (columnWidth_ + sheet_.gapAcross);
    placed.box = {left, top, WidthOf(index), 0};
    placed.inside = {left, top + heads_[static_cast<std::size_t>(place.row)], placed.box.width,
                     heights_[index]};
    if (IsNet(index)) {
        placed.net = nets_[index].net;
        placed.net.left += left - kFigureMargin;
        placed.net.top += placed.inside.top - kFigureMargin;
    }
}

/// The centres of the nets of a row are on one line.
void SheetPlacer::AlignNets(int row) {
    const auto centre = [this](std::size_t i) {
        return nets_[i].net.top + nets_[i].net.height / 2;
    };
    double lowest = 0;
    for (std::size_t i = 0; i < contents_.size(); ++i) {
        if (IsNet(i) && grid_.places[i].row == row) {
            lowest = std::max(lowest, centre(i));
        }
    }
    for (std::size_t i = 0; i < contents_.size(); ++i) {
        if (IsNet(i) && grid_.places[i].row == row) {
            const double down = lowest - centre(i);
            nets_[i].net.top += down;
            heights_[i] += down;
        }
    }
}

void SheetPlacer::PlaceRows() {
    std::vector<double> rows(static_cast<std::size_t>(grid_.rows), 0);
    for (int row = 0; row < grid_.rows; ++row) {
        AlignNets(row);
    }
    const auto last = [this](std::size_t i) {
        return static_cast<std::size_t>(grid_.places[i].row + sheet_.panels[i].rows - 1);
    };
    // The last row of a panel takes what the rows before it have no room for.
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t i = 0; i < contents_.size(); ++i) {
            const auto first = static_cast<std::size_t>(grid_.places[i].row);
            if (last(i) == row) {
                double need = heads_[first] + heights_[i];
                for (std::size_t before = first; before < row; ++before) {
                    need -= rows[before] + sheet_.gapDown;
                }
                rows[row] = std::max(rows[row], need);
            }
        }
    }
    std::vector<double> tops;
    double top = kFigureMargin;
    for (const double height : rows) {
        tops.push_back(top);
        top += height + sheet_.gapDown;
    }
    for (std::size_t i = 0; i < contents_.size(); ++i) {
        MoveInto(tops[static_cast<std::size_t>(grid_.places[i].row)], i);
        layout_.panels[i].box.height = tops[last(i)] + rows[last(i)] - layout_.panels[i].box.top;
    }
    layout_.height = top - sheet_.gapDown + kFigureMargin;
}

void SheetPlacer::PlaceLegendRight() {
    const std::vector<FigureLegend> parts =
        PartsOf(SharedLegendOf(sheet_, contents_, look_, unseen_));
    const TextRule rule(unseen_, Font());
    const double inner = sheet_.width - 2 * kFigureMargin;
    layout_.legend.lineHeight = rule.Height() * kLegendLeading;
    legendWidth_ = std::min(WidestOf(parts, rule), kMostOfWidth * inner);
    if (!parts.empty()) {
        const double left = sheet_.width - kFigureMargin - legendWidth_;
        const double height =
            PlaceParts(parts, rule, {left, kFigureMargin, legendWidth_, 0}, 1, layout_.legend);
        layout_.legend.height = height + 2 * kFigureMargin;
        legendWidth_ += kLegendGap;
    }
}

void SheetPlacer::PlaceLegendBelow() {
    const std::vector<FigureLegend> parts =
        PartsOf(SharedLegendOf(sheet_, contents_, look_, unseen_));
    if (parts.empty()) {
        return;
    }
    const TextRule rule(unseen_, Font());
    const double inner = sheet_.width - 2 * kFigureMargin;
    const double widest = std::min(WidestOf(parts, rule), inner);
    const auto fitting =
        static_cast<std::size_t>((inner + kLegendGap + kSlack) / (widest + kLegendGap));
    const std::size_t columns = std::clamp<std::size_t>(fitting, 1, parts.size());
    const double width = static_cast<double>(columns) * (widest + kLegendGap) - kLegendGap;
    const double top = layout_.height - kFigureMargin + kLegendGap;
    layout_.legend.lineHeight = rule.Height() * kLegendLeading;
    layout_.height = top
                     + PlaceParts(parts, rule, {(sheet_.width - width) / 2, top, width, 0}, columns,
                                  layout_.legend)
                     + kFigureMargin;
}

std::string SheetPlacer::PlaceAll(double shrink) {
    layout_ = SheetLayout();
    layout_.width = sheet_.width;
    heights_.assign(contents_.size(), 0);
    nets_.assign(contents_.size(), FigureLayout());
    if (sheet_.legend == LegendPlace::Right) {
        PlaceLegendRight();
    }
    columnWidth_ =
        (sheet_.width - 2 * kFigureMargin - legendWidth_ - (sheet_.columns - 1) * sheet_.gapAcross)
        / sheet_.columns;
    PlaceHeads();
    std::string error = PlaceNets(shrink);
    if (error.empty()) {
        error = PlaceTexts();
    }
    if (!error.empty()) {
        return error;
    }
    for (std::size_t i = 0; i < contents_.size(); ++i) {
        if (sheet_.panels[i].kind == PanelKind::Fabric && WidthOf(i) < kLeastFabric) {
            return NoRoom(sheet_, i, "a fabric plot needs 45 mm").text;
        }
    }
    PlaceFabrics(shrink);
    PlaceRows();
    if (sheet_.legend == LegendPlace::Below) {
        PlaceLegendBelow();
    }
    layout_.height = std::max(layout_.height, layout_.legend.height);
    return {};
}

/// Moves all that is on a page down.
void MoveDown(SheetLayout& layout, double distance) {
    for (PlacedPanel& placed : layout.panels) {
        for (FigureBox* box : {&placed.box, &placed.inside, &placed.net}) {
            box->top += distance;
        }
    }
    for (PlacedEntry& entry : layout.legend.entries) {
        entry.box.top += distance;
    }
    for (PlacedBar& bar : layout.legend.bars) {
        bar.box.top += distance;
        bar.colours.top += distance;
    }
}

Result<SheetLayout> SheetPlacer::Placed() {
    std::string error = PlaceAll(0);
    // The height falls by the diameter in each row of nets; further steps take what is left by rows
    // that do not shrink.
    double shrink = 0;
    for (int step = 0;
         step < kMostSteps && error.empty() && sheet_.height > 0 && layout_.height > sheet_.height;
         ++step) {
        shrink += (layout_.height - sheet_.height) / grid_.rows + kSlack;
        error = PlaceAll(shrink);
    }
    if (!error.empty()) {
        return Failure{error};
    }
    if (sheet_.height > 0) {
        if (layout_.height > sheet_.height) {
            return Failure{"the page is too low for its panels"};
        }
        MoveDown(layout_, (sheet_.height - layout_.height) / 2);
        layout_.height = sheet_.height;
    }
    layout_.legend.width = layout_.width;
    layout_.legend.height = layout_.height;
    // Signs are as in nets; without any net they are as in one of a column.
    const double diameter = smallestNet_ > 0 ? smallestNet_ : columnWidth_;
    layout_.legend.net = {0, 0, kPlotReach * diameter, kPlotReach * diameter};
    return std::move(layout_);
}

/// Whether all of a legend is on its page.
bool IsWithin(const FigureLayout& legend) {
    const auto isWithin = [&legend](const FigureBox& box) {
        return box.left >= kFigureMargin - kSlack
               && box.left + box.width <= legend.width - kFigureMargin + kSlack;
    };
    return std::ranges::all_of(legend.entries, isWithin, &PlacedEntry::box)
           && std::ranges::all_of(legend.bars, isWithin, &PlacedBar::box);
}

} // namespace

Result<SheetLayout> LayOutSheet(const FigureSheet& sheet, const std::vector<PanelContent>& contents,
                                const SheetLook& look, Surface& unseen) {
    if (sheet.panels.empty()) {
        return Failure{"the figure has no panels"};
    }
    Result<SheetLayout> layout = SheetPlacer(sheet, contents, look, unseen).Placed();
    if (layout && !IsWithin(layout->legend)) {
        return Failure{"the page is too narrow for its legend: choose another width or place, or "
                       "shorter names"};
    }
    return layout;
}

Drawing DrawingOfPanel(const Plot& plot, const SheetLook& look, Surface& net, Surface& page) {
    const Formulas formulas = FormulasOf(plot.record, look.formulas);
    return {net, page, look.styles, DrawnFor::Paper, formulas, nullptr, 0, look.style};
}

Drawing DrawingOfLegend(const SheetLook& look, Surface& page) {
    return {page, page, look.styles, DrawnFor::Paper, look.formulas, nullptr, 0, look.style};
}

} // namespace quandrel

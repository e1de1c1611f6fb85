// SPDX-License-Identifier: MIT

#include "print/print_texts.h"

#include "core/plot_store.h"
#include "core/plot_texts.h"
#include "drawing/plot_driver.h"
#include "drawing/shown_legend.h"
#include "stereo/drawable_text.h"
#include "stereo/legend_line.h"
#include "stereo/text_lines.h"
#include "stereo/window_drawing.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <sstream>

namespace quandrel {

namespace {

constexpr double kSmallestScale = 0.5;
constexpr double kScaleStep = 0.05;
constexpr double kUncutLegend =
    0.75; ///< at smaller scales, a legend that is too wide is cut instead
constexpr int kMostColumns = 4;
constexpr double kColumnGap = 4;     ///< millimetres, like all space on pages
constexpr double kNarrowColumn = 32; ///< minimum width if there are several columns
constexpr double kLegendSpacing = 1.15;
constexpr double kSampleWidth = 2.5; ///< of a legend's samples, in widths of an M

/// A text to be placed.
struct Section {
    PlotFontPlace font;
    std::string text;
};

std::vector<Section> SectionsOfPlot() {
    const PlotRecord& record = ActiveRecord();
    std::vector<Section> sections;
    const auto add = [&](PlotLayer layer, PlotFontPlace font, const std::string& text) {
        if (record.LayerVisible[layer] != 0 && !text.empty()) {
            sections.push_back({font, text});
        }
    };
    add(kFabricLayer, kFabricFont, record.FabricText);
    add(kDescriptionLayer, kGeneralFont, record.DescriptionText);
    add(kStatisticsLayer, kStatsFont, StatisticsInUse(ActivePlot()));
    if (record.LayerVisible[kStatisticsLayer] == 0) {
        // The statistics begin with the number of data.
        add(kNumberLayer, kGeneralFont, "n = " + NumberBoxText());
    }
    return sections;
}

void UseFont(Surface& surface, const Styles& styles, PlotFontPlace font, double scale) {
    const PlotFont& chosen = styles.fonts[static_cast<std::size_t>(font)];
    DrawState state;
    state.font = chosen.font;
    state.font.points *= scale;
    state.foreColour = ColourFromValue(static_cast<std::uint32_t>(chosen.colour));
    surface.SetState(state);
}

/// Fills the columns of an area from the top down.
class ColumnFiller {
public:
    ColumnFiller(Surface& surface, const Styles& styles, double height, double columnWidth,
                 int columns, double scale)
        : surface_(surface)
        , styles_(styles)
        , height_(height)
        , columnWidth_(columnWidth)
        , columns_(columns) {
        plan_.fontScale = scale;
    }

    void AddLegend(const std::vector<LegendLine>& lines) {
        UseFont(surface_, styles_, kLegendFont, plan_.fontScale);
        const double indent = kSampleWidth * surface_.TextWidth("M");
        for (const LegendLine& line : lines) {
            const double left = line.sample == LegendSample::None ? 0 : indent;
            cutsLegend_ =
                cutsLegend_ || left + surface_.TextWidth(DrawableText(line.text)) > columnWidth_;
        }
        const double lineHeight = kLegendSpacing * surface_.TextHeight();
        // Slightly more, so that rounding does not remove the last line.
        const double wanted = (static_cast<double>(lines.size()) + 0.01) * lineHeight;
        isWhole_ = isWhole_ && wanted <= height_;
        plan_.legend = {0, 0, columnWidth_, std::min(wanted, height_)};
        top_ = plan_.legend.height + 0.5 * lineHeight;
    }

    void AddSection(const Section& section) {
        UseFont(surface_, styles_, section.font, plan_.fontScale);
        const double lineHeight = surface_.TextHeight();
        std::vector<std::vector<std::string>> paragraphs;
        std::size_t lines = 0;
        std::istringstream stream(section.text);
        for (std::string paragraph; std::getline(stream, paragraph);) {
            paragraphs.push_back(WrappedLines(surface_, paragraph, columnWidth_));
            lines += paragraphs.back().size();
        }
        KeepTogether(lines, lineHeight);
        for (const std::vector<std::string>& paragraph : paragraphs) {
            KeepTogether(paragraph.size(), lineHeight);
            for (const std::string& line : paragraph) {
                AddLine(section.font, line, lineHeight);
            }
        }
        top_ += 0.5 * lineHeight;
    }

    void AddAll(const std::vector<LegendLine>& legend, const std::vector<Section>& sections) {
        if (!legend.empty()) {
            AddLegend(legend);
        }
        for (const Section& section : sections) {
            AddSection(section);
        }
    }

    /// True if everything fits, except for the ends of wide legend lines.
    [[nodiscard]] bool IsWhole() const { return isWhole_; }

    /// True if a line of the legend is wider than its column.
    [[nodiscard]] bool CutsLegend() const { return cutsLegend_; }

    [[nodiscard]] const TextPlan& Plan() const { return plan_; }

private:
    void NextColumn() {
        ++column_;
        top_ = 0;
    }

    /// Moves lines to the next column if they would be separated here but not there.
    void KeepTogether(std::size_t lines, double lineHeight) {
        const double wanted = static_cast<double>(lines) * lineHeight;
        if (top_ > 0 && top_ + wanted > height_ && wanted <= height_ && column_ + 1 < columns_) {
            NextColumn();
        }
    }

    void AddLine(PlotFontPlace font, const std::string& line, double lineHeight) {
        if (top_ + lineHeight > height_ && column_ + 1 < columns_) {
            NextColumn();
        }
        if (top_ == 0 && column_ > 0 && line.find_first_not_of(" \t") == std::string::npos) {
            return; // a gap at the top of a column is useless
        }
        if (isCut_ || top_ + lineHeight > height_) {
            Cut();
            return;
        }
        isWhole_ = isWhole_ && TabbedWidth(surface_, line) <= columnWidth_;
        const double left = column_ * (columnWidth_ + kColumnGap);
        plan_.texts.push_back({{left, top_, columnWidth_, lineHeight}, font, line});
        top_ += lineHeight;
    }

    void Cut() {
        if (!isCut_ && !plan_.texts.empty()) {
            plan_.texts.back().text = "...";
        }
        isCut_ = true;
        isWhole_ = false;
    }

    Surface& surface_;
    const Styles& styles_;
    double height_;
    double columnWidth_;
    int columns_;
    int column_ = 0;
    double top_ = 0;
    bool isWhole_ = true;
    bool cutsLegend_ = false;
    bool isCut_ = false;
    TextPlan plan_;
};

} // namespace

TextPlan PlanTexts(Surface& surface, const Styles& styles, double width, double height) {
    const Plot& plot = ActivePlot();
    const std::vector<LegendLine> legend =
        plot.record.LayerVisible[kLegendLayer] != 0
            ? LegendShown(plot, PaperDrawing(plot.record, surface, surface)).lines
            : std::vector<LegendLine>();
    const std::vector<Section> sections = SectionsOfPlot();
    TextPlan plan;
    std::optional<TextPlan> cut; // the largest that fits except for a cut legend
    const int steps = static_cast<int>(std::lround((1 - kSmallestScale) / kScaleStep));
    for (int step = 0; step <= steps; ++step) {
        const double scale = 1 - kScaleStep * step;
        if (cut && scale < kUncutLegend) {
            return *cut;
        }
        for (int columns = 1; columns <= kMostColumns; ++columns) {
            const double columnWidth = (width - kColumnGap * (columns - 1)) / columns;
            if (columns > 1 && columnWidth < kNarrowColumn) {
                break;
            }
            ColumnFiller filler(surface, styles, height, columnWidth, columns, scale);
            filler.AddAll(legend, sections);
            plan = filler.Plan();
            if (filler.IsWhole() && !filler.CutsLegend()) {
                return plan;
            }
            if (filler.IsWhole() && !cut) {
                cut = plan;
            }
        }
    }
    return cut.value_or(plan);
}

void DrawPlannedTexts(Surface& surface, const Styles& styles, const TextPlan& plan) {
    for (const PlacedText& placed : plan.texts) {
        UseFont(surface, styles, placed.font, plan.fontScale);
        DrawTabbedLine(surface, {placed.where.left, -placed.where.top}, placed.text);
    }
}

} // namespace quandrel

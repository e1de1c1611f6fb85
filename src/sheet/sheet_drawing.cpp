// SPDX-License-Identifier: MIT

#include "sheet/sheet_drawing.h"

#include "drawing/draw_plot.h"
#include "drawing/figure_text_rule.h"
#include "stereo/drawable_text.h"
#include "stereo/text_lines.h"

#include <algorithm>
#include <string>

namespace quandrel {

namespace {

/// Writes on the page, whose user units are millimetres with y downward below 0.
class SheetInk {
public:
    SheetInk(Surface& page, const SheetLayout& layout, const SheetLook& look)
        : page_(page)
        , layout_(layout)
        , font_(FontOfLegend(DrawingOfLegend(look, page))) {
        page_.SetUserScale({0, 0, layout.width, -layout.height});
    }

    void WriteHead(const PlacedPanel& placed) const {
        const FigureBox& box = placed.box;
        double left = box.left;
        if (!placed.letter.empty()) {
            FontSpec bold = font_;
            bold.points = std::max(kLetterSize, font_.points);
            bold.bold = true;
            Use(bold);
            WriteLine(left, box.top, layout_.headHeight, placed.letter);
            left += placed.letterWidth + kLetterGap;
        }
        Use(font_);
        double top = box.top;
        for (const std::string& line : placed.title) {
            WriteLine(left, top, layout_.headHeight, line);
            top += layout_.headHeight;
        }
    }

    void WriteLines(const PlacedPanel& placed) const {
        FontSpec font = font_;
        font.points = placed.textSize;
        Use(font);
        double top = placed.inside.top;
        for (const std::string& line : placed.lines) {
            const double lead = (placed.lineHeight - page_.TextHeight()) / 2;
            DrawTabbedLine(page_, {placed.inside.left, -top - lead}, line);
            top += placed.lineHeight;
        }
    }

private:
    void Use(const FontSpec& font) const {
        DrawState state;
        state.font = font;
        page_.SetState(state);
    }

    void WriteLine(double left, double top, double height, const std::string& line) const {
        page_.Text({left, -top - (height - page_.TextHeight()) / 2}, DrawableText(line));
    }

    Surface& page_;
    const SheetLayout& layout_;
    FontSpec font_;
};

} // namespace

void DrawSheet(const FigureSheet& sheet, const std::vector<PanelContent>& contents,
               const SheetLook& look, const SheetLayout& layout, const SurfaceOfPart& in) {
    Surface& page = in({0, 0, layout.width, layout.height});
    for (const PlacedPanel& placed : layout.panels) {
        const PanelContent& content = contents[placed.panel];
        const PanelKind kind = sheet.panels[placed.panel].kind;
        const NamedGroup group(page, "panel-" + std::to_string(placed.panel + 1),
                               "Panel " + placed.letter);
        if (kind == PanelKind::Plot) {
            DrawNetOfFigure(*content.plot,
                            DrawingOfPanel(*content.plot, look, in(placed.net), page));
        } else if (kind == PanelKind::Fabric) {
            DrawFabric(in(placed.inside), FabricDiagram::LogRatios, content.fabrics);
        }
        const SheetInk ink(page, layout, look);
        ink.WriteHead(placed);
        ink.WriteLines(placed);
    }
    DrawLegendOfFigure(DrawingOfLegend(look, page), layout.legend);
}

} // namespace quandrel

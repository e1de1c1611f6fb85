// SPDX-License-Identifier: MIT

#include "drawing/row_labels.h"

#include "orientation/projection.h"
#include "stereo/drawable_text.h"
#include "stereo/figure_text.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace quandrel {

namespace {

constexpr double kGapInPixels = 4; ///< from the position to the text

struct TextBox {
    double left = 0;
    double bottom = 0;
    double right = 0;
    double top = 0;
};

bool Overlap(const TextBox& a, const TextBox& b) {
    return a.left < b.right && b.left < a.right && a.bottom < b.top && b.bottom < a.top;
}

bool IsLabelled(const Plot& plot, const Styles& styles, const RowSet& set, std::size_t place) {
    const std::int32_t row = set.table->index[place];
    return row >= set.range.first && row <= set.range.last && !IsErrorRow(set.table->plunge[place])
           && CodeSymbol(CodeInSet(plot, styles, set, row)) != 0;
}

} // namespace

std::string LabelOfRow(const Plot& plot, std::int32_t row) {
    const std::string_view text =
        plot.record.HasAppendedText != 0 ? plot.rows.text(row) : std::string_view();
    return text.empty() ? std::to_string(row) : DrawableText(text);
}

void DrawRowLabels(const Plot& plot, const Drawing& drawing, const RowSet& rows) {
    if (rows.count > kMostLabelledRows) {
        return;
    }
    Surface& surface = drawing.plot;
    const SavedState saved(surface);
    DrawState state = surface.State();
    state.font = FontInFigure(drawing, kLegendFont);
    state.foreColour = AxesColour(drawing);
    surface.SetState(state);
    const double gap = kGapInPixels * surface.PixelSize().x;
    const double height = surface.TextHeight();
    std::vector<TextBox> written;
    for (std::size_t place = 0; place < rows.table->size(); ++place) {
        if (!IsLabelled(plot, drawing.styles, rows, place)) {
            continue;
        }
        const std::string text = LabelOfRow(plot, rows.table->index[place]);
        const double x = rows.table->x[place];
        const double width = surface.TextWidth(text);
        // To the right, or to the left where the text would cross the rim in the east.
        const double left = x + gap + width <= kNetRadius ? x + gap : x - gap - width;
        const double top = rows.table->y[place] + height / 2;
        const TextBox box{left, top - height, left + width, top};
        if (std::ranges::none_of(written, [&](const TextBox& w) { return Overlap(w, box); })) {
            surface.Text({left, top}, text);
            written.push_back(box);
        }
    }
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "rose/draw_rose.h"

#include "rose/figure_rose.h"
#include "rose/figure_rose_fills.h"
#include "rose/rose_furniture.h"
#include "rose/rose_mean.h"
#include "rose/rose_tables.h"
#include "rose/rose_wedges.h"

namespace quandrel {

void DrawRose(const Plot& plot, const Drawing& drawing) {
    if (HasFigureRoses(drawing)) {
        DrawFigureRose(plot, drawing, LabelRoom::Within);
    } else if (RoseOf(plot).isShown) {
        {
            const NamedGroup group(drawing.plot, "petals", "Petals");
            DrawRoseWedges(plot, drawing);
        }
        {
            const NamedGroup group(drawing.plot, "scale", "Scale");
            DrawRoseScale(plot, drawing);
        }
        const NamedGroup group(drawing.plot, "mean", "Mean");
        DrawRoseMean(plot, drawing);
    }
}

} // namespace quandrel

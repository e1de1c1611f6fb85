// SPDX-License-Identifier: MIT

#include "rose/draw_rose.h"

#include "rose/rose_furniture.h"
#include "rose/rose_mean.h"
#include "rose/rose_tables.h"
#include "rose/rose_wedges.h"

namespace quandrel {

void DrawRose(const Plot& plot, const Drawing& drawing) {
    if (RoseOf(plot).isShown) {
        DrawRoseWedges(plot, drawing);
        DrawRoseScale(plot, drawing);
        DrawRoseMean(plot, drawing);
    }
}

} // namespace quandrel

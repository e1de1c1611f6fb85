// SPDX-License-Identifier: MIT

#include "core/style_preset.h"

#include "core/record_fields.h"

namespace quandrel {

void PresetByStyle(PlotRecord& record, const FigureStyle& style) {
    if (style.roses.outlineWidth == 0) {
        return;
    }
    record.RoseEqualArea = style.roses.equalArea ? kTrue : 0;
    if (style.roses.meanIfSignificant) {
        record.RoseDisplay7 = kTrue;
        record.RoseDisplay8 = kTrue;
    }
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "stereo/row_sense.h"

#include "core/data_format.h"
#include "core/plot_rows.h"
#include "stereo/row_positions.h"
#include "stereo/symbols.h"

namespace quandrel {

bool IsStyledUpward(const Plot& plot, std::int32_t row) {
    const Attitude whole = WholeAttitude(plot.rows, AnglesShown(plot.record, row), row);
    return IsKnown(OrientationShown(plot, row)) && whole.dip < 0;
}

SymbolCode CodeOfNewRow(const Styles& styles, const PlotRecord& record, int overlay, bool upward) {
    if (overlay > 0) {
        const bool isPolar =
            record.OverlayKind[static_cast<std::size_t>(overlay)] == kOverlayPolarLines;
        const int style = isPolar && upward ? overlay + 1 : overlay;
        return CodeOfStyleRow(styles, kFirstOverlaySymbol + style % kOverlaySymbols);
    }
    if (!record.AxesTitle.empty()) {
        const bool isUp = upward && record.DataKind == kPolarLines;
        return CodeOfStyleRow(styles, isUp ? kDerivedUpSymbol : kDerivedSymbol);
    }
    return CodeOfStyleRow(styles, upward ? kUpRowSymbol : kRowSymbol);
}

SymbolCode CodeShown(const Plot& plot, const Styles& styles, std::int32_t row) {
    const SymbolCode own = plot.rows.symbol(row);
    if (plot.record.UseDecimals == 0) {
        return own;
    }
    const Attitude shown = OrientationShown(plot, row);
    const bool isUpward = IsKnown(shown) && shown.dip < 0;
    const bool isStyledUpward = IsStyledUpward(plot, row);
    const int overlay = OverlayOfRow(plot.record, row);
    if (isUpward == isStyledUpward
        || own != CodeOfNewRow(styles, plot.record, overlay, isStyledUpward)) {
        return own;
    }
    return CodeOfNewRow(styles, plot.record, overlay, isUpward);
}

} // namespace quandrel

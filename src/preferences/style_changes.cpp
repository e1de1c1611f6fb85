// SPDX-License-Identifier: MIT

#include "preferences/style_changes.h"

#include "classify/classification.h"
#include "core/item_style.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "input/data_rows.h"
#include "orientation/angles.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <optional>

namespace quandrel {

namespace {

/// The rule of the classes of gActivePlot, if its rows are drawn by class.
std::optional<ClassRule> RuleOfPlot(const PlotRecord& record) {
    const std::optional<ClassColumn> column = ColumnOfClassMode(record.ClassMode);
    return column ? std::optional(RuleOfClassTable(record.ClassTable, *column)) : std::nullopt;
}

} // namespace

StyleChange::StyleChange()
    : axes_(gAxisStyleTable) {
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (IsOpenSlot(slot)) {
            plots_.push_back(CodesOfPlot(slot));
        }
    }
}

StyleChange::PlotCodes StyleChange::CodesOfPlot(int slot) {
    const PlotInWork work(slot);
    PlotCodes codes;
    codes.slot = slot;
    const int overlays =
        std::clamp<int>(ActiveRecord().OverlayRows[kOverlayCount], 0, kMaxOverlays);
    for (int overlay = 0; overlay <= overlays; ++overlay) {
        codes.rows[static_cast<std::size_t>(overlay)] = {
            CodeOfNewRow(ActiveRecord(), overlay, false),
            CodeOfNewRow(ActiveRecord(), overlay, true)};
    }
    for (int number = 1; number < kClassRows; ++number) {
        codes.classes[static_cast<std::size_t>(number)] = CodeOfClass(number);
    }
    return codes;
}

void StyleChange::FollowInGirdles(PlotRecord& record) const {
    for (int item = 0; item < kAxisItems; ++item) {
        const std::size_t row = StyleRowOfItem(item);
        AxisItem& values = record.AxisItems[static_cast<std::size_t>(item)];
        if (HasStyleOfItem(values, axes_[row])) {
            SetStyleOfItem(values, gAxisStyleTable[row]);
        }
    }
}

void StyleChange::FollowInRows(const PlotCodes& former, const PlotCodes& now) {
    const PlotRecord& record = ActiveRecord();
    const std::optional<ClassRule> rule = RuleOfPlot(record);
    for (std::int32_t row = 1; row <= record.NumLoadedData; ++row) {
        const Attitude shown = OrientationShown(gActivePlot, row);
        if (DipOfRow(gActivePlot, row) == kErrorRow) {
            continue;
        }
        SymbolCode& base = gDataSymbolBase.At(gActivePlot, row);
        SymbolCode& drawn = gDataSymbol.At(gActivePlot, row);
        const auto overlay = static_cast<std::size_t>(OverlayOfRow(record, row));
        const SymbolCode formerBase = base;
        const std::size_t own = shown.dip < 0 && shown.dip != kErrorRow ? 1 : 0;
        // Rows of derived lines may have either of their two styles.
        for (const std::size_t sign : {own, 1 - own}) {
            if (formerBase == former.rows[overlay][sign]) {
                base = now.rows[overlay][sign];
                break;
            }
        }
        const int number = rule && overlay == 0 ? ClassOfRow(ActivePlot(), *rule, row) : 0;
        if (number > 0 && number < kClassRows) {
            const auto c = static_cast<std::size_t>(number);
            drawn = drawn == former.classes[c] ? now.classes[c] : drawn;
        } else if (drawn == formerBase) {
            drawn = base;
        }
    }
}

void StyleChange::RedrawStyles() const {
    for (const PlotCodes& former : plots_) {
        {
            const PlotInWork work(former.slot);
            FollowInRows(former, CodesOfPlot(former.slot));
            FollowInGirdles(ActiveRecord());
        }
        RedrawPlot(former.slot);
    }
}

} // namespace quandrel

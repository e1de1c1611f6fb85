// SPDX-License-Identifier: MIT

#include "session/notation.h"

#include "core/plot_store.h"
#include "drawing/legend.h"
#include "orientation/angles.h"
#include "statistics/orientation_notation.h"
#include "statistics/statistics_texts.h"
#include "stereo/axis_rows.h"

namespace quandrel {

namespace {

/// Updates the texts of the girdles that show one: the plane whose pole is the girdle's.
void NameGirdles(PlotRecord& record) {
    for (std::size_t item = kFirstUserGirdle; item < record.AxisItems.size(); ++item) {
        auto& values = record.AxisItems[item];
        if (!TextOf(values[kItemText]).empty() && !IsEmpty(values[kItemPlunge])) {
            values[kItemText] = TextOfPlaneOfPole(
                NumberOf(values[kItemPlunge]), NumberOf(values[kItemTrend]), DecimalsShown(record));
        }
    }
}

void RenewTextsOfActivePlot() {
    PlotRecord& record = ActiveRecord();
    NameGirdles(record);
    WriteStatisticsBoxes();
    if (HoldsBothAxes(record)) {
        DrawLegend();
    }
}

} // namespace

Notation NotationInForce() {
    return {gConventions, gPlaneSeparator, gLineSeparator};
}

void RenewOrientationTexts() {
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (IsOpenSlot(slot) && RecordOf(slot).PlotKind != kRose) {
            const PlotInWork work(slot);
            RenewTextsOfActivePlot();
        }
    }
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "session/notation.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "drawing/legend.h"
#include "orientation/angles.h"
#include "statistics/orientation_notation.h"
#include "statistics/statistics_texts.h"
#include "stereo/axis_rows.h"

namespace quandrel {

namespace {

constexpr std::size_t kFirstNamedItem = 1; // the mean arrow has no plane

/// The planes of the girdles that have a text of one.
void NameGirdles(PlotRecord& record) {
    for (std::size_t item = kFirstNamedItem; item < record.AxisItems.size(); ++item) {
        auto& values = record.AxisItems[item];
        if (!TextOf(values[1]).empty() && !IsEmpty(values[2])) {
            values[1] = TextOfPlaneOfPole(NumberOf(values[2]), NumberOf(values[3]));
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

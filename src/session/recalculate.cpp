// SPDX-License-Identifier: MIT

#include "session/recalculate.h"

#include "core/data_format.h"
#include "core/plot_formulas.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "derive/secondary_data.h"
#include "rose/rose_sectors.h"
#include "statistics/fabric_statistics.h"
#include "statistics/statistics_texts.h"
#include "stereo/row_positions.h"

namespace quandrel {

namespace {

/// Recalculates the statistics of a plot by the formulas in force for it, and redraws it.
void RenewResults(int slot) {
    const PlotInWork work(slot);
    if (ActiveRecord().PlotKind != kRose) {
        ComputeFabricStatistics();
    }
    RedrawPlot(slot); // a rose made with other formulas is outdated
    WriteStatisticsBoxes();
}

} // namespace

void RecalculateActivePlot() {
    ForgetAcceptedSectorSize(ActivePlot());
    RefreshSecondaryOverlay();
    ReplotActivePlot(true);
}

void UseDecimals(int slot, bool on) {
    if (gBusy || !IsOpenSlot(slot)) {
        return;
    }
    PlotRecord& record = RecordOf(slot);
    if ((record.UseDecimals != 0) != on) {
        record.UseDecimals = on ? kTrue : std::int16_t{0};
        RebuildRowTable(slot);
    }
    ReplotPlot(slot, ReplotCause::Settings);
}

void UseFormulas(Formulas formulas) {
    gSettings.notation.formulas = formulas;
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (IsOpenSlot(slot) && RecordOf(slot).PlotFormulas == kFormulasOfPreferences) {
            RenewResults(slot);
        }
    }
}

void UsePlotFormulas(int slot, std::int16_t choice) {
    if (gBusy || !IsOpenSlot(slot)) {
        return;
    }
    PlotRecord& record = RecordOf(slot);
    const Formulas former = FormulasInForce(record);
    record.PlotFormulas = choice;
    if (FormulasInForce(record) != former) {
        RenewResults(slot);
    }
}

} // namespace quandrel

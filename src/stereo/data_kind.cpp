// SPDX-License-Identifier: MIT

#include "stereo/data_kind.h"

#include "core/plot_store.h"
#include "core/replot.h"
#include "stereo/row_positions.h"

namespace quandrel {

void SetDataType(std::int16_t kind) {
    PlotRecord& record = ActiveRecord();
    if (record.DataKind != kind) {
        record.DataKind = kind;
        RebuildRowTable(gActivePlot);
    }
    ReplotActivePlot(false);
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "program/reference.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "rose/rose_reference.h"
#include "statistics/reference_entries.h"

namespace quandrel {

std::vector<ReferenceLine> ReferenceOfActivePlot() {
    const PlotRecord& record = ActiveRecord();
    if (record.PlotKind == kRose) {
        const auto reference = RoseReferenceOfActivePlot();
        return reference ? RoseReferenceLines(*reference, record) : std::vector<ReferenceLine>();
    }
    const auto reference = ReferenceStatisticsOfActivePlot();
    return reference ? ReferenceEntries(*reference, record) : std::vector<ReferenceLine>();
}

} // namespace quandrel

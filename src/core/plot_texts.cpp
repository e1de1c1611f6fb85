// SPDX-License-Identifier: MIT

#include "core/plot_texts.h"

#include "core/plot_store.h"

#include <utility>

namespace quandrel {

const PlotStatistics& StatisticsOf(const Plot& plot) {
    static const PlotStatistics none;
    const auto* const kept = plot.attachments.Find<PlotStatistics>();
    return kept == nullptr ? none : *kept;
}

const std::string& StatisticsInUse(const Plot& plot) {
    const PlotStatistics& texts = StatisticsOf(plot);
    return plot.record.StatsBoxKind != 0 ? texts.advanced : texts.normal;
}

void KeepNormalStatistics(int slot, std::string text) {
    FormOf(slot).SetBoxText(PlotBox::StatsNormal, text);
    PlotOf(slot).attachments.Of<PlotStatistics>().normal = std::move(text);
}

void KeepAdvancedStatistics(int slot, std::string text) {
    FormOf(slot).SetBoxText(PlotBox::StatsAdvanced, text);
    PlotOf(slot).attachments.Of<PlotStatistics>().advanced = std::move(text);
}

} // namespace quandrel

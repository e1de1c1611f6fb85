// SPDX-License-Identifier: MIT

#include "core/plot_texts.h"

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

void KeepNormalStatistics(Plot& plot, std::string text) {
    if (plot.form != nullptr) {
        plot.form->SetBoxText(PlotBox::StatsNormal, text);
    }
    plot.attachments.Of<PlotStatistics>().normal = std::move(text);
}

void KeepAdvancedStatistics(Plot& plot, std::string text) {
    if (plot.form != nullptr) {
        plot.form->SetBoxText(PlotBox::StatsAdvanced, text);
    }
    plot.attachments.Of<PlotStatistics>().advanced = std::move(text);
}

} // namespace quandrel

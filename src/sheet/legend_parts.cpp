// SPDX-License-Identifier: MIT

#include "sheet/legend_parts.h"

#include "drawing/legend_placer.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace quandrel {

namespace {

double WidthOf(const LegendPlacer& part) {
    return std::max(part.EntryWidth(), part.BarWidth());
}

} // namespace

std::vector<FigureLegend> PartsOf(SharedLegend shared) {
    std::vector<FigureLegend> parts;
    for (FigureEntry& entry : shared.entries) {
        parts.push_back({{std::move(entry)}, {}});
    }
    for (FigureBar& bar : shared.bars) {
        parts.push_back({{}, {std::move(bar)}});
    }
    return parts;
}

double WidestOf(const std::vector<FigureLegend>& parts, const TextRule& rule) {
    double width = 0;
    for (const FigureLegend& part : parts) {
        width = std::max(width, WidthOf(LegendPlacer(part, rule)));
    }
    return width;
}

double PlaceParts(const std::vector<FigureLegend>& parts, const TextRule& rule,
                  const FigureBox& room, std::size_t columns, FigureLayout& legend) {
    const double pitch = (room.width + kLegendGap) / static_cast<double>(columns);
    double top = room.top;
    for (std::size_t i = 0; i < parts.size(); i += columns) {
        double height = 0;
        const bool hasBars = std::any_of(
            parts.begin() + static_cast<std::ptrdiff_t>(i),
            parts.begin() + static_cast<std::ptrdiff_t>(std::min(i + columns, parts.size())),
            [](const FigureLegend& part) { return !part.bars.empty(); });
        top += hasBars && i > 0 ? kLegendGap / 2 : 0;
        for (std::size_t k = i; k < std::min(i + columns, parts.size()); ++k) {
            const double left = room.left + static_cast<double>(k - i) * pitch;
            height = std::max(
                height,
                LegendPlacer(parts[k], rule).InColumn(left, top, pitch - kLegendGap, legend));
        }
        top += height;
    }
    return top - room.top;
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "drawing/legend_placer.h"

#include <algorithm>

namespace quandrel {

namespace {

constexpr double kBarLength = 32;
constexpr double kBarHeight = 3;
constexpr double kNumberGap = 1;

double SignSpace(const FigureEntry& entry) {
    return entry.sign == FigureSign::None ? 0 : kLegendSignWidth + kLegendSignGap;
}

} // namespace

double LegendPlacer::EntryWidth() const {
    double width = 0;
    for (const FigureEntry& entry : legend_.entries) {
        width = std::max(width, SignSpace(entry) + rule_.Width(entry.text));
    }
    return width;
}

double LegendPlacer::BarWidth() const {
    double width = 0;
    for (const FigureBar& bar : legend_.bars) {
        width = std::max({width, kBarLength, rule_.Width(bar.title)});
    }
    return width;
}

double LegendPlacer::InColumn(double left, double top, double width, FigureLayout& layout) const {
    double at = top;
    at += Entries(0, legend_.entries.size(), {left, at, width, 0}, layout);
    if (!legend_.bars.empty()) {
        at += at > top ? kLegendGap : 0;
        at += BarsInColumn({left, at, width, 0}, layout);
    }
    return at - top;
}

double LegendPlacer::Below(double left, double top, double width, FigureLayout& layout) const {
    const double entry = EntryWidth();
    const std::size_t count = legend_.entries.size();
    if (!legend_.bars.empty() && count > 0 && BarWidth() + kLegendGap + entry <= width) {
        const double start = left + (width - BarWidth() - kLegendGap - entry) / 2;
        const double bar = BarsInColumn({start, top, BarWidth(), 0}, layout);
        const double rest =
            Entries(0, count, {start + BarWidth() + kLegendGap, top, entry, 0}, layout);
        return std::max(bar, rest);
    }
    if (count < 2 || 2 * entry + kLegendGap > width) {
        const double column = std::min(width, std::max(entry, BarWidth()));
        return InColumn(left + (width - column) / 2, top, column, layout);
    }
    const double start = left + (width - 2 * entry - kLegendGap) / 2;
    const std::size_t half = (count + 1) / 2;
    double height = Entries(0, half, {start, top, entry, 0}, layout);
    height =
        std::max(height, Entries(half, count, {start + entry + kLegendGap, top, entry, 0}, layout));
    if (!legend_.bars.empty()) {
        const double column = std::min(width, BarWidth());
        height += kLegendGap;
        height += BarsInColumn({left + (width - column) / 2, top + height, column, 0}, layout);
    }
    return height;
}

double LegendPlacer::Entries(std::size_t first, std::size_t last, const FigureBox& column,
                             FigureLayout& layout) const {
    double top = column.top;
    for (std::size_t i = first; i < last; ++i) {
        PlacedEntry placed;
        placed.entry = legend_.entries[i];
        const double room = column.width - SignSpace(placed.entry);
        placed.lines = rule_.Wrapped(placed.entry.text, room);
        const double height = line_ * static_cast<double>(placed.lines.size());
        placed.box = {column.left, top, SignSpace(placed.entry) + rule_.Width(placed.lines),
                      height};
        top += height;
        layout.entries.push_back(std::move(placed));
    }
    return top - column.top;
}

/// The numbers of a bar must not touch.
std::size_t LegendPlacer::StrideOf(const FigureBar& bar, double length) const {
    const double pitch = length / static_cast<double>(bar.colours.size());
    std::size_t stride = 1;
    while (static_cast<double>(stride) * pitch < rule_.Width(bar.numbers) + kNumberGap
           && stride < bar.numbers.size()) {
        ++stride;
    }
    return stride;
}

double LegendPlacer::BarsInColumn(const FigureBox& column, FigureLayout& layout) const {
    double height = 0;
    for (const FigureBar& bar : legend_.bars) {
        height += height > 0 ? kLegendGap : 0;
        height += Bar(bar, {column.left, column.top + height, column.width, 0}, layout);
    }
    return height;
}

double LegendPlacer::Bar(const FigureBar& bar, const FigureBox& column,
                         FigureLayout& layout) const {
    PlacedBar placed;
    placed.bar = bar;
    const double inset = rule_.Width(placed.bar.numbers.front()) / 2;
    placed.colours = {column.left + inset, column.top + (line_ - kBarHeight) / 2,
                      std::min(kBarLength, column.width) - 2 * inset, kBarHeight};
    placed.colours.top = std::max(placed.colours.top, column.top);
    placed.stride = StrideOf(placed.bar, placed.colours.width);
    placed.title = rule_.Wrapped(placed.bar.title, column.width);
    const double numbers = placed.colours.top + kBarHeight + kLegendBarTick - column.top;
    placed.box = {column.left, column.top,
                  std::max(placed.colours.width + 2 * inset, rule_.Width(placed.title)),
                  numbers + line_ * static_cast<double>(1 + placed.title.size())};
    const double height = placed.box.height;
    layout.bars.push_back(std::move(placed));
    return height;
}

} // namespace quandrel

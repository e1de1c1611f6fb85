// SPDX-License-Identifier: MIT
//
// Places for the entries and the bar of a figure's legend, millimetres.

#pragma once

#include "drawing/figure_layout.h"
#include "drawing/figure_text_rule.h"

#include <cstddef>
#include <utility>

namespace quandrel {

inline constexpr double kLegendGap = 3; ///< between columns, and between entries and bar
inline constexpr double kLegendSignWidth = 6;
inline constexpr double kLegendSignGap = 1.5; ///< from a sign to its text
inline constexpr double kLegendLeading = 1.2; ///< from line to line, in heights of the text
inline constexpr double kLegendBarTick = 0.8;

/// Arranges a legend in a width.
class LegendPlacer {
public:
    /// @param rule  must outlive the placer
    LegendPlacer(FigureLegend legend, const TextRule& rule)
        : legend_(std::move(legend))
        , rule_(rule)
        , line_(rule.Height() * kLegendLeading) {}

    [[nodiscard]] bool IsEmpty() const { return legend_.entries.empty() && legend_.bars.empty(); }

    /// The width of the widest entry in one line.
    [[nodiscard]] double EntryWidth() const;

    [[nodiscard]] double BarWidth() const;

    /// Adds the legend to a layout, in one column, the bars last. Returns its height.
    [[nodiscard]] double InColumn(double left, double top, double width,
                                  FigureLayout& layout) const;

    /// The same below a net: as many columns as fit, two at most.
    [[nodiscard]] double Below(double left, double top, double width, FigureLayout& layout) const;

private:
    [[nodiscard]] double Entries(std::size_t first, std::size_t last, const FigureBox& column,
                                 FigureLayout& layout) const;
    [[nodiscard]] std::size_t StrideOf(const FigureBar& bar, double length) const;
    /// All bars, one below the other. Returns their height.
    [[nodiscard]] double BarsInColumn(const FigureBox& column, FigureLayout& layout) const;
    [[nodiscard]] double Bar(const FigureBar& bar, const FigureBox& column,
                             FigureLayout& layout) const;

    FigureLegend legend_;
    const TextRule& rule_;
    double line_;
};

} // namespace quandrel

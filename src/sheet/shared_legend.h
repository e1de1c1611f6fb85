// SPDX-License-Identifier: MIT
//
// The legend that the panels of a figure sheet share: what they show, each once.

#pragma once

#include "sheet/sheet_layout.h"

#include <vector>

namespace quandrel {

/// Entries and bars of all panels, in the order of the panels. Entries with the same sign whose
/// texts differ in their numbers alone ("Poles to bedding, n = 40", "Best girdle 252/71") are one,
/// without numbers; those stay in the caption. Bars that differ, and notes such as the
/// scale of a rose that are of some panels alone, name their panels by their letters.
struct SharedLegend {
    std::vector<FigureEntry> entries;
    std::vector<FigureBar> bars;
};

/// @param unseen  measures texts; its state changes
[[nodiscard]] SharedLegend SharedLegendOf(const FigureSheet& sheet,
                                          const std::vector<PanelContent>& contents,
                                          const SheetLook& look, Surface& unseen);

/// The words of the text of an entry: without ", n = 40" and without an orientation at the end.
[[nodiscard]] std::string WordsOfEntry(const std::string& text);

} // namespace quandrel

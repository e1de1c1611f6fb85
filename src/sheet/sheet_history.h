// SPDX-License-Identifier: MIT
//
// The history of a figure sheet that is being edited.

#pragma once

#include "sheet/figure_sheet.h"

#include <cstddef>
#include <vector>

namespace quandrel {

class SheetHistory {
public:
    /// Older steps are forgotten.
    static constexpr std::size_t kMostSteps = 50;

    /// Begins with a sheet, without anything to undo.
    void Begin(const FigureSheet& sheet);

    /// Adds a sheet as a step if it differs from the present one. What was undone is then gone.
    void Record(const FigureSheet& sheet);

    [[nodiscard]] bool CanUndo() const { return !past_.empty(); }

    [[nodiscard]] bool CanRedo() const { return !future_.empty(); }

    /// The sheet one step back or forward, which is then the present one; the present one if there
    /// is no step.
    [[nodiscard]] const FigureSheet& Undo();
    [[nodiscard]] const FigureSheet& Redo();

private:
    void Step(std::vector<FigureSheet>& from, std::vector<FigureSheet>& to);

    FigureSheet present_;
    std::vector<FigureSheet> past_;   ///< the latest last
    std::vector<FigureSheet> future_; ///< the next last
};

} // namespace quandrel

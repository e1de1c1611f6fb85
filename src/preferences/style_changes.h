// SPDX-License-Identifier: MIT
//
// The effect of a change of the style tables on the open plots. Rows, and the girdles and axes of
// plot records, contain copies of styles.

#pragma once

#include "core/plot_record.h"
#include "core/style_tables.h"

#include <array>
#include <vector>

namespace quandrel {

/// Stores the style tables before a change. RedrawStyles then updates the open plots.
class StyleChange {
public:
    StyleChange();
    ~StyleChange() = default;
    StyleChange(const StyleChange&) = delete;
    StyleChange& operator=(const StyleChange&) = delete;

    /// Each row of an open plot that still has the former code of its style gets the new code; so
    /// do the styles of classes and girdles. Then the plots are redrawn. Changes made by hand are
    /// kept. Nothing is recalculated. O(rows).
    void RedrawStyles() const;

private:
    /// The codes of new rows of one set, of downward and of upward lines.
    using CodePair = std::array<SymbolCode, 2>;

    /// The codes that the plot of a slot takes from the tables.
    struct PlotCodes {
        int slot = 0;
        std::array<CodePair, kMaxOverlays + 1> rows{}; ///< [0] main rows, [k] overlay k
        std::array<SymbolCode, kClassRows> classes{};  ///< [c] of class c
    };

    [[nodiscard]] static PlotCodes CodesOfPlot(int slot);
    void FollowInGirdles(PlotRecord& record) const;
    static void FollowInRows(const PlotCodes& former, const PlotCodes& now);

    std::array<AxisStyle, 5> axes_;
    std::vector<PlotCodes> plots_;
};

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// What a change of the style tables does to the open plots: rows, and the girdles and axes of their
// records, hold copies of styles.

#pragma once

#include "core/plot_record.h"
#include "core/style_tables.h"

#include <array>
#include <vector>

namespace quandrel {

/// Remembers the style tables as they are; once they have changed, RedrawStyles brings the open
/// plots in line.
class StyleChange {
public:
    StyleChange();
    ~StyleChange() = default;
    StyleChange(const StyleChange&) = delete;
    StyleChange& operator=(const StyleChange&) = delete;

    /// Gives each row of an open plot that still has the former code of its style the new one, the
    /// same for the styles of classes and girdles, and draws the plots anew. What was changed by
    /// hand stays. Nothing is worked out anew. O(rows).
    void RedrawStyles() const;

private:
    /// The codes of new rows of one set, of downward and of upward lines.
    using CodePair = std::array<SymbolCode, 2>;

    /// What the open plot of a slot takes from the tables.
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

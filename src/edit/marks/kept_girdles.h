// SPDX-License-Identifier: MIT
//
// The girdles that the user has set in a plot, as a property that undo keeps (plot_change.h).

#pragma once

#include "core/plot_record.h"
#include "edit/history/plot_change.h"

#include <array>
#include <vector>

namespace quandrel {

struct GirdlesProperty {
    /// The rows of AxisItems that are the user's, in their order.
    using Value = std::vector<std::array<TaggedValue, kAxisValues>>;
    static constexpr PlotPart kPart = PlotPart::Girdles;

    [[nodiscard]] static Value Of(int slot);
    static void Give(int slot, const Value& girdles);
    [[nodiscard]] static std::uint64_t FingerprintOf(int slot);
    [[nodiscard]] static std::size_t BytesOf(const Value& girdles);
};

} // namespace quandrel

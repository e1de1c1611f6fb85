// SPDX-License-Identifier: MIT
//
// The user's girdles of a plot as an undoable property (plot_change.h).

#pragma once

#include "core/plot_record.h"
#include "edit/history/plot_change.h"

#include <array>
#include <vector>

namespace quandrel {

struct GirdlesProperty {
    /// The user's rows of AxisItems, in their order.
    using Value = std::vector<std::array<TaggedValue, kAxisValues>>;
    static constexpr PlotPart kPart = PlotPart::Girdles;

    [[nodiscard]] static Value Of(int slot);
    static void Give(int slot, const Value& girdles);
    [[nodiscard]] static std::uint64_t FingerprintOf(int slot);
    [[nodiscard]] static std::size_t BytesOf(const Value& girdles);
};

} // namespace quandrel

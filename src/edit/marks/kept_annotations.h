// SPDX-License-Identifier: MIT
//
// The annotations of a plot as an undoable property (plot_change.h).

#pragma once

#include "core/plot_record.h"
#include "edit/history/plot_change.h"

namespace quandrel {

/// The annotations of a plot.
struct KeptAnnotations {
    Annotations annotations;
    std::int16_t shown = 0;
};

struct AnnotationsProperty {
    using Value = KeptAnnotations;
    static constexpr PlotPart kPart = PlotPart::Marks;

    [[nodiscard]] static KeptAnnotations Of(int slot);
    static void Give(int slot, const KeptAnnotations& kept);

    /// A hash of the annotations; their visibility is not included.
    [[nodiscard]] static std::uint64_t FingerprintOf(int slot);
    [[nodiscard]] static std::size_t BytesOf(const KeptAnnotations& kept);
};

using AnnotationsChange = PropertyChange<AnnotationsProperty>;

} // namespace quandrel

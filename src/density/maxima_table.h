// SPDX-License-Identifier: MIT
//
// The local maxima of a plot's density as a table.

#pragma once

#include "core/plot.h"
#include "density/field_maxima.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quandrel {

/// A local maximum, and the main rows within the cone of the method about it, or within the
/// half-width of a kernel.
struct DensityMaximum {
    FieldMaximum at; ///< the density in the plot's unit
    std::int32_t rows = 0;
};

/// The maxima of the density of a plot, highest first. Empty where it shows none by its own choice.
[[nodiscard]] std::vector<DensityMaximum> MaximaOf(Plot& plot);

/// The maxima as text with tabs, one for each line after the headings: rank, plunge and trend in
/// degrees with one decimal, density, rows.
[[nodiscard]] std::string TextOfMaxima(const Plot& plot, const std::vector<DensityMaximum>& maxima);

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Public choices of densities as plots keep them.

#pragma once

#include "core/record_density_view.h"
#include "quandrel/smooth_density.h"

namespace quandrel::api {

/// The view of a checked choice, with doubling levels.
[[nodiscard]] RecordDensityView ViewIn(const DensityChoice& choice);

} // namespace quandrel::api

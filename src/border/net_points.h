// SPDX-License-Identifier: MIT
//
// Conversion of positions on the net: plot units in the engine, radii of the primitive in the
// interface.

#pragma once

#include "platform/surface.h"
#include "quandrel/net.h"

#include <span>

namespace quandrel::api {

/// The kernels' code of a checked projection.
[[nodiscard]] int KindOf(Projection projection);

/// Points in plot units as a line in radii.
[[nodiscard]] NetLine NetLineOf(std::span<const Point> points);

} // namespace quandrel::api

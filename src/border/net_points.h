// SPDX-License-Identifier: MIT
//
// Positions on the net across the border: plot units inside, radii of the primitive outside.

#pragma once

#include "platform/surface.h"
#include "quandrel/net.h"

#include <span>

namespace quandrel::api {

/// The kind of a checked projection, as the kernels number them.
[[nodiscard]] int KindOf(Projection projection);

/// Points in plot units as a line in radii.
[[nodiscard]] NetLine NetLineOf(std::span<const Point> points);

} // namespace quandrel::api

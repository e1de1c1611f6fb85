// SPDX-License-Identifier: MIT
//
// The local maxima of a smooth field over the net.

#pragma once

#include "density/field_contours.h"

#include <vector>

namespace quandrel {

/// Whether the ends of a diameter of the primitive are one place.
enum class NetRim {
    Joined, ///< of axes: the field goes on at the opposite trend
    Open,   ///< of directions: the field goes on above the primitive
};

/// A local maximum.
struct FieldMaximum {
    NetPlace place;
    double value = 0;
};

/// The local maxima of a field, highest first; of equal ones the steeper plunge, then the lesser
/// trend. Places are accurate to 1e-4 degree in fields that bend there. Of an even part of the
/// field, the node nearest to its middle stands for all. A field that is even everywhere has none.
[[nodiscard]] std::vector<FieldMaximum> FieldMaxima(const NetField& field, NetRim rim);

} // namespace quandrel

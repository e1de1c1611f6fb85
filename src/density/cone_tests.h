// SPDX-License-Identifier: MIT
//
// Which axes of a list lie within a cone, in single precision where that decides.
//
// Four axes fit a register in single precision and the loops below have no branches, so that the
// compiler makes vector instructions of them. Only where an axis lies so near the bound that
// rounding could matter is the product computed again in double precision.

#pragma once

#include "orientation/angles.h"
#include "orientation/direction_vectors.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace quandrel {

/// True when two axes are no further apart than a cone's half-angle: the rule of all counts here.
///
/// @param cosine  of the half-angle
[[nodiscard]] inline bool AreWithin(const Direction& a, const Direction& b, double cosine) {
    return std::abs(DotProduct(a, b)) >= cosine;
}

/// Products of two axes in single precision are off by less than this: by five roundings to 24
/// bits, 3e-7, of sums whose terms add up to 1 at most, and by that of the bound.
inline constexpr double kDoubtOfProduct = 3.5e-7;

/// Axes in single precision, by component.
struct AxisColumns {
    const float* norths = nullptr;
    const float* easts = nullptr;
    const float* downs = nullptr;

    [[nodiscard]] AxisColumns From(std::size_t first) const {
        return {norths + first, easts + first, downs + first};
    }
};

/// A cone in single precision, with a bound inside which axes surely lie within, and one outside
/// which they surely do not.
struct RoughCone {
    float north = 0;
    float east = 0;
    float down = 0;
    float innerCosine = 0;
    float outerCosine = 0;

    /// Of a cone about any of some axes.
    ///
    /// @param inner,outer  cosines of the cones that all such cones contain, and that contain all;
    ///                     the same for one cone
    RoughCone(const Direction& centre, double inner, double outer)
        : north(static_cast<float>(centre.l))
        , east(static_cast<float>(centre.m))
        , down(static_cast<float>(centre.n))
        , innerCosine(static_cast<float>(inner + kDoubtOfProduct))
        , outerCosine(static_cast<float>(outer - kDoubtOfProduct)) {}

    /// The cosine of the distance of the centre and an axis.
    [[nodiscard]] float CosineTo(const AxisColumns& axes, std::size_t i) const {
        return std::abs(axes.norths[i] * north + axes.easts[i] * east + axes.downs[i] * down);
    }
};

/// Bounds of a count.
struct CountBounds {
    std::int32_t least = 0;
    std::int32_t most = 0;

    [[nodiscard]] bool AreEqual() const { return least == most; }
};

/// How many of `count` axes lie within a cone. Uses the widest registers of the processor; the
/// counts do not depend on them.
[[nodiscard]] CountBounds CountRoughly(const AxisColumns& axes, std::size_t count,
                                       const RoughCone& cone);

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Axes of any direction, sorted for counting within cones.
//
// Axes are undirected: an axis and its opposite are one, and the distance of two is their acute
// angle. They are kept in a tree of cells on the sphere. A cone takes cells that lie wholly within
// it at once, leaves out those wholly outside, and looks at single axes only at its border. The
// counts are exactly those of looking at each axis: the same sums of products, the same bound.

#pragma once

#include "orientation/angles.h"

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace quandrel {

/// True when two axes are no further apart than a cone's half-angle: the rule of all counts here.
///
/// @param cosine  of the half-angle
[[nodiscard]] inline bool AreWithin(const Direction& a, const Direction& b, double cosine) {
    const double product = a.l * b.l + a.m * b.m + a.n * b.n;
    return product >= cosine || -product >= cosine;
}

class AxisTree {
public:
    /// Sorts axes. O(n log n); 32 bytes an axis that differs from the others.
    ///
    /// @param axes  unit vectors in either sense, at most 2^31 - 1
    explicit AxisTree(std::span<const Direction> axes);

    /// How many axes there are, equal ones included.
    [[nodiscard]] std::int32_t Count() const { return count_; }

    /// How many axes lie within a cone, the bound included.
    ///
    /// @param centre     unit vector
    /// @param halfAngle  radians, 0 to kPi / 2
    [[nodiscard]] std::int32_t CountWithin(const Direction& centre, double halfAngle) const;

    /// What the cones about the axes themselves hold.
    struct Classes {
        std::vector<std::int32_t> ofAxis; ///< by the order of the constructor's axes
        std::int32_t greatest = 0;        ///< the greatest count; 0 without axes
    };

    /// Counts the axes within a cone about each axis, itself included, as far as its class needs
    /// it: cells whose axes all have one class are settled together.
    ///
    /// @param halfAngle  radians, 0 to kPi / 4
    /// @param classOf    class of a count; must not fall as the count rises. Called by `threads`
    ///                   threads at once
    /// @param threads    1 or more; the result does not depend on it
    [[nodiscard]] Classes ClassesOfCounts(double halfAngle,
                                          const std::function<std::int32_t(std::int32_t)>& classOf,
                                          unsigned threads) const;

private:
    friend class AxisTreeBuilder;
    friend class ConeCounter;
    friend class ClassFinder;

    /// Equal axes.
    struct Leaf {
        Direction axis;
        std::int32_t axes = 0; ///< how many
    };

    /// A cell with the leaves in it.
    struct Cell {
        Direction centre;
        double cosRadius = 1; ///< of the angle from the centre that no axis of the cell exceeds
        double sinRadius = 0;
        std::int32_t axes = 0;
        std::int32_t firstLeaf = 0;
        std::int32_t leaves = 0;
        std::int32_t firstChild = 0; ///< children follow one another
        std::int32_t children = 0;   ///< 0 for a cell whose leaves are looked at one by one
    };

    /// Some hundred cells that hold all leaves, for threads to take one after the other.
    [[nodiscard]] std::vector<std::int32_t> CellsForThreads() const;

    std::vector<Leaf> leaves_;
    std::vector<std::int32_t> leafOf_; ///< by the order of the constructor's axes
    std::vector<Cell> cells_;          ///< the roots first
    std::int32_t roots_ = 0;
    std::int32_t count_ = 0;
};

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Some axes of the cells, gathered so that many cones can be tested against them.

#pragma once

#include "density/axis_cells.h"
#include "density/cone_tests.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quandrel {

class AxisList {
public:
    /// An empty list of axes of these cells, which must outlive it.
    explicit AxisList(const AxisCells& axes)
        : axes_(&axes) {}

    /// Empties the list and makes room. The axes appended later must not be more.
    void Clear(std::size_t room);

    /// Appends the axes of a run.
    void Append(const AxisRun& run);

    /// How many axes of the list lie within a cone.
    ///
    /// @param cosine  of the half-angle
    [[nodiscard]] std::int32_t CountWithin(const Direction& centre, double cosine) const;

    /// Bounds of the same for cones about different centres, which `cones` describes.
    [[nodiscard]] CountBounds Count(const RoughCone& cones) const {
        return CountRoughly(Columns(), count_, cones);
    }

    /// A shorter list for these cones, without short runs that lie wholly within or outside.
    ///
    /// @param[in,out] inside  the axes left out that lie within all cones are added
    [[nodiscard]] AxisList Between(const RoughCone& cones, std::int32_t& inside) const;

private:
    /// A run and where it is in the list.
    struct ListedRun {
        AxisRun run;
        std::size_t at = 0;
    };

    [[nodiscard]] AxisColumns Columns() const {
        return {norths_.data(), easts_.data(), downs_.data()};
    }

    [[nodiscard]] std::int32_t CountDoubtful(std::size_t first, std::size_t end,
                                             const RoughCone& cone, const Direction& centre,
                                             double cosine) const;
    [[nodiscard]] std::int32_t PlaceOf(std::size_t i) const;

    const AxisCells* axes_;
    std::size_t count_ = 0;
    std::vector<float> norths_;
    std::vector<float> easts_;
    std::vector<float> downs_;
    std::vector<ListedRun> runs_; ///< none is empty
};

} // namespace quandrel

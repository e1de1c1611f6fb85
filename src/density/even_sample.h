// SPDX-License-Identifier: MIT
//
// Samples of rows spread evenly over the net.

#pragma once

#include "density/density_method.h"
#include "orientation/angles.h"
#include "orientation/direction_vectors.h"
#include "orientation/random_stream.h"
#include "stereo/distinct_lines.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quandrel {

/// Even rows: axes pointing down, or directions.
///
/// @param wholeDegrees  plunge and trend are rounded to whole degrees
[[nodiscard]] std::vector<Direction> EvenDirections(std::int64_t rows, RandomStream& random,
                                                    bool wholeDegrees, LineSense sense);

/// Even rows in buckets, so that those near a place are found quickly.
class EvenSample {
public:
    /// @param rows   of EvenDirections
    /// @param reach  cosine of the angle within which rows are looked for
    EvenSample(std::vector<Direction> rows, LineSense sense, double reach);

    /// Calls a function with the cosine of the angle between a place that does not point up and
    /// each row within reach. Of axes the nearer end counts.
    template <class Visit>
    void VisitNear(const Direction& place, const Visit& visit) const {
        const int ring = RingOf(place.n);
        for (int r = std::max(ring - 1, 0); r <= std::min(ring + 1, Rings() - 1); ++r) {
            VisitRing(place, r, visit);
        }
    }

private:
    [[nodiscard]] int Rings() const { return static_cast<int>(cellsOfRing_.size()); }

    [[nodiscard]] int RingOf(double down) const;
    [[nodiscard]] int CellOf(const Direction& row, int ring) const;
    void Sort(const std::vector<Direction>& rows);

    template <class Visit>
    void VisitRing(const Direction& place, int ring, const Visit& visit) const {
        const int cells = cellsOfRing_[static_cast<std::size_t>(ring)];
        const int cell = CellOf(place, ring);
        const int first = cells <= 3 ? 0 : cell - 1;
        const int count = cells <= 3 ? cells : 3;
        for (int k = 0; k < count; ++k) {
            const std::size_t bucket = firstOfRing_[static_cast<std::size_t>(ring)]
                                       + static_cast<std::size_t>((first + k + cells) % cells);
            for (std::size_t i = starts_[bucket]; i < starts_[bucket + 1]; ++i) {
                const Direction& row = rows_[i];
                const double cosine = DotProduct(row, place);
                if (cosine >= reach_) {
                    visit(std::min(cosine, 1.0));
                }
            }
        }
    }

    double reach_;
    double height_; ///< of a ring, radians
    std::vector<int> cellsOfRing_;
    std::vector<std::size_t> firstOfRing_;
    std::vector<std::size_t> starts_;
    std::vector<Direction> rows_; ///< of axes near the primitive both ends
};

/// Even rows as numbers in cells of whole degrees, each drawn by itself (Poisson): their sum is
/// near the wanted number.
[[nodiscard]] std::vector<DistinctLine> EvenCells(std::int64_t rows, RandomStream& random,
                                                  LineSense sense);

} // namespace quandrel

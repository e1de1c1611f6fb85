// SPDX-License-Identifier: MIT
//
// The azimuths of the rows of a rose as it shows them: of planes the strikes, of lines that point
// up the directions to which they point.

#pragma once

#include "rose/rose_count.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quandrel {

/// The azimuths of rows, each with a place in a list of the different ones: of whole degrees 0 to
/// 360, of measured rows those that occur.
class ShownAzimuths {
public:
    /// The arguments must outlive the object. O(1) for whole degrees, O(n log n) for measured rows.
    ShownAzimuths(const RoseCountSettings& settings, const RoseRows& rows);

    /// Degrees from 0 to 360, ascending.
    [[nodiscard]] const std::vector<double>& Different() const { return different_; }

    /// The place of a row's azimuth. The row must have an orientation.
    [[nodiscard]] std::size_t PlaceOf(std::size_t row) const {
        return rows_.measured.empty() ? WholeAzimuth(row) : places_[row];
    }

private:
    /// From the azimuth in the columns to the one that is shown.
    [[nodiscard]] std::int32_t TurnOf(bool pointsUp) const {
        return settings_.strikes ? 90 : settings_.polar && pointsUp ? 180 : 0;
    }

    [[nodiscard]] std::size_t WholeAzimuth(std::size_t row) const {
        std::int32_t shown = rows_.azimuths[row] + TurnOf(rows_.dips[row] < 0);
        if (shown < 0 || shown > 360) {
            shown %= 360;
        }
        return static_cast<std::size_t>(shown < 0 ? shown + 360 : shown);
    }

    [[nodiscard]] double MeasuredAzimuth(std::size_t row) const;
    void FindDifferent();

    const RoseCountSettings& settings_;
    const RoseRows& rows_;
    std::vector<double> different_;
    std::vector<std::size_t> places_; ///< by row, of measured azimuths
};

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "stereo/row_sense.h"

#include "stereo/row_positions.h"

namespace quandrel {

bool IsStyledUpward(const Plot& plot, std::int32_t row) {
    const Attitude whole = WholeAttitude(plot.rows, AnglesShown(plot.record, row), row);
    return IsKnown(OrientationShown(plot, row)) && whole.dip < 0;
}

} // namespace quandrel

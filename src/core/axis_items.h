// SPDX-License-Identifier: MIT
//
// The rows of AxisItems, the girdles and axes of a plot.

#pragma once

namespace quandrel {

enum AxisItemRow : int {
    kMeanItem = 0, ///< the mean direction
    kFirstUserGirdle = 1,
    kLastUserGirdle = 8,
    kFirstStatisticalItem = 9, ///< those that the statistics fill
    kMeanPlaneItem = 9,
    kGirdleItem = 10, ///< the girdle that is fitted to the data, and its axis
};

} // namespace quandrel

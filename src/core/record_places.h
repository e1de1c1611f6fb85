// SPDX-License-Identifier: MIT
//
// Names for the rows and columns of the tables of a record. The rows of ClassStats are in
// class_stats.h.

#pragma once

#include <cstddef>

namespace quandrel {

/// The index of OverlayRows that holds the number of overlays; the overlays are at 1 and above.
inline constexpr std::size_t kOverlayCount = 0;

/// The index of FileNames that holds the first name.
inline constexpr std::size_t kFirstFile = 1;

/// Rows of AxisItems, the girdles and axes of a plot.
enum AxisItemRow : int {
    kMeanItem = 0, ///< the mean direction
    kFirstUserGirdle = 1,
    kLastUserGirdle = 8,
    kFirstStatisticalItem = 9, ///< those that the statistics set
    kMeanPlaneItem = 9,
    kGirdleItem = 10, ///< the best-fit girdle of the data, and its axis
};

/// Columns of AxisItems.
enum AxisItemColumn : std::size_t {
    kItemShown = 0,     ///< whether it is drawn
    kItemText = 1,      ///< the text of its text box
    kItemPlunge = 2,    ///< of its pole, radians
    kItemTrend = 3,     ///< of its pole, radians
    kItemColour = 4,    ///< kStyleColour of its AxisStyle
    kItemDrawStyle = 5, ///< kStyleLine of the same
    kItemDrawWidth = 6, ///< kStyleWidth of the same
};

/// Columns of AppendedMin, AppendedMax and DistinctValues.
enum AppendedRangeColumn : std::size_t {
    kOfNumbers = 0,
    kOfTexts = 1, ///< of AppendedMin and AppendedMax: texts read as numbers
};

/// Columns of ClassTable.
enum ClassColumn : std::size_t {
    kNumberClasses = 0,     ///< ranges of the appended number
    kTextNumberClasses = 1, ///< ranges of the appended text read as a number
    kNameClasses = 2,       ///< values of the appended text
};

/// Rows of ClassTable.
enum ClassTableRow : std::size_t {
    kBaseRow = 0,   ///< number of base classes; of names, 1 where texts are read as numbers
    kLowestRow = 1, ///< lowest limit, or first name; upper limits and further names follow
    kTopRow = 11,   ///< upper limit of the last base class, or last name
    kFlagRow = 12,  ///< which values outside the classes are kept; of names, 1 where case matters
};

/// The principal axes by their eigenvalues: columns of FabricResults for their components, rows of
/// FabricResults and EigenResults for their numbers.
enum PrincipalAxis : std::size_t { kLeastAxis = 1, kMiddleAxis = 2, kGreatestAxis = 3 };

/// The column of FabricResults with the eigenvalues, each in the row of its axis.
inline constexpr std::size_t kEigenvalue = 0;

/// Rows of FabricResults.
enum AxisComponent : std::size_t { kNorthOfAxis = 1, kEastOfAxis = 2, kDownOfAxis = 3 };

/// Columns of EigenResults. Plunges and trends are in the rows of their axes.
enum EigenPlace : std::size_t {
    kShapeNumber = 0, ///< rows: ShapeNumberRow
    kAxisPlunge = 1,
    kAxisTrend = 2,
    kLogRatio = 3, ///< rows: LogRatioRow
};

/// Rows of EigenResults in the column kShapeNumber.
enum ShapeNumberRow : std::size_t {
    kGamma = 1,
    kZeta = 2,
    kFourthMoment = 3, ///< about the greatest axis
};

/// Rows of EigenResults in the column kLogRatio.
enum LogRatioRow : std::size_t {
    kMiddleToLeast = 1,     ///< ln(E2/E1)
    kGreatestToMiddle = 2,  ///< ln(E3/E2)
    kSymmetryStatistic = 3, ///< SymmetryStatistic
};

/// Rows of RoseStats, and columns of gRoseSectorStats.
enum RoseStatsColumn : std::size_t {
    kRoseCount = 0,
    kRoseValueSum = 1,
    kRoseMean = 2,
    kRoseDeviation = 3,
    kRoseSpeedSum = 4,
    kRoseEnergySum = 5,
    kRoseWindFrequencySum = 6,
};

/// Columns of RoseStats.
enum RoseTotalColumn : std::size_t {
    kRawTotal = 0,      ///< without weights
    kWeightedTotal = 1, ///< the total that percentages refer to
    kLargestSector = 2,
};

/// Rows of RoseRangeA and RoseRangeB: the layers of a rose. A rose without layers has the top one.
enum RoseRangeRow : std::size_t {
    kTopRoseLayer = 0,
    kMiddleRoseLayer = 1,
    kBottomRoseLayer = 2,
};

/// Columns of RoseRangeA, the scale of a layer, and of RoseRangeB, its largest sector.
enum RoseRangeColumn : std::size_t { kInPerCent = 0, kInUnits = 1 };

/// Indexes of RoseResultant and RoseMeanDir.
enum RoseAngles : std::size_t { kOfAngles = 0, kOfDoubledAngles = 1 };

} // namespace quandrel

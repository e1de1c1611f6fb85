// SPDX-License-Identifier: MIT
//
// Results computed from the rows of a plot: densities and fabric statistics of a net, and its rose
// with its drawing options.

#pragma once

#include "core/record_fields.h"
#include "core/record_places.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>

namespace quandrel {

inline constexpr int kGridNodes = 153;

/// Densities. Their source rows are recorded in RecordState.
struct RecordDensities {
    float PointDensityMax = 0;
    float GridDensityMax = 0;
    std::int16_t GridSize = 0;
    std::unique_ptr<Table<std::int32_t, kGridNodes, kGridNodes>> DensityGrid; ///< made on first use
    bool DensityGridFromFile = false; ///< read from a file, not counted here; not saved
    std::array<std::int16_t, 9> ContourLevels{};
    std::int16_t NumContours = 0;

    QUANDREL_FIELDS(PointDensityMax, GridDensityMax, GridSize, ContourLevels, NumContours);
};

/// Fabric statistics; statistics/fabric_statistics.h describes the layout.
struct RecordFabric {
    Table<float, 4, 4> EigenResults{};
    Table<float, 4, 4> FabricResults{};
    float FabricValueA = 0;
    float FabricValueB = 0;
    double FabricValueC = 0;
    float FabricValueD = 0;
    float FabricValueE = 0;
    float FabricValueF = 0;
    std::int16_t StatsBoxKind = 0;   ///< 0 normal, other advanced
    bool ShowConfidenceCone = false; ///< of the principal axis; not saved

    QUANDREL_FIELDS(EigenResults, FabricResults, FabricValueA, FabricValueB, FabricValueC,
                    FabricValueD, FabricValueE, FabricValueF, StatsBoxKind);
};

/// The rose of a plot.
struct RecordRose {
    std::int16_t RoseShape = 0;
    std::int16_t RoseType = 0;
    std::int16_t RoseEqualArea = 0;
    std::int16_t RoseDisplay6 = 0;
    std::int16_t RoseDisplay7 = 0;
    std::int16_t RoseDisplay8 = 0;
    double RoseOddSectorSize = 0; ///< degrees
    double RoseSectorSize = 10;   ///< degrees
    double RoseStartAngle = 0;    ///< degrees
    Table<double, 3, 2> RoseRangeA{};
    Table<double, 3, 2> RoseRangeB{};
    Table<double, 7, 3> RoseStats{};
    std::string RoseScaleType;
    std::int16_t RoseHistStyle = 0;
    std::int16_t RoseSegShape = 0;
    std::int16_t RoseSectorFraction = 0; ///< per cent
    std::int16_t RoseZeroCircle = 0;     ///< per cent
    double RoseMedian = 0;
    double RoseMeanDev = 0;
    double RoseDispersion = 0;
    std::array<double, 2> RoseMoments{};
    std::array<double, 2> RoseResultant{};
    double RoseKappa = 0;
    double RoseSkewness = 0;
    double RoseKurtosis = 0;
    std::int16_t RoseBiasMode = 0;
    std::int16_t RoseSamplePlunge = 0; ///< degrees
    std::int16_t RoseSampleTrend = 0;  ///< degrees
    std::int16_t RoseMinBiasAngle = 0; ///< degrees
    std::array<double, 2> RoseMeanDir{};
    double RoseVariance = 0;
    double RoseStdDev = 0;

    QUANDREL_FIELDS(RoseShape, RoseType, RoseEqualArea, RoseDisplay6, RoseDisplay7, RoseDisplay8,
                    RoseOddSectorSize, RoseSectorSize, RoseStartAngle, RoseRangeA, RoseRangeB,
                    RoseStats, RoseScaleType, RoseHistStyle, RoseSegShape, RoseSectorFraction,
                    RoseZeroCircle, RoseMedian, RoseMeanDev, RoseDispersion, RoseMoments,
                    RoseResultant, RoseKappa, RoseSkewness, RoseKurtosis, RoseBiasMode,
                    RoseSamplePlunge, RoseSampleTrend, RoseMinBiasAngle, RoseMeanDir, RoseVariance,
                    RoseStdDev);
};

} // namespace quandrel

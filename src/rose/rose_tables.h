// SPDX-License-Identifier: MIT
//
// The working tables of the rose drawn last: made by its data pass, read by its statistics and its
// drawing. Sector 0 of each table is a header or total; real sectors are 1 to n, classes 1 to m.

#pragma once

#include "core/plot_record.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace quandrel {

/// Kinds of rose: the units digit of RoseType.
enum RoseKindCode : int {
    kRoseFrequency = 0,
    kRoseValue = 1,
    kRoseMeanValue = 2,
    kRoseVariance = 3, ///< its number is the standard deviation
    kRoseWindSpeed = 4,
    kRoseWindEnergy = 5,
    kRoseOverlaidWind = 6,
    kRoseValueOverFrequency = 7,
    kRoseValueOverMean = 8,
};

/// How sectors are classified: the tens digit of RoseType.
enum RoseClassCode : int { kRoseUnclassified = 0, kRoseByLength = 1, kRoseByType = 2 };

[[nodiscard]] constexpr int RoseKindOf(int roseType) {
    return roseType % 10;
}

[[nodiscard]] constexpr int RoseClassOf(int roseType) {
    return (roseType < 0 ? -roseType : roseType) / 10;
}

/// Layers of gRoseSectors and gRoseTrigSums.
enum RoseLayer : std::size_t { kRoseFrequencyLayer = 0, kRoseValueLayer = 1 };

/// Columns of gRoseSectorStats, and rows of RoseStats in the record.
enum RoseStatsColumn : std::size_t {
    kRoseCount = 0,
    kRoseValueSum = 1,
    kRoseMean = 2,
    kRoseDeviation = 3,
    kRoseSpeedSum = 4,
    kRoseEnergySum = 5,
    kRoseWindFrequencySum = 6,
};

/// Numbers by sector, class and layer. Cell (s, 0, layer) is the whole of a sector. Cells of sector
/// 0: (0, 0, 0) holds n, (0, 1, 0) holds m, (0, 0, 1) the weighted count and (0, 1, 1) the weighted
/// sum of values.
class RoseSectorTable {
public:
    /// Empty: no sector, no class.
    RoseSectorTable()
        : RoseSectorTable(0, 1) {}

    /// All zero but for n and m.
    RoseSectorTable(int sectors, int classes)
        : sectors_(sectors)
        , classes_(classes)
        , cells_(static_cast<std::size_t>(sectors + 1) * static_cast<std::size_t>(classes + 1)
                 * 2) {
        (*this)(0, 0, kRoseFrequencyLayer) = sectors;
        (*this)(0, 1, kRoseFrequencyLayer) = classes;
    }

    [[nodiscard]] int Sectors() const { return sectors_; }

    [[nodiscard]] int Classes() const { return classes_; }

    double& operator()(int sector, int classNumber, RoseLayer layer) {
        return cells_[Place(sector, classNumber, layer)];
    }

    double operator()(int sector, int classNumber, RoseLayer layer) const {
        return cells_[Place(sector, classNumber, layer)];
    }

private:
    [[nodiscard]] std::size_t Place(int sector, int classNumber, RoseLayer layer) const {
        const auto row = static_cast<std::size_t>(sector);
        const auto column = static_cast<std::size_t>(classNumber);
        return (row * static_cast<std::size_t>(classes_ + 1) + column) * 2 + layer;
    }

    int sectors_;
    int classes_; ///< at least 1
    std::vector<double> cells_;
};

/// Lengths by sector and class, user units of the plot. (0, 0) is the largest value, (0, 1) the
/// scale.
class RoseRadiiTable {
public:
    RoseRadiiTable()
        : RoseRadiiTable(0, 1) {}

    RoseRadiiTable(int sectors, int classes)
        : sectors_(sectors)
        , classes_(classes)
        , cells_(static_cast<std::size_t>(sectors + 1) * static_cast<std::size_t>(classes + 1)) {}

    [[nodiscard]] int Sectors() const { return sectors_; }

    [[nodiscard]] int Classes() const { return classes_; }

    double& operator()(int sector, int classNumber) { return cells_[Place(sector, classNumber)]; }

    double operator()(int sector, int classNumber) const {
        return cells_[Place(sector, classNumber)];
    }

private:
    [[nodiscard]] std::size_t Place(int sector, int classNumber) const {
        return static_cast<std::size_t>(sector) * static_cast<std::size_t>(classes_ + 1)
               + static_cast<std::size_t>(classNumber);
    }

    int sectors_;
    int classes_; ///< at least 1
    std::vector<double> cells_;
};

/// An angle that stands for several.
struct AngleCount {
    double angle = 0;
    double count = 0; ///< any weight of 0 or more
};

using RoseSectorStats = std::vector<std::array<double, 7>>; ///< [sector][RoseStatsColumn]
using RoseTrigSums = Table<double, 2, 4>;                   ///< [layer][sin a, cos a, sin b, cos b]

extern RoseSectorTable gRoseSectors;
extern RoseSectorStats gRoseSectorStats; ///< row 0: sums over the sectors
extern RoseTrigSums gRoseTrigSums;
extern std::vector<double> gRoseAngles; ///< azimuths of the observations, radians; place 0 unused
extern std::vector<AngleCount> gRoseAzimuths; ///< azimuths, radians, and their weighted counts
extern RoseRadiiTable gRoseRadii;
extern double gRoseTotal;         ///< what is 100 % in gRoseRadii
extern bool gRoseDirectional;     ///< polar lines: a direction is not its opposite
extern double gRoseStartMath;     ///< degrees counter-clockwise from east: where sector 1 starts
extern bool gRoseOddAsked;        ///< the question for a smaller last sector was answered yes
extern std::int32_t gRoseLeftOut; ///< rows without a valid value, skipped by the data pass
extern int gRoseTablesSlot;       ///< the plot that the tables belong to, 0 for none

} // namespace quandrel

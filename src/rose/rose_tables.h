// SPDX-License-Identifier: MIT
//
// The rose of a plot: its tables, filled by its data pass, and the results for its texts and its
// drawing. Sector 0 of each table is a header or total; real sectors are 1 to n, classes 1 to m.
// Each plot has its own tables.

#pragma once

#include "core/plot.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
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

/// Numbers by sector, class and layer. Cell (s, 0, layer) is the total of a sector. Cells of sector
/// 0: (0, 0, 0) holds n, (0, 1, 0) holds m, (0, 0, 1) the weighted count and (0, 1, 1) the weighted
/// sum of values.
class RoseSectorTable {
public:
    /// Empty: no sector, no class.
    RoseSectorTable()
        : RoseSectorTable(0, 1) {}

    /// All zero except n and m.
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

/// Lengths by sector and class, plot units. (0, 0) is the largest value, (0, 1) the scale.
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

/// An angle with the count of its occurrences.
struct AngleCount {
    double angle = 0;
    double count = 0; ///< any weight, 0 or more
};

using RoseSectorStats = std::vector<std::array<double, 7>>; ///< [sector][RoseStatsColumn]
using RoseTrigSums = Table<double, 2, 4>;                   ///< [layer][TrigTerm]

/// The row of RoseSectorStats with the sums over all sectors.
inline constexpr std::size_t kAllSectors = 0;

/// A petal, or a part of one, for drawing. rose_wedges.h describes its geometry.
struct RoseWedge {
    double start = 0; ///< 0 to 2 pi
    double end = 0;   ///< 0 to 2 pi
    double radius = 0;
    int sector = 1;
    int classNumber = 0; ///< 0: the whole sector, without classes
    int layer = 0;       ///< of an overlaid rose: 0 on top
    bool mirror = false; ///< the opposite of an axial sector
};

/// The method for a confidence interval.
enum class ConfidenceMethod {
    kBootstrap,    ///< of kLargeSample data at most, by all formulas: BootstrapHalfWidth
    kByDispersion, ///< of more: RoseConfidenceHalfWidth
};

/// The printed confidence interval of the mean direction of a rose.
struct RoseConfidence {
    ConfidenceMethod method = ConfidenceMethod::kByDispersion;
    std::optional<double> halfWidth; ///< radians; empty prints as undetermined
    bool isInterval = false;         ///< false for the right angle that replaces a missing interval
};

/// Why a kind of rose cannot be drawn from the data.
enum RoseFault : int {
    kNoRoseFault = 0,
    kNoRoseValues = 1,  ///< no row has a value that the kind requires
    kNoRoseClasses = 2, ///< no row falls in a class by type
    kNoRoseLengths = 3, ///< no row falls in a class by length, or there are no numbers
};

/// The rose of a plot.
struct PlotRose {
    bool isCounted = false; ///< whether the tables are filled with the rows of the plot
    RoseSectorTable sectors;
    RoseSectorStats sectorStats; ///< row 0: sums over the sectors
    RoseTrigSums trigSums{};
    std::vector<double> angles;       ///< azimuths of the observations, radians; index 0 is unused
    std::vector<AngleCount> azimuths; ///< azimuths, radians, and their weighted counts
    std::int32_t leftOut = 0;         ///< rows without a valid value, skipped by the data pass
    bool isDirectional = false;       ///< polar lines: a direction differs from its opposite
    double startMath = 0;             ///< start of sector 1, degrees counter-clockwise from east
    bool isOddAsked = false;          ///< whether the user accepted a smaller last sector
    std::optional<RoseConfidence> confidence; ///< empty without a mean direction
    int fault = kNoRoseFault;      ///< last RoseFault; TakeRoseFault returns and clears it
    RoseRadiiTable radii;          ///< of the last layer computed
    double total = 0;              ///< the value of 100 % in radii
    bool isShown = false;          ///< whether the last computation left a rose to draw
    std::vector<RoseWedge> wedges; ///< of all layers, in drawing order
};

/// The rose of a plot; an empty one when it was never counted.
[[nodiscard]] PlotRose& RoseOf(Plot& plot);
[[nodiscard]] const PlotRose& RoseOf(const Plot& plot);

/// The rose of gActivePlot.
[[nodiscard]] PlotRose& ActiveRose();

} // namespace quandrel

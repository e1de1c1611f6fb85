// SPDX-License-Identifier: MIT
//
// The rose dialog without its window: what it shows of the active plot, what it refuses, and what
// its Go does.

#pragma once

#include "classify/class_rule.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

struct RoseSettings {
    int kind = kRoseFrequency;            ///< RoseKindCode
    int classes = kRoseUnclassified;      ///< RoseClassCode
    std::optional<ClassTableCells> table; ///< of the classes; nothing leaves the plot's
    int shape = 0;                        ///< 0 whole; north, east, south, west half
    bool equalArea = false;
    double sectorSize = 10;         ///< degrees, in full whatever a box shows
    double startAngle = 0;          ///< azimuth in degrees
    int sectorFraction = 100;       ///< width of the wedges, per cent of their sectors
    int zeroCircle = 0;             ///< per cent of the radius
    int histStyle = 0;              ///< kept, no drawing depends on it
    int segShape = 0;               ///< 1: classes differ in width
    bool circles = false;           ///< the scale's marks
    std::optional<double> interval; ///< of the scale, per cent; nothing is "auto"
    bool outerCircle = true;        ///< of all roses
    int biasMode = 0;               ///< 0 none, 1 angle in space, 2 of strike or trend, 3 of dip
    bool ownLines = false;          ///< sample lines: those of the rows, else the one below
    int samplePlunge = 0;           ///< degrees
    int sampleTrend = 0;            ///< degrees
    int minBiasAngle = 5;           ///< degrees

    bool operator==(const RoseSettings&) const = default;
};

/// The settings of the rose of a plot, and the outer circle of all roses.
[[nodiscard]] RoseSettings RoseSettingsOf(const PlotRecord& record);

/// What a refusal is about.
enum class RoseField {
    Kind,
    Classes,
    Shape,
    SectorSize,
    StartAngle,
    SectorFraction,
    ZeroCircle,
    ScaleInterval,
    BiasMode,
    SamplePlunge,
    SampleTrend,
    MinBiasAngle,
    OwnLines,
};

struct RoseRefusal {
    RoseField field = RoseField::SectorSize;
    std::string reason; ///< a sentence for the status line
};

/// The first setting that cannot be used for a plot, and why. A scale interval below 1 % is
/// tried on the rose asked for, which takes a pass over the rows.
[[nodiscard]] std::optional<RoseRefusal> CheckRoseSettings(const Plot& plot,
                                                           const RoseSettings& settings);

/// How a Go ended.
enum class RoseVerdict {
    Done,
    Refused,
    Cancelled, ///< the user does not want the smaller last sector that the size makes
};

struct RoseOutcome {
    RoseVerdict verdict = RoseVerdict::Done;
    std::optional<RoseRefusal> refusal; ///< of Refused

    /// For those to whom a Go that the user cancelled is none that failed.
    operator std::optional<RoseRefusal>() const { return refusal; }
};

/// The first half of Go: checks the settings for gActivePlot, and asks about a smaller last sector.
/// Whatever it ends with, plot and defaults are as they were.
[[nodiscard]] RoseOutcome TryRoseSettings(const RoseSettings& settings);

/// The second half, once the first is Done: writes the settings into gActivePlot, makes a rose of a
/// stereo plot, counts its rows and draws it. Sector size, width and scale are the defaults of new
/// plots from then on; of intervals of the scale "auto" and those that Go changes.
void PlotRoseSettings(const RoseSettings& settings);

/// Go: both halves. Unless it is Done nothing has changed.
[[nodiscard]] RoseOutcome ApplyRoseSettings(const RoseSettings& settings);

/// The boxes of the sampling line.
enum class BiasBox { Plunge = 0, Trend = 1, MinAngle = 2 };

/// What a box of the sampling line shows once the user leaves it: plunges 0 to 90, trends 0 to 360,
/// least angles 1 to 90, the nearest to what was typed.
[[nodiscard]] int CorrectedBiasValue(BiasBox box, double typed);

/// A number in a box of the dialog by the regional decimal delimiter; nothing when it is none. An
/// empty box is 0.
[[nodiscard]] std::optional<double> NumberOfRoseBox(std::string_view text);

/// The size of a number of sectors, degrees, in full.
[[nodiscard]] double SizeOfSectors(int sectors);

/// True when a size divides the circle into equal sectors, so that nothing is asked about it.
[[nodiscard]] bool DividesCircle(double sectorSize);

} // namespace quandrel

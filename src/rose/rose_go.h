// SPDX-License-Identifier: MIT
//
// The rose dialog without its window: the settings it shows for the active plot, the settings it
// refuses, and the effect of its Go button.

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
    std::optional<ClassTableCells> table; ///< of the classes; empty keeps the plot's
    int shape = 0;                        ///< 0 whole; north, east, south, west half
    bool equalArea = false;
    double sectorSize = 10;         ///< degrees, unrounded, whatever a box shows
    double startAngle = 0;          ///< azimuth in degrees
    int sectorFraction = 100;       ///< width of the wedges, per cent of their sectors
    int zeroCircle = 0;             ///< per cent of the radius
    int histStyle = 0;              ///< stored, but no drawing depends on it
    int segShape = 0;               ///< 1: classes differ in width
    bool circles = false;           ///< the scale's marks
    std::optional<double> interval; ///< of the scale, per cent; empty is "auto"
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

/// The subject of a refusal.
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

/// The first setting that cannot be used for a plot, and the reason. A scale interval below 1 % is
/// tested on the requested rose, which takes a pass over the rows.
[[nodiscard]] std::optional<RoseRefusal> CheckRoseSettings(const Plot& plot,
                                                           const RoseSettings& settings);

/// The outcome of a Go.
enum class RoseVerdict {
    Done,
    Refused,
    Cancelled, ///< the user rejected the smaller last sector of this size
};

struct RoseOutcome {
    RoseVerdict verdict = RoseVerdict::Done;
    std::optional<RoseRefusal> refusal; ///< of Refused

    /// For callers to which a Go that the user cancelled is not a failure.
    operator std::optional<RoseRefusal>() const { return refusal; }
};

/// The first half of Go: checks the settings for gActivePlot, and asks about a smaller last sector.
/// The plot and the defaults are unchanged, whatever the outcome.
[[nodiscard]] RoseOutcome TryRoseSettings(const RoseSettings& settings);

/// The second half, after the first is Done: writes the settings into gActivePlot, makes a rose of
/// a stereo plot, counts its rows and draws it. Sector size, width and scale become the defaults of
/// new plots; scale intervals only if they are "auto" or changed by this Go.
void PlotRoseSettings(const RoseSettings& settings);

/// Go: both halves. Unless the outcome is Done nothing has changed.
[[nodiscard]] RoseOutcome ApplyRoseSettings(const RoseSettings& settings);

/// The boxes of the sampling line.
enum class BiasBox { Plunge = 0, Trend = 1, MinAngle = 2 };

/// The value of a box of the sampling line after the user leaves it: the nearest to what was typed
/// within plunges 0 to 90, trends 0 to 360, least angles 1 to 90.
[[nodiscard]] int CorrectedBiasValue(BiasBox box, double typed);

/// Reads a number of a box with the regional decimal delimiter; empty if invalid, 0 for no text.
[[nodiscard]] std::optional<double> NumberOfRoseBox(std::string_view text);

/// The size for a number of sectors, degrees, unrounded.
[[nodiscard]] double SizeOfSectors(int sectors);

/// Whether a size divides the circle into equal sectors, so that no question is needed.
[[nodiscard]] bool DividesCircle(double sectorSize);

} // namespace quandrel

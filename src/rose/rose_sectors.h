// SPDX-License-Identifier: MIT
//
// The sectors of a rose and the pass that fills its tables with the rows of a plot.
//
// Degrees throughout. Azimuths run clockwise from north; math angles run counter-clockwise from
// east, and so do the sectors: sector 1 is the first one clockwise from the start azimuth, sector 2
// the first one counter-clockwise from it. A datum on an edge belongs to the sector that ends there
// in azimuth: 10 is in the sector from 0 to 10.

#pragma once

#include "classify/class_rule.h"
#include "core/plot.h"
#include "orientation/notation.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace quandrel {

struct RoseObservation;
struct RoseTables;

/// RoseSamplePlunge when each row has its own sample line.
inline constexpr std::int16_t kOwnSampleLine = -9999;

/// An azimuth as WrapDegrees leaves it, degrees.
[[nodiscard]] inline double WrappedAzimuth(double azimuth) {
    WrapDegrees(azimuth);
    return azimuth;
}

/// The division of the circle by a sector size.
struct SectorDivision {
    double size = 10;   ///< 1 to 360
    int sectors = 36;   ///< including the smaller last one
    double oddSize = 0; ///< whole degrees of the smaller last sector, 0 for none
};

/// Division by a size; a size below 1 counts as 1, above 360 as 360. A remainder is rounded to
/// whole degrees, half-way cases to even; a remainder of at most half a degree is dropped.
[[nodiscard]] SectorDivision DivideCircle(double size);

/// The positions of the sectors of a rose.
struct SectorLayout {
    double size = 10;
    int sectors = 36;
    double startAzimuth = 0;
    double startMath = 80;    ///< math angle where sector 1 starts, 0 to 360
    bool directional = false; ///< polar lines: a direction differs from its opposite
    bool pairs = true;        ///< a sector and the opposite one form one bin
    bool bothEnds = false;    ///< an axis is counted in the sectors of both its ends
};

/// Lays out sectors from a start azimuth. An even number of sectors of axial data without a smaller
/// one makes pairs. Otherwise an axis is counted at both its ends, which a single sector shares.
[[nodiscard]] SectorLayout LayOutSectors(const SectorDivision& division, double startAzimuth,
                                         bool directional);

/// The layout by the settings of a record.
[[nodiscard]] SectorLayout LayoutOfRose(const PlotRecord& record);

/// Whether the rose of a record counts its axes at both ends: its petals are shares of the axes
/// that have an end in them, and add up to twice the total.
[[nodiscard]] bool CountsBothEnds(const PlotRecord& record);

/// The effective azimuth: for axial data from 0 to below 180, else from 0 to 360.
[[nodiscard]] double FoldedAzimuth(double azimuth, bool directional);

/// The sector, 1 to the number of sectors, in which a finite azimuth is counted. Of a pair it is
/// the one that ends above 0 and at 180 at most; for axes counted at both ends it is that of the
/// end at the azimuth. Azimuths beyond the last sector, with a size such as 359.9, are counted in
/// the last one.
[[nodiscard]] int SectorOfAzimuth(const SectorLayout& layout, double azimuth);

/// The sectors in which a datum is counted.
struct CountedSectors {
    int first = 1;
    int second = 0; ///< of the other end of an axis; 0: none, or the same sector
};

/// The sectors of an azimuth: two where both ends of an axis count and are in different sectors.
[[nodiscard]] CountedSectors SectorsOfAxis(const SectorLayout& layout, double azimuth);

/// Whether the rows of a rose are weighted against the bias of a sampling line. Only frequencies,
/// values and their means are.
[[nodiscard]] bool IsRoseBiasCorrected(const PlotRecord& record);

/// The column of the class table by which a rose is classified, empty without classes.
[[nodiscard]] std::optional<ClassColumn> RoseClassColumn(const PlotRecord& record);

/// Whether questions and messages are allowed.
enum class MayAsk { No, Yes };

/// Fills the tables of the rose of a plot (rose_tables.h) and the totals in its record from its
/// main rows: RoseStats, RoseSectorSize (clamped to 1 to 360), RoseOddSectorSize (left as it is
/// when all sectors are equal), RoseBiasMode (where the rows allow no other) and, for a classified
/// rose, NumClassified.
///
/// Asks before it makes a smaller last sector, if questions are allowed, unless isOddAsked is set
/// or the size was accepted for this plot before.
///
/// @return false when the user cancels: the tables and the record are unchanged
///
/// A plot without valid rows is unchanged. O(rows), no sorting.
[[nodiscard]] bool CountRose(Plot& plot, MayAsk mayAsk);

/// The same of gActivePlot.
[[nodiscard]] bool RoseCountSectors();

/// The tables of the main rows of a plot with other settings. Nothing is stored, and there are no
/// questions or messages.
///
/// @param[in,out] asked  the settings, and the description of the columns: kinds of data, the
///                       columns present, and the number of rows; sector size and bias are
///                       corrected as by CountRose
[[nodiscard]] RoseTables TablesOfRose(const Plot& plot, PlotRecord& asked);

/// The tables of the rose of a plot from its rows as they were measured, whether it uses decimals
/// or not. Nothing is stored, and there are no questions or messages. O(rows).
[[nodiscard]] RoseTables MeasuredTablesOfRose(const Plot& plot);

/// The rows of the rose of a plot one by one, if there are few enough to be listed
/// (kMostListedRows). Nothing is stored, and there are no questions or messages. O(rows).
[[nodiscard]] std::vector<RoseObservation> RowsOfRose(const Plot& plot);

/// The azimuths of the observations of a rose as it shows them.
struct AzimuthSample {
    std::vector<double> angles; ///< radians; doubled for axes
    bool areAxes = false;
    int steps = 0; ///< in a full turn to which the angles are rounded; 0 of measured ones
};

/// The azimuths that the rose of a plot counts, each once, without the weights of a bias
/// correction. Nothing is stored, and there are no questions or messages. O(rows).
///
/// @param classNumber  of a classified rose, from 1; 0 for all rows that it counts
/// @return without angles also where there are more than kMostListedAngles
[[nodiscard]] AzimuthSample AnglesOfRose(const Plot& plot, int classNumber = 0);

/// Asks whether a plot may get a smaller last sector from a size, whatever was accepted before. A
/// size that makes none, and a plot without valid rows, need no question. The next passes do not
/// ask about an accepted size again, once the record has its RoseOddSectorSize.
///
/// @return false when the user cancels: nothing has changed
[[nodiscard]] bool AskForSectorSize(Plot& plot, double size);

/// Accepts the sector size of a plot, including a smaller last sector: it comes from a file, where
/// it was drawn before.
void AcceptSectorSize(Plot& plot);

/// Makes the next pass ask again about a smaller last sector of a plot. Call it when its settings
/// are applied again, when it is loaded, and when it is recalculated.
void ForgetAcceptedSectorSize(Plot& plot);

} // namespace quandrel

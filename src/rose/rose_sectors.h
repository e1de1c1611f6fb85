// SPDX-License-Identifier: MIT
//
// The sectors of a rose and the pass that fills its tables with the rows of a plot.
//
// Degrees throughout. Azimuths run clockwise from north; math angles run counter-clockwise from
// east, and so do the sectors: sector 1 is the first one clockwise from the start azimuth, sector 2
// the first one counter-clockwise from it. A datum on an edge belongs to the sector that ends there
// in azimuth: 10 lies in the sector from 0 to 10.

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

/// How a sector size divides the circle.
struct SectorDivision {
    double size = 10;   ///< 1 to 360
    int sectors = 36;   ///< the smaller last one included
    double oddSize = 0; ///< whole degrees of the smaller last sector, 0 when there is none
};

/// Division by a size; one below 1 counts as 1, one above 360 as 360. A remainder is rounded to
/// whole degrees, half-way cases to even: one of at most half a degree counts as none.
[[nodiscard]] SectorDivision DivideCircle(double size);

/// Where the sectors of a rose lie.
struct SectorLayout {
    double size = 10;
    int sectors = 36;
    double startAzimuth = 0;
    double startMath = 80;    ///< math angle where sector 1 starts, 0 to 360
    bool directional = false; ///< polar lines: a direction is not its opposite
    bool pairs = true;        ///< a sector and the one opposite to it are one bin
    bool bothEnds = false;    ///< an axis is counted in the sectors of both its ends
};

/// Lays sectors out from a start azimuth. Sectors of axial data in even number and without a
/// smaller one make pairs. Where they do not, an axis is counted at both its ends; of a single
/// sector that is one and the same.
[[nodiscard]] SectorLayout LayOutSectors(const SectorDivision& division, double startAzimuth,
                                         bool directional);

/// The layout by the settings of a record.
[[nodiscard]] SectorLayout LayoutOfRose(const PlotRecord& record);

/// True when the rose of a record counts its axes at both ends: its petals are shares of the axes
/// that have an end in them, and sum to twice the whole.
[[nodiscard]] bool CountsBothEnds(const PlotRecord& record);

/// The azimuth as it counts: of axial data from 0 to below 180, else from 0 to 360.
[[nodiscard]] double FoldedAzimuth(double azimuth, bool directional);

/// The sector, 1 to the number of sectors, that a finite azimuth is counted in. Of a pair it is the
/// one that ends above 0 and at 180 at most; of axes counted at both ends it is that of the end at
/// the azimuth. What lies beyond the last sector, by a size such as 359.9, is counted in the last
/// one.
[[nodiscard]] int SectorOfAzimuth(const SectorLayout& layout, double azimuth);

/// The sectors that a datum is counted in.
struct CountedSectors {
    int first = 1;
    int second = 0; ///< of the other end of an axis; 0: there is none, or it lies in the first
};

/// The sectors of an azimuth: two where the ends of an axis count and lie in different sectors.
[[nodiscard]] CountedSectors SectorsOfAxis(const SectorLayout& layout, double azimuth);

/// True when the rows of a rose are weighted against the bias of a sampling line. Only frequencies,
/// values and their means are.
[[nodiscard]] bool IsRoseBiasCorrected(const PlotRecord& record);

/// The column of the class table that a rose is classified by, nothing without classes.
[[nodiscard]] std::optional<ClassColumn> RoseClassColumn(const PlotRecord& record);

/// Whether the user may be asked and told.
enum class MayAsk { No, Yes };

/// Fills the tables of the rose of a plot (rose_tables.h) and the totals in its record with its
/// main rows: RoseStats, RoseSectorSize (brought into 1 to 360), RoseOddSectorSize (left as it is
/// when all sectors are equal), RoseBiasMode (where the rows allow no other) and, of a classified
/// rose, NumClassified.
///
/// Asks before it makes a smaller last sector, if it may, unless isOddAsked is set or the size was
/// accepted for this plot before.
///
/// @return false when the user thinks better of it: the tables and the record are as they were
///
/// A plot without valid rows leaves everything as it was. O(rows), no sorting.
[[nodiscard]] bool CountRose(Plot& plot, MayAsk mayAsk);

/// The same of gActivePlot.
[[nodiscard]] bool RoseCountSectors();

/// The tables that the main rows of a plot would have under other settings. Nothing is kept, asked
/// or told.
///
/// @param[in,out] asked  the settings, and what tells the columns: kinds of data, the columns there
///                       are, and the number of rows; sector size and bias are mended as by
///                       CountRose
[[nodiscard]] RoseTables TablesOfRose(const Plot& plot, PlotRecord& asked);

/// The rows of the rose of a plot one by one, when there are so few that they are listed
/// (kMostListedRows). Nothing is kept, asked or told. O(rows).
[[nodiscard]] std::vector<RoseObservation> RowsOfRose(const Plot& plot);

/// Asks whether a plot may get a smaller last sector by a size, whatever was accepted before; a
/// size that makes none, and a plot without valid rows, need no question. A size accepted so is
/// not asked about by the next passes, once the record has its RoseOddSectorSize.
///
/// @return false when the user thinks better of it: nothing has changed
[[nodiscard]] bool AskForSectorSize(Plot& plot, double size);

/// Takes the sector size of a plot as accepted, a smaller last sector included: it comes from a
/// file, where it was drawn before.
void AcceptSectorSize(Plot& plot);

/// Lets the next pass ask again about a smaller last sector of a plot: to be called when its
/// settings are applied anew, when it is loaded, and when it is recalculated.
void ForgetAcceptedSectorSize(Plot& plot);

} // namespace quandrel

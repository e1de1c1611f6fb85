// SPDX-License-Identifier: MIT
//
// The data format in force: which column of a line of text holds what, and how an orientation is
// written in it. All plots share these settings while they load. The data format dialog and the
// parameter lines of a file change them.

#pragma once

#include "core/style_tables.h"

#include <array>
#include <cstdint>
#include <string>

namespace quandrel {

/// Formats of the primary data. 0 counts as directions too.
enum PrimaryFormatCode : std::int16_t { kDirections = 1, kPrimaryPlane = 2, kPrimaryLine = 3 };

/// Formats of the secondary data.
enum SecondaryFormatCode : std::int16_t {
    kNoSecondary = 0,
    kPitchInPlane = 1,
    kTrendInPlane = 2,
    kSecondaryLine = 3,
    kSecondaryPlane = 4,
    kHadeInPlane = 5,
};

/// How the primary data are plotted.
enum DataKindCode : std::int16_t { kPlanes = 1, kLines = 2, kPolarLines = 3 };

/// The kind in which a set of orientations is plotted once it takes the place of the other set of
/// its rows: planes as planes; lines as lines, or as polar lines when the former set was.
[[nodiscard]] std::int16_t DataKindOfSet(bool holdsPlanes, std::int16_t formerKind);

/// Kinds of drawing.
enum PlotKindCode : std::int16_t { kEqualArea = 1, kEqualAngle = 2, kRose = 3 };

/// Plane conventions: the absolute convention code modulo 10.
enum PlaneConvention : int {
    kDipDipDirection = 1,
    kDipDirectionDip = 2,
    kStrikeDipSense = 3,
    kDipSenseStrike = 4,
    kDipStrikeRightHand = 5,
    kStrikeDipRightHand = 6,
};

/// The ten items of a line, as gFileColumnSettings orders them.
enum ColumnSlot : int {
    kSlotDip = 0,
    kSlotDirection = 1,
    kSlotSense = 2,
    kSlotSecondaryDip = 3,
    kSlotSecondaryDirection = 4,
    kSlotSecondarySense = 5,
    kSlotAppendedPlunge = 6,
    kSlotAppendedTrend = 7,
    kSlotNumber = 8,
    kSlotText = 9,
};

inline constexpr int kColumnSlots = 10;

/// Zero-based token indexes, one for each ColumnSlot.
using ColumnSettings = std::array<std::int32_t, kColumnSlots>;

/// Plane convention 1 to 6, plus 10 for lines as trend, plunge; negative for quadrant notation.
extern std::int16_t gConventions;

/// Between the columns of a line: one character, or empty for any of comma, semicolon, blank, tab.
extern std::string gFileDelimiter;

extern std::string gPlaneSeparator; ///< between dip and direction, on output only
extern std::string gLineSeparator;  ///< between plunge and trend, on output only

extern std::int16_t gPrimaryDataType;   ///< PrimaryFormatCode
extern std::int16_t gSecondaryDataType; ///< SecondaryFormatCode

extern bool gFileLineAppended;       ///< lines hold an appended line
extern bool gFileNumericAppended;    ///< lines hold an appended number
extern bool gFileNonNumericAppended; ///< lines hold an appended text

extern std::string gFileAppNumName;    ///< name of the number
extern std::string gFileAppNonNumName; ///< name of the text

extern ColumnSettings gFileColumnSettings;

extern std::int16_t gPlotDataKind; ///< DataKindCode for data to come
extern std::int16_t gPlotKind;     ///< PlotKindCode of the next new plot

/// Appended numbers with the other decimal delimiter are converted without a word.
extern bool gConvertDecimals;

/// What the trend beside a negative plunge names in files to come. In the columns it always names
/// the lower end: (-p, t) is the line whose lower end is (p, t), pointing the other way.
enum class NegativePlunge : std::int16_t {
    LowerEnd = 0, ///< the trend of the line's lower end
    Vector = 1,   ///< the trend that the line points to, upward
};

extern NegativePlunge gNegativePlunge;

/// The first row of a file holds column headings (the format dialog's tick, kept from load to
/// load).
extern bool gFileHasHeadings;

/// All of the above that a load can change, to be put back when the load comes to nothing.
struct FormatSettings {
    std::int16_t conventions = 1;
    std::string delimiter;
    std::string planeSeparator;
    std::string lineSeparator;
    std::int16_t primary = 0;
    std::int16_t secondary = 0;
    bool lineAppended = false;
    bool numericAppended = false;
    bool nonNumericAppended = false;
    std::string numericName;
    std::string nonNumericName;
    ColumnSettings columns{};
    std::int16_t plotDataKind = 0;
    std::int16_t plotKind = 0;
    bool hasHeadings = false;
    NegativePlunge negativePlunge = NegativePlunge::LowerEnd;
    std::array<SymbolRow, kSymbolRowCount> symbols{}; ///< the dialog chooses those of the rows
};

[[nodiscard]] FormatSettings CurrentFormat();
void RestoreFormat(const FormatSettings& settings);

} // namespace quandrel

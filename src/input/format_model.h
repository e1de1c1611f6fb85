// SPDX-License-Identifier: MIT
//
// The data format as the line parser takes it: the settings of a load in one value, and what
// follows from them.

#pragma once

#include "core/data_format.h"

#include <array>
#include <cstdint>
#include <string>

namespace quandrel {

/// Columns separated by a comma, a semicolon, a tab or a run of blanks.
inline constexpr char kAnyDelimiter = '\0';

/// Columns from this one on are never found: no line is that long.
inline constexpr std::int32_t kMostColumns = 1 << 20;

/// Everything that decides what a line means.
struct LineFormat {
    std::int16_t primary = kPrimaryPlane;  ///< PrimaryFormatCode; 0 counts as directions
    std::int16_t secondary = kNoSecondary; ///< SecondaryFormatCode
    int planeConvention = kDipDipDirection;
    bool lineIsTrendFirst = false; ///< in texts and in pairs; else the slots say the order
    bool isQuadrant = false;
    ColumnSettings slots = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    char delimiter = '\t'; ///< or kAnyDelimiter
    bool wantLine = false;
    bool wantNumber = false;
    bool wantText = false;
    bool secondaryMayBeMissing = false; ///< a row may leave a secondary line or plane empty
    bool hasOverlays = false;           ///< the plot has overlays: directions also need a plunge
    bool decimalIsComma = false;        ///< the regional decimal delimiter
    bool convertDecimals = false;       ///< numbers with the other one are read unasked
    int neededColumns = 2;              ///< HighestColumnNeeded + 1
    NegativePlunge negativePlunge = NegativePlunge::LowerEnd; ///< the end that its trend names
    CommentMarks comments;
    bool pairsInCells = false; ///< values in one column are a pair
    PlaceColumns placeColumns; ///< a line may end before them: it then has no place
};

/// Decodes a convention code.
///
/// @param[out] planeConvention   1 to 6
/// @param[out] lineIsTrendFirst  lines are trend, plunge
/// @param[out] isQuadrant        azimuths are in quadrant notation
///
/// Kept: a quadrant code always gives lines as plunge, trend, as its sign hides the tens.
void DecodeConventions(std::int16_t code, std::int16_t& planeConvention, bool& lineIsTrendFirst,
                       bool& isQuadrant);

/// A convention code in words: "Planes as Dip,Dip Dir'n; Lines as Plunge,Trend (all in azimuth
/// notation)".
[[nodiscard]] std::string ConventionsText(std::int16_t code);

/// True for the plane conventions that state a sense of dip.
[[nodiscard]] constexpr bool HasSenseOfDip(int planeConvention) {
    return planeConvention == kStrikeDipSense || planeConvention == kDipSenseStrike;
}

/// Which of the ten slots the format uses.
[[nodiscard]] std::array<bool, kColumnSlots> SlotsInUse(const LineFormat& format);

/// The highest zero-based column that the format uses: a line has to reach it. 0 to kMostColumns.
[[nodiscard]] std::int32_t HighestColumnNeeded(const LineFormat& format);

/// A format as the line parser takes it.
///
/// @param notation     the regional decimal delimiter, and whether the other one is converted
/// @param hasOverlays  whether the plot that the lines are for has overlays
[[nodiscard]] LineFormat LineFormatOf(const FormatSettings& settings,
                                      const NotationSettings& notation, bool hasOverlays);

/// The same of the format and the notation in force.
[[nodiscard]] LineFormat LineFormatFromGlobals(bool hasOverlays);

} // namespace quandrel

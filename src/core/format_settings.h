// SPDX-License-Identifier: MIT
//
// The format of data files as a value: which column of a line of text holds what, and how an
// orientation is written in it. The current format is part of the settings (data_format.h).

#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// Formats of the primary data. 0 also means directions.
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

/// The ten items of a line, as ColumnSettings orders them.
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

/// Zero-based token indexes, one per ColumnSlot.
using ColumnSettings = std::array<std::int32_t, kColumnSlots>;

/// Which end of an upward line a trend belongs to when data files give it with a negative plunge.
/// In the columns the trend is always that of the lower end: (-p, t) is the line whose lower end is
/// (p, t), pointing the other way.
enum class NegativePlunge : std::int16_t {
    LowerEnd = 0, ///< the trend of the line's lower end
    Vector = 1,   ///< the trend that the line points to, upward
};

/// What comment lines begin with, besides ";" and "*". Blanks may precede it.
struct CommentMarks {
    bool hash = false;    ///< "#"
    bool percent = false; ///< "%"
    bool slashes = false; ///< "//": such lines are then no parameter lines

    friend bool operator==(const CommentMarks&, const CommentMarks&) = default;
};

/// The marks as a text: "#%//"; empty for none.
[[nodiscard]] std::string TextOfCommentMarks(const CommentMarks& marks);

/// The marks in a text; blanks between them count for nothing. Inverse of TextOfCommentMarks.
/// Empty for a text with anything else.
[[nodiscard]] std::optional<CommentMarks> CommentMarksIn(std::string_view text);

/// Whether a line without leading blanks begins with one of the marks.
[[nodiscard]] inline bool BeginsWithMark(std::string_view line, const CommentMarks& marks) {
    return (marks.hash && line.starts_with('#')) || (marks.percent && line.starts_with('%'))
           || (marks.slashes && line.starts_with("//"));
}

/// The columns of the place of a row on the map, or none.
struct PlaceColumns {
    std::int32_t x = -1; ///< easting or longitude, from 0; negative: none
    std::int32_t y = -1; ///< northing or latitude

    [[nodiscard]] bool AreUsed() const { return x >= 0 && y >= 0; }

    friend bool operator==(const PlaceColumns&, const PlaceColumns&) = default;
};

struct FormatSettings {
    /// Plane convention 1 to 6, plus 10 for lines as trend, plunge; negative for quadrant notation.
    std::int16_t conventions = 1;

    /// The separator of the columns of a line: one character; empty means comma, semicolon, blank
    /// or tab.
    std::string delimiter;

    std::string planeSeparator;      ///< between dip and direction, output only
    std::string lineSeparator;       ///< between plunge and trend, output only
    std::int16_t primary = 0;        ///< PrimaryFormatCode
    std::int16_t secondary = 0;      ///< SecondaryFormatCode
    bool lineAppended = false;       ///< lines hold an appended line
    bool numericAppended = false;    ///< lines hold an appended number
    bool nonNumericAppended = false; ///< lines hold an appended text
    std::string numericName;         ///< of the appended number
    std::string nonNumericName;      ///< of the appended text
    ColumnSettings columns{};
    std::int16_t plotDataKind = 0; ///< DataKindCode for new data
    std::int16_t plotKind = 0;     ///< PlotKindCode of the next new plot
    bool hasHeadings = false;      ///< the first row of a file holds column headings
    NegativePlunge negativePlunge = NegativePlunge::LowerEnd;
    CommentMarks comments;

    /// An orientation may be in one cell, "045/60NE", with one column for both values.
    bool pairsInCells = false;

    PlaceColumns placeColumns;
};

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Reads one line of text under the data format: a row, or the reason why it is none.
//
// Angles are degrees as the line states them: not rounded, not wrapped. A plane is dip (-90 to 90)
// and dip direction (-360 to 360, or 0 to 360 when it was turned from another notation), a line
// plunge and trend in the same ranges. A line with a negative plunge comes with the trend of its
// lower end, whatever the format says the trend names. Numbers may have a decimal point or comma.
//
// ParseLine is for loops over files; it is pure and takes no memory but for the rare text that has
// to be changed. ParseDataLine gives the same results as texts.

#pragma once

#include "core/tagged_value.h"
#include "input/format_model.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace quandrel {

/// What a line is.
enum class LineStatus : std::uint8_t {
    Row,
    Blank,
    ParameterLine,  ///< begins with "/"
    Comment,        ///< begins with ";" or "*"
    NotData,        ///< holds no digit
    TooFewItems,    ///< fewer columns than the format needs
    NotQuadrant,    ///< an azimuth is not in quadrant notation
    NotOrientation, ///< a value is out of range, no number or no sense
    Missing,        ///< a needed value is empty
};

enum class AppendedLineStatus : std::uint8_t { Absent, Good, Missing, Incorrect };

enum class NumberStatus : std::uint8_t {
    Absent, ///< not asked for
    Good,
    Missing,
    Incorrect,
    WrongDelimiter, ///< a number, with the decimal delimiter that is not the region's
};

enum class TextStatus : std::uint8_t { Absent, Good };

/// A text that is mostly a view into the line, and has to hold its own when it was changed.
class CellText {
public:
    operator std::string_view() const { return isChanged_ ? std::string_view(changed_) : view_; }

    /// Refers to a text that outlives this.
    void View(std::string_view text) {
        view_ = text;
        isChanged_ = false;
    }

    /// Holds a text of its own.
    void Keep(std::string changed) {
        changed_ = std::move(changed);
        isChanged_ = true;
    }

private:
    std::string_view view_;
    std::string changed_;
    bool isChanged_ = false;
};

/// A line, read. What a status does not vouch for has no meaning.
struct ParsedRow {
    LineStatus status = LineStatus::Blank; ///< nothing below counts but for a Row
    bool isPlane = false;                  ///< dip and az are those of a plane
    bool isPlane2 = false;                 ///< likewise dip2 and az2
    bool secondaryPresent = false;         ///< false for a format without one, too
    AppendedLineStatus lineStatus = AppendedLineStatus::Absent;
    NumberStatus numberStatus = NumberStatus::Absent;
    TextStatus textStatus = TextStatus::Absent;
    double dip = 0; ///< 0 for directions
    double az = 0;
    double dip2 = 0; ///< negative for an upward line
    double az2 = 0;
    double linePlunge = 0;
    double lineTrend = 0;
    double number = 0; ///< of a Good one or one with the WrongDelimiter
    CellText text;     ///< as long as the line lives
};

/// Reads a line without its line end.
///
/// Never fails otherwise than by the statuses of its result. O(length of the line).
///
/// @param format  neededColumns must be that of the slots in use
[[nodiscard]] ParsedRow ParseLine(std::string_view line, const LineFormat& format);

/// Reads the ten values of a row, in the order of the slots, in place of a line. The slots of the
/// format do not matter. A sense of dip may stand in its own place or behind the dip.
[[nodiscard]] ParsedRow ParseValues(const std::array<std::string_view, kColumnSlots>& values,
                                    const LineFormat& format);

/// The error text of a line that is no row: "ERROR 5: not orientation data"; empty for a row and a
/// blank line. The seventh character tells them apart.
[[nodiscard]] std::string_view ErrorText(LineStatus status);

/// True when a text is one of the parser's error texts: it begins with "ERROR ". A rock type
/// "Eocene" is none.
[[nodiscard]] bool IsErrorText(std::string_view text);

/// Asks ParseDataLine for values in place of a line.
inline constexpr int kValuesInSlots = -99;

/// Column indexes, or the values of a row as texts or numbers.
using SlotValues = std::array<TaggedValue, kColumnSlots>;

/// Reads a line with texts for results. Decimal delimiters are judged by gDecimalIsComma and
/// gConvertDecimals.
///
/// @param line               not read when neededColumns is kValuesInSlots
/// @param[out] outDip        dip or plunge in degrees, "0" for directions; or an error text; empty
///                           with outAz for a blank line
/// @param[out] outAz         azimuth in degrees; empty for what is no row
/// @param[out] outDip2,outAz2  secondary values, whole where they were computed. Empty when the
///                           format has none; "-9999" and "0" when the row has none
/// @param[in,out] outNumeric  in: "TRUE" when the number is wanted; out: the number as it stands,
///                           or "FALSE" when it was not wanted or the line is no row, or an error
///                           text ("ERROR D:" goes in front of the number)
/// @param[in,out] outText    likewise; never an error text
/// @param[in,out] outLineDip  likewise, the appended line
/// @param[out] outLineAz     its trend; empty when there is none
/// @param neededColumns      count of columns that a line has to reach, or kValuesInSlots
/// @param primaryFormat,secondaryFormat,planeConvention,lineIsTrendFirst,isQuadrant,delimiter
///                           as in LineFormat; an empty delimiter is any
/// @param[in,out] slots      zero-based columns; with kValuesInSlots the values of a row, which
/// then
///                           become 0 to 9
/// @param hasOverlays        as in LineFormat
void ParseDataLine(std::string_view line, std::string& outDip, std::string& outAz,
                   std::string& outDip2, std::string& outAz2, std::string& outNumeric,
                   std::string& outText, std::string& outLineDip, std::string& outLineAz,
                   int neededColumns, std::int16_t primaryFormat, std::int16_t secondaryFormat,
                   std::int16_t planeConvention, bool lineIsTrendFirst, bool isQuadrant,
                   SlotValues& slots, std::string_view delimiter, bool hasOverlays = false);

} // namespace quandrel

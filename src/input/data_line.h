// SPDX-License-Identifier: MIT
//
// Parses one line of text by the data format: into a row, or the reason why it is not a row.
//
// Angles are degrees as the line states them: not whole ones, not wrapped. A plane is a dip (-90 to
// 90) and a dip direction (-360 to 360, or 0 to 360 when converted from another notation); a line
// is a plunge and a trend in the same ranges. A line with a negative plunge gets the trend of its
// lower end, whichever end the format says the trend names. Numbers may have a decimal point or
// comma. Angles count to 1e-6 degree; further decimals are rounded.
//
// ParseLine is for loops over files: it is pure, and allocates memory only for the rare text that
// has to be changed. ParseDataLine gives the same results as texts.

#pragma once

#include "core/map_places.h"
#include "core/tagged_value.h"
#include "input/format_model.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// What a line is.
enum class LineStatus : std::uint8_t {
    Row,
    Blank,
    ParameterLine,  ///< begins with "/"
    Comment,        ///< begins with ";" or "*", or a mark of the format
    NotData,        ///< holds no digit
    TooFewItems,    ///< fewer columns than the format needs
    NotQuadrant,    ///< an azimuth is not in quadrant notation
    NotOrientation, ///< a value is out of range, not a number or not a sense
    Missing,        ///< a required value is empty
};

/// True for the lines that may come before the first row and before its heading.
[[nodiscard]] constexpr bool IsOfHead(LineStatus status) {
    return status == LineStatus::Blank || status == LineStatus::ParameterLine
           || status == LineStatus::Comment;
}

enum class AppendedLineStatus : std::uint8_t { Absent, Good, Missing, Incorrect };

enum class NumberStatus : std::uint8_t {
    Absent, ///< not asked for
    Good,
    Missing,
    Incorrect,
    WrongDelimiter, ///< a number with a decimal delimiter other than the region's
};

enum class TextStatus : std::uint8_t { Absent, Good };

/// Where the secondary orientation of a row comes from.
enum class SecondaryOrigin : std::uint8_t {
    Stated,
    WholeDegrees, ///< computed from an angle in the plane; the line has whole degrees only
    Decimals,     ///< likewise; the plane or the angle in it has decimals
};

/// A text that is usually a view into the line, and owns its characters only when it was changed.
class CellText {
public:
    operator std::string_view() const { return isChanged_ ? std::string_view(changed_) : view_; }

    /// Refers to a text that outlives this.
    void View(std::string_view text) {
        view_ = text;
        isChanged_ = false;
    }

    /// Owns a changed text.
    void Keep(std::string changed) {
        changed_ = std::move(changed);
        isChanged_ = true;
    }

private:
    std::string_view view_;
    std::string changed_;
    bool isChanged_ = false;
};

/// A parsed line. Fields that the status does not vouch for are meaningless.
struct ParsedRow {
    LineStatus status = LineStatus::Blank; ///< the fields below are valid only for a Row
    bool isPlane = false;                  ///< dip and az are those of a plane
    bool isPlane2 = false;                 ///< likewise dip2 and az2
    bool secondaryPresent = false;         ///< also false for a format without one
    bool hasMoreDecimals = false;          ///< an angle had more than six decimals
    SecondaryOrigin secondaryOrigin = SecondaryOrigin::Stated;
    AppendedLineStatus lineStatus = AppendedLineStatus::Absent;
    NumberStatus numberStatus = NumberStatus::Absent;
    TextStatus textStatus = TextStatus::Absent;
    double dip = 0; ///< 0 for directions
    double az = 0;
    double dip2 = 0; ///< negative for an upward line
    double az2 = 0;
    double linePlunge = 0;
    double lineTrend = 0;
    double number = 0;                ///< valid when Good or WrongDelimiter
    CellText text;                    ///< valid as long as the line lives
    std::optional<MapPlace> mapPlace; ///< none where the line has none, or not two numbers
};

/// Reads a line without its line end.
///
/// Reports failure only by the statuses of its result. O(length of the line).
///
/// @param format  neededColumns must be that of the slots in use
[[nodiscard]] ParsedRow ParseLine(std::string_view line, const LineFormat& format);

/// Parses the ten values of a row, in the order of the slots, instead of a line. The slots of the
/// format do not matter. A sense of dip may be in its own slot or after the dip.
[[nodiscard]] ParsedRow ParseValues(const std::array<std::string_view, kColumnSlots>& values,
                                    const LineFormat& format);

/// The error text of a line that is not a row: "ERROR 5: not orientation data"; empty for a row and
/// a blank line. The seventh character identifies the error.
[[nodiscard]] std::string_view ErrorText(LineStatus status);

/// True when a text is one of the parser's error texts: it begins with "ERROR ". A rock type
/// "Eocene" is not one.
[[nodiscard]] bool IsErrorText(std::string_view text);

/// Tells ParseDataLine to take values instead of a line.
inline constexpr int kValuesInSlots = -99;

/// Column indexes, or the values of a row as texts or numbers.
using SlotValues = std::array<TaggedValue, kColumnSlots>;

/// Parses a line, with texts as results. gDecimalIsComma and gConvertDecimals decide about decimal
/// delimiters.
///
/// @param line               not read when neededColumns is kValuesInSlots
/// @param[out] outDip        dip or plunge in degrees, "0" for directions; or an error text; empty,
///                           as outAz, for a blank line
/// @param[out] outAz         azimuth in degrees; empty for a line that is not a row
/// @param[out] outDip2,outAz2  secondary values, whole where they were computed. Empty when the
///                             format has none; "-9999" and "0" when the row has none
/// @param[in,out] outNumeric  in: "TRUE" when the number is wanted; out: the number as written,
///                            "FALSE" when it was not wanted or the line is not a row, or an error
///                            text ("ERROR D:" precedes the number)
/// @param[in,out] outText    likewise; never an error text
/// @param[in,out] outLineDip  likewise, the appended line
/// @param[out] outLineAz     its trend; empty when the row has none
/// @param neededColumns      number of columns that a line has to have, or kValuesInSlots
/// @param primaryFormat,secondaryFormat,planeConvention,lineIsTrendFirst,isQuadrant,delimiter
///                           as in LineFormat; an empty delimiter is any
/// @param[in,out] slots      zero-based columns; with kValuesInSlots the values of a row, which are
///                           replaced by 0 to 9
/// @param hasOverlays        as in LineFormat
void ParseDataLine(std::string_view line, std::string& outDip, std::string& outAz,
                   std::string& outDip2, std::string& outAz2, std::string& outNumeric,
                   std::string& outText, std::string& outLineDip, std::string& outLineAz,
                   int neededColumns, std::int16_t primaryFormat, std::int16_t secondaryFormat,
                   std::int16_t planeConvention, bool lineIsTrendFirst, bool isQuadrant,
                   SlotValues& slots, std::string_view delimiter, bool hasOverlays = false);

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Azimuths and orientations as text, and reading them: azimuth notation ("045"),
// quadrant notation ("N45E"), compass names ("NE"), strikes with a sense of dip ("030/45SE").
//
// Numbers here are degrees. Case does not matter, and blanks around a text are ignored. The text
// routines have fast forms on numbers and views, which allocate nothing: use those to read files.
// The last section turns an angle in a plane into a line, in radians.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// Marks an orientation text that could not be read: the single character 27.
inline constexpr std::string_view kUnreadable = "\x1b";

/// What SenseToDipDirection gives when the sense lies along the strike.
inline constexpr std::string_view kRepeatSense = "repeat";

/// How azimuths are written.
enum class AzimuthNotation { kAzimuth, kQuadrant };

/// The order in which the two values of a line are written.
enum class LineOrder { kPlungeTrend, kTrendPlunge };

/// What a pair of values is.
enum class OrientationKind {
    kPlane,     ///< dip and dip direction
    kLine,      ///< plunge and trend
    kDirection, ///< an azimuth alone
};

/// How OrientationText writes a pair.
struct OrientationOptions {
    OrientationKind kind = OrientationKind::kLine;
    /// Of planes: 1 dip, dip direction; 2 dip direction, dip; 3 strike, dip, sense; 4 dip, sense,
    /// strike; 5 dip, strike; 6 strike, dip (5 and 6 by the right-hand rule)
    int planeConvention = 1;
    LineOrder lineOrder = LineOrder::kPlungeTrend;
    AzimuthNotation notation = AzimuthNotation::kAzimuth;
    std::string_view separator = "/"; ///< between the values; must outlive the options
};

/// The values of a pair, each for a column of its own, in the written order.
struct OrientationFields {
    std::string first;
    std::string second; ///< empty for a direction
    std::string third;  ///< convention 3: the sense; convention 4: the strike; else empty
};

// Compass names.

/// Degrees of one of the sixteen compass names ("N" is 360), or nothing.
[[nodiscard]] std::optional<double> CompassDegrees(std::string_view name);

/// CompassDegrees as text; kUnreadable for other names.
void CompassNameToDegrees(std::string_view name, std::string& degrees);

/// True when the text is one of the sixteen compass names.
[[nodiscard]] bool IsValidCompassName(std::string_view text);

/// True when the text is a sense of dip: one of the eight compass names of one or two letters.
[[nodiscard]] bool IsValidSense(std::string_view text);

/// The sixteen compass names clockwise from "N" at index 0; empty beyond 0 to 15.
[[nodiscard]] std::string_view SectorName(int index);

// Azimuths.

/// Brings degrees into 0 to 360 by whole turns. 360 stays; values that are not finite are left
/// alone.
void WrapDegrees(double& degrees);

/// Quadrant notation of an azimuth: 30 is "N30E", 0 "N0E", 90 "N90E", 360 "N0W".
[[nodiscard]] std::string AzimuthToQuadrant(double degrees);

/// Quadrant notation of an azimuth text. An empty text gives an empty one; a text that is not a
/// number counts as 0.
[[nodiscard]] std::string AzimuthToQuadrant(std::string_view azimuth);

/// The azimuth of a direction in quadrant notation ("N30E") or of a compass name, 0 to 360.
///
/// @return nothing unless the text is N or S, a number from 0 to 90 and E or W, with nothing else
///         between them
[[nodiscard]] std::optional<double> QuadrantDegrees(std::string_view text);

/// QuadrantDegrees as text; kUnreadable when it cannot be read.
void QuadrantToAzimuth(std::string_view text, std::string& result);

/// The text with its whole part padded to three digits: "7.5" gives "007.5". A text that is not a
/// number is returned as it is.
[[nodiscard]] std::string PadAzimuth(std::string_view text);

// Splitting numbers from letters. The views are parts of the given text.

/// Splits "45SW" into digits, signs and delimiters up to the first character above '9', and the
/// letters after them. Either part may be empty.
///
/// @return false when a blank or another character is within the number, or the rest holds anything
///         but letters
[[nodiscard]] bool SplitNumberFromLetters(std::string_view text, std::string_view& number,
                                          std::string_view& letters);

/// Cuts the sense off a number: "45 SW" gives "45" and "SW", "45" gives "45" and an empty sense.
/// The number ends at the first character that is not a digit, a sign, ',', '.' or '/'.
///
/// @return false when the text does not begin with a number
[[nodiscard]] bool SplitSenseLetters(std::string_view text, std::string_view& number,
                                     std::string_view& sense);

/// SplitSenseLetters in place: text keeps the number, or becomes kUnreadable.
void SplitSenseLetters(std::string& text, std::string& sense);

// Strikes.

/// Whether a strike and a sense gave a dip direction.
enum class SenseVerdict {
    kFound,
    kRepeat, ///< the sense lies along the strike: both sides are equally close
    kNotASense,
};

/// The dip direction on the side of the sense.
///
/// @param strikeDegrees      either end of the strike line
/// @param sense              compass name of one or two letters
/// @param[out] dipDirection  strike + 90 or - 90, 0 to 360; written only when found
[[nodiscard]] SenseVerdict DipDirectionFromSense(double strikeDegrees, std::string_view sense,
                                                 double& dipDirection);

/// DipDirectionFromSense as text: degrees, kRepeatSense, or kUnreadable when the strike is not a
/// number or the sense is invalid.
[[nodiscard]] std::string SenseToDipDirection(std::string_view strike, std::string_view sense);

/// DipDirectionFromSense as text, kUnreadable unless it is found.
///
/// @param[in,out] sense  returned without blanks
void StrikeAndSenseToDipDirection(std::string_view strike, std::string& sense, std::string& result);

/// Dip direction by the right-hand rule: strike + 90, 0 to 360.
[[nodiscard]] double RightHandDipDirection(double strikeDegrees);

/// RightHandDipDirection as text: "90" for an empty strike, kUnreadable when it is not a number.
void StrikeToDipDirection(std::string_view strike, std::string& result);

/// Strike by the right-hand rule, in whole degrees or quadrant notation, and sense of a plane.
///
/// @param dipDirection  degrees; an empty text gives two empty ones
/// @param[out] strike   dip direction - 90, 1 to 360: "030" or "N30E"
/// @param[out] sense    "E" for dip directions from 46 to 134, "S" from 135 to 225, "W" from 226 to
///                      313, else "N"; fractions count as the nearest whole degree
/// @param notation      how the strike is written
void DipDirToStrikeQuadrant(std::string_view dipDirection, std::string& strike, std::string& sense,
                            AzimuthNotation notation);

/// 90 + dip, wrapped into 0 to 360; "90" for an empty text.
[[nodiscard]] std::string PlaneComplement(std::string_view dip);

// Pairs.

/// The values of a pair in the written order. A strike has as many decimals as its dip direction.
///
/// @param first    dip or plunge in degrees, written unchanged; the azimuth of a direction
/// @param second   dip direction or trend in degrees. When it is empty, only the first is written,
///                 padded. It may also be the azimuth of a direction; first is then ignored.
/// @param options  states what the pair is; the values do not decide that
[[nodiscard]] OrientationFields SplitOrientation(std::string_view first, std::string_view second,
                                                 const OrientationOptions& options);

/// The displayed form of a pair: SplitOrientation joined by the separator, with a sense directly
/// after its dip: "45/120", "030/45E", "45E/030", "N30E/45E".
[[nodiscard]] std::string OrientationText(std::string_view first, std::string_view second,
                                          const OrientationOptions& options);

/// Caption of a plane convention 1 to 6: "Dip,Dip Dir'n"; empty for others.
[[nodiscard]] std::string_view PlaneConventionCaption(int planeConvention);

/// Caption of a line order: "Plunge,Trend ", with the final blank.
[[nodiscard]] std::string_view LineOrderCaption(LineOrder lineOrder);

/// All conventions in words: "Planes as Dip,Dip Dir'n; Lines as Plunge,Trend (all in azimuth
/// notation)".
[[nodiscard]] std::string FormatDescription(int planeConvention, LineOrder lineOrder,
                                            AzimuthNotation notation);

// Lines within a plane, all in radians.

/// The line of a plane with a given trend: tan(plunge) = tan(dip) cos(trend - dipDirection).
///
/// @param[out] outPlunge  0 to kPi/2. In a vertical plane 0 for a trend along the strike, kPi/2 for
///                        any other
/// @param[out] outTrend   the trend, wrapped; opposite to the given one when the line rises there
void PlaneTrendToLine(double dip, double dipDirection, double trend, double& outPlunge,
                      double& outTrend);

/// The line of a plane with a given pitch (rake).
///
/// @param pitch           measured in the plane, down from the end of the strike line that lies
///                        nearest the sense; negative upward
/// @param sense           compass name of one or two letters
/// @param[out] outPlunge  negative for a line that rises from that end
/// @param[out] outTrend   of the downward end, 0 to kTwoPi
/// @return false, with nothing written, when the sense is invalid or at right angles to the strike
[[nodiscard]] bool PlanePitchToLine(double dip, double dipDirection, double pitch,
                                    std::string_view sense, double& outPlunge, double& outTrend);

/// The line at an angle in the plane, measured from the strike (right-hand rule) downward through a
/// full turn: 0 is the strike, kPi/2 the dip line, kPi the other end of the strike.
///
/// @param[out] outPlunge  negative above kPi: the upward continuation
/// @param[out] outTrend   of the downward end, 0 to kTwoPi
void PlaneHadeToPlunge(double dip, double dipDirection, double hade, double& outPlunge,
                       double& outTrend);

} // namespace quandrel

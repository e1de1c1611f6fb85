// SPDX-License-Identifier: MIT
//
// Orientations as texts: azimuth and quadrant notation, compass names, strikes with a sense of dip.
//
// Angles are degrees. Case and blanks around a text do not matter; numbers may have a decimal point
// or comma.
//
// Example: a strike and a sense of dip from a field book, and the plane in another notation.
//
//     namespace qd = quandrel::api;
//     const double strike = *qd::AzimuthOfText("N30E");
//     const qd::Plane bed = {45, *qd::DipDirectionOf(strike, "SE")};
//     std::cout << bed.dipDirection << '\n'; // -> 120
//     const qd::PlaneStyle style = {.convention = qd::PlaneConvention::kDipStrike};
//     std::cout << qd::TextOf(bed, style) << '\n'; // -> 45/030

#pragma once

#include "quandrel/orientation.h"

#include <optional>
#include <string>
#include <string_view>

namespace quandrel::api {

/// The azimuth of a text: a number ("120"), quadrant notation ("N30E"), or one of the sixteen
/// compass names ("SSW", in whole degrees; "ENE" is 78 and "WSW" 245, as in the program).
///
/// @return 0 to below 360; nothing for any other text
[[nodiscard]] std::optional<double> AzimuthOfText(std::string_view text);

/// The dip direction on the side of a sense of dip, 0 to below 360.
///
/// @param strike  either end of the strike line
/// @param sense   a compass name of one or two letters
/// @return nothing when the sense is invalid, or lies along the strike
[[nodiscard]] std::optional<double> DipDirectionOf(double strike, std::string_view sense);

/// The dip direction by the right-hand rule, strike + 90. Inverse: StrikeOf.
[[nodiscard]] double DipDirectionOf(double strike);

/// The strike by the right-hand rule, dip direction - 90. Inverse: DipDirectionOf.
[[nodiscard]] double StrikeOf(const Plane& plane);

/// How a plane is written.
enum class PlaneConvention {
    kDipDirection = 1,   ///< dip, dip direction: "45/120"
    kDirectionDip = 2,   ///< dip direction, dip: "120/45"
    kStrikeDipSense = 3, ///< "030/45E"
    kDipSenseStrike = 4, ///< "45E/030"
    kDipStrike = 5,      ///< right-hand rule: "45/030"
    kStrikeDip = 6,      ///< right-hand rule: "030/45"
};

/// How a line is written.
enum class LineConvention {
    kPlungeTrend, ///< "30/045"
    kTrendPlunge, ///< "045/30"
};

struct PlaneStyle {
    PlaneConvention convention = PlaneConvention::kDipDirection;
    bool isQuadrant = false;     ///< azimuths in quadrant notation
    std::string separator = "/"; ///< between the values
};

struct LineStyle {
    LineConvention convention = LineConvention::kPlungeTrend;
    bool isQuadrant = false;
    std::string separator = "/";
};

/// A plane in whole degrees, half-way cases to even. The sense of dip is N, E, S or W.
[[nodiscard]] std::string TextOf(const Plane& plane, const PlaneStyle& style = {});

/// A line in whole degrees. A line that points up by an angle that rounds to 0 is written as level,
/// with the trend that it points to.
[[nodiscard]] std::string TextOf(const Line& line, const LineStyle& style = {});

} // namespace quandrel::api

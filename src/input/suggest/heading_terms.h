// SPDX-License-Identifier: MIT
//
// What the headings of tables call orientations: terms of several languages and their short forms.
// The table is in heading_terms.cpp; a line there is all that a further term needs.
//
// This room suggests formats for files: from headings, ranges and letters to a ranked list.
// Input: lines of a text.
// Output: suggestions as values, each with a probability and reasons in words.

#pragma once

#include <string>
#include <string_view>

namespace quandrel {

enum class HeadingMeaning {
    None,
    Dip,
    DipDirection,
    Strike,
    RightHandStrike, ///< the heading says that the plane dips to the right of it
    Sense,           ///< of dip: N, SE
    Plunge,
    Trend,
    Azimuth,      ///< of whatever stands beside it
    Inclination,  ///< a dip or a plunge
    Declination,  ///< trend of the vector that an inclination belongs to
    Pitch,        ///< angle of a line in its plane, from an end of the strike
    AngleInPlane, ///< the same from 0 to 360, from the right-hand strike
    Easting,      ///< or longitude
    Northing,     ///< or latitude
    Coordinate,   ///< another one
    Identifier,
    Frequency,
    Speed,
    Number,
    Text,
    Place, ///< a text that says where
};

/// A heading as the table has it: in lower case, without accents, units and everything that is not
/// a letter or a digit; its words are separated by single blanks.
[[nodiscard]] std::string PlainHeading(std::string_view heading);

/// What a heading means: that of its longest run of words that is a term. "Bedding dip (deg)" is a
/// dip, "dip direction" is not.
[[nodiscard]] HeadingMeaning MeaningOfHeading(std::string_view heading);

} // namespace quandrel

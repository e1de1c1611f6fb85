// SPDX-License-Identifier: MIT

// Rows of the example files as text: items, numbers, azimuths and compass directions.
#pragma once

#include "field_season.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <utility>

namespace quandrel {

/// One item of a row.
struct Field : std::string {
    Field(int number)
        : std::string(std::to_string(number)) {}

    Field(const char* text)
        : std::string(text) {}

    Field(std::string text)
        : std::string(std::move(text)) {}
};

/// Items with a delimiter between them, as a line.
inline std::string Row(const char* delimiter, std::initializer_list<Field> fields) {
    std::string row;
    for (const Field& field : fields) {
        row += (row.empty() ? "" : delimiter) + field;
    }
    return row + "\n";
}

/// A number with a fixed count of decimals.
inline std::string Fixed(double value, int decimals, char decimalDelimiter = '.') {
    std::array<char, 40> buffer{};
    char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                    std::chars_format::fixed, decimals)
                          .ptr;
    std::replace(buffer.data(), end, '.', decimalDelimiter);
    return {buffer.data(), end};
}

/// Dip and dip direction of a plane with two decimals, as one text.
inline std::string MeasuredPlane(const char* delimiter, const Direction& pole) {
    const Direction down = Downward(pole);
    const double dipDirection = std::fmod(AzimuthOf(down) + 180.0, 360.0);
    return Fixed(90.0 - PlungeOf(down), 2) + delimiter + Fixed(dipDirection, 2);
}

/// An azimuth of three digits.
inline std::string Padded(int azimuth) {
    return std::to_string(1000 + azimuth).substr(1);
}

/// N30E, S12W: from north or south, whichever is nearer.
inline std::string Quadrant(int azimuth) {
    const bool north = azimuth <= 90 || azimuth > 270;
    const int fromAxis = north ? std::min(azimuth, 360 - azimuth) : std::abs(azimuth - 180);
    return (north ? "N" : "S") + std::to_string(fromAxis) + (azimuth <= 180 ? "E" : "W");
}

/// The nearest of the eight compass directions.
inline std::string Sense(int azimuth) {
    static constexpr std::array<const char*, 8> kNames{"N", "NE", "E", "SE", "S", "SW", "W", "NW"};
    return kNames[static_cast<std::size_t>(WholeAzimuth(azimuth) * 2 + 45) / 90 % 8];
}

} // namespace quandrel

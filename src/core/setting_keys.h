// SPDX-License-Identifier: MIT
//
// The sections of the settings store, and the keys that contain numbers.

#pragma once

#include <cstddef>
#include <string>

namespace quandrel {

inline constexpr const char* kStartUp = "StartUp";
inline constexpr const char* kDataFormats = "DataFormats";
inline constexpr const char* kSymbolArray = "SymbolArray";
inline constexpr const char* kFonts = "Fonts";
inline constexpr const char* kFileMenuArray = "FileMenuArray";
inline constexpr const char* kDataClassifArray = "DataClassifArray";

// Keys that are read outside the load of all settings too.
inline constexpr const char* kMaxPlotsKey = "gMaxPlots";
inline constexpr const char* kSecondaryTypeKey = "gSecondaryDataType";
inline constexpr const char* kLineAppendedKey = "gFileLineAppended";
inline constexpr const char* kNumericAppendedKey = "gFileNumericAppended";
inline constexpr const char* kNonNumericAppendedKey = "gFileNonNumericAppended";
inline constexpr const char* kFontNameKey = "FontName";

/// How truth values are saved. TruthOfSetting also reads other spellings.
inline constexpr const char* kTrueText = "True";
inline constexpr const char* kFalseText = "False";

/// As the value of FontName0: no font was ever chosen.
inline constexpr const char* kNoFontName = "none";

[[nodiscard]] inline std::string TwoDigits(std::size_t number) {
    const std::string digits = std::to_string(number);
    return digits.size() < 2 ? "0" + digits : digits;
}

/// An element of gFileColumnSettings.
[[nodiscard]] inline std::string ColumnKey(std::size_t slot) {
    return "gFileColumnSettings" + std::to_string(slot);
}

/// The saved properties of a font, by its index in gSettings.styles.fonts.
[[nodiscard]] inline std::string FontKey(const char* what, std::size_t index) {
    return what + std::to_string(index);
}

/// An element of gSymbolTable.
[[nodiscard]] inline std::string SymbolKey(std::size_t row, std::size_t place) {
    return "SymbolArray" + TwoDigits(row) + std::to_string(place);
}

/// A colour of gColourTable.
[[nodiscard]] inline std::string ColourKey(std::size_t index) {
    return "ColourArray" + TwoDigits(index);
}

/// The keys of a line's style: colour index, draw style, draw width.
struct LineStyleKeys {
    std::string colour;
    std::string style;
    std::string width;
};

/// The contour style of a level.
[[nodiscard]] inline LineStyleKeys ContourKeys(std::size_t level) {
    const std::string number = std::to_string(level);
    return {"ContourColour" + number, "ContourStyle" + number, "ContourWidth" + number};
}

/// The style of a kind of girdle, by the name of the kind.
[[nodiscard]] inline LineStyleKeys GirdleKeys(const std::string& kind) {
    return {kind + "GirdleStyle0", kind + "GirdleStyle1", kind + "GirdleStyle2"};
}

/// A cell of the default class table: "00" to "12" is the first column; the others follow.
[[nodiscard]] inline std::string ClassKey(std::size_t row, std::size_t column) {
    return TwoDigits(column * 13 + row);
}

} // namespace quandrel

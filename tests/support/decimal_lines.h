// SPDX-License-Identifier: MIT
//
// Random rows of data files with 0 to 6 decimals, in each notation, with the orientations that they
// are meant to be. The rules of the notations are written out here in whole millionths of a degree.

#pragma once

#include "core/plot_store.h"
#include "core/settings.h"
#include "orientation/attitude.h"
#include "support/trial.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace quandrel {

/// A notation for rows.
struct RowNotation {
    std::int16_t conventions = 1; ///< as gConventions: lines as trend, plunge from 10 on
    std::int16_t primary = kPrimaryPlane;
    std::int16_t secondary = kNoSecondary;
    bool line = false;
    NegativePlunge negativePlunge = NegativePlunge::LowerEnd;
    int rows = 2000; ///< to try it with

    [[nodiscard]] std::string Name() const {
        return std::to_string(conventions) + " " + std::to_string(primary) + " "
               + std::to_string(secondary)
               + (negativePlunge == NegativePlunge::Vector ? " vectors" : "");
    }
};

/// All plane conventions in azimuths and quadrants, lines, and each kind of secondary data.
inline std::vector<RowNotation> CommonNotations() {
    std::vector<RowNotation> notations;
    for (std::int16_t convention = 1; convention <= 6; ++convention) {
        for (const int sign : {1, -1}) {
            const auto code = static_cast<std::int16_t>(sign * convention);
            notations.push_back({code, kPrimaryPlane, kNoSecondary, true});
            notations.push_back({code, kPrimaryPlane, kSecondaryPlane, false});
            notations.push_back({code, kPrimaryPlane, kSecondaryLine, true});
        }
    }
    for (const std::int16_t code : {std::int16_t{1}, std::int16_t{11}, std::int16_t{-1}}) {
        notations.push_back({code, kPrimaryLine, kNoSecondary, false});
        notations.push_back({code, kDirections, kNoSecondary, false});
        for (const std::int16_t inPlane : {kPitchInPlane, kTrendInPlane, kHadeInPlane}) {
            notations.push_back({code, kPrimaryPlane, inPlane, false});
        }
    }
    return notations;
}

/// The other codes of conventions, angles in planes of all of them, and lines whose negative plunge
/// points to their trend. With fewer rows, as they are read by the same rules.
inline std::vector<RowNotation> FurtherNotations() {
    const int rows = AreTrialsWhole() ? 2000 : 200;
    constexpr auto kLower = NegativePlunge::LowerEnd;
    std::vector<RowNotation> notations;
    for (int convention = 1; convention <= 6; ++convention) {
        for (const int code : {convention, -convention, convention + 10, -convention - 10}) {
            const auto conventions = static_cast<std::int16_t>(code);
            for (const std::int16_t second : {kNoSecondary, kSecondaryPlane, kSecondaryLine,
                                              kPitchInPlane, kTrendInPlane, kHadeInPlane}) {
                notations.push_back({conventions, kPrimaryPlane, second, true, kLower, rows});
            }
            notations.push_back({conventions, kPrimaryLine, kSecondaryLine, true, kLower, rows});
        }
        for (const int code : {-convention, convention + 10}) {
            const auto conventions = static_cast<std::int16_t>(code);
            notations.push_back(
                {conventions, kPrimaryLine, kSecondaryLine, true, NegativePlunge::Vector, rows});
        }
    }
    return notations;
}

inline std::vector<RowNotation> RowNotations() {
    std::vector<RowNotation> notations = CommonNotations();
    const std::vector<RowNotation> further = FurtherNotations();
    notations.insert(notations.end(), further.begin(), further.end());
    return notations;
}

/// Whether the secondary lines of a notation are computed from an angle in the plane.
inline bool IsComputed(const RowNotation& notation) {
    return notation.secondary == kPitchInPlane || notation.secondary == kTrendInPlane
           || notation.secondary == kHadeInPlane;
}

/// A row and what it means.
struct DecimalRow {
    std::string text; ///< eight fields, separated by tabs
    Attitude primary;
    std::optional<Attitude> secondary; ///< not of computed lines
    std::optional<Attitude> line;
    double angleInPlane = 0; ///< degrees, of computed lines
    double strikeEnd = 0;    ///< of a pitch: the azimuth from which it is measured
};

class DecimalRows {
public:
    explicit DecimalRows(const RowNotation& notation, unsigned seed)
        : notation_(notation)
        , random_(seed) {}

    DecimalRow Next() {
        decimals_ = static_cast<int>(random_() % 7);
        DecimalRow row;
        std::array<std::string, 8> fields;
        fields.fill("x");
        if (notation_.primary == kPrimaryPlane) {
            row.primary = AddPlane(fields, 0);
        } else {
            row.primary = AddLine(fields, 0, 1);
        }
        if (notation_.primary == kDirections) {
            row.primary.dip = 0;
        }
        AddSecondary(fields, row);
        if (notation_.line) {
            row.line = AddLine(fields, 6, 7);
        }
        for (const std::string& field : fields) {
            row.text += (row.text.empty() ? "" : "\t") + field;
        }
        return row;
    }

    /// Puts the notation in force. The columns are in the order of the slots.
    static void Use(const RowNotation& notation) {
        gConventions = notation.conventions;
        gPrimaryDataType = notation.primary;
        gSecondaryDataType = notation.secondary;
        gFileLineAppended = notation.line;
        gFileNumericAppended = false;
        gFileNonNumericAppended = false;
        gFileDelimiter = "\t";
        gFileColumnSettings = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
        gPlotDataKind = notation.primary == kPrimaryPlane ? kPlanes : kPolarLines;
        gPlotKind = kEqualArea;
        gSettings.format.negativePlunge = notation.negativePlunge;
    }

private:
    using Fields = std::array<std::string, 8>;

    static constexpr std::int64_t kDegree = 1000000;
    static constexpr std::int64_t kTurn = 360 * kDegree;

    static double Degrees(std::int64_t micro) {
        return static_cast<double>(micro) / static_cast<double>(kDegree);
    }

    /// A random angle with the decimals of the row, in millionths of a degree.
    std::int64_t Angle(int low, int high) {
        std::int64_t step = kDegree;
        for (int i = 0; i < decimals_; ++i) {
            step /= 10;
        }
        const std::int64_t steps = (high - low) * (kDegree / step) + 1;
        std::uniform_int_distribution<std::int64_t> any(0, steps - 1);
        return low * kDegree + any(random_) * step;
    }

    [[nodiscard]] std::string Text(std::int64_t micro) const {
        const std::int64_t size = std::abs(micro);
        std::string text = (micro < 0 ? "-" : "") + std::to_string(size / kDegree);
        if (decimals_ > 0) {
            std::string digits = std::to_string(kDegree + size % kDegree).substr(1);
            text += "." + digits.substr(0, static_cast<std::size_t>(decimals_));
        }
        return text;
    }

    [[nodiscard]] std::string Azimuth(std::int64_t micro) const {
        if (notation_.conventions > 0) {
            return Text(micro);
        }
        const std::int64_t right = 90 * kDegree;
        return micro <= right       ? "N" + Text(micro) + "E"
               : micro <= 2 * right ? "S" + Text(2 * right - micro) + "E"
               : micro <= 3 * right ? "S" + Text(micro - 2 * right) + "W"
                                    : "N" + Text(kTurn - micro) + "W";
    }

    static std::int64_t Turned(std::int64_t micro) { return ((micro % kTurn) + kTurn) % kTurn; }

    static std::string NearestCompassName(std::int64_t micro) {
        constexpr std::array kNames = {"N", "NE", "E", "SE", "S", "SW", "W", "NW"};
        return kNames[static_cast<std::size_t>(std::lround(Degrees(Turned(micro)) / 45)) % 8];
    }

    /// Writes a plane to the columns dip, direction, sense from `first` on.
    Attitude AddPlane(Fields& fields, std::size_t first) {
        const int convention = std::abs(notation_.conventions) % 10;
        const std::int64_t dip = Angle(0, 90);
        const std::int64_t direction = Turned(Angle(0, 360));
        const std::int64_t right = Turned(direction - 90 * kDegree);
        fields[first] = Text(dip);
        fields[first + 1] = Azimuth(convention <= 2 ? direction : right);
        if (convention == 3 || convention == 4) {
            const bool otherEnd = random_() % 2 == 0;
            fields[first + 1] = Azimuth(otherEnd ? Turned(right + 180 * kDegree) : right);
            fields[first + 2] = NearestCompassName(direction);
        }
        return {Degrees(dip), Degrees(direction)};
    }

    Attitude AddLine(Fields& fields, std::size_t dipField, std::size_t azimuthField) {
        const std::int64_t plunge = Angle(-90, 90);
        const std::int64_t trend = Angle(0, 360);
        fields[dipField] = Text(plunge);
        fields[azimuthField] = Azimuth(trend);
        const bool isVector = notation_.negativePlunge == NegativePlunge::Vector && plunge < 0;
        return {Degrees(plunge), Degrees(isVector ? Turned(trend + kTurn / 2) : trend)};
    }

    void AddSecondary(Fields& fields, DecimalRow& row) {
        switch (notation_.secondary) {
        case kSecondaryPlane:
            row.secondary = AddPlane(fields, 3);
            break;
        case kSecondaryLine:
            row.secondary = AddLine(fields, 3, 4);
            break;
        case kPitchInPlane: {
            const std::int64_t pitch = Angle(0, 180);
            row.angleInPlane = Degrees(pitch);
            row.strikeEnd = row.primary.azimuth + (random_() % 2 == 0 ? 90 : -90);
            fields[4] = Text(pitch);
            fields[5] = NearestCompassName(std::llround(row.strikeEnd * kDegree));
            break;
        }
        case kTrendInPlane:
        case kHadeInPlane: {
            const std::int64_t angle = Angle(0, 360);
            row.angleInPlane = Degrees(angle);
            fields[4] = Text(angle);
            break;
        }
        default:
            break;
        }
    }

    RowNotation notation_;
    std::mt19937 random_;
    int decimals_ = 0;
};

/// Rows of a notation as the text of a file.
inline std::string TextOf(const std::vector<DecimalRow>& rows) {
    std::string text;
    for (const DecimalRow& row : rows) {
        text += row.text + "\n";
    }
    return text;
}

inline std::vector<DecimalRow> RandomDecimalRows(const RowNotation& notation) {
    DecimalRows made(notation, 20261122);
    std::vector<DecimalRow> rows;
    for (int i = 0; i < notation.rows; ++i) {
        rows.push_back(made.Next());
    }
    return rows;
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "persistence/binary_plot_checks.h"

#include "core/data_format.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace quandrel {

namespace {

constexpr std::int32_t kFullTurn = 360;
constexpr std::int32_t kHugeAzimuth = 10 * kFullTurn;
constexpr double kHugeAngle = 10000;
constexpr std::int32_t kLargestBand = 1000000;
constexpr std::int16_t kLargestGridIndex = kGridNodes - 1;
constexpr std::int16_t kMostContours = 9;
constexpr std::int16_t kLastRoseKind = 8;
constexpr std::int16_t kLastRoseClass = 2;
constexpr std::int16_t kLastRoseShape = 4;
constexpr std::int16_t kLastBiasMode = 3;
constexpr std::int16_t kLastClassMode = 3;

template <class T>
bool IsWithin(T value, T least, T most) {
    return value >= least && value <= most;
}

bool IsDip(std::int32_t dip) {
    return IsWithin(dip, -90, 90);
}

/// Rejects an invalid azimuth, and wraps one beyond the circle.
void RequireAzimuth(BinaryReader& reader, std::int32_t& azimuth) {
    reader.Require(IsWithin(azimuth, -kHugeAzimuth, kHugeAzimuth));
    azimuth = AzimuthOnCircle(azimuth);
}

void RequireOrientation(BinaryReader& reader, std::int32_t& dip, std::int32_t& azimuth) {
    if (dip != kErrorRow) {
        reader.Require(IsDip(dip));
        RequireAzimuth(reader, azimuth);
    }
}

/// Rejects an invalid angle, and wraps one beyond a full turn in either sense.
void RequireAngle(BinaryReader& reader, double& angle, double fullTurn) {
    reader.Require(IsWithin(angle, -kHugeAngle, kHugeAngle));
    if (std::abs(angle) > fullTurn) {
        angle = std::fmod(angle, fullTurn);
    }
}

void RequireAngle(BinaryReader& reader, TaggedValue& value) {
    const double read = NumberOf(value);
    double angle = read;
    RequireAngle(reader, angle, kTwoPi);
    if (angle != read) {
        value = angle;
    }
}

void RequireRose(BinaryReader& reader, PlotRecord& record) {
    reader.Require(IsWithin<std::int16_t>(record.RoseType, 0, kLastRoseClass * 10 + kLastRoseKind)
                   && record.RoseType % 10 <= kLastRoseKind);
    reader.Require(IsWithin<std::int16_t>(record.RoseShape, 0, kLastRoseShape));
    reader.Require(IsWithin<std::int16_t>(record.RoseBiasMode, 0, kLastBiasMode));
    reader.Require(IsWithin(record.RoseSectorSize, -kHugeAngle, kHugeAngle));
    RequireAngle(reader, record.RoseStartAngle, kFullTurn);
}

} // namespace

void RequirePossibleHead(BinaryReader& reader, const PlotRecord& record) {
    reader.Require(record.NumData >= 0 && record.NumLoadedData >= 0);
    reader.Require(IsWithin(record.NumValidData, 0, std::max(record.NumData, 0)));
    reader.Require(IsWithin<std::int16_t>(record.PrimaryFormat, 0, kPrimaryLine));
    reader.Require(IsWithin<std::int16_t>(record.SecondaryFormat, kNoSecondary, kHadeInPlane));
    reader.Require(IsWithin<std::int16_t>(record.SelectedOverlay, 0, kMaxOverlays));
    reader.Require(IsWithin<std::int16_t>(record.PlotKind, kEqualArea, kRose));
    reader.Require(IsWithin<std::int16_t>(record.DataKind, kPlanes, kPolarLines));
    reader.Require(IsWithin<std::int16_t>(record.PlotSymbolMode, kGreatCircles, kContoursAndGrid));
}

std::int32_t AzimuthOnCircle(std::int32_t azimuth) {
    if (IsWithin(azimuth, 0, kFullTurn)) {
        return azimuth;
    }
    const std::int32_t rest = azimuth % kFullTurn;
    return rest < 0 ? rest + kFullTurn : rest;
}

void RequirePossibleRow(BinaryReader& reader, BinaryRow& row) {
    RequireOrientation(reader, row.dip, row.azimuth);
    RequireOrientation(reader, row.dip2, row.azimuth2);
    if (row.lineDip != kInvalidAppendedLine) {
        RequireOrientation(reader, row.lineDip, row.lineAzimuth);
    }
    reader.Require(IsWithin(row.density, 0, kLargestBand));
}

void RequirePossibleOverlays(BinaryReader& reader, PlotRecord& record) {
    reader.Require(IsWithin(record.OverlayRows[kOverlayCount], 0, kMaxOverlays));
    if (reader.HasFailed()) {
        record.OverlayRows[kOverlayCount] = 0;
    }
    if (record.SelectedOverlay > record.OverlayRows[kOverlayCount]) {
        record.SelectedOverlay = 0;
    }
}

void RequirePossibleOverlay(BinaryReader& reader, const PlotRecord& record, std::size_t overlay) {
    reader.Require(IsWithin<std::int16_t>(record.OverlayKind[overlay], kOverlayGreatCircles,
                                          kOverlayPolarLines));
}

void RequirePossibleGrid(BinaryReader& reader, const PlotRecord& record) {
    reader.Require(record.DensityCount >= 0);
    reader.Require(IsWithin<std::int16_t>(record.GridSize, 0, kLargestGridIndex));
    reader.Require(IsWithin<std::int16_t>(record.NumContours, 0, kMostContours));
}

void RequirePossibleSettings(BinaryReader& reader, PlotRecord& record) {
    for (auto& item : record.AxisItems) {
        RequireAngle(reader, item[kItemPlunge]);
        RequireAngle(reader, item[kItemTrend]);
    }
    RequireRose(reader, record);
    reader.Require(IsWithin<std::int16_t>(record.ClassMode, 0, kLastClassMode));
    reader.Require(record.NumClasses >= 0 && record.NumClassified >= 0);
    for (auto& held : record.DistinctValues) {
        // The second values are compared as texts.
        if (!IsEmpty(held[kOfTexts]) && !std::holds_alternative<std::string>(held[kOfTexts])) {
            held[kOfTexts] = TextOf(held[kOfTexts]);
        }
    }
}

std::optional<WindowPlace> PossiblePlace(std::int32_t state, const std::array<float, 4>& place) {
    constexpr std::int32_t kLastState = 2;
    constexpr float kFarthest = 1000000;
    const auto isPossible = [](float value) { return std::abs(value) <= kFarthest; };
    const auto [top, left, width, height] = place;
    if (!IsWithin(state, 0, kLastState) || !std::all_of(place.begin(), place.end(), isPossible)
        || width < 1 || height < 1) {
        return std::nullopt;
    }
    const auto whole = [](float value) { return static_cast<std::int32_t>(std::lround(value)); };
    return WindowPlace{state, whole(top), whole(left), whole(width), whole(height)};
}

std::int32_t RowOfCell(std::string_view text) {
    std::int32_t row = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), row);
    return fault == std::errc() && end == text.data() + text.size() ? row : 0;
}

std::string WithoutPadding(std::string_view text) {
    constexpr std::string_view kPadding(" \0", 2);
    const std::size_t first = text.find_first_not_of(kPadding);
    return first == std::string_view::npos
               ? std::string()
               : std::string(text.substr(first, text.find_last_not_of(kPadding) - first + 1));
}

std::int16_t ShortNumberOf(const std::string& text) {
    using Limits = std::numeric_limits<std::int16_t>;
    const double number = RoundToEven(ParseNumber(text));
    return number >= Limits::min() && number <= Limits::max() ? static_cast<std::int16_t>(number)
                                                              : std::int16_t{0};
}

std::int16_t RoseTypeOfEarlier(std::int16_t code) {
    if (code == kWeightedRose) {
        return 0;
    }
    return code > kWeightedRose ? static_cast<std::int16_t>(code - 1) : code;
}

std::int16_t EarlierOfRoseType(std::int16_t roseType) {
    constexpr std::int16_t kLastWithCode = kLastEarlierRose - 1;
    if (roseType > kLastWithCode || roseType < kWeightedRose) {
        return roseType > kLastWithCode ? std::int16_t{0} : roseType;
    }
    return static_cast<std::int16_t>(roseType + 1);
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "input/suggest/further_columns.h"

#include "input/format_preview.h"
#include "input/suggest/heading_terms.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

using enum HeadingMeaning;

using Columns = std::vector<ColumnEvidence>;

/// The column of a pitch's sense: letters behind the pitch, or a column of senses beside it.
std::optional<std::size_t> SenseOfPitch(const Columns& columns, std::size_t pitch,
                                        const FormatChoice& choice) {
    const ColumnEvidence& column = columns[pitch];
    if (column.IsMostly(column.numbers + column.dipsWithSense)
        && column.dipsWithSense > column.numbers) {
        return pitch;
    }
    for (const std::size_t beside : {pitch + 1, pitch - 1}) {
        if (beside < columns.size() && columns[beside].filled > 0
            && columns[beside].IsMostly(columns[beside].senses)
            && ItemsOfColumn(choice, static_cast<int>(beside)).empty()) {
            return beside;
        }
    }
    return std::nullopt;
}

/// A pair of plunge and trend that a format does not use yet.
std::optional<AnglePair> FreeLine(const Columns& columns, const FormatChoice& choice) {
    const auto plunge = FreeColumn(columns, Plunge, choice);
    auto trend = FreeColumn(columns, Trend, choice);
    trend = trend ? trend : FreeColumn(columns, Azimuth, choice);
    return plunge && trend ? std::optional(AnglePair{*plunge, *trend}) : std::nullopt;
}

bool IsNumber(const ColumnEvidence& column) {
    return column.IsMostly(column.numbers);
}

void SetNumber(FormatChoice& choice, const std::string& name, std::size_t column) {
    choice.numericAppended = true;
    choice.numericName = name;
    SetColumn(choice, kSlotNumber, column);
}

void SetText(FormatChoice& choice, const std::string& name, std::size_t column) {
    choice.nonNumericAppended = true;
    choice.nonNumericName = name;
    SetColumn(choice, kSlotText, column);
}

/// Directions with a frequency and a speed: the names are those that wind roses look for.
void AddWind(const Columns& columns, FormatChoice& choice) {
    const auto frequency = FreeColumn(columns, Frequency, choice);
    const auto speed = FreeColumn(columns, Speed, choice);
    if (choice.primary != kDirections || !speed || !IsNumber(columns[*speed])) {
        return;
    }
    if (frequency && IsNumber(columns[*frequency])) {
        SetNumber(choice, "Mean wind frequency", *frequency);
        SetText(choice, "Mean wind speed", *speed);
    } else {
        SetNumber(choice, "Raw wind speed", *speed);
    }
}

bool MayBeAppended(const Columns& columns, std::size_t i, const FormatChoice& choice) {
    const ColumnEvidence& column = columns[i];
    const HeadingMeaning meaning = column.meaning;
    const bool isFree = meaning == Number || meaning == Frequency || meaning == Speed
                        || meaning == Text || meaning == Place || meaning == None;
    return isFree && !column.heading.empty() && column.filled > 0
           && ItemsOfColumn(choice, static_cast<int>(i)).empty();
}

/// Makes a column the number or the text of a row, unless the format has one.
void AddValue(const ColumnEvidence& column, std::size_t place, FormatChoice& choice) {
    const bool isText = column.meaning == Text || column.meaning == Place;
    if (IsNumber(column) && !isText && !column.rises && !choice.numericAppended) {
        SetNumber(choice, column.heading, place);
    } else if (!IsNumber(column) && column.numbers == 0 && !choice.nonNumericAppended) {
        SetText(choice, column.heading, place);
    }
}

} // namespace

std::string ReasonOfColumn(const Columns& columns, std::size_t column) {
    const ColumnEvidence& evidence = columns[column];
    std::string reason = "column " + std::to_string(column + 1);
    reason += evidence.heading.empty() ? "" : " is headed '" + evidence.heading + "' and";
    if (evidence.IsMostly(evidence.quadrants)) {
        return reason + " holds quadrants";
    }
    const auto whole = [](double value) { return std::to_string(std::lround(value)); };
    return reason + " lies in " + whole(std::floor(evidence.least)) + ".."
           + whole(std::ceil(evidence.most));
}

std::optional<std::size_t> FreeColumn(const Columns& columns, HeadingMeaning meaning,
                                      const FormatChoice& choice) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].meaning == meaning && columns[i].filled > 0
            && ItemsOfColumn(choice, static_cast<int>(i)).empty()) {
            return i;
        }
    }
    return std::nullopt;
}

void SetColumn(FormatChoice& choice, int slot, std::size_t column) {
    choice.columns[static_cast<std::size_t>(slot)] = static_cast<std::int32_t>(column);
}

void SetSecondaryLine(FormatChoice& choice, const AnglePair& line) {
    choice.secondary = kSecondaryLine;
    SetColumn(choice, kSlotSecondaryDip, line.dip);
    SetColumn(choice, kSlotSecondaryDirection, line.azimuth);
}

void AddSecondary(const Columns& columns, FormatChoice& choice, std::vector<std::string>& reasons) {
    const auto take = [&](std::int16_t secondary, std::size_t column) {
        choice.secondary = secondary;
        SetColumn(choice, kSlotSecondaryDirection, column);
        reasons.push_back(ReasonOfColumn(columns, column));
    };
    if (const auto line = FreeLine(columns, choice)) {
        SetSecondaryLine(choice, *line);
        reasons.push_back(ReasonOfColumn(columns, line->dip));
        reasons.push_back(ReasonOfColumn(columns, line->azimuth));
    } else if (const auto pitch = FreeColumn(columns, Pitch, choice)) {
        if (const auto sense = SenseOfPitch(columns, *pitch, choice)) {
            take(kPitchInPlane, *pitch);
            SetColumn(choice, kSlotSecondarySense, *sense);
            reasons.emplace_back("letters stand for the end that the pitch is measured from");
        }
    } else if (const auto angle = FreeColumn(columns, AngleInPlane, choice)) {
        take(kHadeInPlane, *angle);
    } else if (const auto trend = FreeColumn(columns, Trend, choice)) {
        take(kTrendInPlane, *trend);
        reasons.emplace_back("there is no plunge beside the trend: the line lies in the plane");
    }
}

void FollowOrder(FormatChoice& choice) {
    if (choice.pairsInCells) {
        return; // the order is that within the cells
    }
    const auto isReversed = [&choice](int dip, int azimuth) {
        return choice.columns[static_cast<std::size_t>(dip)]
               > choice.columns[static_cast<std::size_t>(azimuth)];
    };
    const bool isAzimuthFirst = isReversed(kSlotDip, kSlotDirection);
    const bool hasLine = choice.secondary == kSecondaryLine;
    choice.lineIsTrendFirst =
        (choice.primary == kPrimaryLine && isAzimuthFirst)
        || (hasLine && isReversed(kSlotSecondaryDip, kSlotSecondaryDirection));
    if (choice.primary != kPrimaryPlane) {
        return;
    }
    switch (choice.planeConvention) {
    case kDipDipDirection:
        choice.planeConvention = isAzimuthFirst ? kDipDirectionDip : kDipDipDirection;
        break;
    case kStrikeDipSense:
        choice.planeConvention = isAzimuthFirst ? kStrikeDipSense : kDipSenseStrike;
        break;
    default:
        choice.planeConvention = isAzimuthFirst ? kStrikeDipRightHand : kDipStrikeRightHand;
        break;
    }
}

void TakeFromPlot(const FormatChoice& plot, FormatChoice& choice) {
    choice.plotDataKind = plot.plotDataKind;
    choice.kindIsStated = plot.kindIsStated;
    choice.plotSecondary = plot.plotSecondary;
    choice.lineAppended = choice.lineAppended && plot.lineAppended;
    choice.numericAppended = choice.numericAppended && plot.numericAppended;
    choice.nonNumericAppended = choice.nonNumericAppended && plot.nonNumericAppended;
    choice.numericName = plot.numericName;
    choice.nonNumericName = plot.nonNumericName;
}

void AddAppended(const Columns& columns, FormatChoice& choice) {
    if (choice.secondary == kSecondaryLine) {
        if (const auto line = FreeLine(columns, choice)) {
            choice.lineAppended = true;
            SetColumn(choice, kSlotAppendedPlunge, line->dip);
            SetColumn(choice, kSlotAppendedTrend, line->azimuth);
        }
    }
    AddWind(columns, choice);
    for (const bool isOfPlaces : {false, true}) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if ((columns[i].meaning == Place) == isOfPlaces && MayBeAppended(columns, i, choice)) {
                AddValue(columns[i], i, choice);
            }
        }
    }
}

void AddPlaceColumns(const Columns& columns, FormatChoice& choice,
                     std::vector<std::string>& reasons) {
    const auto easting = FreeColumn(columns, Easting, choice);
    const auto northing = FreeColumn(columns, Northing, choice);
    if (easting && northing && IsNumber(columns[*easting]) && IsNumber(columns[*northing])) {
        choice.placeColumns = {static_cast<std::int32_t>(*easting),
                               static_cast<std::int32_t>(*northing)};
        reasons.push_back("'" + columns[*easting].heading + "' and '" + columns[*northing].heading
                          + "' are the place on the map");
    }
}

} // namespace quandrel

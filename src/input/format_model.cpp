// SPDX-License-Identifier: MIT

#include "input/format_model.h"

#include "core/plot_store.h"
#include "orientation/notation.h"

#include <algorithm>
#include <cstdlib>

namespace quandrel {

namespace {

constexpr int kConventionCodes = 10;

void MarkSecondary(const LineFormat& format, std::array<bool, kColumnSlots>& used) {
    const bool isPair = format.secondary == kSecondaryLine || format.secondary == kSecondaryPlane;
    used[kSlotSecondaryDip] = isPair;
    used[kSlotSecondaryDirection] = format.secondary != kNoSecondary;
    used[kSlotSecondarySense] =
        format.secondary == kPitchInPlane
        || (format.secondary == kSecondaryPlane && HasSenseOfDip(format.planeConvention));
}

} // namespace

void DecodeConventions(std::int16_t code, std::int16_t& planeConvention, bool& lineIsTrendFirst,
                       bool& isQuadrant) {
    planeConvention = static_cast<std::int16_t>(std::abs(int{code}) % kConventionCodes);
    lineIsTrendFirst = code >= kConventionCodes; // Kept: a quadrant code is never trend first
    isQuadrant = code < 0;
}

std::string ConventionsText(std::int16_t code) {
    std::int16_t planeConvention = 0;
    bool lineIsTrendFirst = false;
    bool isQuadrant = false;
    DecodeConventions(code, planeConvention, lineIsTrendFirst, isQuadrant);
    return FormatDescription(planeConvention,
                             lineIsTrendFirst ? LineOrder::kTrendPlunge : LineOrder::kPlungeTrend,
                             isQuadrant ? AzimuthNotation::kQuadrant : AzimuthNotation::kAzimuth);
}

std::array<bool, kColumnSlots> SlotsInUse(const LineFormat& format) {
    std::array<bool, kColumnSlots> used{};
    used[kSlotDip] = format.hasOverlays || format.primary > kDirections;
    used[kSlotDirection] = true;
    used[kSlotSense] = format.primary == kPrimaryPlane && HasSenseOfDip(format.planeConvention);
    MarkSecondary(format, used);
    used[kSlotAppendedPlunge] = format.wantLine;
    used[kSlotAppendedTrend] = format.wantLine;
    used[kSlotNumber] = format.wantNumber;
    used[kSlotText] = format.wantText;
    return used;
}

std::int32_t HighestColumnNeeded(const LineFormat& format) {
    const std::array<bool, kColumnSlots> used = SlotsInUse(format);
    std::int32_t highest = 0;
    for (std::size_t slot = 0; slot < used.size(); ++slot) {
        if (used[slot]) {
            highest = std::max(highest, format.slots[slot]);
        }
    }
    return std::min(highest, kMostColumns);
}

LineFormat LineFormatOf(const FormatSettings& settings, const NotationSettings& notation,
                        bool hasOverlays) {
    LineFormat format;
    std::int16_t planeConvention = 0;
    DecodeConventions(settings.conventions, planeConvention, format.lineIsTrendFirst,
                      format.isQuadrant);
    format.planeConvention = planeConvention;
    format.primary = settings.primary;
    format.secondary = settings.secondary;
    format.slots = settings.columns;
    format.delimiter = settings.delimiter.empty() ? kAnyDelimiter : settings.delimiter.front();
    format.wantLine = settings.lineAppended;
    format.wantNumber = settings.numericAppended;
    format.wantText = settings.nonNumericAppended;
    format.hasOverlays = hasOverlays;
    format.decimalIsComma = notation.decimalIsComma;
    format.convertDecimals = notation.convertDecimals;
    format.neededColumns = HighestColumnNeeded(format) + 1;
    format.negativePlunge = settings.negativePlunge;
    format.comments = settings.comments;
    format.pairsInCells = settings.pairsInCells;
    format.placeColumns = settings.placeColumns;
    return format;
}

LineFormat LineFormatFromGlobals(bool hasOverlays) {
    return LineFormatOf(gSettings.format, gSettings.notation, hasOverlays);
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "edit/marks/girdles.h"

#include "core/item_style.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "edit/history/edit_step.h"
#include "edit/marks/annotations.h"
#include "edit/marks/girdle_pull.h"
#include "input/data_line.h"
#include "orientation/angles.h"
#include "orientation/notation.h"
#include "orientation/number_text.h"
#include "platform/platform.h"
#include "statistics/statistics_texts.h"

#include <array>
#include <cmath>
#include <optional>

namespace quandrel {

constinit GirdleInWork GirdleInWork::now;

namespace {

constexpr std::string_view kOtherSeparators = "/\\-,";

constexpr const char* kGirdleHelp = "Shift: +Left mouse button: \n"
                                    "Sets girdle dip to pass through this point.\n\n"
                                    "Shift+Right mouse button: \n"
                                    "Sets this point as pole to girdle.\n\n"
                                    "Shift+Ctrl+Left mouse button: \n"
                                    "Sets girdle to pass through both this point and the previous "
                                    "dip line.";

/// A text in two parts.
struct Parts {
    std::string_view first;
    std::string_view second;
};

std::optional<Parts> PartsAt(std::string_view text, std::string_view separator) {
    const std::size_t at = separator.empty() ? std::string_view::npos : text.find(separator);
    if (at == std::string_view::npos) {
        return std::nullopt;
    }
    return Parts{WithoutBlanks(text.substr(0, at)),
                 WithoutBlanks(text.substr(at + separator.size()))};
}

std::optional<Parts> PartsOf(std::string_view text, std::string_view separator) {
    std::optional<Parts> parts = PartsAt(text, separator);
    for (std::size_t i = 0; !parts && i < kOtherSeparators.size(); ++i) {
        parts = PartsAt(text, kOtherSeparators.substr(i, 1));
    }
    return parts;
}

bool EndsInSense(std::string_view dip) {
    std::string_view number;
    std::string_view sense;
    return SplitSenseLetters(dip, number, sense) && !sense.empty();
}

/// The convention of the two parts: without a sense of dip they are dip and dip direction.
int ConventionOf(const Parts& parts, int convention) {
    const std::string_view dip = convention == kStrikeDipSense ? parts.second : parts.first;
    return HasSenseOfDip(convention) && !EndsInSense(dip) ? int{kDipDipDirection} : convention;
}

bool StartsWithDip(int convention) {
    return convention == kDipDipDirection || convention == kDipSenseStrike
           || convention == kDipStrikeRightHand;
}

std::optional<GirdlePlane> PlaneOfParts(const Parts& parts, LineFormat format) {
    format.primary = kPrimaryPlane;
    format.secondary = kNoSecondary;
    format.planeConvention = ConventionOf(parts, format.planeConvention);
    const bool dipFirst = StartsWithDip(format.planeConvention);
    std::array<std::string_view, kColumnSlots> values{};
    values[kSlotDip] = dipFirst ? parts.first : parts.second;
    values[kSlotDirection] = dipFirst ? parts.second : parts.first;
    const ParsedRow row = ParseValues(values, format);
    if (row.status != LineStatus::Row) {
        return std::nullopt;
    }
    return GirdlePlane{std::abs(DegToRad(row.dip)), WrappedAngle(DegToRad(row.az))};
}

std::string UnpartedMessage(int row) {
    return "Can't recognize the character used to separate the dip angle from the direction in "
           "the textbox of girdle #"
           + std::to_string(row)
           + "\nEither retype the textbox entry or reset the Separator Symbol in the File Format "
             "dialog box.";
}

std::string UnreadableMessage(int row) {
    return "The text in the text box of Girdle #" + std::to_string(row)
           + " is not a recognizable orientation using the currently set orientation conventions."
             "\nPlease check and re-enter the value";
}

/// The values of a row of gActivePlot, or nothing.
AxisItem* ValuesOf(int row) {
    if (!IsOpenSlot(gActivePlot) || row < 0 || row >= kAxisItems) {
        return nullptr;
    }
    return &ActiveRecord().AxisItems[static_cast<std::size_t>(row)];
}

void StoreShown(AxisItem& values, bool on) {
    values[kItemShown] = on;
    FinishUnkept(gActivePlot, Redraw::Nothing);
    RefreshGirdles();
}

void HideGirdle(AxisItem& values) {
    if (NumberOf(values[kItemShown]) != 0) {
        StoreShown(values, false);
    }
}

} // namespace

Result<GirdlePlane> ReadGirdleText(std::string_view text, std::string_view separator,
                                   const LineFormat& format, int row) {
    const std::optional<Parts> parts = PartsOf(WithoutBlanks(text), separator);
    if (!parts) {
        return Failure{UnpartedMessage(row)};
    }
    const std::optional<GirdlePlane> plane = PlaneOfParts(*parts, format);
    if (!plane) {
        return Failure{UnreadableMessage(row)};
    }
    return *plane;
}

std::string ParseGirdleText(const std::string& text, int row) {
    AxisItem* const values = ValuesOf(row);
    if (values == nullptr || WithoutBlanks(text).empty()) {
        return {};
    }
    const auto plane = ReadGirdleText(text, gPlaneSeparator, LineFormatFromGlobals(false), row);
    if (!plane) {
        Tell(plane.Error());
        return kGirdleError;
    }
    double plunge = 0;
    double trend = 0;
    OppositeOfPlane(plane->dip, plane->dipDirection, plunge, trend);
    (*values)[kItemPlunge] = plunge;
    (*values)[kItemTrend] = trend;
    CopyGirdleStyle(ActiveRecord(), row);
    return {};
}

void CopyGirdleStyle(PlotRecord& record, int row) {
    SetStyleOfItem(record.AxisItems.at(static_cast<std::size_t>(row)),
                   gAxisStyleTable[StyleRowOfItem(row)]);
}

std::string GirdleCaption(int row, std::int16_t dataKind) {
    const bool isOfPlanes = dataKind == kPlanes;
    switch (row) {
    case kMeanItem:
        return "Mean arrow";
    case kMeanPlaneItem:
        return isOfPlanes ? "Mean S (plane)" : "Mean equiv S (plane)";
    case kGirdleItem:
        return isOfPlanes ? "Beta axis (its girdle)" : "Girdle normal (its girdle)";
    default:
        return "Girdle " + std::to_string(row);
    }
}

std::string GirdleText(int row) {
    const AxisItem* const values = ValuesOf(row);
    return values == nullptr ? std::string() : TextOf((*values)[kItemText]);
}

bool IsGirdleShown(int row) {
    const AxisItem* const values = ValuesOf(row);
    return values != nullptr
           && (NumberOf((*values)[kItemShown]) != 0 || (row != kMeanItem && PulledGirdle() == row));
}

void FocusGirdle(int row) {
    if (IsUserGirdle(row)) {
        gActiveGirdle = static_cast<std::int16_t>(row);
    }
}

void LeaveGirdles() {
    CancelGirdlePull();
    gActiveGirdle = 0;
}

void UpdateGirdle(int row, const std::string& text) {
    AxisItem* const values = ValuesOf(row);
    if (values == nullptr || !IsUserGirdle(row) || text == TextOf((*values)[kItemText])) {
        return;
    }
    if (WithoutBlanks(text).empty()) {
        (*values)[kItemText] = std::string();
        FinishUnkept(gActivePlot, Redraw::Nothing);
        HideGirdle(*values);
        return;
    }
    if (ParseGirdleText(text, row) == kGirdleError) {
        HideGirdle(*values);
        return;
    }
    (*values)[kItemText] = std::string(WithoutBlanks(text));
    StoreShown(*values, true);
}

bool ShowGirdle(int row, bool on) {
    AxisItem* const values = ValuesOf(row);
    const bool hasGirdle = row == kMeanItem || !GirdleText(row).empty();
    if (values == nullptr || (on && !hasGirdle)) {
        return false;
    }
    if ((NumberOf((*values)[kItemShown]) != 0) != on) {
        StoreShown(*values, on);
    }
    return true;
}

void ShowGirdleHelp() {
    (void)gPlatform.prompts->Ask({kGirdleHelpTitle, kGirdleHelp, Icon::Information, Buttons::Ok});
    gPlatform.status->SetText(gHintText);
}

void RefreshGirdles() {
    if (!IsOpenSlot(gActivePlot) || ActiveRecord().PlotKind == kRose) {
        return;
    }
    RedrawPlot(gActivePlot);
    WriteStatisticsBoxes();
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "edit/marks/girdle_pull.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "core/style_tables.h"
#include "edit/history/edit_step.h"
#include "edit/marks/annotations.h"
#include "edit/marks/kept_girdles.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "statistics/orientation_notation.h"
#include "stereo/great_circles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace quandrel {

namespace {

using GirdleValues = std::array<TaggedValue, kAxisValues>;

/// Positions closer than this are treated as equal: the pointer cannot distinguish them.
constexpr double kSamePlace = 2;

constexpr int kWidestGirdle = 50;

/// The current pull, attached to its plot. There is one at most.
struct GirdlePull {
    int row = 0;
    GirdleForm form = GirdleForm::kDipLine;
    GirdlePlane former;  ///< the plane at the press
    GirdleValues before; ///< the row at the press
    std::optional<EditStep> step;
    bool hasMoved = false;
};

/// The plot whose girdle is pulled, 0 if there is none.
std::int32_t PulledSlot() {
    return SlotWith<GirdlePull>();
}

/// The pull of a plot that has one.
GirdlePull& PullOn(std::int32_t slot) {
    return PlotOf(slot).attachments.Of<GirdlePull>();
}

/// The row that is pulled on a plot.
GirdleValues& ValuesPulledOn(std::int32_t slot) {
    return RecordOf(slot).AxisItems[static_cast<std::size_t>(PullOn(slot).row)];
}

/// A component of a style; files may contain any number.
int StyleValue(const TaggedValue& value, int most) {
    return static_cast<int>(std::clamp(NumberOf(value), 0.0, static_cast<double>(most)));
}

bool IsShown(const GirdleValues& values) {
    return NumberOf(values[kItemShown]) != 0;
}

GirdlePlane PlaneOf(const GirdleValues& values) {
    GirdlePlane plane;
    PoleOfPlane(NumberOf(values[kItemPlunge]), NumberOf(values[kItemTrend]), plane.dip,
                plane.dipDirection);
    return plane;
}

bool IsAtDipLine(const GirdlePlane& plane, int plotKind, double x, double y) {
    double dipX = 0;
    double dipY = 0;
    ProjectPoint(plotKind, plane.dip, plane.dipDirection, dipX, dipY);
    return std::hypot(x - dipX, y - dipY) <= kSamePlace;
}

/// True if a press may move the girdle of a row.
bool MayBePulled(const GirdleValues& values, GirdleForm form) {
    const bool hasText = !TextOf(values[kItemText]).empty();
    const bool isHidden = !IsShown(values) && hasText;
    return !isHidden && (hasText || form != GirdleForm::kThroughDipLine);
}

void ForgetPull(std::int32_t slot) {
    PlotOf(slot).attachments.Drop<GirdlePull>();
}

/// Ends the pull of a plot and draws the plot.
void EndPull(std::int32_t slot) {
    const PlotInWork work(slot);
    ForgetPull(slot);
    RefreshGirdles();
}

} // namespace

std::optional<GirdleForm> FormOfKeys(int button, int shift) {
    if (shift == kGirdleShiftKey + kGirdleCtrlKey && button == kGirdleLeftButton) {
        return GirdleForm::kThroughDipLine;
    }
    if (shift != kGirdleShiftKey) {
        return std::nullopt;
    }
    if (button == kGirdleLeftButton) {
        return GirdleForm::kDipLine;
    }
    return button == kGirdleRightButton ? std::optional(GirdleForm::kPole) : std::nullopt;
}

std::optional<GirdlePlane> PulledPlane(GirdleForm form, const GirdlePlane& former,
                                       const NetLine& line) {
    GirdlePlane plane;
    switch (form) {
    case GirdleForm::kDipLine:
        return GirdlePlane{std::abs(line.plunge), line.trend};
    case GirdleForm::kPole:
        PoleOfPlane(line.plunge, line.trend, plane.dip, plane.dipDirection);
        return plane;
    case GirdleForm::kThroughDipLine:
        break;
    }
    PlaneThroughLines(former.dip, former.dipDirection, line.plunge, line.trend, plane.dip,
                      plane.dipDirection);
    return plane.dip < 0 ? std::nullopt : std::optional(plane);
}

bool CanPullGirdle() {
    return IsUserGirdle(gActiveGirdle) && IsOpenSlot(gActivePlot)
           && ActiveRecord().PlotKind != kRose;
}

bool PressGirdle(int button, int shift, double x, double y) {
    const std::optional<GirdleForm> form = FormOfKeys(button, shift);
    if (!form || !CanPullGirdle() || PulledGirdle() != 0) {
        return false;
    }
    GirdleValues& values = ActiveRecord().AxisItems[static_cast<std::size_t>(gActiveGirdle)];
    if (!MayBePulled(values, *form)) {
        return false;
    }
    const GirdlePull& pull = ActivePlot().attachments.Of<GirdlePull>() =
        GirdlePull{gActiveGirdle,
                   *form,
                   PlaneOf(values),
                   values,
                   EditStep(kGirdleEdit, Before<PropertyChange<GirdlesProperty>>),
                   false};
    if (TextOf(values[kItemText]).empty()) {
        CopyGirdleStyle(ActiveRecord(), gActiveGirdle);
    }
    values[kItemShown] = false;
    if (IsShown(pull.before)) {
        // The old girdle disappears; the new one is drawn above the picture.
        RedrawPlot(gActivePlot);
    }
    DragGirdle(x, y);
    return true;
}

void DragGirdle(double x, double y) {
    const std::int32_t slot = PulledSlot();
    if (slot == 0) {
        return;
    }
    GirdlePull& pull = PullOn(slot);
    const int plotKind = RecordOf(slot).PlotKind;
    if (pull.form == GirdleForm::kThroughDipLine && IsAtDipLine(pull.former, plotKind, x, y)) {
        return;
    }
    const auto plane = PulledPlane(pull.form, pull.former, LineAtPosition(plotKind, x, y));
    if (!plane) {
        return;
    }
    double plunge = 0;
    double trend = 0;
    OppositeOfPlane(plane->dip, plane->dipDirection, plunge, trend);
    GirdleValues& values = ValuesPulledOn(slot);
    values[kItemText] = TextOfPlaneOfPole(plunge, trend, DecimalsShown(RecordOf(slot)));
    values[kItemPlunge] = plunge;
    values[kItemTrend] = trend;
    pull.hasMoved = true;
}

void ReleaseGirdle() {
    const std::int32_t slot = PulledSlot();
    if (slot == 0 || !PullOn(slot).hasMoved) {
        CancelGirdlePull();
        return;
    }
    ValuesPulledOn(slot)[kItemShown] = true;
    PullOn(slot).step->Finish(Redraw::Nothing);
    EndPull(slot);
}

void CancelGirdlePull() {
    const std::int32_t slot = PulledSlot();
    if (slot == 0) {
        return;
    }
    GirdleValues& values = ValuesPulledOn(slot);
    values = PullOn(slot).before;
    if (IsShown(values)) {
        EndPull(slot);
    } else {
        ForgetPull(slot);
    }
}

int PulledGirdle() {
    const std::int32_t slot = PulledSlot();
    return slot == 0 ? 0 : PullOn(slot).row;
}

void DrawPulledGirdle(Surface& surface) {
    const std::int32_t slot = PulledSlot();
    if (slot == 0 || TextOf(ValuesPulledOn(slot)[kItemText]).empty()) {
        return;
    }
    const GirdleValues& values = ValuesPulledOn(slot);
    DrawGreatCircleOfPole(surface, gSettings.styles, RecordOf(slot).PlotKind,
                          NumberOf(values[kItemPlunge]), NumberOf(values[kItemTrend]),
                          StyleValue(values[kItemColour], kColourCount - 1),
                          StyleValue(values[kItemDrawStyle], kNoLine),
                          StyleValue(values[kItemDrawWidth], kWidestGirdle));
}

void ChangeUserGirdle(int button, int shift, double x, double y) {
    if (PulledGirdle() == 0) {
        (void)PressGirdle(button, shift, x, y);
    } else {
        DragGirdle(x, y);
    }
}

} // namespace quandrel

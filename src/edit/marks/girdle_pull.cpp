// SPDX-License-Identifier: MIT

#include "edit/marks/girdle_pull.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "core/style_tables.h"
#include "edit/history/edit_step.h"
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

/// The current pull.
struct Pull {
    int row = 0; ///< 0 if there is none
    std::int32_t slot = 0;
    GirdleForm form = GirdleForm::kDipLine;
    GirdlePlane former;  ///< the plane at the press
    GirdleValues before; ///< the row at the press
    std::optional<EditStep> step;
    bool hasMoved = false;
};

Pull gPull;

/// The row that is pulled, or nothing after its plot was closed.
GirdleValues* PulledValues() {
    if (gPull.row == 0 || !IsOpenSlot(gPull.slot)) {
        return nullptr;
    }
    return &RecordOf(gPull.slot).AxisItems[static_cast<std::size_t>(gPull.row)];
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

bool IsAtFormerDipLine(int plotKind, double x, double y) {
    double dipX = 0;
    double dipY = 0;
    ProjectPoint(plotKind, gPull.former.dip, gPull.former.dipDirection, dipX, dipY);
    return std::hypot(x - dipX, y - dipY) <= kSamePlace;
}

/// True if a press may move the girdle of a row.
bool MayBePulled(const GirdleValues& values, GirdleForm form) {
    const bool hasText = !TextOf(values[kItemText]).empty();
    const bool isHidden = !IsShown(values) && hasText;
    return !isHidden && (hasText || form != GirdleForm::kThroughDipLine);
}

/// Ends the pull and draws its plot.
void EndPull() {
    const PlotInWork work(gPull.slot);
    gPull = {};
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
    if (!form || !CanPullGirdle() || gPull.row != 0) {
        return false;
    }
    GirdleValues& values = ActiveRecord().AxisItems[static_cast<std::size_t>(gActiveGirdle)];
    if (!MayBePulled(values, *form)) {
        return false;
    }
    gPull = {gActiveGirdle, gActivePlot,
             *form,         PlaneOf(values),
             values,        EditStep(kGirdleEdit, Before<PropertyChange<GirdlesProperty>>),
             false};
    if (TextOf(values[kItemText]).empty()) {
        CopyGirdleStyle(ActiveRecord(), gActiveGirdle);
    }
    values[kItemShown] = false;
    if (IsShown(gPull.before)) {
        RedrawPlot(
            gActivePlot); // the old girdle disappears; the new one is drawn above the picture
    }
    DragGirdle(x, y);
    return true;
}

void DragGirdle(double x, double y) {
    GirdleValues* const values = PulledValues();
    if (values == nullptr) {
        return;
    }
    const int plotKind = RecordOf(gPull.slot).PlotKind;
    if (gPull.form == GirdleForm::kThroughDipLine && IsAtFormerDipLine(plotKind, x, y)) {
        return;
    }
    const auto plane = PulledPlane(gPull.form, gPull.former, LineAtPosition(plotKind, x, y));
    if (!plane) {
        return;
    }
    double plunge = 0;
    double trend = 0;
    OppositeOfPlane(plane->dip, plane->dipDirection, plunge, trend);
    (*values)[kItemText] = TextOfPlaneOfPole(plunge, trend);
    (*values)[kItemPlunge] = plunge;
    (*values)[kItemTrend] = trend;
    gPull.hasMoved = true;
}

void ReleaseGirdle() {
    if (!gPull.hasMoved) {
        CancelGirdlePull();
        return;
    }
    if (GirdleValues* const values = PulledValues()) {
        (*values)[kItemShown] = true;
        gPull.step->Finish(Redraw::Nothing);
        EndPull();
    }
    gPull = {};
}

void CancelGirdlePull() {
    if (GirdleValues* const values = PulledValues()) {
        const bool wasShown = IsShown(gPull.before);
        *values = gPull.before;
        if (wasShown) {
            EndPull();
        }
    }
    gPull = {};
}

int PulledGirdle() {
    return gPull.row;
}

void DrawPulledGirdle(Surface& surface) {
    const GirdleValues* const values = PulledValues();
    if (values == nullptr || TextOf((*values)[kItemText]).empty()) {
        return;
    }
    DrawGreatCircleOfPole(surface, gSettings.styles, RecordOf(gPull.slot).PlotKind,
                          NumberOf((*values)[kItemPlunge]), NumberOf((*values)[kItemTrend]),
                          StyleValue((*values)[kItemColour], kColourCount - 1),
                          StyleValue((*values)[kItemDrawStyle], kNoLine),
                          StyleValue((*values)[kItemDrawWidth], kWidestGirdle));
}

void ChangeUserGirdle(int button, int shift, double x, double y) {
    if (gPull.row == 0) {
        (void)PressGirdle(button, shift, x, y);
    } else {
        DragGirdle(x, y);
    }
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "edit/marks/small_circle_pick.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "core/settings_value.h"
#include "edit/history/edit_step.h"
#include "edit/marks/small_circles.h"
#include "edit/selection/net_line.h"
#include "orientation/angles.h"
#include "platform/platform.h"
#include "statistics/orientation_notation.h"

namespace quandrel {

namespace {

/// The current pick.
struct Pick {
    int set = 0; ///< 0 if there is none
    std::int32_t slot = 0;
    bool isDragging = false;
    NetLine axis;       ///< in full precision, while the texts have whole degrees
    SmallCircle before; ///< the set before the press
};

Pick gPick;

bool IsStereoPlot(std::int32_t slot) {
    return IsOpenSlot(slot) && RecordOf(slot).PlotKind != kRose;
}

/// The circle that is being set, or nothing after its plot was closed.
SmallCircle* CircleInWork() {
    if (gPick.set == 0 || !IsOpenSlot(gPick.slot) || !RecordOf(gPick.slot).PlotSmallCircles) {
        return nullptr;
    }
    return &(*RecordOf(gPick.slot).PlotSmallCircles)[static_cast<std::size_t>(gPick.set)];
}

NetLine LineOnPickedPlot(double x, double y) {
    return LineAtPosition(RecordOf(gPick.slot).PlotKind, x, y);
}

/// Ends the pick.
void ForgetPick() {
    gPick = {};
    gPlatform.status->SetText(kSmallCircleHint);
}

} // namespace

bool BeginSmallCirclePick(int set) {
    EndSmallCirclePick();
    if (!IsStereoPlot(gActivePlot) || SmallCircleOfSet(set) == nullptr) {
        return false;
    }
    gPick.set = set;
    gPick.slot = gActivePlot;
    gPlatform.status->SetText(kPickCircleHint);
    return true;
}

int PickedSet() {
    return gPick.slot == gActivePlot && CircleInWork() != nullptr && IsStereoPlot(gPick.slot)
               ? gPick.set
               : 0;
}

bool PressSmallCircle(double x, double y) {
    if (PickedSet() == 0) {
        return false;
    }
    if (gPick.isDragging || !IsOnNet(x, y)) {
        return true;
    }
    SmallCircle& circle = *CircleInWork();
    gPick.before = circle;
    gPick.isDragging = true;
    gPick.axis = LineOnPickedPlot(x, y);
    circle.AxisPl = RadToDegText(gPick.axis.plunge);
    circle.AxisAz = WholeAzimuthText(gPick.axis.trend);
    circle.Angle = RadToDegText(0);
    if (circle.Visible != 0) {
        RedrawPlot(gPick.slot); // the old circle disappears; the new one is drawn above the picture
    }
    return true;
}

void DragSmallCircle(double x, double y) {
    SmallCircle* const circle = CircleInWork();
    if (!gPick.isDragging || circle == nullptr) {
        return;
    }
    const NetLine line = LineOnPickedPlot(x, y);
    double angle = 0;
    AngleBetweenLines(gPick.axis.plunge, gPick.axis.trend, line.plunge, line.trend, angle,
                      LineAngle::kAcute);
    circle->Angle = RadToDegText(angle);
}

void ReleaseSmallCircle(double x, double y) {
    if (!gPick.isDragging) {
        return;
    }
    DragSmallCircle(x, y);
    const std::int32_t slot = gPick.slot;
    SmallCircle* const circle = CircleInWork();
    ForgetPick();
    if (circle != nullptr) {
        circle->Visible = kTrue;
        FinishUnkept(slot, Redraw::Picture);
    }
}

void EndSmallCirclePick() {
    if (gPick.set == 0) {
        return;
    }
    const std::int32_t slot = gPick.slot;
    SmallCircle* const circle = gPick.isDragging ? CircleInWork() : nullptr;
    const SmallCircle before = gPick.before;
    ForgetPick();
    if (circle != nullptr) {
        *circle = before;
        if (before.Visible != 0) {
            RedrawPlot(slot);
        }
    }
}

bool IsDraggingSmallCircle() {
    return gPick.isDragging;
}

int CircleAbovePicture(std::int32_t slot) {
    return gPick.isDragging && gPick.slot == slot ? gPick.set : 0;
}

void DrawPickedCircle(Surface& surface) {
    const SmallCircle* const circle = CircleInWork();
    if (!gPick.isDragging || circle == nullptr) {
        return;
    }
    if (const auto cone = ConeOfCircle(*circle)) {
        DrawSmallCircle(surface, gSettings.styles, RecordOf(gPick.slot).PlotKind, *cone, *circle);
    }
}

} // namespace quandrel

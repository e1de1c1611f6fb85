// SPDX-License-Identifier: MIT

#include "edit/marks/small_circle_pick.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/plot_style.h"
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

/// The current pick, attached to its plot. There is one at most.
struct CirclePick {
    int set = 0;
    bool isDragging = false;
    NetLine axis;       ///< in full precision, while the texts have whole degrees
    SmallCircle before; ///< the set before the press
};

bool IsStereoPlot(std::int32_t slot) {
    return IsOpenSlot(slot) && RecordOf(slot).PlotKind != kRose;
}

/// The pick of a plot, or nothing.
const CirclePick* PickOn(std::int32_t slot) {
    return IsOpenSlot(slot) ? PlotOf(slot).attachments.Find<CirclePick>() : nullptr;
}

/// The plot of the current pick, 0 if there is none.
std::int32_t PickedSlot() {
    return SlotWith<CirclePick>();
}

/// The plot of a circle under the mouse, 0 if there is none.
std::int32_t DraggedSlot() {
    const std::int32_t slot = PickedSlot();
    return slot != 0 && PickOn(slot)->isDragging ? slot : 0;
}

/// The circle that is being set on a plot with a pick, or nothing without small circles.
SmallCircle* CircleInWork(std::int32_t slot) {
    SmallCircles* const circles = RecordOf(slot).PlotSmallCircles.get();
    return circles == nullptr ? nullptr : &circles->at(static_cast<std::size_t>(PickOn(slot)->set));
}

NetLine LineOn(std::int32_t slot, double x, double y) {
    return LineAtPosition(RecordOf(slot).PlotKind, x, y);
}

/// Ends the pick of a plot.
void ForgetPick(std::int32_t slot) {
    PlotOf(slot).attachments.Drop<CirclePick>();
    gPlatform.status->SetText(kSmallCircleHint);
}

} // namespace

bool BeginSmallCirclePick(int set) {
    EndSmallCirclePick();
    if (!IsStereoPlot(gActivePlot) || SmallCircleOfSet(set) == nullptr) {
        return false;
    }
    ActivePlot().attachments.Of<CirclePick>().set = set;
    gPlatform.status->SetText(kPickCircleHint);
    return true;
}

int PickedSet() {
    const std::int32_t slot = gActivePlot;
    const CirclePick* const pick = PickOn(slot);
    return pick != nullptr && CircleInWork(slot) != nullptr && IsStereoPlot(slot) ? pick->set : 0;
}

bool PressSmallCircle(double x, double y) {
    if (PickedSet() == 0) {
        return false;
    }
    const std::int32_t slot = PickedSlot();
    CirclePick& pick = PlotOf(slot).attachments.Of<CirclePick>();
    if (pick.isDragging || !IsOnNet(x, y)) {
        return true;
    }
    SmallCircle& circle = *CircleInWork(slot);
    pick.before = circle;
    pick.isDragging = true;
    pick.axis = LineOn(slot, x, y);
    const int decimals = DecimalsShown(RecordOf(slot));
    circle.AxisPl = TextOfAngle(pick.axis.plunge, decimals);
    circle.AxisAz = TextOfAzimuth(pick.axis.trend, decimals);
    circle.Angle = TextOfAngle(0, decimals);
    if (circle.Visible != 0) {
        RedrawPlot(slot); // the old circle disappears; the new one is drawn above the picture
    }
    return true;
}

void DragSmallCircle(double x, double y) {
    const std::int32_t slot = DraggedSlot();
    SmallCircle* const circle = slot == 0 ? nullptr : CircleInWork(slot);
    if (circle == nullptr) {
        return;
    }
    const NetLine& axis = PickOn(slot)->axis;
    const NetLine line = LineOn(slot, x, y);
    double angle = 0;
    AngleBetweenLines(axis.plunge, axis.trend, line.plunge, line.trend, angle, LineAngle::kAcute);
    circle->Angle = TextOfAngle(angle, DecimalsShown(RecordOf(slot)));
}

void ReleaseSmallCircle(double x, double y) {
    const std::int32_t slot = DraggedSlot();
    if (slot == 0) {
        return;
    }
    DragSmallCircle(x, y);
    SmallCircle* const circle = CircleInWork(slot);
    ForgetPick(slot);
    if (circle != nullptr) {
        circle->Visible = kTrue;
        FinishUnkept(slot, Redraw::Picture);
    }
}

void EndSmallCirclePick() {
    const std::int32_t slot = PickedSlot();
    if (slot == 0) {
        return;
    }
    SmallCircle* const circle = IsDraggingSmallCircle() ? CircleInWork(slot) : nullptr;
    const SmallCircle before = PickOn(slot)->before;
    ForgetPick(slot);
    if (circle != nullptr) {
        *circle = before;
        if (before.Visible != 0) {
            RedrawPlot(slot);
        }
    }
}

bool IsDraggingSmallCircle() {
    return DraggedSlot() != 0;
}

int CircleAbovePicture(std::int32_t slot) {
    const CirclePick* const pick = PickOn(slot);
    return pick != nullptr && pick->isDragging ? pick->set : 0;
}

void DrawPickedCircle(Surface& surface) {
    const std::int32_t slot = DraggedSlot();
    const SmallCircle* const circle = slot == 0 ? nullptr : CircleInWork(slot);
    if (circle == nullptr) {
        return;
    }
    if (const auto cone = ConeOfCircle(*circle)) {
        Drawing drawing{surface, surface, gSettings.styles};
        drawing.figure = StyleOfPlot(RecordOf(slot));
        DrawSmallCircle(surface, drawing, RecordOf(slot).PlotKind, *cone, *circle);
    }
}

} // namespace quandrel

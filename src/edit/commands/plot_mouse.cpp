// SPDX-License-Identifier: MIT

#include "edit/commands/plot_mouse.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "edit/commands/selection_shapes.h"
#include "edit/marks/annotation_edits.h"
#include "edit/marks/annotations.h"
#include "edit/marks/girdle_pull.h"
#include "edit/marks/small_circle_pick.h"
#include "edit/rows/add_point.h"
#include "edit/rows/move_rows.h"
#include "edit/selection/linked_rows.h"
#include "edit/selection/net_line.h"
#include "edit/selection/readout.h"
#include "edit/selection/selected_intersections.h"
#include "orientation/projection.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quandrel {

namespace {

/// Smallest distance between the corners of a lasso, in plot units.
constexpr double kLassoStep = 4;

constexpr float kDragState = -1;

Point PlaceOf(const MouseEvent& event) {
    return {event.x, event.y};
}

bool IsStereo() {
    return IsOpenSlot(gActivePlot) && ActiveRecord().PlotKind != kRose;
}

/// The pointer of a corner: along the diagonal of the drag.
PointerShape ShapeOfHandle(int corner) {
    const std::array<Point, 4> corners = CornersOfMarquee();
    const Point& at = corners[static_cast<std::size_t>(corner)];
    const Point& opposite = corners[static_cast<std::size_t>(corner + 2) % corners.size()];
    return (at.x - opposite.x) * (at.y - opposite.y) >= 0 ? PointerShape::HandleRising
                                                          : PointerShape::HandleFalling;
}

/// The effect of a frame drawn with these keys.
SelectionWay WayOfKeys(int shift) {
    if (shift == kShiftKey) {
        return SelectionWay::Add;
    }
    return shift == kCtrlKey ? SelectionWay::Toggle : SelectionWay::Replace;
}

/// Removes the contents of the frame that is shown from a selection.
void LeaveOutFrame(Selection& selection) {
    const std::vector<std::int32_t> rows = RowsInMarquee();
    std::erase_if(selection.rows,
                  [&](std::int32_t row) { return std::ranges::binary_search(rows, row); });
    if (selection.marks) {
        const std::vector<std::size_t> marks = MarksInMarquee();
        std::erase_if(*selection.marks,
                      [&](std::size_t mark) { return std::ranges::binary_search(marks, mark); });
    }
}

/// The information about a press while a girdle or a small circle waits for the mouse.
std::string InformationNow() {
    if (PickedSet() != 0) {
        return kPickCircleHint;
    }
    return CanPullGirdle() ? kGirdleHint : "";
}

} // namespace

MouseReport PlotMouse::Press(const MouseEvent& event, const MouseModes& modes) {
    if (drag_ == Drag::None && !gBusy && IsOpenSlot(gActivePlot)) {
        button_ = event.button;
        shift_ = event.shift;
        slot_ = gActivePlot;
        start_ = PlaceOf(event);
        last_ = start_;
        Begin(event, modes);
    }
    MouseReport report = ReportAt(event, modes);
    report.overlayChanged = true;
    return report;
}

MouseReport PlotMouse::Move(const MouseEvent& event, const MouseModes& modes) {
    const bool isDragging = drag_ != Drag::None;
    if (isDragging && (slot_ != gActivePlot || gBusy)) {
        Cancel();
    } else if (isDragging) {
        Follow(event);
    }
    MouseReport report = ReportAt(event, modes);
    report.overlayChanged = isDragging;
    return report;
}

MouseReport PlotMouse::Release(const MouseEvent& event, const MouseModes& modes) {
    const bool wasDragging = drag_ != Drag::None;
    if (wasDragging && (slot_ != gActivePlot || gBusy)) {
        Cancel();
    } else if (wasDragging && event.button == button_) {
        End(event, modes);
    }
    MouseReport report = ReportAt(event, modes);
    report.overlayChanged = wasDragging;
    report.opensEditMenu = !wasDragging && !gBusy && event.button == kRightMouseButton
                           && event.shift == 0 && IsOpenSlot(gActivePlot);
    return report;
}

MouseReport PlotMouse::Leave() {
    MouseReport report;
    report.information = InformationNow();
    return report;
}

bool PlotMouse::Key(PlotKey key) {
    if (key == PlotKey::Escape) {
        if (IsDragging()) {
            Cancel();
        } else if (PickedSet() != 0) {
            EndSmallCirclePick();
        } else if (Selection::now.slot != 0) {
            ClearSelection();
        } else {
            return false;
        }
        return true;
    }
    if (IsDragging() || gActiveLayer != kDataLayer
        || (SelectedRowsOf(gActivePlot).empty()
            && IntersectionsSelectedIn(gActivePlot).lines.empty())) {
        return false;
    }
    const int plungeStep = (key == PlotKey::Up ? 1 : 0) - (key == PlotKey::Down ? 1 : 0);
    const int trendStep = (key == PlotKey::Right ? 1 : 0) - (key == PlotKey::Left ? 1 : 0);
    (void)NudgeSelection(plungeStep, trendStep);
    return true;
}

void PlotMouse::Cancel() {
    const Drag former = drag_;
    drag_ = Drag::None;
    lasso_.clear();
    if (former == Drag::Marquee || former == Drag::Lasso || former == Drag::Selection) {
        PutSelectionBack(std::move(kept_));
    } else if (former == Drag::Girdle) {
        CancelGirdlePull();
    } else if (former == Drag::Pick) {
        EndSmallCirclePick();
    }
    kept_ = {};
    base_ = {};
}

Point PlotMouse::DragOffset() const {
    return drag_ == Drag::Selection ? Point{last_.x - start_.x, last_.y - start_.y} : Point{};
}

void PlotMouse::OverlayShapes(Surface& surface, std::int32_t slot, Colour highlight) const {
    if (!IsOpenSlot(slot) || RecordOf(slot).PlotKind == kRose) {
        return;
    }
    const bool isOwn = slot == Selection::now.slot;
    const Point offset = isOwn ? DragOffset() : Point{};
    const bool movesRows = gActiveLayer == kDataLayer && !ShowsIntersections(slot);
    const Point rowOffset = movesRows ? offset : Point{};
    DrawArcs(surface, RecordOf(slot).PlotKind, LitArcs(slot), rowOffset, highlight);
    DrawRings(surface, LitPlaces(slot), rowOffset, highlight);
    if (isOwn && MarqueeStands()) {
        DrawStandingMarquee(surface, offset, highlight);
    }
    if (isOwn && slot == gActivePlot && gActiveLayer == kAnnotationLayer) {
        DrawHandlesOfMarks(surface, offset, highlight);
    }
    if (slot == slot_ && drag_ == Drag::Marquee) {
        DrawMarquee(surface, anchor_, last_);
    }
    if (slot == slot_ && drag_ == Drag::Lasso) {
        DrawLasso(surface, lasso_, {});
    }
    if (slot == gActivePlot) {
        DrawPulledGirdle(surface);
        DrawPickedCircle(surface);
    }
}

MouseReport PlotMouse::ReportAt(const MouseEvent& event, const MouseModes& modes) const {
    MouseReport report = {};
    report.pointer = ShapeAt(event, modes);
    report.readout = ReadoutText(event.x, event.y);
    report.information = InformationNow();
    return report;
}

PointerShape PlotMouse::ShapeAt(const MouseEvent& event, const MouseModes& modes) const {
    if (!IsStereo()) {
        return PointerShape::Arrow;
    }
    if (drag_ == Drag::Selection) {
        return PointerShape::Move;
    }
    const PointerShape plain =
        IsOnNet(event.x, event.y) ? PointerShape::Cross : PointerShape::Arrow;
    if (drag_ != Drag::None) {
        return plain;
    }
    if (IsAddPress(event, modes)) {
        return IsOnNet(event.x, event.y) ? PointerShape::Add : PointerShape::Arrow;
    }
    if (event.shift != 0 || PickedSet() != 0 || !MarqueeStandsOn(gActivePlot)) {
        return plain;
    }
    const int handle = HandleAt(PlaceOf(event), modes.pixel);
    if (handle >= 0) {
        return ShapeOfHandle(handle);
    }
    return IsInMarquee(PlaceOf(event)) ? PointerShape::Move : plain;
}

bool PlotMouse::IsAddPress(const MouseEvent& event, const MouseModes& modes) const {
    const bool isAsked = event.shift == kAltKey || (modes.addsPoints && event.shift == 0);
    return isAsked && IsStereo() && !modes.roseDialog && !(PickedSet() != 0 && event.shift == 0);
}

void PlotMouse::Begin(const MouseEvent& event, const MouseModes& modes) {
    const bool isLeft = event.button == kLeftMouseButton;
    const bool hasShift = event.shift == kShiftKey || event.shift == kShiftKey + kCtrlKey;
    if (!IsStereo()) {
        return;
    }
    if (hasShift && CanPullGirdle()) {
        drag_ = Drag::Girdle;
        ChangeUserGirdle(event.button, event.shift, event.x, event.y);
    } else if (IsAddPress(event, modes)) {
        drag_ = gActiveLayer == kAnnotationLayer ? BeginAnnotation(event) : Drag::Point;
    } else if (isLeft && event.shift == 0 && PressSmallCircle(event.x, event.y)) {
        drag_ = Drag::Pick;
    } else if (isLeft && (event.shift == 0 || WayOfKeys(event.shift) != SelectionWay::Replace)) {
        BeginMarquee(event, modes);
    }
}

PlotMouse::Drag PlotMouse::BeginAnnotation(const MouseEvent& event) {
    const std::size_t former = AnnotationsOf(gActivePlot).size();
    AddStereoPoint(event.button, event.x, event.y);
    // If none was added, as outside the net, there is nothing to extend.
    return AnnotationsOf(gActivePlot).size() > former ? Drag::Polyline : Drag::None;
}

void PlotMouse::BeginMarquee(const MouseEvent& event, const MouseModes& modes) {
    kept_ = Selection::now;
    const bool stands = MarqueeStandsOn(gActivePlot) && event.shift == 0;
    const int handle = stands ? HandleAt(start_, modes.pixel) : -1;
    if (stands && handle < 0 && IsInMarquee(start_)) {
        drag_ = Drag::Selection;
        gMarquee[kMarqueeDragging] = kMarqueeSet;
        return;
    }
    anchor_ = start_;
    if (handle >= 0) {
        anchor_ = CornersOfMarquee()[static_cast<std::size_t>(handle + 2) % 4];
    }
    BeginFrame(event, handle);
    drag_ = modes.lasso && handle < 0 ? Drag::Lasso : Drag::Marquee;
    lasso_ = {start_};
    gMarquee[kMarqueeState] = kDragState;
    gMarquee[kMarqueeDragging] = kMarqueeSet;
}

void PlotMouse::BeginFrame(const MouseEvent& event, int handle) {
    base_ = kept_;
    if (gActiveLayer == kAnnotationLayer) {
        base_.marks = SelectedAnnotations();
    }
    way_ = WayOfKeys(event.shift);
    if (handle >= 0) {
        // The frame that is dragged releases its contents; what others selected stays.
        LeaveOutFrame(base_);
        way_ = SelectionWay::Add;
    }
    if (way_ == SelectionWay::Replace || Selection::now.slot != gActivePlot) {
        ClearSelection();
        return;
    }
    Selection shown = base_;
    shown.marquee = {};
    shown.lasso.clear();
    PutSelectionBack(std::move(shown));
}

void PlotMouse::Follow(const MouseEvent& event) {
    last_ = PlaceOf(event);
    switch (drag_) {
    case Drag::Lasso:
        if (std::hypot(last_.x - lasso_.back().x, last_.y - lasso_.back().y) >= kLassoStep) {
            lasso_.push_back(last_);
        }
        break;
    case Drag::Girdle:
        DragGirdle(event.x, event.y);
        break;
    case Drag::Polyline:
        (void)ExtendAnnotation(event.x, event.y);
        break;
    case Drag::Pick:
        DragSmallCircle(event.x, event.y);
        break;
    default:
        break;
    }
}

void PlotMouse::End(const MouseEvent& event, const MouseModes& modes) {
    const Drag former = std::exchange(drag_, Drag::None);
    last_ = PlaceOf(event);
    const bool isClick = IsClick(event, modes);
    switch (former) {
    case Drag::Marquee:
    case Drag::Lasso:
        EndMarquee(event, modes, isClick, former == Drag::Lasso);
        break;
    case Drag::Selection:
        EndSelection(event, isClick);
        break;
    case Drag::Point:
        AddStereoPoint(button_, event.x, event.y);
        break;
    case Drag::Girdle:
        ReleaseGirdle();
        break;
    case Drag::Pick:
        ReleaseSmallCircle(event.x, event.y);
        break;
    default:
        break;
    }
    lasso_.clear();
    kept_ = {};
    base_ = {};
}

void PlotMouse::EndMarquee(const MouseEvent& event, const MouseModes& modes, bool isClick,
                           bool isLasso) {
    constexpr std::size_t kLeastCorners = 3;
    gMarquee = {};
    if (isClick || (isLasso && lasso_.size() < kLeastCorners)) {
        SelectUnder(start_, modes.pixel);
        return;
    }
    if (isLasso) {
        StandLasso(slot_, lasso_);
    } else {
        StandMarquee(slot_, anchor_, PlaceOf(event));
    }
    SelectInMarquee(way_, base_);
}

void PlotMouse::SelectUnder(Point at, Point pixel) {
    if (way_ == SelectionWay::Replace) {
        ClearSelection();
        return;
    }
    const Point reach{std::max(kHandleUnits, kHandlePixels * pixel.x),
                      std::max(kHandleUnits, kHandlePixels * pixel.y)};
    StandMarquee(slot_, {at.x - reach.x, at.y + reach.y}, {at.x + reach.x, at.y - reach.y});
    if (RowsInMarquee().empty() && MarksInMarquee().empty()) {
        PutSelectionBack(std::move(kept_));
        return;
    }
    SelectInMarquee(way_, base_);
    WidenMarquee();
}

void PlotMouse::EndSelection(const MouseEvent& event, bool isClick) {
    gMarquee[kMarqueeDragging] = 0;
    if (isClick) {
        ClearSelection();
        return;
    }
    const double dx = event.x - start_.x;
    const double dy = event.y - start_.y;
    const bool hasMoved =
        gActiveLayer == kAnnotationLayer ? MoveAnnotations(dx, dy) : MoveSelection(dx, dy) > 0;
    if (hasMoved) {
        ShiftMarquee(dx, dy);
    }
}

bool PlotMouse::IsClick(const MouseEvent& event, const MouseModes& modes) const {
    return lasso_.size() < 2 && std::abs(event.x - start_.x) < modes.pixel.x
           && std::abs(event.y - start_.y) < modes.pixel.y;
}

} // namespace quandrel

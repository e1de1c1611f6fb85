// SPDX-License-Identifier: MIT

#include "edit/selection/marquee.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "edit/selection/linked_rows.h"
#include "edit/selection/selected_intersections.h"
#include "orientation/projection.h"
#include "stereo/row_positions.h"
#include "stereo/shown_layers.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

namespace quandrel {

namespace {

std::function<void()> whenChanged;

Point FirstCorner() {
    return {gMarquee[kMarqueeX], gMarquee[kMarqueeY]};
}

Point OppositeCorner() {
    return {double{gMarquee[kMarqueeX]} + gMarquee[kMarqueeWidth],
            double{gMarquee[kMarqueeY]} + gMarquee[kMarqueeHeight]};
}

/// Draws plots again that have a layer of the selection.
void RedrawSelectionLayers() {
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (IsOpenSlot(slot) && ShowsSelection(RecordOf(slot))) {
            RedrawPlot(slot);
        }
    }
}

void TellSelection() {
    RedrawSelectionLayers();
    if (whenChanged) {
        whenChanged();
    }
}

/// Moves the selection to a plot; a selection in another plot is cleared.
void MoveToSlot(std::int32_t slot) {
    if (Selection::now.slot != slot) {
        gSelectionRows.clear();
    }
    Selection::now.slot = slot;
}

void WriteMarquee(Point corner, Point opposite) {
    gMarquee = {};
    gMarquee[kMarqueeX] = static_cast<float>(corner.x);
    gMarquee[kMarqueeY] = static_cast<float>(corner.y);
    gMarquee[kMarqueeWidth] = static_cast<float>(opposite.x - corner.x);
    gMarquee[kMarqueeHeight] = static_cast<float>(opposite.y - corner.y);
    gMarquee[kMarqueeStanding] = kMarqueeSet;
}

void EmptySelection() {
    WipeMarquee();
    Selection::now.slot = 0;
    gSelectionRows.clear();
}

void DropRowsThatAreGone(std::int32_t slot, std::vector<std::int32_t>& rows) {
    const std::int32_t last = IsOpenSlot(slot) ? RecordOf(slot).NumLoadedData : 0;
    std::erase_if(rows, [last](std::int32_t row) { return row < 1 || row > last; });
}

/// The bounding rectangle of some positions, at least one.
PlotRectangle RectangleAbout(std::span<const Point> positions) {
    constexpr double kFar = std::numeric_limits<double>::max();
    PlotRectangle about{kFar, kFar, -kFar, -kFar};
    for (const Point& at : positions) {
        about.left = std::min(about.left, at.x);
        about.right = std::max(about.right, at.x);
        about.bottom = std::min(about.bottom, at.y);
        about.top = std::max(about.top, at.y);
    }
    return about;
}

/// The rectangle with the same centre, enlarged where it is smaller than a frame may be.
PlotRectangle OfLeastSize(const PlotRectangle& frame) {
    const double widen = std::max(kLeastFrame - (frame.right - frame.left), 0.0) / 2;
    const double heighten = std::max(kLeastFrame - (frame.top - frame.bottom), 0.0) / 2;
    return {frame.left - widen, frame.bottom - heighten, frame.right + widen, frame.top + heighten};
}

/// The selection when a frame holds `framed`. Lists are ascending.
template <class Index>
std::vector<Index> Combined(SelectionWay way, const std::vector<Index>& former,
                            const std::vector<Index>& framed) {
    std::vector<Index> all;
    if (way == SelectionWay::Add) {
        std::ranges::set_union(former, framed, std::back_inserter(all));
    } else if (way == SelectionWay::Toggle) {
        std::ranges::set_symmetric_difference(former, framed, std::back_inserter(all));
    } else {
        all = framed;
    }
    return all;
}

/// True for a position on the straight line between two others.
bool IsOnSegment(Point from, Point to, Point at) {
    const double cross = (to.x - from.x) * (at.y - from.y) - (to.y - from.y) * (at.x - from.x);
    // Equality is exact: whole positions on a line between whole corners.
    return cross == 0 && IsWithin(RectangleBetween(from, to), at);
}

} // namespace

void ConnectSelection(std::function<void()> changed) {
    whenChanged = std::move(changed);
}

PlotRectangle RectangleBetween(Point corner, Point opposite) {
    return {std::min(corner.x, opposite.x), std::min(corner.y, opposite.y),
            std::max(corner.x, opposite.x), std::max(corner.y, opposite.y)};
}

bool IsWithin(const PlotRectangle& rectangle, Point at) {
    return at.x >= rectangle.left && at.x <= rectangle.right && at.y >= rectangle.bottom
           && at.y <= rectangle.top;
}

bool IsWithin(std::span<const Point> polygon, Point at) {
    bool isInside = false;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point& from = polygon[i];
        const Point& to = polygon[(i + 1) % polygon.size()];
        if (IsOnSegment(from, to, at)) {
            return true;
        }
        if ((from.y > at.y) != (to.y > at.y)
            && at.x < from.x + (to.x - from.x) * (at.y - from.y) / (to.y - from.y)) {
            isInside = !isInside;
        }
    }
    return isInside;
}

std::array<Point, 4> CornersOfMarquee() {
    const Point first = FirstCorner();
    const Point opposite = OppositeCorner();
    return {first, {opposite.x, first.y}, opposite, {first.x, opposite.y}};
}

int HandleAt(Point at, Point pixel) {
    if (!MarqueeStands() || !Selection::now.lasso.empty()) {
        return -1;
    }
    constexpr double kShareOfHandle = 1.0 / 3;
    const PlotRectangle frame = RectangleOfMarquee();
    const double reachX = std::min(std::max(kHandleUnits, kHandlePixels * pixel.x),
                                   kShareOfHandle * (frame.right - frame.left));
    const double reachY = std::min(std::max(kHandleUnits, kHandlePixels * pixel.y),
                                   kShareOfHandle * (frame.top - frame.bottom));
    const std::array<Point, 4> corners = CornersOfMarquee();
    for (std::size_t i = 0; i < corners.size(); ++i) {
        if (std::abs(at.x - corners[i].x) <= reachX && std::abs(at.y - corners[i].y) <= reachY) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

bool MarqueeStands() {
    return gMarquee[kMarqueeStanding] == kMarqueeSet && Selection::now.slot != 0;
}

bool MarqueeStandsOn(std::int32_t slot) {
    return MarqueeStands() && Selection::now.slot == slot;
}

PlotRectangle RectangleOfMarquee() {
    return RectangleBetween(FirstCorner(), OppositeCorner());
}

bool IsInMarquee(Point at) {
    return MarqueeStands() && IsWithin(RectangleOfMarquee(), at)
           && (Selection::now.lasso.empty() || IsWithin(Selection::now.lasso, at));
}

void StandMarquee(std::int32_t slot, Point corner, Point opposite) {
    MoveToSlot(slot);
    WipeMarquee();
    WriteMarquee(corner, opposite);
}

void StandLasso(std::int32_t slot, std::vector<Point> corners) {
    if (corners.empty()) {
        ClearSelection();
        return;
    }
    MoveToSlot(slot);
    const PlotRectangle about = RectangleAbout(corners);
    WriteMarquee({about.left, about.top}, {about.right, about.bottom});
    Selection::now.lasso = std::move(corners);
}

void ShiftMarquee(double dx, double dy) {
    if (!MarqueeStands()) {
        return;
    }
    gMarquee[kMarqueeX] = static_cast<float>(gMarquee[kMarqueeX] + dx);
    gMarquee[kMarqueeY] = static_cast<float>(gMarquee[kMarqueeY] + dy);
    for (Point& corner : Selection::now.lasso) {
        corner = {corner.x + dx, corner.y + dy};
    }
}

void WipeMarquee() {
    gMarquee = {};
    Selection::now.lasso.clear();
    Selection::now.marks.reset();
}

void ClearSelection() {
    EmptySelection();
    TellSelection();
}

void ClearSelectionOf(std::int32_t slot) {
    if (Selection::now.slot == slot) {
        // The plot closes, or is drawn at the end of the change of its rows.
        EmptySelection();
        if (whenChanged) {
            whenChanged();
        }
    }
}

void PutSelectionBack(Selection kept) {
    DropRowsThatAreGone(kept.slot, kept.rows);
    if (!IsOpenSlot(kept.slot)) {
        kept.slot = 0;
    }
    Selection::now = std::move(kept);
    TellSelection();
}

std::vector<std::int32_t> RowsInside(const RowTable& table,
                                     const std::function<bool(Point)>& isInside,
                                     const std::function<bool(std::int32_t)>& isVisible) {
    std::vector<std::int32_t> rows;
    for (std::size_t place = 0; place < table.size(); ++place) {
        if (!IsErrorRow(table.plunge[place])
            && isInside({static_cast<double>(table.x[place]), static_cast<double>(table.y[place])})
            && isVisible(table.index[place])) {
            rows.push_back(table.index[place]);
        }
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

std::vector<std::int32_t> RowsInMarquee() {
    if (!MarqueeStands() || gActiveLayer != kDataLayer || !IsOpenSlot(Selection::now.slot)
        || RecordOf(Selection::now.slot).PlotKind == kRose) {
        return {};
    }
    const int slot = Selection::now.slot;
    // Main rows that are replaced by their intersections are not visible.
    const std::int32_t firstSeen = ShowsIntersections(slot) ? RecordOf(slot).NumData + 1 : 1;
    return RowsInside(TableOf(slot), IsInMarquee, [slot, firstSeen](std::int32_t row) {
        return row >= firstSeen && CodeSymbol(gDataSymbol(slot, row)) != 0;
    });
}

void SelectRowsInMarquee() {
    Selection::now.marks.reset();
    gSelectionRows = RowsInMarquee();
    TellSelection();
}

void SelectInMarquee(SelectionWay way, const Selection& former) {
    const bool isSamePlot = former.slot == Selection::now.slot;
    if (way == SelectionWay::Replace || !isSamePlot) {
        SelectRowsInMarquee();
        return;
    }
    if (gActiveLayer == kAnnotationLayer) {
        const std::vector<std::size_t> framed = MarksInMarquee();
        Selection::now.marks =
            Combined(way, former.marks.value_or(std::vector<std::size_t>()), framed);
    } else {
        gSelectionRows = Combined(way, former.rows, RowsInMarquee());
    }
    TellSelection();
}

const std::optional<std::vector<std::size_t>>& PickedMarks() {
    return Selection::now.marks;
}

std::vector<std::size_t> MarksInMarquee() {
    std::vector<std::size_t> marks;
    if (!MarqueeStands() || !IsOpenSlot(Selection::now.slot)
        || RecordOf(Selection::now.slot).PlotAnnotations == nullptr) {
        return marks;
    }
    const Annotations& annotations = *RecordOf(Selection::now.slot).PlotAnnotations;
    for (std::size_t i = 0; i < annotations.size(); ++i) {
        if (IsInMarquee(
                {static_cast<double>(annotations[i].X), static_cast<double>(annotations[i].Y)})) {
            marks.push_back(i);
        }
    }
    return marks;
}

std::string SelectionText() {
    const std::size_t rows = gSelectionRows.size();
    const std::size_t lines = IntersectionsSelectedIn(Selection::now.slot).lines.size();
    if (lines > 0) {
        return std::to_string(lines)
               + (lines == 1 ? " intersection selected" : " intersections selected");
    }
    if (rows == 0) {
        return {};
    }
    const std::string text =
        std::to_string(rows) + (rows == 1 ? " row selected" : " rows selected");
    // A frame selects great circles by their poles, which are not visible.
    const bool isByPoles = MarqueeStands() && LitPlaces(Selection::now.slot).empty()
                           && !LitArcs(Selection::now.slot).empty();
    return isByPoles ? text + (rows == 1 ? " by its pole" : " by their poles") : text;
}

void UseLayer(std::int16_t layer) {
    if (gActiveLayer != layer) {
        gActiveLayer = layer;
        if (MarqueeStandsOn(gActivePlot)) {
            SelectRowsInMarquee();
        }
    }
}

namespace {

std::vector<std::int32_t> ValidRowsOf(int slot) {
    std::vector<std::int32_t> rows;
    for (std::int32_t row = 1; row <= RecordOf(slot).NumLoadedData; ++row) {
        if (OrientationShown(slot, row).dip != kErrorRow) {
            rows.push_back(row);
        }
    }
    return rows;
}

} // namespace

void SelectAll() {
    if (!IsOpenSlot(gActivePlot)) {
        return;
    }
    if (ActiveRecord().PlotKind == kRose) {
        SelectRows(gActivePlot, ValidRowsOf(gActivePlot));
        return;
    }
    StandMarquee(gActivePlot, {-kNetRadius, kNetRadius}, {kNetRadius, -kNetRadius});
    SelectRowsInMarquee();
}

void SelectRows(std::int32_t slot, std::vector<std::int32_t> rows) {
    WipeMarquee();
    DropRowsThatAreGone(slot, rows);
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    Selection::now.slot = rows.empty() ? 0 : slot;
    gSelectionRows = std::move(rows);
    TellSelection();
}

void FitMarqueeToRows() {
    const std::vector<Point> places = PlacesOfRows(Selection::now.slot, gSelectionRows);
    WipeMarquee();
    if (!places.empty()) {
        PlotRectangle about = RectangleAbout(places);
        about = OfLeastSize({about.left - kHandleUnits, about.bottom - kHandleUnits,
                             about.right + kHandleUnits, about.top + kHandleUnits});
        WriteMarquee({about.left, about.top}, {about.right, about.bottom});
    }
}

void WidenMarquee() {
    const PlotRectangle frame = OfLeastSize(RectangleOfMarquee());
    WriteMarquee({frame.left, frame.top}, {frame.right, frame.bottom});
}

void FollowMovedRows() {
    if (!MarqueeStandsOn(gActivePlot)) {
        return;
    }
    if (gSelectionRows.empty()) {
        ClearSelection();
    } else {
        FitMarqueeToRows();
    }
}

std::span<const std::int32_t> SelectedRowsOf(std::int32_t slot) {
    if (slot != Selection::now.slot || !IsOpenSlot(slot)) {
        return {};
    }
    // A derived plot that was recomputed may have fewer rows than before.
    const auto end = std::ranges::upper_bound(gSelectionRows, RecordOf(slot).NumLoadedData);
    return {gSelectionRows.begin(), end};
}

std::vector<Point> PlacesOfRows(std::int32_t slot, std::span<const std::int32_t> rows) {
    std::vector<Point> places;
    if (rows.empty() || !IsOpenSlot(slot)) {
        return places;
    }
    const RowTable& table = TableOf(slot);
    std::vector<bool> isWanted(static_cast<std::size_t>(RecordOf(slot).NumLoadedData) + 1);
    for (const std::int32_t row : rows) {
        if (row >= 1 && static_cast<std::size_t>(row) < isWanted.size()) {
            isWanted[static_cast<std::size_t>(row)] = true;
        }
    }
    std::vector<std::pair<std::int16_t, std::int16_t>> found;
    for (std::size_t place = 0; place < table.size(); ++place) {
        const auto index = static_cast<std::size_t>(table.index[place]);
        if (index < isWanted.size() && isWanted[index] && !IsErrorRow(table.plunge[place])) {
            found.emplace_back(table.x[place], table.y[place]);
        }
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    places.reserve(found.size());
    for (const auto& [x, y] : found) {
        places.push_back({static_cast<double>(x), static_cast<double>(y)});
    }
    return places;
}

} // namespace quandrel

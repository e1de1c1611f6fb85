// SPDX-License-Identifier: MIT

#include "edit/selection/linked_rows.h"

#include "core/plot_store.h"
#include "derive/derived_plots.h"
#include "derive/fault_rows.h"
#include "derive/kinematic_plots.h"
#include "edit/selection/marquee.h"
#include "edit/selection/selected_intersections.h"
#include "orientation/angles.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace quandrel {

namespace {

constexpr std::int64_t kFullTurn = 360;
constexpr std::int64_t kMicrodegrees = 1'000'000;

/// A line in millionths of a degree, with north as 0.
using Numbers = std::pair<std::int64_t, std::int64_t>;

Numbers NumbersOf(const Attitude& degrees) {
    const auto millionths = [](double angle) {
        return static_cast<std::int64_t>(RoundToEven(angle * static_cast<double>(kMicrodegrees)));
    };
    return {millionths(degrees.dip), millionths(degrees.azimuth) % (kFullTurn * kMicrodegrees)};
}

/// The line of a row, in whole degrees if it has no decimals.
Numbers NumbersOfRow(std::int32_t slot, std::int32_t row) {
    return NumbersOf(MeasuredAttitude(PlotOf(slot).rows, RowAngles::Primary, row));
}

/// Adds a line in both forms in which its row may have it: measured, and, where the decimals of
/// that row were lost, in whole degrees.
void AddNumbers(double plunge, double trend, std::vector<Numbers>& lines) {
    const Attitude degrees{RadToDeg(plunge), RadToDeg(trend)};
    lines.push_back(NumbersOf(degrees));
    lines.push_back(NumbersOf({RoundToEven(degrees.dip), RoundToEven(degrees.azimuth)}));
}

/// The axes of a fault that a plot holds, by the title of its axes; empty for a fault without axes.
std::vector<Numbers> AxesOfFault(const Fault& fault, const PlotRecord& derived) {
    const std::optional<AxisLines> lines = LinesOfAxes(fault, AssumedSense(derived));
    if (!lines) {
        return {};
    }
    std::vector<Numbers> axes;
    if (derived.AxesTitle != kExtensionAxes) {
        AddNumbers(lines->pPlunge, lines->pTrend, axes);
    }
    if (derived.AxesTitle != kShorteningAxes) {
        AddNumbers(lines->tPlunge, lines->tTrend, axes);
    }
    return axes;
}

/// The intersection line of the two planes of a row; empty for parallel planes.
std::vector<Numbers> LineOfPlanes(const Fault& planes) {
    double plunge = 0;
    double trend = 0;
    IntersectPlanes(DegToRad(planes.plane.dip), DegToRad(planes.plane.azimuth),
                    DegToRad(planes.line.dip), DegToRad(planes.line.azimuth), plunge, trend);
    std::vector<Numbers> lines;
    if (plunge >= 0) {
        AddNumbers(plunge, trend, lines);
    }
    return lines;
}

/// The lines of a derived plot that come from a row of its parent.
std::vector<Numbers> LinesOfRow(std::int32_t derived, std::int32_t parent, std::int32_t row) {
    const Fault fault = FaultOfRow(parent, row);
    if (!IsReadable(fault.plane) || !IsReadable(fault.line)) {
        return {};
    }
    const PlotRecord& record = RecordOf(derived);
    return record.AxesTitle.empty() ? LineOfPlanes(fault) : AxesOfFault(fault, record);
}

bool IsDerivedFrom(std::int32_t slot, std::int32_t parent) {
    const PlotRecord& record = RecordOf(slot);
    const bool holdsIntersections = RecordOf(parent).IntersectionState == slot;
    return record.KinematicState == parent && (!record.AxesTitle.empty() || holdsIntersections);
}

std::vector<std::int32_t> LinesOfRows(std::int32_t slot, std::int32_t parent,
                                      std::span<const std::int32_t> rows) {
    const PlotRecord& record = RecordOf(slot);
    std::set<Numbers> wanted;
    for (const std::int32_t row : rows) {
        if (row <= RecordOf(parent).NumData) {
            const std::vector<Numbers> lines = LinesOfRow(slot, parent, row);
            wanted.insert(lines.begin(), lines.end());
        }
    }
    std::vector<std::int32_t> found;
    for (std::int32_t row = 1; row <= record.NumData && !wanted.empty(); ++row) {
        if (wanted.contains(NumbersOfRow(slot, row))) {
            found.push_back(row);
        }
    }
    return found;
}

std::vector<std::int32_t> RowsOfLines(std::int32_t slot, std::int32_t child,
                                      std::span<const std::int32_t> rows) {
    std::set<Numbers> wanted;
    for (const std::int32_t row : rows) {
        if (row <= RecordOf(child).NumData) {
            wanted.insert(NumbersOfRow(child, row));
        }
    }
    std::vector<std::int32_t> found;
    for (std::int32_t row = 1; row <= RecordOf(slot).NumData && !wanted.empty(); ++row) {
        const std::vector<Numbers> lines = LinesOfRow(child, slot, row);
        if (std::any_of(lines.begin(), lines.end(),
                        [&](const Numbers& line) { return wanted.contains(line); })) {
            found.push_back(row);
        }
    }
    return found;
}

/// True when the plots show P and T of the same parent.
bool AreSiblings(std::int32_t slot, std::int32_t other) {
    const PlotRecord& record = RecordOf(slot);
    const PlotRecord& partner = RecordOf(other);
    return record.KinematicState != 0 && partner.KinematicState == record.KinematicState
           && !record.AxesTitle.empty() && record.AxesTitle != kBothAxes
           && !partner.AxesTitle.empty() && partner.AxesTitle != kBothAxes
           && partner.AxesTitle != record.AxesTitle;
}

std::vector<std::int32_t> MainRowsOf(std::int32_t slot, std::span<const std::int32_t> rows) {
    std::vector<std::int32_t> found(rows.begin(), rows.end());
    const std::int32_t last = RecordOf(slot).NumData;
    std::erase_if(found, [last](std::int32_t row) { return row > last; });
    return found;
}

} // namespace

std::vector<std::int32_t> RowsLinkedTo(std::int32_t slot, std::int32_t source,
                                       std::span<const std::int32_t> rows) {
    if (slot == source || rows.empty() || !IsOpenSlot(slot) || !IsOpenSlot(source)) {
        return {};
    }
    if (IsDerivedFrom(slot, source)) {
        return LinesOfRows(slot, source, rows);
    }
    if (IsDerivedFrom(source, slot)) {
        return RowsOfLines(slot, source, rows);
    }
    return AreSiblings(slot, source) ? MainRowsOf(slot, rows) : std::vector<std::int32_t>();
}

std::vector<std::int32_t> LitRows(std::int32_t slot) {
    const std::span<const std::int32_t> own = SelectedRowsOf(slot);
    return own.empty()
               ? RowsLinkedTo(slot, Selection::now.slot, SelectedRowsOf(Selection::now.slot))
               : std::vector<std::int32_t>(own.begin(), own.end());
}

namespace {

/// What the marks of a plot depend on.
struct LitKey {
    std::int32_t source = 0; ///< the plot of the selection
    std::uint64_t version = 0;
    std::uint64_t sourceVersion = 0;
    std::int16_t mode = 0;
    std::array<std::int16_t, kMaxOverlays + 1> kinds{};
    std::array<std::int16_t, 4> links{};
    std::array<std::string, 2> axes; ///< titles of both plots
    std::vector<std::int32_t> rows;

    bool operator==(const LitKey&) const = default;
};

/// The marks of highlighted rows, attached to their plot.
struct LitMarks {
    LitKey key;
    std::vector<Point> points;
    std::vector<Point> arcs; ///< poles of great circles
};

/// True for a row that is drawn as a great circle.
bool IsDrawnAsArc(const PlotRecord& record, std::int32_t row) {
    const auto overlay = static_cast<std::size_t>(OverlayOfRow(record, row));
    return overlay == 0 ? record.PlotSymbolMode == kGreatCircles
                        : record.OverlayKind[overlay] == kOverlayGreatCircles;
}

LitMarks MarksOfRows(std::int32_t slot, LitKey key) {
    const PlotRecord& record = RecordOf(slot);
    std::vector<std::int32_t> points = LitRows(slot);
    const auto firstArc =
        std::stable_partition(points.begin(), points.end(),
                              [&record](std::int32_t row) { return !IsDrawnAsArc(record, row); });
    const std::vector<std::int32_t> arcs(firstArc, points.end());
    points.erase(firstArc, points.end());
    return {std::move(key), PlacesOfRows(slot, points), PlacesOfRows(slot, arcs)};
}

LitKey LitKeyOf(std::int32_t slot, std::int32_t source) {
    const PlotRecord& record = RecordOf(slot);
    const PlotRecord& other = RecordOf(source);
    return {source,
            TableOf(slot).version,
            TableOf(source).version,
            record.PlotSymbolMode,
            record.OverlayKind,
            {record.KinematicState, record.IntersectionState, other.KinematicState,
             other.IntersectionState},
            {record.AxesTitle, other.AxesTitle},
            gSelectionRows};
}

/// The marks of a plot, kept until what they depend on changes.
const LitMarks& MarksOf(std::int32_t slot) {
    static const LitMarks none;
    const std::int32_t source = Selection::now.slot;
    if (!IsOpenSlot(slot) || !IsOpenSlot(source)) {
        return none;
    }
    LitKey key = LitKeyOf(slot, source);
    LitMarks& marks = PlotOf(slot).attachments.Of<LitMarks>();
    if (!(key == marks.key)) {
        marks = MarksOfRows(slot, std::move(key));
    }
    return marks;
}

} // namespace

const std::vector<Point>& LitPlaces(std::int32_t slot) {
    return ShowsIntersections(slot) && slot == Selection::now.slot
               ? IntersectionsSelectedIn(slot).places
               : MarksOf(slot).points;
}

const std::vector<Point>& LitArcs(std::int32_t slot) {
    return MarksOf(slot).arcs;
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "edit/selection/selected_intersections.h"

#include "core/data_format.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "edit/selection/marquee.h"
#include "orientation/projection.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <optional>
#include <utility>

namespace quandrel {

namespace {

/// What the intersections that are selected in a plot depend on.
struct SelectionKey {
    std::uint64_t version = 0;
    std::int16_t plotKind = 0;
    std::array<float, 7> marquee{};
    std::vector<Point> lasso;
    std::vector<std::int32_t> rows;
    bool hasMarquee = false;

    bool operator==(const SelectionKey&) const = default;
};

/// Attached to a plot of intersections.
struct KnownIntersections {
    std::optional<SelectionKey> key; ///< nothing: not yet computed
    SelectedIntersections selected;
};

/// Downward normals of the planes of valid main rows.
std::vector<Direction> NormalsOf(int slot, std::span<const std::int32_t> rows) {
    const PlotRecord& record = RecordOf(slot);
    const bool isPole = IsPlottedAsPole(record, 0);
    std::vector<Direction> normals;
    for (const std::int32_t row : rows) {
        const Attitude shown = OrientationShown(slot, row);
        if (row > record.NumData || shown.dip == kErrorRow) {
            continue;
        }
        const Attitude pole = isPole ? PoleInDegrees(shown) : shown;
        normals.push_back(LineToCosines(DegToRad(std::abs(pole.dip)), DegToRad(pole.azimuth)));
    }
    return normals;
}

/// The drawn position of an intersection: whole numbers.
Point PlaceOf(int plotKind, const Direction& line) {
    const NetPosition at = PositionOfDirection(plotKind, line);
    return {RoundToEven(at.x), RoundToEven(at.y)};
}

void KeepEachPlaceOnce(std::vector<Point>& places) {
    const auto isBefore = [](const Point& a, const Point& b) {
        return a.x != b.x ? a.x < b.x : a.y < b.y;
    };
    std::sort(places.begin(), places.end(), isBefore);
    places.erase(std::unique(places.begin(), places.end()), places.end());
}

SelectedIntersections Select(int slot, std::span<const std::int32_t> rows, bool inMarquee) {
    const int plotKind = RecordOf(slot).PlotKind;
    const std::vector<Direction> normals = NormalsOf(slot, rows);
    SelectedIntersections selected;
    const auto n = static_cast<std::int64_t>(normals.size());
    selected.pairs = n * (n - 1) / 2;
    if (selected.pairs
        > (inMarquee ? kMostPairs : static_cast<std::int64_t>(kMostSelectedIntersections))) {
        selected.tooMany = true;
        return selected;
    }
    for (std::size_t i = 0; i < normals.size(); ++i) {
        for (std::size_t j = i + 1; j < normals.size(); ++j) {
            const std::optional<Direction> line = IntersectionDirection(normals[i], normals[j]);
            if (!line) {
                continue;
            }
            const Point at = PlaceOf(plotKind, *line);
            if (inMarquee && !IsInMarquee(at)) {
                continue;
            }
            if (selected.lines.size() == kMostSelectedIntersections) {
                return {{}, {}, true, selected.pairs};
            }
            selected.lines.push_back(*line);
            selected.places.push_back(at);
        }
    }
    KeepEachPlaceOnce(selected.places);
    return selected;
}

SelectionKey KeyOf(int slot) {
    const bool hasMarquee = MarqueeStandsOn(slot);
    SelectionKey key;
    key.version = TableOf(slot).version;
    key.plotKind = RecordOf(slot).PlotKind;
    key.hasMarquee = hasMarquee;
    if (hasMarquee) {
        key.marquee = gMarquee;
        key.lasso = Selection::now.lasso;
    } else {
        const std::span<const std::int32_t> rows = SelectedRowsOf(slot);
        key.rows.assign(rows.begin(), rows.end());
    }
    return key;
}

} // namespace

bool ShowsIntersections(int slot) {
    return IsOpenSlot(slot) && RecordOf(slot).PlotKind != kRose
           && RecordOf(slot).PlotSymbolMode == kBetaIntersections;
}

const SelectedIntersections& IntersectionsSelectedIn(int slot) {
    static const SelectedIntersections none;
    if (!ShowsIntersections(slot)) {
        return none;
    }
    KnownIntersections& known = PlotOf(slot).attachments.Of<KnownIntersections>();
    if (SelectionKey key = KeyOf(slot); known.key != key) {
        std::vector<std::int32_t> rows = key.rows;
        if (key.hasMarquee) {
            rows.resize(static_cast<std::size_t>(std::max(RecordOf(slot).NumData, 0)));
            std::iota(rows.begin(), rows.end(), 1);
        }
        known.selected = Select(slot, rows, key.hasMarquee);
        known.key = std::move(key);
    }
    return known.selected;
}

std::vector<Direction> IntersectionsBetween(int slot, std::span<const std::int32_t> rows) {
    return Select(slot, rows, false).lines;
}

std::int64_t PairsOfRows(int slot, std::span<const std::int32_t> rows) {
    const auto valid = static_cast<std::int64_t>(NormalsOf(slot, rows).size());
    return valid * (valid - 1) / 2;
}

bool RefusesBetaPlot() {
    if (ActiveRecord().PlotSymbolMode != kBetaIntersections) {
        return false;
    }
    Tell("Can't perform this action on a beta intersection plot");
    return true;
}

} // namespace quandrel

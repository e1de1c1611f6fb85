// SPDX-License-Identifier: MIT

#include "mapsession/session_table.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quandrel {

void SessionTable::AddColumn(std::string name, SessionColumnKind kind) {
    columns_.push_back({std::move(name), kind});
}

int SessionTable::AddRow(std::span<const std::string> cells) {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (i < cells.size()) {
            texts_ += cells[i];
        }
        cellStarts_.push_back(texts_.size());
    }
    Row row;
    row.firstPart = parts_.size();
    rows_.push_back(row);
    return RowCount();
}

void SessionTable::AddPart(MapPartKind kind, std::span<const MapPoint> points) {
    const bool usable = std::all_of(points.begin(), points.end(), [](MapPoint point) {
        return std::isfinite(point.x) && std::isfinite(point.y);
    });
    if (rows_.empty() || points.empty() || !usable) {
        return;
    }
    parts_.push_back({kind, points_.size(), points.size()});
    points_.insert(points_.end(), points.begin(), points.end());
    Row& row = rows_.back();
    ++row.partCount;
    for (const MapPoint& point : points) {
        row.box.Include(point);
    }
    box_.Include(row.box);
}

std::string_view SessionTable::Cell(int row, int column) const {
    const std::size_t cell =
        static_cast<std::size_t>(row - 1) * columns_.size() + static_cast<std::size_t>(column - 1);
    const std::size_t start = cellStarts_[cell];
    return std::string_view(texts_).substr(start, cellStarts_[cell + 1] - start);
}

MapShape SessionTable::ShapeOf(int row) const {
    const Row& own = rows_[static_cast<std::size_t>(row - 1)];
    MapShape shape;
    shape.reserve(own.partCount);
    for (std::size_t i = 0; i < own.partCount; ++i) {
        const Part& part = parts_[own.firstPart + i];
        shape.push_back({part.kind, std::span(points_).subspan(part.firstPoint, part.pointCount)});
    }
    return shape;
}

bool RowTouchesBox(const SessionTable& table, int row, const MapBox& box) {
    return table.BoxOf(row).Touches(box) && ShapeTouchesBox(table.ShapeOf(row), box);
}

bool RowIsNear(const SessionTable& table, int row, MapPoint point, double distance) {
    const MapBox around = MapBox::Of(point, point).Grown(distance);
    return table.BoxOf(row).Touches(around)
           && DistanceToShape(point, table.ShapeOf(row)) <= distance;
}

} // namespace quandrel

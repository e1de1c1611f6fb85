// SPDX-License-Identifier: MIT
//
// A table of the map session: columns, rows of texts, and a shape for each row that has one.
//
// Rows and columns count from 1. Texts are UTF-8, with decimal points in numbers; a cell without a
// value is an empty text. A table is filled once, row by row, and not changed afterwards.

#pragma once

#include "mapsession/session_geometry.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

enum class SessionColumnKind {
    Text,
    Number,
};

struct SessionColumn {
    std::string name;
    SessionColumnKind kind = SessionColumnKind::Text;
};

class SessionTable {
public:
    SessionTable() = default;

    SessionTable(std::string name, std::string path)
        : name_(std::move(name))
        , path_(std::move(path)) {}

    /// The name of the table in statements.
    [[nodiscard]] const std::string& Name() const { return name_; }

    void Rename(std::string name) { name_ = std::move(name); }

    /// The file that the table was read from.
    [[nodiscard]] const std::string& Path() const { return path_; }

    /// Call before adding rows.
    void AddColumn(std::string name, SessionColumnKind kind);

    /// Extra cells are dropped, missing ones are empty. Returns the number of the row.
    int AddRow(std::span<const std::string> cells);

    /// Adds a part to the shape of the last row. A part without points, or with a coordinate that
    /// is not finite, is ignored.
    void AddPart(MapPartKind kind, std::span<const MapPoint> points);

    [[nodiscard]] int ColumnCount() const { return static_cast<int>(columns_.size()); }

    [[nodiscard]] int RowCount() const { return static_cast<int>(rows_.size()); }

    /// @param column  1 to ColumnCount()
    [[nodiscard]] const SessionColumn& Column(int column) const {
        return columns_[static_cast<std::size_t>(column - 1)];
    }

    /// @param row     1 to RowCount()
    /// @param column  1 to ColumnCount()
    [[nodiscard]] std::string_view Cell(int row, int column) const;

    /// The shape of a row, empty for none; it refers to the table's own points.
    /// @param row  1 to RowCount()
    [[nodiscard]] MapShape ShapeOf(int row) const;

    /// @param row  1 to RowCount()
    [[nodiscard]] const MapBox& BoxOf(int row) const {
        return rows_[static_cast<std::size_t>(row - 1)].box;
    }

    /// The box of all shapes.
    [[nodiscard]] const MapBox& Box() const { return box_; }

    /// True when any row has a shape.
    [[nodiscard]] bool IsMappable() const { return !box_.IsEmpty(); }

private:
    struct Part {
        MapPartKind kind = MapPartKind::Points;
        std::size_t firstPoint = 0;
        std::size_t pointCount = 0;
    };

    struct Row {
        MapBox box;
        std::size_t firstPart = 0;
        std::uint32_t partCount = 0;
    };

    std::string name_;
    std::string path_;
    std::vector<SessionColumn> columns_;
    std::vector<Row> rows_;
    std::vector<Part> parts_;
    std::vector<MapPoint> points_;
    std::string texts_;                      ///< all cells, row by row, concatenated
    std::vector<std::size_t> cellStarts_{0}; ///< the last element is the end of the last cell
    MapBox box_;
};

/// True when a row has a shape that touches a box.
[[nodiscard]] bool RowTouchesBox(const SessionTable& table, int row, const MapBox& box);

/// True when a row has a shape within a distance, 0 or more, of a point.
[[nodiscard]] bool RowIsNear(const SessionTable& table, int row, MapPoint point, double distance);

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "mapsession/map_drawing.h"

#include "mapsession/embedded_session.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

namespace quandrel {
namespace {

constexpr double kPointRadius = 3;
constexpr double kSelectedRadius = 4.5;
constexpr double kLineWidth = 1.2;
constexpr double kSelectedWidth = 2.5;

/// Margin around the window that is also drawn, in pixels: for line ends and parts of points.
constexpr double kMargin = 16;

constexpr std::array<Colour, 6> kLayerColours = {
    {{0, 114, 178}, {0, 158, 115}, {230, 159, 0}, {204, 121, 167}, {86, 180, 233}, {0, 0, 0}}};

Glyph PointGlyph(const char* name, double radius) {
    GlyphPart disc;
    disc.kind = GlyphPart::Kind::Circle;
    disc.ink = GlyphPart::Ink::Filled;
    disc.points = {{0, 0}};
    disc.radius = radius;
    return {name, {disc}};
}

/// Drawing attributes of the objects of one layer, or of the selected ones.
struct Pen {
    Glyph glyph;
    Colour colour;
    double width = kLineWidth;
    FillStyle fill = kNoFill;
};

/// Draws rows of one table. Points wait until FlushPoints, so that they are drawn above lines and
/// areas in one call.
class RowPainter {
public:
    RowPainter(const MapView& view, const Pen& pen, Surface& surface)
        : view_(view)
        , pen_(pen)
        , surface_(surface)
        , seen_(view.Box().Grown(kMargin * view.UnitsPerPixel())) {}

    void Draw(const SessionTable& table, int row) {
        if (!table.BoxOf(row).Touches(seen_)) {
            return;
        }
        const MapShape shape = table.ShapeOf(row);
        if (pen_.fill != kNoFill) {
            FillRings(shape);
        }
        for (const MapShapePart& part : shape) {
            if (part.kind == MapPartKind::Points) {
                AddPoints(part);
            } else {
                DrawLine(part);
            }
        }
    }

    void FlushPoints() {
        if (!points_.empty()) {
            surface_.SetState({}); // the pen's width is for lines
            surface_.Markers(pen_.glyph, pen_.colour, points_);
        }
        points_.clear();
    }

private:
    /// Pixels; up is positive, as on the surface.
    [[nodiscard]] Point At(MapPoint map) const {
        const MapPoint pixels = view_.ToPixels(map);
        return {pixels.x, -pixels.y};
    }

    void AddPoints(const MapShapePart& part) {
        for (const MapPoint& point : part.points) {
            if (seen_.Holds(point)) {
                points_.push_back(At(point));
            }
        }
    }

    /// Fills all rings as one shape, so that holes stay open: the outline runs from each ring to
    /// the start of the first one and back, along lines that cancel out under the even-odd rule.
    void FillRings(const MapShape& shape) {
        std::vector<Point> outline;
        for (const MapShapePart& part : shape) {
            if (part.kind != MapPartKind::Ring) {
                continue;
            }
            const std::vector<MapPoint> ring = ClipRing(seen_, part.points);
            if (ring.size() < 3) {
                continue;
            }
            for (const MapPoint& point : ring) {
                outline.push_back(At(point));
            }
            outline.push_back(At(ring.front()));
            outline.push_back(outline.front());
        }
        if (outline.empty()) {
            return;
        }
        const SavedState saved(surface_);
        DrawState state = surface_.State();
        state.drawStyle = kNoLine;
        state.fillStyle = pen_.fill;
        state.fillColour = pen_.colour;
        surface_.SetState(state);
        surface_.Polygon(outline, pen_.colour);
    }

    void DrawLine(const MapShapePart& part) {
        std::vector<Point> run;
        const std::size_t count = part.points.size();
        const std::size_t ends = part.kind == MapPartKind::Ring ? count + 1 : count;
        for (std::size_t i = 1; i < ends; ++i) {
            MapPoint from = part.points[i - 1];
            MapPoint to = part.points[i % count];
            const MapPoint wholeTo = to;
            if (!ClipSegment(seen_, from, to)) {
                FlushLine(run);
                continue;
            }
            if (run.empty() || run.back() != At(from)) {
                FlushLine(run);
                run.push_back(At(from));
            }
            run.push_back(At(to));
            if (to != wholeTo) {
                FlushLine(run);
            }
        }
        FlushLine(run);
    }

    void FlushLine(std::vector<Point>& run) {
        if (run.size() > 1) {
            surface_.Polyline(run, pen_.colour);
        }
        run.clear();
    }

    const MapView& view_;
    const Pen& pen_;
    Surface& surface_;
    MapBox seen_;
    std::vector<Point> points_;
};

void UsePen(const Pen& pen, Surface& surface) {
    DrawState state;
    state.drawWidth = pen.width;
    surface.SetState(state);
}

/// Draws the rows of a layer except the selected ones, which are drawn later.
void DrawLayer(const SessionState& state, const SessionRows& rows, const MapView& view,
               const Pen& pen, Surface& surface) {
    UsePen(pen, surface);
    RowPainter painter(view, pen, surface);
    for (int i = 1; i <= rows.Count(); ++i) {
        if (!state.selection.Has(rows.table->Name(), rows.TableRow(i))) {
            painter.Draw(*rows.table, rows.TableRow(i));
        }
    }
    painter.FlushPoints();
}

void DrawSelected(const SessionState& state, const SessionTable& table, const MapView& view,
                  const Pen& pen, Surface& surface) {
    UsePen(pen, surface);
    RowPainter painter(view, pen, surface);
    for (const int row : state.selection.rows) {
        painter.Draw(table, row);
    }
    painter.FlushPoints();
}

void UsePixels(const SessionWindow& window, Surface& surface) {
    surface.SetUserScale({0, 0, window.view.WidthPixels(), -window.view.HeightPixels()});
}

} // namespace

MapColours DefaultMapColours() {
    MapColours colours;
    colours.layers = kLayerColours;
    return colours;
}

void DrawMapWindow(const SessionState& state, const SessionWindow& window,
                   const MapColours& colours, Surface& surface) {
    UsePixels(window, surface);
    surface.Clear(colours.background);
    const SavedState saved(surface);
    const Glyph small = PointGlyph("map point", kPointRadius);
    const Glyph large = PointGlyph("selected map point", kSelectedRadius);
    bool selectionSeen = false;
    for (std::size_t i = window.layers.size(); i-- > 0;) {
        const SessionResult<SessionRows> rows = RowsNamed(state, window.layers[i].table);
        if (!rows || !window.layers[i].visible) {
            continue;
        }
        const Colour colour =
            colours.layers.empty() ? kBlack : colours.layers[i % colours.layers.size()];
        DrawLayer(state, *rows, window.view, {small, colour, kLineWidth, kNoFill}, surface);
        selectionSeen = selectionSeen || rows->table->Name() == state.selection.table;
    }
    if (selectionSeen) {
        DrawSelected(state, FindSessionTable(state, state.selection.table)->data, window.view,
                     {large, colours.selected, kSelectedWidth, kDiagonalCrossHatch}, surface);
    }
}

void DrawDraggedShape(const SessionWindow& window, int tool, MapPoint from, MapPoint to,
                      Surface& surface) {
    UsePixels(window, surface);
    const SavedState saved(surface);
    DrawState state;
    state.drawStyle = kDashedLine;
    surface.SetState(state);
    const MapPoint start = window.view.ToPixels(from);
    const MapPoint end = window.view.ToPixels(to);
    if (tool == kToolRadius) {
        surface.Circle({start.x, -start.y}, std::hypot(end.x - start.x, end.y - start.y), kBlack);
    } else {
        surface.Box({start.x, -start.y}, {end.x, -end.y}, kBlack);
    }
}

} // namespace quandrel

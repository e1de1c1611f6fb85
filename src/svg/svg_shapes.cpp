// SPDX-License-Identifier: MIT

#include "svg/svg_shapes.h"

#include "svg/svg_numbers.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr double kLongestPiece = 2; ///< of an arc, radians

bool IsFinite(Point point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

bool AreFinite(std::span<const Point> points) {
    return std::ranges::all_of(points, IsFinite);
}

void AppendPlace(std::string& path, Point point) {
    AppendNumber(path, point.x);
    path += ' ';
    AppendNumber(path, point.y);
}

void AppendLine(std::string& path, std::span<const Point> points) {
    char command = 'M';
    for (const Point& point : points) {
        path += command;
        AppendPlace(path, point);
        command = 'L';
    }
}

std::string PathElement(const std::string& path, const char* further = "") {
    return std::string("<path") + further + Attribute("d", path);
}

Point AtAngle(const SvgArc& arc, double angle) {
    return {arc.centre.x + arc.radiusX * std::cos(angle),
            arc.centre.y + arc.radiusY * std::sin(angle)};
}

/// The path of an arc, or an empty text.
std::string ArcPath(const SvgArc& arc) {
    if (!IsFinite(arc.centre) || !std::isfinite(arc.radiusX) || !std::isfinite(arc.radiusY)
        || !std::isfinite(arc.start) || !std::isfinite(arc.sweep)) {
        return {};
    }
    std::string piece = "A";
    AppendPlace(piece, {std::abs(arc.radiusX), std::abs(arc.radiusY)});
    const bool isMirrored = (arc.radiusX < 0) != (arc.radiusY < 0);
    piece += (arc.sweep > 0) != isMirrored ? " 0 0 1 " : " 0 0 0 ";
    const double pieces = std::max(1.0, std::ceil(std::abs(arc.sweep) / kLongestPiece));
    std::string path = "M";
    AppendPlace(path, AtAngle(arc, arc.start));
    for (double i = 1; i <= pieces; ++i) {
        path += piece;
        AppendPlace(path, AtAngle(arc, arc.start + arc.sweep * i / pieces));
    }
    return path;
}

} // namespace

std::string LineShape(std::span<const Point> points) {
    if (points.empty() || !AreFinite(points)) {
        return {};
    }
    std::string path;
    AppendLine(path, points);
    return PathElement(path);
}

std::string ClosedShape(std::span<const Point> points) {
    if (points.empty() || !AreFinite(points)) {
        return {};
    }
    std::string path;
    AppendLine(path, points);
    return PathElement(path + "Z");
}

std::string RingsShape(std::span<const std::vector<Point>> rings) {
    std::string path;
    for (const std::vector<Point>& ring : rings) {
        if (!AreFinite(ring)) {
            return {};
        }
        if (!ring.empty()) {
            AppendLine(path, ring);
            path += 'Z';
        }
    }
    return path.empty() ? path : PathElement(path, " fill-rule=\"evenodd\"");
}

std::string EllipseShape(Point centre, double radiusX, double radiusY) {
    if (!IsFinite(centre) || !std::isfinite(radiusX) || !std::isfinite(radiusY)) {
        return {};
    }
    const std::string across = NumberText(radiusX);
    const std::string down = NumberText(radiusY);
    const std::string place = Attribute("cx", centre.x) + Attribute("cy", centre.y);
    return across == down ? "<circle" + place + Attribute("r", across)
                          : "<ellipse" + place + Attribute("rx", across) + Attribute("ry", down);
}

std::string BoxShape(Point corner, Point opposite) {
    if (!IsFinite(corner) || !IsFinite(opposite)) {
        return {};
    }
    return "<rect" + Attribute("x", std::min(corner.x, opposite.x))
           + Attribute("y", std::min(corner.y, opposite.y))
           + Attribute("width", std::abs(opposite.x - corner.x))
           + Attribute("height", std::abs(opposite.y - corner.y));
}

std::string ArcShape(const SvgArc& arc) {
    const std::string path = ArcPath(arc);
    return path.empty() ? path : PathElement(path);
}

std::string WedgeShape(const SvgArc& arc) {
    std::string path = ArcPath(arc);
    if (path.empty()) {
        return path;
    }
    path += 'L';
    AppendPlace(path, arc.centre);
    return PathElement(path + "Z");
}

} // namespace quandrel

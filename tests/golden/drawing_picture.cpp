// SPDX-License-Identifier: MIT

#include "golden/drawing_picture.h"

#include "qt/picture_file.h"
#include "support/qt_application.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quandrel {

namespace {

constexpr double kGap = 10; ///< between drawings, logical pixels

// Fonts of pictures need an application.
const ::testing::Environment* const kApplication =
    ::testing::AddGlobalTestEnvironment(new QtApplication);

void DrawShape(const DrawOperation& operation, Surface& surface) {
    using Kind = DrawOperation::Kind;
    const std::vector<Point>& at = operation.points;
    const Colour colour = operation.colour;
    const double radius = operation.radius;
    switch (operation.kind) {
    case Kind::Line:
        return surface.Line(at.at(0), at.at(1), colour);
    case Kind::Box:
        return surface.Box(at.at(0), at.at(1), colour);
    case Kind::FilledBox:
        return surface.FilledBox(at.at(0), at.at(1), colour);
    case Kind::Circle:
        return surface.Circle(at.at(0), radius, colour);
    case Kind::Arc:
        return surface.Arc(at.at(0), radius, operation.start, operation.end, colour);
    case Kind::Wedge:
        return surface.Wedge(at.at(0), radius, operation.start, operation.end, colour);
    case Kind::Polyline:
        return surface.Polyline(at, colour);
    case Kind::Polygon:
        return surface.Polygon(at, colour);
    case Kind::Path:
        return surface.Path(operation.rings, colour);
    case Kind::Pixel:
        return surface.SetPixel(at.at(0), colour);
    case Kind::PushClip:
        return surface.PushClip(at.at(0), radius);
    case Kind::PopClip:
        return surface.PopClip();
    default:
        return;
    }
}

} // namespace

void DrawAgain(const RecordedDrawing& drawing, Surface& surface) {
    surface.SetUserScale(drawing.scale);
    for (const DrawOperation& operation : drawing.operations) {
        surface.SetState(operation.state);
        if (operation.kind == DrawOperation::Kind::Clear) {
            surface.Clear(operation.colour);
        } else if (operation.kind == DrawOperation::Kind::Text) {
            surface.Text(operation.points.at(0), operation.text);
        } else if (operation.kind == DrawOperation::Kind::Markers) {
            surface.Markers(drawing.glyphs.at(operation.text), operation.colour, operation.points);
        } else {
            DrawShape(operation, surface);
        }
    }
}

std::string WritePicture(const std::string& path, const std::vector<RecordedDrawing>& drawings) {
    PictureSize size{kGap, 0};
    for (const RecordedDrawing& drawing : drawings) {
        size.width += drawing.size.x + kGap;
        size.height = std::max(size.height, drawing.size.y + 2 * kGap);
    }
    return SavePicture(path, size, path, [&](PicturePage& page) {
        double left = kGap;
        for (const RecordedDrawing& drawing : drawings) {
            DrawAgain(drawing, page.In({left, kGap, drawing.size.x, drawing.size.y}));
            left += drawing.size.x + kGap;
        }
    });
}

} // namespace quandrel

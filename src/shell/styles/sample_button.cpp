// SPDX-License-Identifier: MIT

#include "shell/styles/sample_button.h"

#include "qt/image_surface.h"

#include <QImage>
#include <QPaintEvent>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace quandrel {

namespace {

constexpr int kFrame = 3; ///< logical pixels around a drawing

Colour ColourOf(const QColor& colour) {
    return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
            static_cast<std::uint8_t>(colour.blue())};
}

/// An image in the screen's pixel density; its user units are logical pixels.
ImageSurface SurfaceOf(QSize room, double density, Colour background) {
    const auto pixels = [density](int length) {
        return std::max(1, static_cast<int>(std::lround(length * density)));
    };
    ImageSurface surface({pixels(room.width()), pixels(room.height())}, density, background);
    surface.Drawing().SetUserScale(
        {0, static_cast<double>(room.height()), static_cast<double>(room.width()), 0});
    return surface;
}

void DrawBoxInside(Surface& surface, QSize room, double inset, const QColor& colour) {
    surface.Box({inset, inset}, {room.width() - inset, room.height() - inset}, ColourOf(colour));
}

} // namespace

PreviewPatch::PreviewPatch(const Styles& styles, StyleKind kind, QSize room, PatchScale scale)
    : StylePatch(kind, room, scale, styles)
    , styles_(styles)
    , kind_(kind) {}

void PreviewPatch::paintEvent(QPaintEvent* event) {
    StylePatch::paintEvent(event);
    if (kind_ == StyleKind::Fill && Style()[kPlaceSymbol] == kNoFill) {
        PaintOutline();
    }
}

void PreviewPatch::PaintOutline() {
    constexpr int kInset = 5;
    constexpr double kWidth = 2;
    const QRect inside = rect().adjusted(kInset, kInset, -kInset, -kInset);
    ImageSurface image = SurfaceOf(inside.size(), devicePixelRatioF(), kWhite);
    DrawState state;
    state.drawWidth = kWidth;
    image.Drawing().SetState(state);
    image.Drawing().Box({kWidth / 2, kWidth / 2},
                        {inside.width() - kWidth / 2, inside.height() - kWidth / 2},
                        TableColour(styles_, Style()[kPlaceColour]));
    PaintImage(*this, inside, image.Image());
}

SampleButton::SampleButton(const Styles& styles, QSize room, Draw draw)
    : styles_(styles)
    , room_(room)
    , draw_(std::move(draw)) {
    setFixedSize(room);
    setFocusPolicy(Qt::StrongFocus);
}

void SampleButton::paintEvent(QPaintEvent*) {
    const double density = devicePixelRatioF();
    const QColor window = palette().color(QPalette::Window);
    ImageSurface frame = SurfaceOf(size(), density, ColourOf(window));
    DrawState state;
    state.drawWidth = isChecked() ? 2 : 1;
    frame.Drawing().SetState(state);
    const bool stands = isChecked() || hasFocus();
    DrawBoxInside(frame.Drawing(), size(), state.drawWidth / 2,
                  palette().color(stands ? QPalette::Highlight : QPalette::Mid));
    PaintImage(*this, rect(), frame.Image());
    const QRect inside = rect().adjusted(kFrame, kFrame, -kFrame, -kFrame);
    ImageSurface image = SurfaceOf(inside.size(), density, kWhite);
    draw_(image.Drawing(), styles_);
    if (hasFocus()) {
        image.Drawing().SetUserScale(
            {0, static_cast<double>(inside.height()), static_cast<double>(inside.width()), 0});
        DrawState dotted;
        dotted.drawStyle = kDottedLine;
        image.Drawing().SetState(dotted);
        DrawBoxInside(image.Drawing(), inside.size(), 2, palette().color(QPalette::Mid));
    }
    PaintImage(*this, inside, image.Image());
}

void DrawLineAcross(Surface& surface, const Styles& styles, QSize room, const AxisStyle& style) {
    constexpr double kMargin = 6;
    surface.SetUserScale(
        {0, static_cast<double>(room.height()), static_cast<double>(room.width()), 0});
    DrawState state;
    state.drawStyle = style[kStyleLine];
    state.drawWidth = style[kStyleWidth];
    surface.SetState(state);
    const double middle = room.height() / 2.0;
    surface.Line({kMargin, middle}, {room.width() - kMargin, middle},
                 TableColour(styles, style[kStyleColour]));
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "shell/styles/line_patch.h"

#include "core/style_tables.h"
#include "qt/image_surface.h"

#include <cmath>
#include <cstdint>

namespace quandrel {

namespace {

constexpr double kMargin = 8; ///< beside the line
constexpr double kFocusInset = 4;

Colour ColourOf(const QColor& colour) {
    return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
            static_cast<std::uint8_t>(colour.blue())};
}

} // namespace

LinePatch::LinePatch(QSize room)
    : room_(room) {
    setFixedSize(room);
    setFocusPolicy(Qt::StrongFocus);
}

void LinePatch::SetStyle(const CircleStyle& style) {
    if (style != style_) {
        style_ = style;
        update();
    }
}

void LinePatch::paintEvent(QPaintEvent*) {
    const double density = devicePixelRatioF();
    const QSize pixels(static_cast<int>(std::lround(width() * density)),
                       static_cast<int>(std::lround(height() * density)));
    const QColor paper = isEnabled() ? QColor(Qt::white) : palette().color(QPalette::Window);
    ImageSurface image(pixels, density, ColourOf(paper));
    Surface& surface = image.Drawing();
    surface.SetUserScale({0, static_cast<double>(height()), static_cast<double>(width()), 0});
    DrawState state = surface.State();
    if (isEnabled()) {
        state.drawStyle = style_.lineStyle;
        state.drawWidth = style_.width;
        surface.SetState(state);
        surface.Line({kMargin, height() / 2.0}, {width() - kMargin, height() / 2.0},
                     TableColour(style_.colour));
    }
    const bool stands = isChecked() || hasFocus();
    state.drawStyle = kSolidLine;
    state.drawWidth = isChecked() ? 3 : 1;
    surface.SetState(state);
    const double inset = state.drawWidth / 2;
    surface.Box({inset, inset}, {width() - inset, height() - inset},
                ColourOf(palette().color(stands ? QPalette::Highlight : QPalette::Mid)));
    if (hasFocus()) {
        state.drawStyle = kDottedLine;
        state.drawWidth = 1;
        surface.SetState(state);
        surface.Box({kFocusInset, kFocusInset}, {width() - kFocusInset, height() - kFocusInset},
                    kBlack);
    }
    PaintImage(*this, rect(), image.Image());
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "shell/styles/style_patch.h"

#include "qt/image_surface.h"
#include "stereo/symbols.h"

#include <QImage>
#include <QMouseEvent>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace quandrel {

namespace {

constexpr double kPlotUnitsPerPixel = 2.75; ///< about that of a plot of 800 pixels
constexpr double kFittedSize = 0.62;        ///< of a fitted symbol, relative to the shorter side
constexpr double kLargestSize = 0.9;        ///< of a symbol at its own scale
constexpr int kFillMargin = 2;              ///< pixels around a fill
constexpr int kUsualSymbolSize = 3;         ///< of fitted symbols, so that line widths are equal
constexpr const char* kNone = "none";       ///< instead of the empty symbol
constexpr double kDimmed = 0.3;             ///< share of a disabled patch's own colours

Colour ColourOf(const QColor& colour) {
    return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
            static_cast<std::uint8_t>(colour.blue())};
}

/// The extent of a glyph from its position, user units.
double ReachOf(const Glyph& glyph) {
    double reach = 0;
    for (const GlyphPart& part : glyph.parts) {
        for (const Point& point : part.points) {
            reach =
                std::max({reach, std::abs(point.x) + part.radius, std::abs(point.y) + part.radius});
        }
    }
    return reach;
}

int Mixed(int own, int other) {
    return static_cast<int>(std::lround(kDimmed * own + (1 - kDimmed) * other));
}

/// The dimmed image of a disabled patch.
QImage Dimmed(const QImage& image, const QColor& background) {
    QImage dimmed = image;
    for (int y = 0; y < dimmed.height(); ++y) {
        for (int x = 0; x < dimmed.width(); ++x) {
            const QColor own = image.pixelColor(x, y);
            dimmed.setPixelColor(x, y,
                                 QColor(Mixed(own.red(), background.red()),
                                        Mixed(own.green(), background.green()),
                                        Mixed(own.blue(), background.blue())));
        }
    }
    return dimmed;
}

} // namespace

StylePatch::StylePatch(StyleKind kind, QSize room, PatchScale scale, const Styles& styles)
    : kind_(kind)
    , room_(room)
    , scale_(scale)
    , styles_(styles) {
    setFixedSize(room);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QAbstractButton::clicked, this,
            [this] { Q_EMIT Picked(byMouse_ ? Qt::LeftButton : Qt::NoButton); });
}

void StylePatch::SetStyle(const SymbolRow& style) {
    style_ = style;
    update();
}

double StylePatch::UnitsPerPixel() const {
    const double side = std::min(width(), height());
    const bool isFitted = scale_ == PatchScale::Fit;
    const int size = isFitted ? kUsualSymbolSize : style_[kPlaceSize];
    const double reach = ReachOf(GlyphOfSymbol(style_[kPlaceSymbol], size, 0));
    if (isFitted && reach > 0) {
        return 2 * reach / (side * kFittedSize);
    }
    return std::max(kPlotUnitsPerPixel, 2 * reach / (side * kLargestSize));
}

void StylePatch::DrawSample(Surface& surface) const {
    const double units = UnitsPerPixel();
    const double x = width() * units / 2;
    const double y = height() * units / 2;
    surface.SetUserScale({-x, y, x, -y});
    if (style_[kPlaceSymbol] == kNoSymbol && scale_ == PatchScale::Fit) {
        surface.Text({-surface.TextWidth(kNone) / 2, surface.TextHeight() / 2}, kNone);
        return;
    }
    const int size = scale_ == PatchScale::Fit ? kUsualSymbolSize : style_[kPlaceSize];
    DrawSymbol(surface, styles_, 0, 0, style_[kPlaceColour], style_[kPlaceSymbol], size, 0);
}

void StylePatch::DrawFill(Surface& surface) const {
    const Colour colour = TableColour(styles_, style_[kPlaceColour]);
    DrawState state = surface.State();
    state.drawStyle = kNoLine;
    state.fillStyle = style_[kPlaceSymbol];
    state.fillColour = colour;
    surface.SetState(state);
    const double left = kFillMargin;
    const double right = width() - kFillMargin;
    const double top = kFillMargin;
    const double bottom = height() - kFillMargin;
    const std::array<Point, 4> corners = {
        {{left, top}, {right, top}, {right, bottom}, {left, bottom}}};
    surface.Polygon(corners, colour);
}

void StylePatch::DrawFrame(Surface& surface) const {
    const bool stands = isChecked() || hasFocus();
    DrawState state;
    state.drawWidth = isChecked() ? 3 : 1;
    const QPalette::ColorRole role = stands ? QPalette::Highlight : QPalette::Mid;
    const double inset = state.drawWidth / 2;
    surface.SetState(state);
    surface.Box({inset, inset}, {width() - inset, height() - inset},
                ColourOf(palette().color(role)));
    if (hasFocus()) {
        constexpr double kFocusInset = 4;
        state.drawWidth = 1;
        state.drawStyle = kDottedLine;
        surface.SetState(state);
        surface.Box({kFocusInset, kFocusInset}, {width() - kFocusInset, height() - kFocusInset},
                    kBlack);
    }
}

void StylePatch::paintEvent(QPaintEvent*) {
    const double density = devicePixelRatioF();
    const QSize pixels(static_cast<int>(std::lround(width() * density)),
                       static_cast<int>(std::lround(height() * density)));
    ImageSurface image(pixels, density, kWhite);
    const UserScale inPixels{0, static_cast<double>(height()), static_cast<double>(width()), 0};
    image.Drawing().SetUserScale(inPixels);
    if (kind_ == StyleKind::Fill) {
        DrawFill(image.Drawing());
    } else {
        DrawSample(image.Drawing());
    }
    image.Drawing().SetUserScale(inPixels);
    DrawFrame(image.Drawing());
    const QColor background = palette().color(QPalette::Window);
    PaintImage(*this, rect(), isEnabled() ? image.Image() : Dimmed(image.Image(), background));
}

void StylePatch::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) {
        event->accept();
        return;
    }
    QAbstractButton::mousePressEvent(event);
}

void StylePatch::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) {
        if (rect().contains(event->position().toPoint())) {
            Q_EMIT Picked(Qt::RightButton);
        }
        event->accept();
        return;
    }
    byMouse_ = true;
    QAbstractButton::mouseReleaseEvent(event);
    byMouse_ = false;
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "qt/theme_icon.h"

#include <QColor>
#include <QGuiApplication>
#include <QIconEngine>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

namespace quandrel {

namespace {

constexpr double kDisabledOpacity = 0.35;

/// Renders a drawing in the current theme colours.
class ThemeIconEngine : public QIconEngine {
public:
    explicit ThemeIconEngine(QByteArray drawing)
        : drawing_(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const QPalette palette = QGuiApplication::palette();
        const QColor ink = mode == QIcon::Selected ? palette.color(QPalette::HighlightedText)
                                                   : palette.color(QPalette::ButtonText);
        QByteArray coloured = drawing_;
        coloured.replace(kIconInk, ink.name().toUtf8());
        QSvgRenderer renderer(coloured);
        if (mode == QIcon::Disabled) {
            PaintFaint(*painter, rect, renderer);
        } else {
            renderer.render(painter, QRectF(rect));
        }
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new ThemeIconEngine(*this); }

private:
    /// Overlapping strokes are combined into one picture before it is made faint.
    static void PaintFaint(QPainter& painter, const QRect& rect, QSvgRenderer& renderer) {
        const double density = painter.device()->devicePixelRatioF();
        QImage layer(rect.size() * density, QImage::Format_ARGB32_Premultiplied);
        layer.fill(Qt::transparent);
        QPainter layerPainter(&layer);
        renderer.render(&layerPainter, QRectF(layer.rect()));
        layerPainter.end();
        const double opacity = painter.opacity();
        painter.setOpacity(opacity * kDisabledOpacity);
        painter.drawImage(rect, layer);
        painter.setOpacity(opacity);
    }

    QByteArray drawing_;
};

} // namespace

QIcon ThemeIcon(const QByteArray& drawing) {
    return QIcon(new ThemeIconEngine(drawing));
}

} // namespace quandrel

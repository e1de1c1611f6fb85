// SPDX-License-Identifier: MIT

#include "platform/qt/theme_icon.h"

#include <QColor>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

namespace quandrel {

namespace {

constexpr double kDisabledOpacity = 0.35;

/// Draws a drawing in the colours of the moment.
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
        const double opacity = painter->opacity();
        if (mode == QIcon::Disabled) {
            painter->setOpacity(opacity * kDisabledOpacity);
        }
        renderer.render(painter, QRectF(rect));
        painter->setOpacity(opacity);
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
    QByteArray drawing_;
};

} // namespace

QIcon ThemeIcon(const QByteArray& drawing) {
    return QIcon(new ThemeIconEngine(drawing));
}

} // namespace quandrel

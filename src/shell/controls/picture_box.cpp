// SPDX-License-Identifier: MIT

#include "shell/controls/picture_box.h"

#include "platform/surface.h"
#include "qt/dark_image.h"
#include "shell/controls/plain_tip.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>

namespace quandrel {

PictureBox::PictureBox(QWidget* parent, int margin)
    : QWidget(parent)
    , margin_(margin) {
    if (margin == 0) {
        setAttribute(Qt::WA_OpaquePaintEvent);
    } else {
        SetPaper();
        setAutoFillBackground(true);
    }
}

void PictureBox::SetPaper() {
    const QColor paper = IsDarkTheme() ? InDarkColours(QColor(Qt::white)) : QColor(Qt::white);
    QPalette colours = palette();
    if (colours.color(QPalette::Window) != paper) {
        colours.setColor(QPalette::Window, paper);
        setPalette(colours);
    }
}

QSize PictureBox::PictureSize() const {
    return size() - QSize(2 * margin_, 2 * margin_);
}

QSize PictureBox::SizeInPixels() const {
    return PixelsOf(PictureSize(), devicePixelRatioF());
}

bool PictureBox::IsStale() const {
    return drawing_ == nullptr || drawing_->Image().size() != SizeInPixels();
}

Surface& PictureBox::Picture() {
    if (IsStale()) {
        drawing_ = std::make_unique<ImageSurface>(SizeInPixels(), devicePixelRatioF(), kWhite);
    }
    return drawing_->Drawing();
}

QImage PictureBox::Image() const {
    return drawing_ != nullptr ? drawing_->Image() : QImage();
}

bool PictureBox::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !onTip) {
        return QWidget::event(event);
    }
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const QString tip = onTip(ShareAt(help.pos()));
    if (tip.isEmpty()) {
        QToolTip::hideText();
    } else {
        QToolTip::showText(help.globalPos(), PlainTip(tip), this);
    }
    return true;
}

void PictureBox::paintEvent(QPaintEvent*) {
    if (IsStale() && onStale) {
        onStale();
    }
    if (drawing_ == nullptr) {
        return;
    }
    if (!onOverlay) {
        PaintDrawing(drawing_->Image());
        return;
    }
    ImageSurface both(drawing_->Image(), devicePixelRatioF());
    both.Drawing().SetUserScale(kPlotScale);
    onOverlay(both.Drawing());
    PaintDrawing(both.Image());
}

void PictureBox::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        if (margin_ != 0) {
            SetPaper();
        }
        update();
    }
}

void PictureBox::PaintDrawing(const QImage& drawing) {
    PaintImage(*this, QRect(QPoint(margin_, margin_), PictureSize()),
               IsDarkTheme() ? InDarkColours(drawing) : drawing);
}

QPointF PictureBox::ShareAt(QPointF position) const {
    const QPointF at = position - QPointF(margin_, margin_);
    return {at.x() / PictureSize().width(), at.y() / PictureSize().height()};
}

Point PictureBox::PlotPointAt(QPointF position) const {
    const QPointF share = ShareAt(position);
    return {kPlotScale.left + share.x() * (kPlotScale.right - kPlotScale.left),
            kPlotScale.top + share.y() * (kPlotScale.bottom - kPlotScale.top)};
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    if (!onPress || !onPress(PlotPointAt(event->position()), *event)) {
        QWidget::mousePressEvent(event);
    }
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    if (onMove) {
        onMove(PlotPointAt(event->position()), *event);
    }
    QWidget::mouseMoveEvent(event);
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    if (onRelease) {
        onRelease(PlotPointAt(event->position()), *event);
    }
    QWidget::mouseReleaseEvent(event);
}

void PictureBox::keyPressEvent(QKeyEvent* event) {
    if (!onKey || !onKey(*event)) {
        QWidget::keyPressEvent(event);
    }
}

void PictureBox::keyReleaseEvent(QKeyEvent* event) {
    if (!onKey || !onKey(*event)) {
        QWidget::keyReleaseEvent(event);
    }
}

void PictureBox::leaveEvent(QEvent* event) {
    if (onLeave) {
        onLeave();
    }
    QWidget::leaveEvent(event);
}

} // namespace quandrel

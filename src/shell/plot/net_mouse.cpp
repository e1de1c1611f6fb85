// SPDX-License-Identifier: MIT

#include "shell/plot/net_mouse.h"

#include "core/plot_store.h"
#include "edit/marks/annotations.h"
#include "edit/marks/girdle_pull.h"
#include "edit/marks/small_circle_pick.h"
#include "platform/surface.h"
#include "shell/controls/picture_box.h"
#include "shell/plot/frm_plot_forms.h"
#include "shell/plot/plot_dialogs.h"

#include <QAction>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPalette>

#include <optional>

namespace quandrel {

namespace {

int ShiftOf(Qt::KeyboardModifiers keys) {
    return (keys.testFlag(Qt::ShiftModifier) ? kShiftKey : 0)
           + (keys.testFlag(Qt::ControlModifier) ? kCtrlKey : 0)
           + (keys.testFlag(Qt::AltModifier) ? kAltKey : 0);
}

int ButtonOf(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return kLeftMouseButton;
    case Qt::RightButton:
        return kRightMouseButton;
    default:
        return 0;
    }
}

MouseEvent EventOf(Point at, const QMouseEvent& event) {
    return {ButtonOf(event.button()), ShiftOf(event.modifiers()), at.x, at.y};
}

QCursor CursorOf(PointerShape shape) {
    switch (shape) {
    case PointerShape::Cross:
        return Qt::CrossCursor;
    case PointerShape::Add:
        return Qt::PointingHandCursor;
    case PointerShape::Move:
        return Qt::SizeAllCursor;
    case PointerShape::HandleRising:
        return Qt::SizeBDiagCursor;
    case PointerShape::HandleFalling:
        return Qt::SizeFDiagCursor;
    case PointerShape::Arrow:
        break;
    }
    return Qt::ArrowCursor;
}

std::optional<PlotKey> PlotKeyOf(int key) {
    switch (key) {
    case Qt::Key_Left:
        return PlotKey::Left;
    case Qt::Key_Right:
        return PlotKey::Right;
    case Qt::Key_Up:
        return PlotKey::Up;
    case Qt::Key_Down:
        return PlotKey::Down;
    case Qt::Key_Escape:
        return PlotKey::Escape;
    default:
        return std::nullopt;
    }
}

/// Rings and handles have the colour of selected texts, adjusted for white paper.
Colour HighlightColour(const QWidget& widget) {
    constexpr int kDarkestLightness = 140;
    QColor colour = widget.palette().color(QPalette::Highlight);
    if (colour.lightness() > kDarkestLightness) {
        colour.setHsl(colour.hslHue(), colour.hslSaturation(), kDarkestLightness);
    }
    return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
            static_cast<std::uint8_t>(colour.blue())};
}

frmPlotForms* FormAt(int slot) {
    return IsOpenSlot(slot)
               ? static_cast<frmPlotForms*>(gPlotForm[static_cast<std::size_t>(slot)].get())
               : nullptr;
}

} // namespace

NetMouse::NetMouse(PlotDialogs& dialogs, const QAction& addsMode, const QAction& lasso,
                   NetMouseSigns signs)
    : dialogs_(dialogs)
    , addsMode_(addsMode)
    , lasso_(lasso)
    , signs_(std::move(signs)) {}

void NetMouse::Watch(frmPlotForms& form) {
    PictureBox& net = *form.picStereoArea;
    net.onPress = [this, &form](Point at, const QMouseEvent& event) {
        return Press(form, at, event);
    };
    net.onMove = [this, &form](Point at, const QMouseEvent& event) { Move(form, at, event); };
    net.onRelease = [this, &form](Point at, const QMouseEvent& event) { Release(form, at, event); };
    net.onKey = [this, &form](const QKeyEvent& event) { return Key(form, event); };
    net.onLeave = [this, &form] { Leave(form); };
    net.onOverlay = [this, &form](Surface& surface) { Overlay(surface, form.Slot()); };
}

void NetMouse::UpdateOverlays() {
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (const frmPlotForms* form = FormAt(slot)) {
            form->picStereoArea->update();
        }
    }
}

void NetMouse::Cancel() {
    if (mouse_.IsDragging()) {
        mouse_.Cancel();
        UpdateOverlays();
    }
    ShowHint({});
}

MouseModes NetMouse::ModesOf(const frmPlotForms& form) const {
    const QSize size = form.picStereoArea->PictureSize();
    MouseModes modes;
    modes.roseDialog = dialogs_.IsRoseShown();
    modes.addsPoints = addsMode_.isChecked();
    modes.lasso = lasso_.isChecked() || lassoKey_;
    modes.pixel = {(kPlotScale.right - kPlotScale.left) / std::max(size.width(), 1),
                   (kPlotScale.top - kPlotScale.bottom) / std::max(size.height(), 1)};
    return modes;
}

bool NetMouse::Press(const frmPlotForms& form, Point at, const QMouseEvent& event) {
    if (dialogs_.TakePress(form, at, event)) {
        return true;
    }
    if (form.Slot() != gActivePlot || ButtonOf(event.button()) == 0) {
        return false;
    }
    Show(form, mouse_.Press(EventOf(at, event), ModesOf(form)));
    if (event.button() == Qt::LeftButton && event.modifiers() == Qt::NoModifier) {
        signs_.pointed(at, event.type() == QEvent::MouseButtonDblClick);
    }
    return true;
}

void NetMouse::Move(const frmPlotForms& form, Point at, const QMouseEvent& event) {
    if (form.Slot() != gActivePlot) {
        return;
    }
    MouseReport report = mouse_.Move(EventOf(at, event), ModesOf(form));
    if (const QString hint = dialogs_.HintAt(form, at, event); !hint.isEmpty()) {
        report.information = hint.toStdString();
    }
    Show(form, report);
    if (PulledGirdle() != 0 || IsDraggingSmallCircle()) {
        signs_.dragged();
    }
}

void NetMouse::Release(const frmPlotForms& form, Point at, const QMouseEvent& event) {
    if (form.Slot() != gActivePlot) {
        return;
    }
    const MouseReport report = mouse_.Release(EventOf(at, event), ModesOf(form));
    Show(form, report);
    signs_.done();
    if (report.opensEditMenu) {
        signs_.editMenu(event.globalPosition().toPoint());
    }
}

bool NetMouse::Key(const frmPlotForms& form, const QKeyEvent& event) {
    if (event.key() == Qt::Key_L && event.modifiers() == Qt::NoModifier) {
        lassoKey_ = event.type() == QEvent::KeyPress || event.isAutoRepeat();
        return true;
    }
    const std::optional<PlotKey> key = PlotKeyOf(event.key());
    const bool isPress = event.type() == QEvent::KeyPress && event.modifiers() == Qt::NoModifier;
    if (!key || !isPress || gBusy || form.Slot() != gActivePlot || !mouse_.Key(*key)) {
        return false;
    }
    UpdateOverlays();
    signs_.done();
    return true;
}

void NetMouse::Leave(const frmPlotForms& form) {
    // L may be released where no widget receives the event.
    lassoKey_ = false;
    Show(form, PlotMouse::Leave());
}

void NetMouse::Show(const frmPlotForms& form, const MouseReport& report) {
    signs_.readout(QString::fromStdString(report.readout));
    ShowHint(QString::fromStdString(report.information));
    form.picStereoArea->setCursor(CursorOf(report.pointer));
    if (report.overlayChanged) {
        form.picStereoArea->update();
    }
}

void NetMouse::ShowHint(const QString& hint) {
    if (hint != hinted_) {
        hinted_ = hint;
        signs_.hint(hint);
    }
}

void NetMouse::Overlay(Surface& surface, int slot) const {
    if (const frmPlotForms* form = FormAt(slot)) {
        mouse_.OverlayShapes(surface, slot, HighlightColour(*form));
        dialogs_.DrawPreview(surface, slot);
    }
}

} // namespace quandrel

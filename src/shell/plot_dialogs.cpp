// SPDX-License-Identifier: MIT

#include "shell/plot_dialogs.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "shell/frm_data_classification.h"
#include "shell/frm_plot_forms.h"
#include "shell/frm_rose_diag.h"
#include "shell/frm_rotation_menu.h"
#include "shell/picture_box.h"

#include <QEvent>
#include <QMouseEvent>

namespace quandrel {

namespace {

// Room between the rotation dialog and the window's edges, logical pixels: the second clears the
// menus and the tool strip.
constexpr int kGapToEdge = 24;
constexpr int kGapToTop = 110;

bool IsRoseActive() {
    return IsOpenSlot(gActivePlot) && ActiveRecord().PlotKind == kRose;
}

bool IsShown(const QDialog* dialog) {
    return dialog != nullptr && dialog->isVisible();
}

} // namespace

PlotDialogs::PlotDialogs(QWidget& window, std::function<void()> changed,
                         std::function<void(const QString&)> hint)
    : window_(window)
    , changed_(std::move(changed))
    , hint_(std::move(hint)) {}

void PlotDialogs::Show(QDialog& dialog) {
    dialog.installEventFilter(this);
    dialog.show();
    dialog.raise();
    dialog.activateWindow();
}

void PlotDialogs::ShowRose() {
    if (!IsRoseActive()) {
        return;
    }
    if (rose_ == nullptr) {
        rose_ = new frmRoseDiag(&window_);
    }
    rose_->FollowActivePlot();
    Show(*rose_);
}

void PlotDialogs::ShowRotation() {
    if (!IsOpenSlot(gActivePlot)) {
        return;
    }
    if (rotation_ == nullptr) {
        rotation_ = new frmRotationMenu(&window_, [this] { ShowPreview(); });
        // Beside the net rather than over it: the net is to be seen, and pressed.
        rotation_->adjustSize();
        const QRect room = window_.geometry();
        rotation_->move(room.right() - rotation_->width() - kGapToEdge, room.top() + kGapToTop);
    }
    Show(*rotation_);
}

void PlotDialogs::Watch(frmPlotForms& form) {
    PictureBox& net = *form.picStereoArea;
    net.onPress = [this, &form](Point at, const QMouseEvent& event) {
        return TakePress(form, at, event);
    };
    net.onMove = [this, &form](Point at, const QMouseEvent& event) { HintAt(form, at, event); };
    net.onLeave = [this] { ShowHint({}); };
}

bool PlotDialogs::TakePress(const frmPlotForms& form, Point at, const QMouseEvent& event) {
    const bool isPlain =
        event.button() == Qt::LeftButton && !event.modifiers().testFlag(Qt::AltModifier);
    if (!isPlain || !IsShown(rotation_) || form.Slot() != gActivePlot || gBusy) {
        return false;
    }
    rotation_->TakePick(at, event.modifiers());
    return true;
}

void PlotDialogs::HintAt(const frmPlotForms& form, Point at, const QMouseEvent& event) {
    const bool isHinted = IsShown(rotation_) && form.Slot() == gActivePlot && !gBusy;
    ShowHint(isHinted ? rotation_->HintAt(at, event.modifiers()) : QString());
}

void PlotDialogs::ShowHint(const QString& hint) {
    if (hint != hinted_) {
        hinted_ = hint;
        hint_(hint);
    }
}

void PlotDialogs::ShowPreview() {
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        auto* form = static_cast<frmPlotForms*>(gPlotForm[static_cast<std::size_t>(slot)].get());
        if (form == nullptr) {
            continue;
        }
        PictureBox& net = *form->picStereoArea;
        const bool wasShown = static_cast<bool>(net.onOverlay);
        net.onOverlay = {};
        if (slot == gActivePlot && rotation_->HasPreview()) {
            net.onOverlay = [this](Surface& surface) { rotation_->DrawPreview(surface); };
        }
        if (wasShown || net.onOverlay) {
            net.update();
        }
    }
}

void PlotDialogs::ToggleClassification() {
    if (QDialog* dialog = ClassDialog(); IsShown(dialog)) {
        dialog->close();
    } else if (IsRoseActive()) {
        ShowRose();
    } else if (IsOpenSlot(gActivePlot)) {
        if (classification_ == nullptr) {
            classification_ = new frmDataClassification(&window_);
        }
        FollowInClassification();
        Show(*classification_);
    }
}

void PlotDialogs::FollowInClassification() {
    classification_->setWindowTitle("Data Classification: Plot " + QString::number(gActivePlot));
    classification_->FollowActivePlot();
}

QDialog* PlotDialogs::ClassDialog() const {
    return IsRoseActive() ? static_cast<QDialog*>(rose_) : classification_;
}

bool PlotDialogs::IsClassificationShown() const {
    return IsShown(ClassDialog());
}

void PlotDialogs::FollowActivePlot() {
    const bool isRose = IsRoseActive();
    if (IsShown(rose_)) {
        isRose ? rose_->FollowActivePlot() : static_cast<void>(rose_->close());
    }
    if (IsShown(classification_)) {
        if (IsOpenSlot(gActivePlot) && !isRose) {
            FollowInClassification();
        } else {
            classification_->close();
        }
    }
    if (IsShown(rotation_)) {
        IsOpenSlot(gActivePlot) ? rotation_->FollowActivePlot()
                                : static_cast<void>(rotation_->close());
    }
}

bool PlotDialogs::eventFilter(QObject* object, QEvent* event) {
    if (object == rotation_ && event->type() == QEvent::Hide) {
        ShowHint({});
    }
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide) {
        changed_();
    }
    return QObject::eventFilter(object, event);
}

} // namespace quandrel

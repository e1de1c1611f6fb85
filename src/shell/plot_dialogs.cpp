// SPDX-License-Identifier: MIT

#include "shell/plot_dialogs.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "shell/frm_data_classification.h"
#include "shell/frm_rose_diag.h"

#include <QEvent>

namespace quandrel {

namespace {

bool IsRoseActive() {
    return IsOpenSlot(gActivePlot) && ActiveRecord().PlotKind == kRose;
}

bool IsShown(const QDialog* dialog) {
    return dialog != nullptr && dialog->isVisible();
}

} // namespace

PlotDialogs::PlotDialogs(QWidget& window, std::function<void()> changed)
    : window_(window)
    , changed_(std::move(changed)) {}

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
}

bool PlotDialogs::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide) {
        changed_();
    }
    return QObject::eventFilter(object, event);
}

} // namespace quandrel

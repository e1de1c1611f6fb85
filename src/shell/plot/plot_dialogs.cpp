// SPDX-License-Identifier: MIT

#include "shell/plot/plot_dialogs.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "shell/classes/frm_data_classification.h"
#include "shell/controls/picture_box.h"
#include "shell/dialogs/frm_confidence_regions.h"
#include "shell/dialogs/frm_densities.h"
#include "shell/dialogs/frm_fabric_plots.h"
#include "shell/dialogs/frm_rotation_menu.h"
#include "shell/dialogs/frm_small_circle.h"
#include "shell/dialogs/frm_statistical_tests.h"
#include "shell/files/frm_figure_sheet.h"
#include "shell/plot/frm_plot_forms.h"
#include "shell/plot/net_mouse.h"
#include "shell/rose/frm_rose_diag.h"

#include <QEvent>
#include <QMouseEvent>

namespace quandrel {

namespace {

// Distance between a dialog and the window's edges, logical pixels: the second clears the menus and
// the tool strip.
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
                         std::function<void(int tab)> preferences)
    : window_(window)
    , changed_(std::move(changed))
    , preferences_(std::move(preferences)) {
    OpenState::now.sheets = this;
}

PlotDialogs::~PlotDialogs() {
    if (OpenState::now.sheets == this) {
        OpenState::now.sheets = nullptr;
    }
}

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
        rose_ = new frmRoseDiag(&window_, preferences_);
    }
    rose_->FollowActivePlot();
    Show(*rose_);
}

void PlotDialogs::PlaceBesideNet(QDialog& dialog) const {
    dialog.adjustSize();
    const QRect room = window_.geometry();
    dialog.move(room.right() - dialog.width() - kGapToEdge, room.top() + kGapToTop);
}

void PlotDialogs::ShowRotation() {
    if (!IsOpenSlot(gActivePlot)) {
        return;
    }
    if (rotation_ == nullptr) {
        rotation_ = new frmRotationMenu(&window_, [] { NetMouse::UpdateOverlays(); });
        PlaceBesideNet(*rotation_);
    }
    Show(*rotation_);
}

bool PlotDialogs::IsRoseShown() const {
    return IsShown(rose_);
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

QString PlotDialogs::HintAt(const frmPlotForms& form, Point at, const QMouseEvent& event) const {
    const bool isHinted = IsShown(rotation_) && form.Slot() == gActivePlot && !gBusy;
    return isHinted ? rotation_->HintAt(at, event.modifiers()) : QString();
}

void PlotDialogs::DrawPreview(Surface& surface, int slot) const {
    if (rotation_ != nullptr && slot == gActivePlot && rotation_->HasPreview()) {
        rotation_->DrawPreview(surface);
    }
    if (densities_ != nullptr && slot == gActivePlot) {
        densities_->DrawMark(surface);
    }
}

void PlotDialogs::ShowSmallCircles() {
    if (!IsOpenSlot(gActivePlot) || IsRoseActive()) {
        return;
    }
    if (circles_ == nullptr) {
        circles_ = new frmSmallCircle(&window_);
        PlaceBesideNet(*circles_);
    }
    circles_->FollowActivePlot();
    Show(*circles_);
}

void PlotDialogs::ShowRegions() {
    if (!IsOpenSlot(gActivePlot) || IsRoseActive()) {
        return;
    }
    if (regions_ == nullptr) {
        regions_ = new frmConfidenceRegions(&window_, [this] { changed_(); });
        PlaceBesideNet(*regions_);
    }
    Show(*regions_);
}

void PlotDialogs::ShowTests() {
    if (!IsOpenSlot(gActivePlot)) {
        return;
    }
    if (tests_ == nullptr) {
        tests_ = new frmStatisticalTests(&window_);
        PlaceBesideNet(*tests_);
    }
    Show(*tests_);
}

void PlotDialogs::FollowSmallCircles() {
    if (IsShown(circles_)) {
        circles_->Refresh();
    }
}

void PlotDialogs::ShowDensities() {
    if (!IsOpenSlot(gActivePlot)) {
        return;
    }
    if (densities_ == nullptr) {
        densities_ = new frmDensities(
            &window_, [this] { changed_(); }, [] { NetMouse::UpdateOverlays(); },
            [this] { GoToNet(); });
        PlaceBesideNet(*densities_);
    }
    Show(*densities_);
}

void PlotDialogs::GoToNet() {
    auto& form = static_cast<frmPlotForms&>(FormOf(gActivePlot));
    window_.activateWindow();
    form.Raise();
    form.picStereoArea->setFocus();
}

void PlotDialogs::ShowFabric() {
    if (!IsOpenSlot(gActivePlot)) {
        return;
    }
    if (fabric_ == nullptr) {
        fabric_ = new frmFabricPlots(&window_);
    }
    Show(*fabric_);
}

void PlotDialogs::ShowFigureSheet() {
    if (sheet_ == nullptr) {
        sheet_ = new frmFigureSheet(&window_);
    }
    Show(*sheet_);
}

bool PlotDialogs::OpensSheet(const std::function<bool()>& open) {
    const bool wasShown = IsShown(sheet_);
    ShowFigureSheet();
    const bool isOpened = open();
    if (!isOpened && !wasShown) {
        sheet_->close();
    }
    return isOpened;
}

bool PlotDialogs::OpenSheet(const std::string& path) {
    return OpensSheet([&] { return sheet_->Open(path); });
}

bool PlotDialogs::OpenSheetOfPicture(const std::string& path, const std::string& text) {
    return OpensSheet([&] { return sheet_->OpenOfPicture(path, text); });
}

std::optional<std::string> PlotDialogs::SavedSheet() {
    return IsShown(sheet_) ? sheet_->SavedFile() : std::string();
}

bool PlotDialogs::CloseFigureSheet() {
    return !IsShown(sheet_) || sheet_->close();
}

void PlotDialogs::ToggleClassification() {
    if (QDialog* dialog = ClassDialog(); IsShown(dialog)) {
        dialog->close();
    } else if (IsRoseActive()) {
        ShowRose();
    } else if (IsOpenSlot(gActivePlot)) {
        if (classification_ == nullptr) {
            classification_ = new frmDataClassification(&window_, preferences_);
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
    if (IsShown(regions_)) {
        IsOpenSlot(gActivePlot) ? regions_->FollowActivePlot()
                                : static_cast<void>(regions_->close());
    }
    if (IsShown(tests_)) {
        IsOpenSlot(gActivePlot) ? tests_->FollowActivePlot() : static_cast<void>(tests_->close());
    }
    if (IsShown(circles_)) {
        IsOpenSlot(gActivePlot) ? circles_->FollowActivePlot()
                                : static_cast<void>(circles_->close());
    }
    if (IsShown(fabric_)) {
        IsOpenSlot(gActivePlot) ? fabric_->FollowActivePlot() : static_cast<void>(fabric_->close());
    }
    if (IsShown(densities_)) {
        IsOpenSlot(gActivePlot) ? densities_->FollowActivePlot()
                                : static_cast<void>(densities_->close());
    }
}

bool PlotDialogs::eventFilter(QObject* object, QEvent* event) {
    if (object == rotation_ && event->type() == QEvent::Hide) {
        NetMouse::UpdateOverlays();
    }
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide) {
        changed_();
    }
    return QObject::eventFilter(object, event);
}

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// The rotation dialog: takes the values of a rotation, shows a preview of the rotated rows of the
// active plot, and rotates them. It stays open beside the plots and follows the active one. Only
// "Rotate Plot" changes a plot.
//
// optRotate[i] is the operation i + 1. txtRotAngle and lblRotMenu use the indices of RotationBoxes:
// inclination, azimuth, angle or new strike, pitch. lblRotMenu[4] belongs to txtRotAngleSense.

#pragma once

#include "platform/surface.h"
#include "rotation/rotation_pick.h"
#include "rotation/rotation_settings.h"

#include <QDialog>

#include <array>
#include <functional>
#include <optional>
#include <vector>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QValidator;

namespace quandrel {

class frmRotationMenu : public QDialog {
public:
    /// @param previewChanged  called when the results of HasPreview or DrawPreview change
    explicit frmRotationMenu(QWidget* parent, std::function<void()> previewChanged = {});
    ~frmRotationMenu() override;

    frmRotationMenu(const frmRotationMenu&) = delete;
    frmRotationMenu& operator=(const frmRotationMenu&) = delete;

    /// Sets gActivePlot as the plot of the dialog. The boxes keep their contents. Does nothing
    /// while the dialog is hidden.
    void FollowActivePlot();

    /// True while there is a preview of rotated rows.
    [[nodiscard]] bool HasPreview() const { return !preview_.empty(); }

    /// Draws the preview of the rotated rows of gActivePlot.
    ///
    /// @param surface  in plot scale; its state is restored
    void DrawPreview(Surface& surface) const;

    /// Fills the focused boxes from a position on the net of gActivePlot.
    ///
    /// @param at    plot units
    /// @param keys  the keys held down
    void TakePick(Point at, Qt::KeyboardModifiers keys);

    /// The values that a press would put into the boxes; empty if it would do nothing.
    [[nodiscard]] QString HintAt(Point at, Qt::KeyboardModifiers keys) const;

    /// Rotates the plot and closes the dialog. If the rotation is refused, the user sees the reason
    /// and the dialog stays open.
    void Go();

    std::array<QRadioButton*, 5> optRotate{};
    QCheckBox* chkUnfoldOption = nullptr;
    std::array<QGroupBox*, 3> fraRotMenu{}; ///< orientation, angle, horizontal line
    std::array<QLabel*, 5> lblRotMenu{};
    std::array<QLineEdit*, 4> txtRotAngle{};
    QLineEdit* txtRotAngleSense = nullptr;
    QLabel* lblRotInfo = nullptr;
    QLabel* lblRotStatus = nullptr; ///< the values still missing
    std::array<QPushButton*, 2> cmdRotGo{};

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void MakeControls();
    [[nodiscard]] QGroupBox* MakeOptions();
    void MakeBoxes();
    [[nodiscard]] QWidget* MakeFrames();
    void MakeTexts();
    [[nodiscard]] QWidget* MakeButtons();
    void SetOrder();
    void Connect();

    void Load();
    void ShowOptions();
    void ShowOption(int operation);
    void LimitNewStrike(bool limited);
    void OptionClicked(int operation);
    void Changed();
    void RefreshPreview(const RotationSettings& settings);
    void ClearPreview();
    [[nodiscard]] int Operation() const;
    [[nodiscard]] RotationSettings Settings() const;
    [[nodiscard]] std::optional<RotationPick> PickAt(Point at, Qt::KeyboardModifiers keys) const;

    std::function<void()> previewChanged_;
    std::vector<Point> preview_;
    QValidator* upToFullTurn_ = nullptr;
    bool loading_ = false; ///< the program is setting the controls
};

} // namespace quandrel

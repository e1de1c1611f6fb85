// SPDX-License-Identifier: MIT
//
// The rotation dialog: takes the values of a rotation, shows beforehand where the rows of the
// active plot would go, and rotates them. It stays open beside the plots and follows the active
// one; a plot changes by "Rotate Plot" alone.
//
// optRotate[i] stands for the operation i + 1. txtRotAngle and lblRotMenu have the numbers of
// RotationBoxes: inclination, azimuth, angle or new strike, pitch; lblRotMenu[4] belongs to
// txtRotAngleSense.

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
    /// @param previewChanged  called when HasPreview or DrawPreview give something else than before
    explicit frmRotationMenu(QWidget* parent, std::function<void()> previewChanged = {});
    ~frmRotationMenu() override;

    frmRotationMenu(const frmRotationMenu&) = delete;
    frmRotationMenu& operator=(const frmRotationMenu&) = delete;

    /// Works for gActivePlot from now on. What the boxes hold stays. Does nothing while the dialog
    /// is not shown.
    void FollowActivePlot();

    /// True while there are rows to show at their new places.
    [[nodiscard]] bool HasPreview() const { return !preview_.empty(); }

    /// Draws the rows of gActivePlot at their new places.
    ///
    /// @param surface  in plot scale; its state is left as it was
    void DrawPreview(Surface& surface) const;

    /// Fills the boxes in focus from a place of the net of gActivePlot.
    ///
    /// @param at    plot units
    /// @param keys  that are held down
    void TakePick(Point at, Qt::KeyboardModifiers keys);

    /// What a press would put into the boxes; empty when it would do nothing.
    [[nodiscard]] QString HintAt(Point at, Qt::KeyboardModifiers keys) const;

    /// Rotates the plot and closes the dialog. What is refused is told, and the dialog stays.
    void Go();

    std::array<QRadioButton*, 5> optRotate{};
    QCheckBox* chkUnfoldOption = nullptr;
    std::array<QGroupBox*, 3> fraRotMenu{}; ///< orientation, angle, horizontal line
    std::array<QLabel*, 5> lblRotMenu{};
    std::array<QLineEdit*, 4> txtRotAngle{};
    QLineEdit* txtRotAngleSense = nullptr;
    QLabel* lblRotInfo = nullptr;
    QLabel* lblRotStatus = nullptr; ///< what the boxes still lack
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
    void ShowLabels(const RotationOption& option);
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
    bool loading_ = false; ///< controls are being set by the program
};

} // namespace quandrel

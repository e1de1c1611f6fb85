// SPDX-License-Identifier: MIT
//
// The dialog of the small circles of the active plot. It stays open beside the plots and follows
// the active one. Each change in the dialog changes the plot at once.
//
// Sets run from 1 to kUserCircles, boxes from 1 to kCircleBoxes: plunge and azimuth of the axis,
// and the angle, of the first set, then those of the next. Style, colour and width belong to the
// current set.

#pragma once

#include "edit/marks/small_circles.h"

#include <QDialog>

#include <array>
#include <cstddef>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QSlider;

namespace quandrel {

class LinePatch;
class StylePatch;

inline constexpr std::size_t kCircleLineStyles = 5; ///< solid to dash-dot-dot
inline constexpr std::size_t kCircleColours = 25;

class frmSmallCircle : public QDialog {
public:
    explicit frmSmallCircle(QWidget* parent);

    /// Sets gActivePlot as the plot of the dialog. A pick on another plot ends. Does nothing while
    /// the dialog is hidden.
    void FollowActivePlot();

    /// Shows the current small circles of the active plot. Called after a press, a move and a
    /// release of the mouse on the plot, and after Esc there.
    void Refresh();

    /// The slot of the dialog's plot; 0 if no plot shows small circles.
    [[nodiscard]] int ActiveForm() const;

    /// The set that is being picked on the plot, 0 for none.
    [[nodiscard]] int SmallCircleFocus() const;

    /// The box that had the keyboard focus last.
    [[nodiscard]] int TextBoxIndex() const { return box_; }

    /// Shows or hides a set to match its check box. If it cannot be drawn, the user sees the
    /// reason.
    void DrawSmallCircle(int set);

    /// Stores the contents of a box.
    void SetSmallCircleObject(int box);

    /// Shows the stored value in a box.
    void SetFocusText(int box);

    /// Enables the controls if the plot can have small circles, and shows the style of the current
    /// set.
    void ActivateSmallCircleSettings();

    /// Makes a set the current one.
    void ChooseCircleSet(int set);

    /// Starts setting a set with the mouse on the active plot.
    void PickWithMouse(int set);

    /// Esc: ends the pick, or closes the dialog if there is none.
    void reject() override;

    std::array<QLineEdit*, kCircleBoxes> txtSmallCircle{};    ///< [box - 1]
    std::array<QCheckBox*, kUserCircles> chkSmallCircle{};    ///< [set - 1]
    std::array<LinePatch*, kUserCircles> picSmallCircle{};    ///< [set - 1], its line
    std::array<StylePatch*, kCircleColours> picColour{};      ///< by index of gColourTable
    std::array<LinePatch*, kCircleLineStyles> picLineStyle{}; ///< by DrawStyle
    QGroupBox* fraLine;
    QSlider* sldLineWidth;
    QLabel* lblLineWidth;
    QLabel* lblHint;
    QPushButton* cmdClose;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    [[nodiscard]] QGroupBox* MakeCircles();
    [[nodiscard]] QGroupBox* MakeLine();
    [[nodiscard]] QLayout* MakeColours();
    [[nodiscard]] QLayout* MakeLineStyles();
    [[nodiscard]] QLayout* MakeLineWidth();
    void SetOrder();
    void Connect();
    void ShowVerdict(int box);
    void ChangeStyle(const CircleStyle& style);
    [[nodiscard]] int BoxOf(const QObject* control) const; ///< 0 for none
    [[nodiscard]] int SetOf(const QObject* control) const; ///< 0 for none

    int slot_ = 0; ///< the plot that is shown
    int set_ = 1;  ///< the current set
    int box_ = 1;
};

} // namespace quandrel

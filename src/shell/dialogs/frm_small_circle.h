// SPDX-License-Identifier: MIT
//
// The dialog of the small circles of the active plot. It stays open beside the plots and follows
// the active one; what is changed in it is changed in the plot at once.
//
// Sets run from 1 to kUserCircles, boxes from 1 to kCircleBoxes: plunge and azimuth of the axis,
// and angle, of the first set, then those of the next. Style, colour and width are those of one
// set, the current one.

#pragma once

#include "edit/marks/small_circles.h"

#include <QDialog>

#include <array>
#include <cstddef>

class QCheckBox;
class QGroupBox;
class QLabel;
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

    /// Works for gActivePlot from now on. Picking on another plot ends. Does nothing while the
    /// dialog is not shown.
    void FollowActivePlot();

    /// Shows the active plot's small circles as they are now: called after a press, a move and a
    /// release of the mouse on the plot, and after Esc there.
    void Refresh();

    /// The slot that the dialog works for; 0 without one that shows small circles.
    [[nodiscard]] int ActiveForm() const;

    /// The set that the mouse is to set on the plot, 0 for none.
    [[nodiscard]] int SmallCircleFocus() const;

    /// The box that had the keys last.
    [[nodiscard]] int TextBoxIndex() const { return box_; }

    /// Draws or wipes a set, as its box is ticked. Why it cannot be drawn is told.
    void DrawSmallCircle(int set);

    /// Stores what stands in a box.
    void SetSmallCircleObject(int box);

    /// Shows in a box what its set holds.
    void SetFocusText(int box);

    /// Lets the controls be used where there are small circles, and shows the current set's style.
    void ActivateSmallCircleSettings();

    /// Makes a set the one whose style is shown and changed.
    void ChooseCircleSet(int set);

    /// Lets the mouse set a set on the active plot.
    void PickWithMouse(int set);

    /// Esc: ends the picking, or closes the dialog when there is none.
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
    void SetOrder();
    void Connect();
    void ShowVerdict(int box);
    void ChangeStyle(const CircleStyle& style);
    [[nodiscard]] int BoxOf(const QObject* control) const; ///< 0 for none
    [[nodiscard]] int SetOf(const QObject* control) const; ///< 0 for none

    int slot_ = 0; ///< the plot shown
    int set_ = 1;  ///< the current one
    int box_ = 1;
};

} // namespace quandrel

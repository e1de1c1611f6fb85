// SPDX-License-Identifier: MIT
//
// The common parts of all windows: functions that create a control with a name, a caption and a tip
// in one line, and the order in which Tab visits the controls.
//
// Input: captions, tips and names from the tables of a window. Output: new controls without a
// parent, which the layout of the window takes over. This folder does not use any room above it. It
// also holds the picture box, icons, notes, the colours of faint and invalid texts, and the rules
// for all buttons and all text boxes.

#pragma once

#include <QString>

#include <array>
#include <concepts>
#include <cstddef>
#include <ranges>

class QAbstractButton;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QWidget;

namespace quandrel {

/// The caption and the tip of a control.
struct ControlText {
    const char* caption;
    const char* tip;
};

/// The object name of one control of an array: "optScale_1".
[[nodiscard]] QString Numbered(const char* name, std::integral auto index) {
    return QString("%1_%2").arg(name).arg(index);
}

/// A plain-text label. Its text is never interpreted as rich text.
///
/// @param name   its object name; empty if no code looks for the label
/// @param buddy  the control that its mnemonic activates, or null
[[nodiscard]] QLabel* MakeLabel(const QString& text, const QString& name = {},
                                QWidget* buddy = nullptr);

/// A frame with a title.
[[nodiscard]] QGroupBox* MakeGroup(const QString& name, const QString& title = {});

[[nodiscard]] QCheckBox* MakeCheck(const QString& name, const QString& caption, const QString& tip);

[[nodiscard]] QPushButton* MakeButton(const QString& name, const QString& caption,
                                      const QString& tip);

/// One option of a group.
///
/// @param id  the id of the option in the group
[[nodiscard]] QRadioButton* MakeOption(const QString& name, const ControlText& text,
                                       QButtonGroup* group, int id);

/// An empty list.
[[nodiscard]] QComboBox* MakeList(const QString& name, const QString& accessibleName);

/// Makes a button one cell in a choice of drawn cells: the button becomes checkable, and its text
/// serves screen readers and is its tip.
void NameCell(QAbstractButton& cell, const QString& name, const QString& text);

/// Keeps the space of a control while it is hidden, so that the window keeps its size.
void KeepRoomWhenHidden(QWidget& control);

/// The order in which Tab visits the controls of a window.
class TabOrder {
public:
    /// Adds a control after the one that was added last. Null is ignored.
    TabOrder& Then(QWidget* control);

    /// Adds the controls of an array in their order.
    template <std::ranges::range Controls>
    TabOrder& Then(const Controls& controls) {
        for (QWidget* control : controls) {
            Then(control);
        }
        return *this;
    }

private:
    QWidget* last_ = nullptr;
};

} // namespace quandrel

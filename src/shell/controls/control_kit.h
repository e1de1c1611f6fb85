// SPDX-License-Identifier: MIT
//
// What the windows of all rooms are made of: controls with a name, a caption and a tip, made in one
// line, and the order in which Tab visits them.
//
// Enters: captions, tips and names from the tables of a window. Leaves: new controls without a
// parent, which the layout of the window takes, and nothing else; no room above is known here. The
// rest of the folder is used alike: the picture box, icons, notes, the colours of faint and bad
// texts, what holds for all buttons and all boxes for text.

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

/// What the user reads on a control, and in its tip.
struct ControlText {
    const char* caption;
    const char* tip;
};

/// The object name of one control of an array: "optScale_1".
[[nodiscard]] QString Numbered(const char* name, std::integral auto index) {
    return QString("%1_%2").arg(name).arg(index);
}

/// A label of plain text, which is never taken for text with formatting.
///
/// @param name   its object name; empty for a label that nobody looks for
/// @param buddy  the control that its mnemonic leads to, or null
[[nodiscard]] QLabel* MakeLabel(const QString& text, const QString& name = {},
                                QWidget* buddy = nullptr);

/// A frame with a title.
[[nodiscard]] QGroupBox* MakeGroup(const QString& name, const QString& title = {});

[[nodiscard]] QCheckBox* MakeCheck(const QString& name, const QString& caption, const QString& tip);

[[nodiscard]] QPushButton* MakeButton(const QString& name, const QString& caption,
                                      const QString& tip);

/// One option of a group.
///
/// @param id  what the group calls it by
[[nodiscard]] QRadioButton* MakeOption(const QString& name, const ControlText& text,
                                       QButtonGroup* group, int id);

/// An empty list.
[[nodiscard]] QComboBox* MakeList(const QString& name, const QString& accessibleName);

/// Makes a button one cell of a choice of drawn cells: it can be checked, and its text is read out
/// and shown as its tip.
void NameCell(QAbstractButton& cell, const QString& name, const QString& text);

/// Keeps the room of a control while it is hidden, so that its window keeps its size.
void KeepRoomWhenHidden(QWidget& control);

/// The order in which Tab visits the controls of a window.
class TabOrder {
public:
    /// The control comes after the one that was added before it. Null is passed over.
    TabOrder& Then(QWidget* control);

    /// The controls of an array come in their order.
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

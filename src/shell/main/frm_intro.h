// SPDX-License-Identifier: MIT
//
// The intro screen: how a session begins. It stands in the main window while no plot is open.

#pragma once

#include <QFrame>

#include <array>

class QPushButton;
class QVBoxLayout;

namespace quandrel {

class frmIntro : public QFrame {
    Q_OBJECT

public:
    explicit frmIntro(QWidget* parent);

    /// Shows the recent files, and whether roses can be drawn.
    void Refresh();

    std::array<QPushButton*, 3> cmdStart; ///< stereographic projection, rose diagram, blank plot

Q_SIGNALS:
    /// A start command: one of the three buttons, or a recent file.
    void StartWanted(int index);

private:
    QVBoxLayout* recent_;
};

} // namespace quandrel

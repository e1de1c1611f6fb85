// SPDX-License-Identifier: MIT
//
// The intro screen of a session. It is visible in the main window while no plot is open.

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

    /// Shows the recent files, and enables roses if they can be drawn.
    void Refresh();

    std::array<QPushButton*, 3> cmdStart; ///< stereographic projection, rose diagram, blank plot

Q_SIGNALS:
    /// A start command was chosen: one of the three buttons, or a recent file.
    void StartWanted(int index);

private:
    QVBoxLayout* recent_;
};

} // namespace quandrel

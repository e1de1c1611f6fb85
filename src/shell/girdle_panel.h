// SPDX-License-Identifier: MIT
//
// The girdle panel: the great circles laid over the active plot.

#pragma once

#include <QDockWidget>

#include <array>

class QCheckBox;
class QLineEdit;

namespace quandrel {

inline constexpr int kGirdleRows = 11;

class GirdlePanel : public QDockWidget {
public:
    explicit GirdlePanel(QWidget* parent);

    /// Shows the girdles of the active plot.
    void Refresh();

    std::array<QCheckBox*, kGirdleRows> chkGirdle;
    std::array<QLineEdit*, kGirdleRows> txtGirdle;
};

} // namespace quandrel

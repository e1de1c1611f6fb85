// SPDX-License-Identifier: MIT
//
// The girdle panel: the great circles of the active plot, one row each. Row 0 is the mean, rows 1
// to 8 are the user's, rows 9 and 10 are those of the statistics.

#pragma once

#include <QDockWidget>

#include <array>
#include <functional>

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace quandrel {

inline constexpr int kGirdleRows = 11;

class GirdlePanel : public QDockWidget {
public:
    explicit GirdlePanel(QWidget* parent);

    /// Shows the girdles of the active plot.
    void Refresh();

    /// Called to choose the styles of girdles. May be empty.
    std::function<void()> onStyle;

    /// Called after a girdle has changed. May be empty.
    std::function<void()> onChanged;

    /// Called when the user leaves a text with Esc; the plot then gets the focus. May be empty.
    std::function<void()> onLeave;

    QLabel* lblGirdle = nullptr; ///< the notation of the texts
    std::array<QCheckBox*, kGirdleRows> chkGirdle{};
    std::array<QLineEdit*, kGirdleRows> txtGirdle{};

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void AddRow(QGridLayout& grid, int row);
    void AddButtons(QGridLayout& grid);
    void Take(int row);
    void LeaveText(int row);
    void Tick(int row, bool on);
    void Changed();
    void MarkActiveRow();
};

} // namespace quandrel

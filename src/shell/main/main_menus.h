// SPDX-License-Identifier: MIT
//
// The menus of the main window: one set for a session with plots, and a short one for a session
// without plots.

#pragma once

#include <QList>
#include <QMenu>

#include <array>

class QMenuBar;
class QWidget;

namespace quandrel {

class Commands;

inline constexpr int kRecentItems = 6;

class MainMenus {
public:
    /// @param owner     the parent of the menus
    /// @param commands  the actions that the menus show; outlives the menus
    MainMenus(QWidget& owner, const Commands& commands);

    /// Fills the bar with the set for a session with or without plots.
    void FillBar(QMenuBar& bar, bool hasPlots) const;

    void RefreshRecent() const;

    QMenu* mnuFile;
    QMenu* mnuEdit;
    QMenu* mnuPlot;
    QMenu* mnuView;
    QMenu* mnuPlotTypes; ///< in a session without plots
    QMenu* mnuMapInfoTop;
    QMenu* mnuWindow;
    QMenu* mnuHelps;
    std::array<QAction*, kRecentItems> mnuFilePrevious;

private:
    void MakeFileMenu(const Commands& commands);
    void MakeEditMenu(const Commands& commands);
    void MakePlotMenu(const Commands& commands);
    void MakeViewMenu(const Commands& commands);
    void MakeOtherMenus(const Commands& commands);
    [[nodiscard]] QMenu* MakeMenu(const char* name, const char* caption);

    QWidget& owner_;
};

} // namespace quandrel

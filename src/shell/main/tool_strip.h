// SPDX-License-Identifier: MIT
//
// The tool strip: buttons for the commands of the main window, and the slider of the grid.

#pragma once

#include <QToolBar>

class QSlider;

namespace quandrel {

class Commands;

class ToolStrip : public QToolBar {
public:
    /// @param commands  the actions of the buttons; outlives the strip
    explicit ToolStrip(const Commands& commands);

    /// Shows the engine's value on the slider.
    void ShowGrid();

    QWidget* panGridDensity;
    QSlider* sldGridDensity;

private:
    void AddButton(const Commands& commands, const char* name, const char* command);
    void AddGridSlider();
};

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// The tool strip: buttons for the commands of the main window, and the slider of the grid. Buttons
// that do not fit into the width of the window are in further rows.

#pragma once

#include <QToolBar>

#include <vector>

class QSlider;
class QToolButton;

namespace quandrel {

class Commands;

class ToolStrip : public QToolBar {
public:
    /// @param commands  the actions of the buttons; outlives the strip
    explicit ToolStrip(const Commands& commands);

    /// Shows the engine's value on the slider.
    void ShowGrid();

    /// Shows or hides the names below the buttons of files, rotation and classification.
    void ShowLabels(bool shown);

    QWidget* panGridDensity;
    QSlider* sldGridDensity;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void AddButton(const Commands& commands, const char* name, const char* command,
                   const char* label);
    void AddGap();
    void AddGridSlider();
    void FitRows();

    QWidget* rows_; ///< of all buttons
    std::vector<QToolButton*> labelled_;
};

} // namespace quandrel

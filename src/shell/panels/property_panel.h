// SPDX-License-Identifier: MIT
//
// The panel of the properties of a layer of the plot in focus.

#pragma once

#include "core/record_figure.h"
#include "edit/history/undo.h"

#include <QDockWidget>

#include <functional>
#include <optional>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QSlider;
class QSpinBox;

namespace quandrel {

class PropertyPanel : public QDockWidget {
public:
    /// @param done  called after an edit of the plot
    PropertyPanel(QWidget* parent, std::function<void()> done);

    /// Shows the properties of a layer of a plot; none for an empty place.
    void Follow(int slot, std::optional<std::size_t> place);

    QLabel* lblLayer;
    QLineEdit* txtName;
    QComboBox* cboShape;
    QDoubleSpinBox* spnSize;
    QDoubleSpinBox* spnHalo;
    QPushButton* cmdColour;
    QPushButton* cmdStyleColour;
    QSlider* sldOpacity;
    QPushButton* cmdStyleOpacity;
    QDoubleSpinBox* spnWidth;
    QComboBox* cboLine;
    QComboBox* cboPalette;
    QSpinBox* spnSteps;
    QCheckBox* chkLabels;
    QPushButton* cmdDefault;

private:
    void MakeFields();
    void AddFields(QFormLayout& form);
    void Connect();
    void Show(const FigureLayer& layer);
    void ShowColour(const FigureLayer& layer);
    void ChooseColour();
    void Take(const std::function<void(FigureLayer&)>& change, EditRun run = EditRun::Alone);

    std::function<void()> done_;
    QWidget* fields_ = nullptr;
    QFormLayout* form_ = nullptr;
    int slot_ = 0;
    std::optional<std::size_t> place_;
    bool isFilling_ = false;
    bool isDragged_ = false; ///< the slider has changed the layer since it was pressed
};

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// The panel of the data and the layers of the plot in focus, beside the plots, or of the entries in
// the legend of a rose. What it lists and what its commands do is in panels/.
//
// This room holds the panels that are docked to the main window.
// Input: the plot in focus, and what the user does in a panel.
// Output: edits of its layers.

#pragma once

#include "core/record_figure.h"

#include <QDockWidget>
#include <QTreeWidget>

#include <functional>
#include <optional>

namespace quandrel {

/// What the panel asks the window to do.
struct LayerPanelSigns {
    std::function<void()> done;             ///< after an edit of the plot
    std::function<void()> chosen;           ///< another line is the current one
    std::function<void()> propertiesWanted; ///< of the current layer
};

/// The tree, whose layers can be dragged.
class LayerTreeWidget : public QTreeWidget {
public:
    /// @param moved  takes the places of the layer that was dragged and of the one it was dropped
    /// on
    explicit LayerTreeWidget(std::function<void(std::size_t from, std::size_t to)> moved);

    /// Whether a name is being typed.
    [[nodiscard]] bool IsEditing() const { return state() == EditingState; }

protected:
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::function<void(std::size_t, std::size_t)> moved_;
};

class LayerPanel : public QDockWidget {
public:
    LayerPanel(QWidget* parent, LayerPanelSigns signs);

    /// Shows the layers of a plot; 0 for none.
    void Follow(int slot);

    /// The place of the current layer; empty when another line is the current one.
    [[nodiscard]] std::optional<std::size_t> Place() const;

    /// Makes a layer the current line.
    void ChoosePlace(std::size_t place);

    /// Makes an entry in the legend of a rose the current line, whose words are then typed.
    void RenameEntry(const RoseName& entry);

    LayerTreeWidget* treLayers;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Fill();
    void AddLayers(QTreeWidgetItem& top);
    void AddData(QTreeWidgetItem& top);
    void AddEntries(QTreeWidgetItem& top);
    void TakeChange(QTreeWidgetItem& item);
    void TakeLayerChange(const QTreeWidgetItem& item, std::size_t place);
    void DoneLater();
    void TakeCurrent();
    void ShowMenu(const QPoint& at);
    void FillLayerMenu(class QMenu& menu, std::size_t place);
    void FillDataMenu(class QMenu& menu, const FigureLayer& of);
    void MoveBy(int step);
    void Done();

    LayerPanelSigns signs_;
    int slot_ = 0;
    bool isFilling_ = false;
};

} // namespace quandrel

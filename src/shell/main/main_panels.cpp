// SPDX-License-Identifier: MIT
//
// The panels beside the plots: their places, and what they follow.

#include "core/plot_store.h"
#include "core/settings_value.h"
#include "shell/main/geol_plot_main.h"
#include "shell/panels/layer_panel.h"
#include "shell/panels/property_panel.h"

#include <algorithm>

namespace quandrel {

void GeolPlotMain::MakePanels() {
    LayerPanelSigns signs;
    signs.done = [this] { UpdatePlotState(); };
    signs.chosen = [this] { FollowPanels(); };
    signs.propertiesWanted = [this] {
        panProperties_->show();
        UpdatePlotState();
    };
    panLayers_ = new LayerPanel(this, std::move(signs));
    panProperties_ = new PropertyPanel(this, [this] { UpdatePlotState(); });
    addDockWidget(Qt::LeftDockWidgetArea, panLayers_);
    addDockWidget(Qt::RightDockWidgetArea, panProperties_);
    const WindowSettings& kept = gSettings.windows;
    resizeDocks({panLayers_, panProperties_}, {kept.layerWidth, kept.propertyWidth},
                Qt::Horizontal);
    panLayers_->setVisible(kept.layerPanel);
    panProperties_->setVisible(kept.propertyPanel);
}

void GeolPlotMain::FollowPanels() {
    const int slot = CountOpenPlots() > 0 && IsOpenSlot(gActivePlot) ? gActivePlot : 0;
    if (!panLayers_->isHidden()) {
        panLayers_->Follow(slot);
    }
    if (!panProperties_->isHidden()) {
        panProperties_->Follow(slot, panLayers_->isHidden() ? std::nullopt : panLayers_->Place());
    }
}

void GeolPlotMain::KeepPanels() {
    WindowSettings& kept = gSettings.windows;
    const auto keep = [](const QDockWidget& panel, bool& isShown, std::int16_t& width) {
        isShown = !panel.isHidden();
        if (isShown) {
            width = static_cast<std::int16_t>(std::min(panel.width(), 2000));
        }
    };
    keep(*panLayers_, kept.layerPanel, kept.layerWidth);
    keep(*panProperties_, kept.propertyPanel, kept.propertyWidth);
}

} // namespace quandrel

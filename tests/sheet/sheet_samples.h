// SPDX-License-Identifier: MIT
//
// Figure sheets of plots that are in no file.

#pragma once

#include "core/plot_style.h"
#include "platform/scripted/recording_surface.h"
#include "sheet/sheet_content.h"
#include "sheet/sheet_layout.h"
#include "support/slotless_plots.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <vector>

namespace quandrel {

/// A sheet with its contents, as ContentOf gives them for files.
struct SampleSheet {
    FigureSheet sheet;
    std::vector<PanelContent> contents;
    Styles styles = StartStyles();

    void AddPlot(std::int16_t kind, std::int32_t seed, const std::string& title = {}) {
        Plot plot = SlotlessPlot(kind, kPointSymbols, seed);
        WorkOutPlot(plot, {ReplotCause::Rows, styles, Formulas::Own, 20});
        SheetPanel& panel = sheet.panels.emplace_back();
        panel.data = "of the test";
        panel.title = title;
        contents.push_back({std::make_shared<const Plot>(std::move(plot)), {}, "Plot"});
    }

    void AddFabric(std::int32_t seed) {
        AddPlot(kEqualArea, seed);
        sheet.panels.back().kind = PanelKind::Fabric;
        Plot plot = SlotlessPlot(kEqualArea, kPointSymbols, seed);
        const std::array<Plot*, 1> plots = {&plot};
        contents.back().fabrics =
            FabricPointsOf(plots, styles, kRegionsOfPlot | kRegionsOfOverlays);
    }

    void AddText(const std::string& text, PanelKind kind = PanelKind::Text) {
        SheetPanel& panel = sheet.panels.emplace_back();
        panel.kind = kind;
        panel.text = text;
        contents.emplace_back();
    }

    [[nodiscard]] SheetLook Look() const {
        return {styles, StyleOfChoice({sheet.style, {}}), Formulas::Own};
    }

    [[nodiscard]] Result<SheetLayout> Layout() {
        RecordingSurface unseen(100, 100);
        return LayOutSheet(sheet, contents, Look(), unseen);
    }
};

} // namespace quandrel

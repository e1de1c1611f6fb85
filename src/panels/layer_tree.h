// SPDX-License-Identifier: MIT
//
// The layers and the data of a plot, as a panel lists them, and the properties that a layer has.
//
// This folder holds the rules of the panels beside the plots, without their windows: what they
// list, and what is done with it.
// Input: a plot, and what the user chose in a panel.
// Output: the lines of a panel as values, and edits of the layers that can be undone.

#pragma once

#include "core/plot.h"
#include "core/record_figure.h"
#include "core/styles.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace quandrel {

/// A layer as a line of a panel.
struct LayerLine {
    FigureLayer layer;
    std::size_t place = 0; ///< in LayersOf, the lowest is 0
    std::string name;      ///< its own, or "Contours: beds.txt"
    std::int64_t rows = 0; ///< that are drawn; 0 for results and the net
    bool isPossible = true;
};

/// Data of rows as a line of a panel.
struct DataLine {
    FigureLayer data; ///< LayerOf and LayerIndex
    std::string name;
    std::int64_t rows = 0;
    bool isChosen = false; ///< the symbol buttons act on them
};

struct LayerTree {
    std::vector<LayerLine> layers; ///< the uppermost first
    std::vector<DataLine> data;    ///< main rows, secondary set, overlays, classes, selection
};

/// The tree of a net; empty for a rose.
///
/// @param styles  of the symbols of the plot
[[nodiscard]] LayerTree LayerTreeOf(const Plot& plot, const Styles& styles);

/// What a layer shows: "Great circles", "Contours", "Net".
[[nodiscard]] std::string NameOfWay(std::int16_t show);

/// The ways in which data can be shown, in the order of a menu.
[[nodiscard]] std::vector<std::int16_t> WaysOfData(const Plot& plot, const FigureLayer& data);

/// Which properties of a layer change its picture.
struct LayerProperties {
    bool symbol = false; ///< shape, size and halo
    bool colour = false;
    bool opacity = false;
    bool line = false;   ///< width and dashes
    bool bands = false;  ///< palette
    bool steps = false;  ///< even steps of densities
    bool labels = false; ///< numbers or texts at rows and lines
};

[[nodiscard]] LayerProperties PropertiesOfLayer(const FigureLayer& layer);

} // namespace quandrel

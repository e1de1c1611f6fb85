// SPDX-License-Identifier: MIT
//
// The commands of a figure: its style, its layers, and the words in the legend of a rose.

#pragma once

#include "batch/script.h"
#include "core/plot.h"
#include "core/result.h"
#include "core/style_choice.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <vector>

namespace quandrel {

/// The standard style of a name, in any case, or the style of a file: "Journal", "thesis.json".
[[nodiscard]] Result<StyleChoice> ReadStyle(const std::string& name);

/// Gives gActivePlot the style of a name, or of a file, and draws it: `style Journal`,
/// `style thesis.json`. If the style cannot be read, nothing changes. `style save thesis.json`
/// writes the plot's style into a file.
///
/// @return empty, or an error message
[[nodiscard]] std::string ApplyStyle(const Command& command);

/// The words that change the layers of gActivePlot.
[[nodiscard]] bool IsLayerChange(const Command& command);

/// Changes the layers of gActivePlot and draws it. Places count from 1, the lowest layer.
///
///     layer add main bands            adds it, below results and above other rows
///     layer add main symbols colour=#b02030 size=1.5 name="Poles to beds"
///     layer change 3 opacity=0.5 hidden=yes
///     layer move 3 1
///     layer remove 3
///     layer mode                      the layers of the plot's mode
///
/// @return empty, or an error message
[[nodiscard]] std::string ApplyLayerArguments(const Command& command);

/// Gives an entry in the legend of the rose gActivePlot other words, or without any its own again:
///
///     legend petals text="Strikes of faults"
///     legend class 2 text="Veins"           a class
///     legend petals 1 text="Speeds"         a layer of an overlaid rose, the top one is 0
///
/// @return empty, or an error message
[[nodiscard]] std::string NameLegendEntry(const Command& command);

/// The style and the layers of a plot, lowest first; the names of entries of a rose that has some.
[[nodiscard]] nlohmann::ordered_json FigureJson(const Plot& plot);

} // namespace quandrel

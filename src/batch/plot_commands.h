// SPDX-License-Identifier: MIT
//
// Commands that act on the active plot, like its menus and dialogs.

#pragma once

#include "batch/script.h"

#include <functional>
#include <iosfwd>
#include <string>

namespace quandrel {

struct PlotCommand {
    CommandShape shape;
    /// Acts on gActivePlot, which must be an open plot; `log` receives notes. Returns an error
    /// message, or nothing.
    std::function<std::string(const Command&, std::ostream& log)> act;
};

/// The command with a name, or null.
[[nodiscard]] const PlotCommand* FindPlotCommand(const std::string& name);

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Commands that do something to the active plot, as its menus and dialogs do.

#pragma once

#include "batch/script.h"

#include <functional>
#include <iosfwd>
#include <string>

namespace quandrel {

struct PlotCommand {
    CommandShape shape;
    /// Works on gActivePlot, which must be an open plot; `log` takes what is worth a note. Gives
    /// what is wrong, or nothing.
    std::function<std::string(const Command&, std::ostream& log)> act;
};

/// The command of a name, or null.
[[nodiscard]] const PlotCommand* FindPlotCommand(const std::string& name);

} // namespace quandrel

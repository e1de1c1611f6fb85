// SPDX-License-Identifier: MIT
//
// Inside: the program's outside, met through small interfaces (ports): prompts, status line,
// settings, clipboard, printers, windows of plots, surfaces to draw on, a session of a map program.
// Enters: one Platform record, filled at start by the window, the batch program or a test.
// Leaves: nothing; the engine reaches the outside through gPlatform alone, and nobody below it
// knows what is behind a port.

#pragma once

#include "platform/clipboard.h"
#include "platform/plot_form.h"
#include "platform/printer_port.h"
#include "platform/prompts.h"
#include "platform/settings_store.h"
#include "platform/status_line.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace quandrel {

struct Platform {
    Prompts* prompts = nullptr;
    StatusLine* status = nullptr;
    SettingsStore* settings = nullptr;
    Clipboard* clipboard = nullptr;
    PrinterPort* printers = nullptr;

    /// Makes the window of a slot.
    std::function<std::unique_ptr<PlotForm>(int slot)> makePlotForm;

    bool decimalIsComma = false; ///< the regional decimal delimiter
    std::string today;           ///< the date, for the settings

    unsigned threads = 0; ///< how many a step may use; 0 is one for each processor
    /// About how much of a text a thread takes at a time: its rows stay in the cache.
    std::size_t textBlockBytes = 32768;
};

/// The outside in use. Set before anything else of the engine is called.
extern Platform gPlatform;

/// How many threads a step may use, at least 1.
[[nodiscard]] unsigned ThreadsToUse();

} // namespace quandrel

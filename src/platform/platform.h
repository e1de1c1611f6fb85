// SPDX-License-Identifier: MIT
//
// The program's surroundings behind small interfaces (ports): prompts, status line, settings,
// clipboard, printers, windows of plots, surfaces to draw on, a session of a map program.
// Input: one Platform record, filled at start by the window, the batch program or a test.
// Output: none. The engine reaches its surroundings only through gPlatform, and does not know what
// implements a port.

#pragma once

#include "platform/clipboard.h"
#include "platform/link_window.h"
#include "platform/plot_form.h"
#include "platform/printer_port.h"
#include "platform/prompts.h"
#include "platform/settings_store.h"
#include "platform/status_line.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
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

    MapLinkPort mapLink;

    bool decimalIsComma = false; ///< the regional decimal delimiter
    std::string today;           ///< the date, for the settings

    unsigned threads = 0; ///< most threads that a step may use; 0 means one for each processor
    /// Approximate size of the parts of a text that threads take; their rows fit into the cache.
    std::size_t textBlockBytes = 32768;

    /// Largest number of rows of a column; exceeding it counts as out of memory.
    std::int32_t mostRows = std::numeric_limits<std::int32_t>::max() / 2;

    /// A load that takes longer shows its progress and can be cancelled.
    std::chrono::milliseconds timeWithoutProgress{200};
};

/// The platform in use. Set before any other call of the engine.
extern Platform gPlatform;

/// Number of threads that a step may use, at least 1.
[[nodiscard]] unsigned ThreadsToUse();

} // namespace quandrel

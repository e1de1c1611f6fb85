// SPDX-License-Identifier: MIT
//
// The program's outside, met through small interfaces. One Platform record is set at start and
// holds them all; the engine reaches the outside through gPlatform alone.

#pragma once

#include "platform/clipboard.h"
#include "platform/plot_form.h"
#include "platform/printer_port.h"
#include "platform/prompts.h"
#include "platform/settings_store.h"
#include "platform/status_line.h"

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
};

/// The outside in use. Set before anything else of the engine is called.
extern Platform gPlatform;

} // namespace quandrel

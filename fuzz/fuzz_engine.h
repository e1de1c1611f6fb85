// SPDX-License-Identifier: MIT
//
// The engine for targets that need a plot: started once for all inputs of a run.

#pragma once

#include "core/plot_store.h"
#include "core/replot.h"
#include "persistence/open_plot.h"
#include "platform/memory_settings_store.h"
#include "platform/platform.h"
#include "platform/scripted/memory_clipboard.h"
#include "platform/scripted/quiet_status_line.h"
#include "platform/scripted/recording_form.h"
#include "platform/scripted/scripted_prompts.h"
#include "session/start.h"

#include <cstdlib>
#include <memory>

namespace quandrel {

/// Aborts unless a condition on the code under test holds.
inline void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// Whether plots are drawn when they change.
enum class Drawings { None, All };

/// Starts the engine at the first call.
inline void UseEngine(Drawings drawings) {
    static QuietStatusLine status;
    static MemorySettingsStore settings;
    static MemoryClipboard clipboard;
    static const bool isReady = [drawings] {
        gPlatform = {};
        gPlatform.status = &status;
        gPlatform.settings = &settings;
        gPlatform.clipboard = &clipboard;
        gPlatform.makePlotForm = [](int) { return std::make_unique<RecordingForm>(); };
        InitialiseApplication();
        if (drawings == Drawings::None) {
            ConnectPlotDrawer({});
        }
        return true;
    }();
    (void)isReady;
}

/// Answers all boxes of one input. Scripted prompts record all questions, which would grow over a
/// run.
class ScriptedAnswers {
public:
    ScriptedAnswers() { gPlatform.prompts = &prompts_; }

    ~ScriptedAnswers() { gPlatform.prompts = nullptr; }

    ScriptedAnswers(const ScriptedAnswers&) = delete;
    ScriptedAnswers& operator=(const ScriptedAnswers&) = delete;

private:
    ScriptedPrompts prompts_{ScriptedPrompts::Mode::Batch};
};

/// Closes the active plot and opens a new one without rows.
inline void TakeFreshPlot() {
    if (IsOpenSlot(gActivePlot)) {
        ReleasePlotSlot(gActivePlot);
    }
    gActivePlot = FindFreePlotSlot();
    ResetPlotRecord(gActivePlot);
}

} // namespace quandrel

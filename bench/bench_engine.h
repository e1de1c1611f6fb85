// SPDX-License-Identifier: MIT
//
// An engine for a measurement: no prompts, no output, and the settings of a first run.

#pragma once

#include "core/plot_store.h"
#include "core/settings.h"
#include "platform/memory_settings_store.h"
#include "platform/platform.h"
#include "platform/scripted/quiet_status_line.h"
#include "platform/scripted/recording_form.h"
#include "platform/scripted/scripted_prompts.h"

#include <cstdint>
#include <memory>

namespace quandrel {

class BenchEngine {
public:
    BenchEngine() {
        gPlatform = {};
        gPlatform.prompts = &prompts_;
        gPlatform.status = &status_;
        gPlatform.settings = &settings_;
        gPlatform.makePlotForm = [](int) { return std::make_unique<RecordingForm>(); };
        LoadSettings();
        MakeStoreTables();
    }

    ~BenchEngine() {
        MakeStoreTables();
        gPlatform = {};
    }

    BenchEngine(const BenchEngine&) = delete;
    BenchEngine& operator=(const BenchEngine&) = delete;

protected:
    /// Opens a slot as the active plot, with this many main rows, which are not filled.
    static PlotRecord& NewPlot(std::int64_t rows) {
        gActivePlot = FindFreePlotSlot();
        ResetPlotRecord(gActivePlot);
        PlotRecord& record = ActiveRecord();
        record.NumData = record.NumValidData = record.NumLoadedData =
            static_cast<std::int32_t>(rows);
        return record;
    }

    /// NewPlot with room for the rows in the columns.
    static PlotRecord& NewPlotWithColumns(std::int64_t rows) {
        PlotRecord& record = NewPlot(rows);
        int secondary = 0;
        GrowDataColumns(secondary, record.NumData);
        return record;
    }

    ScriptedPrompts& Prompts() { return prompts_; }

private:
    ScriptedPrompts prompts_{ScriptedPrompts::Mode::Batch};
    QuietStatusLine status_;
    MemorySettingsStore settings_;
};

} // namespace quandrel

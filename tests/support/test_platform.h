// SPDX-License-Identifier: MIT
//
// A separate engine for each test: scripted prompts, settings in memory, forms that record.

#pragma once

#include "core/plot_store.h"
#include "core/settings.h"
#include "platform/memory_settings_store.h"
#include "platform/platform.h"
#include "platform/scripted/memory_clipboard.h"
#include "platform/scripted/quiet_status_line.h"
#include "platform/scripted/recording_form.h"
#include "platform/scripted/scripted_prompts.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

class EngineTest : public ::testing::Test {
protected:
    void SetUp() override {
        gPlatform = {};
        gPlatform.prompts = &prompts;
        gPlatform.status = &status;
        gPlatform.settings = &settings;
        gPlatform.clipboard = &clipboard;
        gPlatform.makePlotForm = [](int) { return std::make_unique<RecordingForm>(); };
        gPlatform.today = "2026-11-21";
        LoadSettings();
        gSettings.newPlots.style = {}; // Classic: other styles are chosen by the tests of them
        gDecimalIsComma = false;
        gConvertDecimals = false;
        MakeStoreTables();
        folder = std::filesystem::temp_directory_path()
                 / ("quandrel_test_" + std::to_string(::getpid()));
        std::filesystem::create_directories(folder);
    }

    void TearDown() override {
        EXPECT_EQ(prompts.Problems(), "");
        MakeStoreTables();
        gPlatform = {};
        std::filesystem::remove_all(folder);
    }

    /// Opens a slot as the active plot.
    int NewPlot() {
        const int slot = FindFreePlotSlot();
        EXPECT_GT(slot, 0);
        gActivePlot = slot;
        ResetPlotRecord(slot);
        return slot;
    }

    /// The next box must hold this text and gets this answer.
    void Expect(const std::string& fragment, Button answer = Button::Ok) {
        prompts.Expect(fragment, answer);
    }

    /// Makes the format dialog change the globals by `change` and be accepted; after `times` times
    /// it is cancelled.
    void AcceptFormat(const std::function<void(FormatAnswer&)>& change = {}, int times = 1) {
        formatQuestions.clear();
        prompts.OnFormat(
            [this, change, times](const FormatQuestion& question) -> std::optional<FormatAnswer> {
                formatQuestions.push_back(question);
                if (static_cast<int>(formatQuestions.size()) > times) {
                    return std::nullopt;
                }
                FormatAnswer answer;
                answer.plotSecondary = question.showSecondary;
                answer.columnHeadings = question.columnHeadings;
                if (change) {
                    change(answer);
                }
                return answer;
            });
    }

    std::vector<FormatQuestion> formatQuestions;

    /// Writes a file into the test's folder; returns its path.
    std::string WriteFile(const std::string& name, const std::string& bytes) const {
        const std::filesystem::path path = folder / name;
        std::ofstream(path, std::ios::binary) << bytes;
        return path.string();
    }

    static RecordingForm& Form(int slot) { return static_cast<RecordingForm&>(FormOf(slot)); }

    ScriptedPrompts prompts{ScriptedPrompts::Mode::Strict};
    QuietStatusLine status;
    MemorySettingsStore settings;
    MemoryClipboard clipboard;
    std::filesystem::path folder;
};

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "preferences/preferences.h"

#include "core/messages.h"
#include "core/plot_store.h"
#include "core/plot_style.h"
#include "core/setting_keys.h"
#include "core/settings_group.h"
#include "orientation/number_text.h"
#include "platform/platform.h"
#include "preferences/style_changes.h"
#include "session/recalculate.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace quandrel {

namespace {

constexpr std::array<const char*, 2> kPitchNames = {"pitch", "rake"};

/// The number of plots of the next run.
std::int16_t MaxPlotsInStore() {
    const std::string text = gPlatform.settings->Read(kApplicationName, kStartUp, kMaxPlotsKey, {});
    return MaxPlotsOf(text, gMaxPlots);
}

void UseGeneralOptions(const Settings& preferences) {
    gSettings.notation.pitchName = PitchNameOf(preferences.notation.pitchName);
    gPlotWidthPercent = PlotWidthOf(preferences.windows.plotWidthPercent);
    gPlotAspect = PlotAspectOf(static_cast<double>(preferences.windows.plotAspect));
    gPlotWinLast = preferences.windows.plotWinLast;
    gSettings.files.folder = preferences.files.folder;
    gConvertDecimals = preferences.notation.convertDecimals;
    gSettings.files.nonDataLines = preferences.files.nonDataLines;
    gSettings.newPlots.useDecimals = preferences.newPlots.useDecimals;
    gSettings.newPlots.style = preferences.newPlots.style;
}

/// Saves a number of plots for the next run; this run keeps its own.
[[nodiscard]] bool SaveMaxPlots(std::int16_t plots) {
    const std::int16_t inUse = gMaxPlots;
    gMaxPlots = std::clamp<std::int16_t>(plots, 1, kMostPlots);
    const bool saved = SaveSettings(SettingsGroup::PlotCount);
    gMaxPlots = inUse;
    return saved;
}

[[nodiscard]] bool AskToSaveMaxPlots() {
    Message question;
    question.title = gCaption;
    question.text = "Do you want to save the changes to the maximum number of plots?";
    question.icon = Icon::Question;
    question.buttons = Buttons::YesNo;
    return gPlatform.prompts->Ask(question) == Button::Yes;
}

/// False if the store could not be written.
[[nodiscard]] bool KeepMaxPlots(std::int16_t plots) {
    if (plots == MaxPlotsInStore() || !AskToSaveMaxPlots()) {
        return true;
    }
    if (!SaveMaxPlots(plots)) {
        return false;
    }
    Tell("You will have to exit Quandrel and restart for the changes in the maximum number of "
         "plots to have affect.",
         Icon::Information);
    return true;
}

} // namespace

Settings CurrentPreferences() {
    Settings now = gSettings;
    now.notation.pitchName = PitchNameOf(now.notation.pitchName);
    now.newPlots.maxPlots = MaxPlotsInStore();
    return now;
}

Settings DefaultPreferences() {
    Settings start;
    start.styles = StartStyles();
    start.newPlots.style = ChoiceOfStandard(kScreenStyle);
    return start;
}

std::string PitchNameOf(std::string_view text) {
    return kPitchNames[text == kPitchNames[1] ? 1 : 0];
}

std::int16_t MaxPlotsOf(std::string_view text, std::int16_t otherwise) {
    const std::optional<double> number = ReadNumber(text);
    if (!number) {
        return otherwise;
    }
    return static_cast<std::int16_t>(
        std::clamp(std::nearbyint(*number), 1.0, static_cast<double>(kMostPlots)));
}

void ApplyPreferences(const Settings& preferences, KeepSettings keep) {
    const StyleChange change;
    gSettings.styles = preferences.styles;
    UseGeneralOptions(preferences);
    if (preferences.notation.formulas != gSettings.notation.formulas) {
        UseFormulas(preferences.notation.formulas);
    }
    bool saved = KeepMaxPlots(preferences.newPlots.maxPlots);
    if (keep == KeepSettings::Yes) {
        saved = SaveSettings(SettingsGroup::Preferences) && saved;
        saved = SaveSettings(SettingsGroup::DataFolder) && saved;
    }
    if (!saved) {
        Tell("The preferences apply to this session, but could not be saved.");
    }
    change.RedrawStyles();
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "session/closing.h"

#include "core/plot_life.h"
#include "core/plot_store.h"
#include "derive/derived_plots.h"
#include "edit/history/undo.h"
#include "edit/marks/girdle_pull.h"
#include "edit/marks/small_circle_pick.h"
#include "edit/selection/marquee.h"
#include "persistence/ascii_plot_file.h"
#include "platform/platform.h"
#include "stereo/plot_title.h"

#include <algorithm>
#include <vector>

namespace quandrel {

constinit ClosingState ClosingState::now;

namespace {

class Asking {
public:
    Asking() { ClosingState::now.isAsking = true; }

    ~Asking() { ClosingState::now.isAsking = false; }

    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;
};

/// The answers that apply to all plots of one closing.
struct StandingAnswers {
    bool saveAll = false;
    bool skipAll = false;
};

std::string QuestionAbout(int slot) {
    const PlotInWork work(slot);
    std::string caption = CaptionOfPlot();
    caption.erase(caption.find_last_not_of(' ') + 1); // captions of windows end with blanks
    return caption
           + ":\nThe data in this plot is new or has been changed and has not been saved.\nSave "
             "it?";
}

[[nodiscard]] bool SaveOne(int slot, SaveKind kind) {
    const PlotInWork work(slot);
    return SaveAsciiPlot(kind) == SaveOutcome::Saved;
}

/// The question about one plot alone.
[[nodiscard]] bool AskAboutOne(int slot) {
    FormOf(slot).Raise();
    const Message question{gCaption, QuestionAbout(slot), Icon::Question, Buttons::YesNoCancel};
    switch (gPlatform.prompts->Ask(question)) {
    case Button::Yes:
        return SaveOne(slot, SaveKind::Save);
    case Button::No:
        return true;
    default:
        return false;
    }
}

/// The question about one of several plots; its answer may apply to the later ones.
[[nodiscard]] bool AskAboutOneOfAll(int slot, StandingAnswers& standing) {
    FormOf(slot).Raise();
    const std::string title = "Quandrel   " + RecordOf(slot).PlotTitle;
    switch (gPlatform.prompts->AskSavePlots(title, QuestionAbout(slot))) {
    case SaveAnswer::SaveAll:
        standing.saveAll = true;
        return SaveOne(slot, SaveKind::SaveAll);
    case SaveAnswer::SaveThis:
        return SaveOne(slot, SaveKind::Save);
    case SaveAnswer::SkipAll:
        standing.skipAll = true;
        return true;
    case SaveAnswer::SkipThis:
        return true;
    case SaveAnswer::Cancel:
        break;
    }
    return false;
}

[[nodiscard]] bool Query(int slot, Closing closing, StandingAnswers& standing) {
    if (standing.skipAll || !HoldsUnsavedData(slot)) {
        return true;
    }
    if (standing.saveAll) {
        return SaveOne(slot, SaveKind::SaveAll);
    }
    return closing == Closing::Application && CountOpenPlots() > 1
               ? AskAboutOneOfAll(slot, standing)
               : AskAboutOne(slot);
}

/// The slots of the open plots, the active one first.
std::vector<int> OpenSlots() {
    std::vector<int> slots;
    if (IsOpenSlot(gActivePlot)) {
        slots.push_back(gActivePlot);
    }
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (slot != gActivePlot && IsOpenSlot(slot)) {
            slots.push_back(slot);
        }
    }
    return slots;
}

/// Ends everything in progress on a plot, and what is kept for it.
void LeaveEditsOf(int slot) {
    if (slot == gActivePlot) {
        CancelGirdlePull();
        EndSmallCirclePick();
    }
    ClearSelectionOf(slot);
    ForgetUndo(slot);
}

} // namespace

bool HoldsUnsavedData(int slot) {
    const PlotRecord& record = RecordOf(slot);
    if (record.Modified != 0) {
        return true;
    }
    // A plot computed from another one can be computed again.
    return record.AxesTitle.empty() && record.NumFiles == 0 && record.NumValidData > 0;
}

bool IsAnyPlotUnsaved() {
    return std::ranges::any_of(OpenSlots(), HoldsUnsavedData);
}

std::map<int, std::string> FilesOfOpenPlots() {
    std::map<int, std::string> files;
    for (const int slot : OpenSlots()) {
        files[slot] = RecordOf(slot).SaveFileName;
    }
    return files;
}

void CloseWithLinks(int slot) {
    LeaveEditsOf(slot);
    BreakDerivedLinks(slot);
    ClosePlot(slot);
}

bool QueryClose(int slot, Closing closing) {
    StandingAnswers standing;
    return Query(slot, closing, standing);
}

bool ClosePlotWindow(int slot) {
    if (ClosingState::now.isAsking || !IsOpenSlot(slot)) {
        return false;
    }
    const Asking once;
    if (!QueryClose(slot)) {
        return false;
    }
    CloseWithLinks(slot);
    return true;
}

bool CloseAllPlots(Closing closing) {
    if (ClosingState::now.isAsking) {
        return false;
    }
    const Asking once;
    StandingAnswers standing;
    for (const int slot : OpenSlots()) {
        if (!Query(slot, closing, standing)) {
            return false;
        }
    }
    for (const int slot : OpenSlots()) {
        CloseWithLinks(slot);
    }
    return true;
}

bool SaveAllPlots() {
    bool allSaved = true;
    for (const int slot : OpenSlots()) {
        if (!HoldsUnsavedData(slot)) {
            continue;
        }
        const PlotInWork work(slot);
        const SaveOutcome outcome = SaveAsciiPlot(SaveKind::SaveAll);
        if (outcome == SaveOutcome::Cancelled) {
            return false;
        }
        allSaved = allSaved && outcome == SaveOutcome::Saved;
    }
    return allSaved;
}

} // namespace quandrel

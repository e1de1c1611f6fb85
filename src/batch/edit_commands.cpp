// SPDX-License-Identifier: MIT

#include "batch/edit_commands.h"

#include "batch/key_values.h"
#include "core/data_format.h"
#include "core/plot_store.h"
#include "edit/commands/edit_menu.h"
#include "edit/history/undo.h"
#include "edit/marks/annotation_edits.h"
#include "edit/marks/annotations.h"
#include "edit/rows/edit_rows.h"
#include "edit/selection/marquee.h"
#include "platform/platform.h"

#include <array>
#include <utility>
#include <vector>

namespace quandrel {

namespace {

const Names kItems = {{"cut", kCutItem},
                      {"copy", kCopyItem},
                      {"copyall", kCopyAllItem},
                      {"paste", kPasteItem},
                      {"delete", kDeleteItem}};

const Names kLayers = {{"data", kDataLayer}, {"annotations", kAnnotationLayer}};

constexpr std::size_t kCornerNumbers = 4;

bool HasSelection() {
    return gActiveLayer == kAnnotationLayer ? !SelectedAnnotations().empty()
                                            : !SelectedRowsOf(gActivePlot).empty();
}

/// The operation that selects by a frame, and its corners: "add X1,Y1,X2,Y2".
std::pair<SelectionWay, std::string> WayOfWords(const std::string& words) {
    const std::pair<std::string, SelectionWay> ways[] = {{"add ", SelectionWay::Add},
                                                         {"toggle ", SelectionWay::Toggle}};
    for (const auto& [word, way] : ways) {
        if (words.starts_with(word)) {
            return {way, words.substr(word.size())};
        }
    }
    return {SelectionWay::Replace, words};
}

} // namespace

std::string SelectByWords(const std::string& words) {
    if (words == "all") {
        SelectAll();
        return {};
    }
    if (words == "none") {
        ClearSelection();
        return {};
    }
    const auto [way, frame] = WayOfWords(words);
    const std::vector<std::string> parts = SplitAtCommas(frame);
    std::array<double, kCornerNumbers> corners{};
    for (std::size_t i = 0; i < corners.size(); ++i) {
        if (parts.size() != corners.size() || !TakeNumber(parts[i], corners[i]).empty()) {
            return "'" + words
                   + "' is not all, none, or two corners X1,Y1,X2,Y2 (after add or toggle to "
                     "change a selection)";
        }
    }
    if (ActiveRecord().PlotKind == kRose) {
        return "a rose has no positions to select by: use all";
    }
    Selection former = Selection::now;
    if (gActiveLayer == kAnnotationLayer) {
        former.marks = SelectedAnnotations();
    }
    StandMarquee(gActivePlot, {corners[0], corners[1]}, {corners[2], corners[3]});
    SelectInMarquee(way, former);
    return {};
}

std::string EditByWords(const std::string& words) {
    int item = 0;
    if (std::string error = TakeName(kItems, words, item); !error.empty()) {
        return error;
    }
    if (item != kPasteItem && !HasSelection()) {
        return "nothing is selected";
    }
    if (item == kPasteItem && !gPlatform.clipboard->Text()) {
        return "there is nothing to paste";
    }
    EditSelection(item);
    return {};
}

std::string ChooseLayer(const std::string& words) {
    std::int16_t layer = gActiveLayer;
    std::string error = TakeName(kLayers, words, layer);
    UseLayer(layer);
    return error;
}

std::string TakeEditBack() {
    if (!CanUndo()) {
        return "there is no edit to undo";
    }
    UndoEdits();
    return {};
}

std::string MakeEditAgain() {
    if (!CanRedo()) {
        return "there is no edit to redo";
    }
    RedoEdits();
    return {};
}

} // namespace quandrel

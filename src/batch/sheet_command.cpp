// SPDX-License-Identifier: MIT

#include "batch/sheet_command.h"

#include "batch/key_values.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "drawing/figure_page.h"
#include "qt/sheet_picture.h"
#include "sheet/sheet_text.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace quandrel {

namespace {

constexpr int kLeastDots = 30;
constexpr int kMostDots = 2400;

/// What a command has changed, or prints.
using Outcome = Result<std::string>;

Outcome OutcomeOf(std::string error) {
    return error.empty() ? Outcome(std::string()) : Outcome(Failure{std::move(error)});
}

/// The arguments with a key.
std::vector<Argument> KeysOf(const Command& command) {
    std::vector<Argument> keys;
    for (const Argument& argument : command.arguments) {
        if (!argument.name.empty()) {
            keys.push_back(argument);
        }
    }
    return keys;
}

std::string TakeSheetWidth(const std::string& value, FigureSheet& sheet) {
    if (value == "slide") {
        sheet.width = kSlideWidth;
        sheet.height = kSlideHeight;
        return {};
    }
    sheet.height = 0;
    return TakeMillimetres(value, kLeastSheetSide, kMostSheetSide, sheet.width);
}

const Takers<FigureSheet>& PageTakers() {
    using S = FigureSheet;
    static const Takers<S> takers = {
        {"width", TakeSheetWidth},
        {"columns", [](auto& v, S& s) { return TakeWhole(v, 1, kMostSheetColumns, s.columns); }},
        {"gap",
         [](auto& v, S& s) {
             std::string error = TakeMillimetres(v, 0, kMostSheetGap, s.gapAcross);
             s.gapDown = s.gapAcross;
             return error;
         }},
        {"gapdown", [](auto& v, S& s) { return TakeMillimetres(v, 0, kMostSheetGap, s.gapDown); }},
        {"letters",
         [](auto& v, S& s) {
             return TakeName({{"a", static_cast<int>(SheetLetters::Small)},
                              {"A", static_cast<int>(SheetLetters::Capital)},
                              {"(a)", static_cast<int>(SheetLetters::Brackets)},
                              {"none", static_cast<int>(SheetLetters::None)}},
                             v, s.letters);
         }},
        {"legend",
         [](auto& v, S& s) {
             return TakeName({{"right", static_cast<int>(LegendPlace::Right)},
                              {"below", static_cast<int>(LegendPlace::Below)},
                              {"none", static_cast<int>(LegendPlace::None)}},
                             v, s.legend);
         }},
        {"style",
         [](auto& v, S& s) {
             s.style =
                 StandardStyle(v) != nullptr ? std::string(StandardStyle(v)->name) : NormalPath(v);
             const auto style = StyleOfSheet(s);
             return style ? std::string() : style.Error();
         }},
    };
    return takers;
}

std::string TakeText(const std::string& value, std::string& field) {
    field = value;
    return {};
}

const Takers<SheetPanel>& PanelTakers() {
    using P = SheetPanel;
    static const Takers<P> takers = {
        {"title", [](auto& v, P& p) { return TakeText(v, p.title); }},
        {"name", [](auto& v, P& p) { return TakeText(v, p.name); }},
        {"text", [](auto& v, P& p) { return TakeText(v, p.text); }},
        {"columns", [](auto& v, P& p) { return TakeWhole(v, 1, kMostSheetColumns, p.columns); }},
        {"rows", [](auto& v, P& p) { return TakeWhole(v, 1, kMostSheetColumns, p.rows); }},
    };
    return takers;
}

const Takers<SheetExport>& ExportKeys() {
    using E = SheetExport;
    static const Takers<E> takers = {
        {"dpi", [](auto& v, E& e) { return TakeWhole(v, kLeastDots, kMostDots, e.dotsPerInch); }},
        {"background",
         [](auto& v, E& e) {
             return TakeName({{"white", 0}, {"transparent", 1}}, v, e.isTransparent);
         }},
        {"data",
         [](auto& v, E& e) {
             return TakeName({{"no", 0}, {"yes", 1}}, v, e.hasData);
         }},
    };
    return takers;
}

const std::map<std::string, PanelKind>& KindWords() {
    static const std::map<std::string, PanelKind> words = {{"plot", PanelKind::Plot},
                                                           {"rose", PanelKind::Plot},
                                                           {"fabric", PanelKind::Fabric},
                                                           {"statistics", PanelKind::Statistics},
                                                           {"text", PanelKind::Text}};
    return words;
}

/// The path of the file whose plot is to be added; nothing for the active plot.
std::optional<std::string> FileToAdd(const Command& command) {
    const std::string what = command.Bare(1).value_or("");
    return KindWords().contains(what) ? command.Bare(2) : command.Bare(1);
}

Result<SheetPanel> PanelToAdd(const Command& command) {
    const std::string what = command.Bare(1).value_or("plot");
    const auto word = KindWords().find(what);
    const PanelKind kind = word == KindWords().end() ? PanelKind::Plot : word->second;
    if (kind == PanelKind::Text) {
        SheetPanel panel;
        panel.kind = kind;
        return panel;
    }
    if (const std::optional<std::string> file = FileToAdd(command)) {
        return PanelOfFile(kind, *file);
    }
    if (what == "rose" && ActiveRecord().PlotKind != kRose) {
        return Failure{"the active plot is not a rose"};
    }
    return PanelOfPlot(kind, ActivePlot());
}

Outcome AddPanel(const Command& command, FigureSheet& sheet) {
    Result<SheetPanel> panel = PanelToAdd(command);
    if (!panel) {
        return Failure{panel.Error()};
    }
    std::string error = TakeArguments(KeysOf(command), PanelTakers(), "a panel", *panel);
    if (!error.empty()) {
        return Failure{error};
    }
    if (const Result<PanelContent> content = ContentOf(*panel, gSettings); !content) {
        return Failure{content.Error()};
    }
    sheet.panels.push_back(std::move(*panel));
    return OutcomeOf(FaultOf(sheet));
}

/// The place of a panel, from 0, that a bare word names.
std::optional<std::size_t> PlaceAt(const Command& command, std::size_t bare,
                                   const FigureSheet& sheet) {
    const std::optional<int> place =
        WholeNumber(command.Bare(bare).value_or(""), 1, static_cast<int>(sheet.panels.size()));
    return place ? std::optional(static_cast<std::size_t>(*place - 1)) : std::nullopt;
}

Outcome ChangePanels(const Command& command, FigureSheet& sheet) {
    const std::string act = *command.Bare(0);
    const std::optional<std::size_t> place = PlaceAt(command, 1, sheet);
    const std::optional<std::size_t> to = PlaceAt(command, 2, sheet);
    if (!place || (act == "move" && !to)) {
        return Failure{"a panel is missing: a number from 1 to "
                       + std::to_string(sheet.panels.size())};
    }
    SheetPanel& panel = sheet.panels[*place];
    if (act == "change") {
        std::string error = TakeArguments(KeysOf(command), PanelTakers(), "a panel", panel);
        return OutcomeOf(error.empty() ? FaultOf(sheet) : error);
    }
    if (act == "move") {
        MovePanel(sheet, *place, *to);
    } else {
        sheet.panels.erase(sheet.panels.begin() + static_cast<std::ptrdiff_t>(*place));
    }
    return std::string();
}

Outcome ChangePage(const Command& command, FigureSheet& sheet) {
    if (command.Bare(0) == "new") {
        sheet = FigureSheet();
    }
    std::string error = TakeArguments(KeysOf(command), PageTakers(), "a figure", sheet);
    return OutcomeOf(error.empty() ? FaultOf(sheet) : error);
}

Outcome Caption(const Command& command, FigureSheet& sheet) {
    sheet.caption = command.Bare(1).value_or(sheet.caption);
    const Result<std::vector<PanelContent>> contents = ContentOf(sheet, gSettings);
    if (!contents) {
        return Failure{contents.Error()};
    }
    Result<std::string> caption = CaptionOfSheet(sheet, *contents);
    return caption ? Outcome(*caption + "\n") : caption;
}

Outcome UseFile(const Command& command, FigureSheet& sheet) {
    const std::string act = *command.Bare(0);
    const std::optional<std::string> path = command.Bare(1);
    if (!path) {
        return Failure{"a path is missing"};
    }
    if (act == "open") {
        Result<FigureSheet> read = ReadSheetFile(*path);
        if (!read) {
            return Failure{"'" + *path + "': " + read.Error()};
        }
        sheet = std::move(*read);
        return std::string();
    }
    if (act == "save") {
        const std::string error = WriteSheetFile(*path, sheet);
        return OutcomeOf(error.empty() ? error : "'" + *path + "' could not be written: " + error);
    }
    SheetExport how;
    std::string error = TakeArguments(KeysOf(command), ExportKeys(), "an export", how);
    return OutcomeOf(error.empty() ? SaveSheetPicture(*path, sheet, how) : error);
}

struct SheetAct {
    Outcome (*act)(const Command&, FigureSheet&);
    std::size_t mostBare; ///< with the act itself
    bool hasKeys;
};

const std::map<std::string, SheetAct>& Acts() {
    static const std::map<std::string, SheetAct> acts = {
        {"new", {ChangePage, 1, true}},     {"page", {ChangePage, 1, true}},
        {"add", {AddPanel, 3, true}},       {"change", {ChangePanels, 2, true}},
        {"move", {ChangePanels, 3, false}}, {"remove", {ChangePanels, 2, false}},
        {"caption", {Caption, 2, false}},   {"open", {UseFile, 2, false}},
        {"save", {UseFile, 2, false}},      {"export", {UseFile, 2, true}},
    };
    return acts;
}

} // namespace

bool AddsActivePlot(const Command& command) {
    return command.Bare(0) == "add" && command.Bare(1) != "text" && !FileToAdd(command);
}

Result<std::string> ApplySheetCommand(const Command& command, FigureSheet& sheet) {
    const auto act = Acts().find(command.Bare(0).value_or(""));
    if (act == Acts().end()) {
        return Failure{"'" + command.Words() + "' does not begin with one of " + ListOf(Acts())};
    }
    const std::vector<Argument> keys = KeysOf(command);
    if (command.arguments.size() - keys.size() > act->second.mostBare) {
        return Failure{"'" + *command.Bare(act->second.mostBare) + "' is one word too many"};
    }
    if (!act->second.hasKeys && !keys.empty()) {
        return Failure{"'" + keys.front().name + "' is not a key of figure " + act->first};
    }
    FigureSheet changed = sheet;
    Result<std::string> outcome = act->second.act(command, changed);
    if (outcome) {
        sheet = std::move(changed);
    }
    return outcome;
}

} // namespace quandrel

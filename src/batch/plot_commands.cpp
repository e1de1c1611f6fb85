// SPDX-License-Identifier: MIT

#include "batch/plot_commands.h"

#include "batch/annotate_commands.h"
#include "batch/classify_command.h"
#include "batch/density_command.h"
#include "batch/derive_commands.h"
#include "batch/edit_commands.h"
#include "batch/figure_command.h"
#include "batch/girdle_commands.h"
#include "batch/key_values.h"
#include "batch/print_command.h"
#include "batch/rose_command.h"
#include "batch/rotate_command.h"
#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "core/settings_value.h"
#include "derive/secondary_data.h"
#include "drawing/layer_list.h"
#include "drawing/plot_state.h"
#include "drawing/symbol_choice.h"
#include "rotation/rotate_data.h"
#include "session/recalculate.h"
#include "stereo/axis_rows.h"

#include <map>
#include <ostream>

namespace quandrel {

namespace {

const Names kPlotKinds = {{"equalarea", kEqualArea}, {"equalangle", kEqualAngle}, {"rose", kRose}};
const Names kDataKinds = {{"planes", kPlanes}, {"lines", kLines}, {"polar", kPolarLines}};

std::string TakeDataKind(const Command& command, std::ostream&) {
    std::int16_t kind = kPlanes;
    const std::string error = TakeName(kDataKinds, command.Words(), kind);
    if (!error.empty()) {
        return error;
    }
    const PlotRecord& record = ActiveRecord();
    if (kind == kPlanes && record.PrimaryFormat == kDirections) {
        return "directions have no dip and cannot be planes";
    }
    return ChangeDataKind(kind) ? std::string() : "the question was answered no";
}

std::string TakePlotKind(const Command& command, std::ostream&) {
    std::int16_t kind = kEqualArea;
    const std::string error = TakeName(kPlotKinds, command.Words(), kind);
    if (!error.empty()) {
        return error;
    }
    if (MixesAxesAsRose(ActiveRecord(), kind)) {
        return kMixedRoseRefusal;
    }
    ChangePlotKind(kind);
    return {};
}

std::string SwitchDecimals(const Command& command, std::ostream&) {
    bool on = false;
    const std::string error = TakeName({{"on", 1}, {"off", 0}}, command.Words(), on);
    if (error.empty()) {
        UseDecimals(gActivePlot, on);
    }
    return error;
}

/// Presses a mode button for some data; the buttons act on the former data afterwards.
std::string PressModeButton(int button, const std::string& of) {
    const std::optional<FigureLayer> data = DataOfWord(of);
    Plot& plot = ActivePlot();
    if (!data || !CanShowDataBy(plot, *data, button)) {
        return data ? of + " cannot be shown by this button" : "'" + of + "' is not data";
    }
    if (data->LayerOf == kLayerOfMainRows && MixesAxes(plot.record, ModeOfButton(button))) {
        return kMixedAxesRefusal;
    }
    const FigureLayer former = ChosenDataOf(plot);
    ChooseData(plot, *data);
    SetPlotSymbol(button);
    ChooseData(plot, former);
    return {};
}

std::string PressSymbolButton(const Command& command, std::ostream&) {
    const std::string word = command.Bare(0).value_or("");
    const std::optional<int> button = WholeNumber(word, 0, kSlipArrowsOnPoles);
    if (!button) {
        return "'" + word
               + "' is not a symbol button: 0 great circles, 1 points, 2 beta intersections, "
                 "3 point density, 4 gridded density, 5 contours, 6 contours and gridded density, "
                 "7 secondary data over primary, 8 slip arrows alone, 9 on planes, 10 on poles";
    }
    const std::optional<std::string> of = command.Value("of");
    if (*button > kLastModeButton) {
        return of ? "'of' needs a button from 0 to 6" : PressSecondaryButton(*button);
    }
    return PressModeButton(*button, of.value_or("main"));
}

std::string MoveSlider(const Command& command, std::ostream&) {
    const std::optional<int> value = WholeNumber(command.Words(), kCoarsestGrid, kFinestGrid);
    if (!value) {
        return "'" + command.Words() + "' is not a grid density from 10 to 150";
    }
    ChooseGridSize(*value);
    UseGridSize();
    return {};
}

std::string Recalculate(const Command&, std::ostream&) {
    RecalculateActivePlot();
    return {};
}

std::string Replot(const Command&, std::ostream&) {
    ReplotActivePlot(false);
    return {};
}

std::string Rotate(const Command& command, std::ostream& log) {
    if (command.Words() == "undo") {
        if (!CanUndoRotation()) {
            return "there is no rotation to undo";
        }
        UndoRotation();
        return {};
    }
    std::string note;
    const std::string error = ApplyRotateArguments(command.arguments, note);
    if (error.empty() && !note.empty()) {
        log << "rotate: " << note << '\n';
    }
    return error;
}

const std::map<std::string, PlotCommand>& PlotCommands() {
    static const CommandShape none;
    static const CommandShape one{1, {}};
    static const CommandShape axes{1, {"sense"}};
    static const CommandShape its{0, {}, true};
    static const CommandShape two{2, {}};
    static const CommandShape three{3, {}};
    static const CommandShape four{4, {}};
    static const std::map<std::string, PlotCommand> commands = {
        {"addpoint",
         {two,
          [](const Command& c, std::ostream&) { return ApplyAddPointArguments(c.arguments); }}},
        {"annotate",
         {three,
          [](const Command& c, std::ostream&) { return ApplyAnnotateArguments(c.arguments); }}},
        {"classify",
         {its, [](const Command& c, std::ostream&) { return ApplyClassArguments(c.arguments); }}},
        {"data", {one, TakeDataKind}},
        {"decimals", {one, SwitchDecimals}},
        {"edit", {one, [](const Command& c, std::ostream&) { return EditByWords(c.Words()); }}},
        {"girdle",
         {two, [](const Command& c, std::ostream&) { return ApplyGirdleArguments(c.arguments); }}},
        {"griddensity", {one, MoveSlider}},
        {"intersections",
         {none, [](const Command&, std::ostream&) { return MakeIntersections(); }}},
        {"kinematic",
         {axes, [](const Command& c,
                   std::ostream&) { return MakeAxes(c.Bare(0).value_or(""), c.Value("sense")); }}},
        {"layer",
         {its,
          [](const Command& c, std::ostream&) {
              return IsLayerChange(c) ? ApplyLayerArguments(c) : ChooseLayer(c.Words());
          }}},
        {"legend",
         {{2, {"text"}}, [](const Command& c, std::ostream&) { return NameLegendEntry(c); }}},
        {"overlaysecondary",
         {one, [](const Command& c, std::ostream&) { return OverlaySecondarySet(c.Words()); }}},
        {"plot", {one, TakePlotKind}},
        {"print", {its, PrintToFile}},
        {"density",
         {its, [](const Command& c, std::ostream&) { return ApplyDensityArguments(c.arguments); }}},
        {"recalculate", {none, Recalculate}},
        {"redo", {none, [](const Command&, std::ostream&) { return MakeEditAgain(); }}},
        {"replot", {none, Replot}},
        {"rose",
         {its, [](const Command& c, std::ostream&) { return ApplyRoseArguments(c.arguments); }}},
        {"rotate", {its, Rotate}},
        {"secondary", {none, [](const Command&, std::ostream&) { return PlotOtherSet(); }}},
        {"select", {two, [](const Command& c, std::ostream&) { return SelectByWords(c.Words()); }}},
        {"smallcircle",
         {four,
          [](const Command& c, std::ostream&) { return ApplySmallCircleArguments(c.arguments); }}},
        {"style", {two, [](const Command& c, std::ostream&) { return ApplyStyle(c); }}},
        {"symbols", {{1, {"of"}}, PressSymbolButton}},
        {"undo", {none, [](const Command&, std::ostream&) { return TakeEditBack(); }}},
    };
    return commands;
}

} // namespace

const PlotCommand* FindPlotCommand(const std::string& name) {
    const auto found = PlotCommands().find(name);
    return found == PlotCommands().end() ? nullptr : &found->second;
}

} // namespace quandrel

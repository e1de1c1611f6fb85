// SPDX-License-Identifier: MIT

#include "batch/batch_session.h"

#include "batch/dump.h"
#include "batch/field_access.h"
#include "batch/plot_commands.h"
#include "core/atomic_file.h"
#include "core/data_format.h"
#include "core/formulas.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "input/file_loading.h"
#include "input/load_report.h"
#include "orientation/number_text.h"
#include "persistence/ascii_plot_file.h"
#include "persistence/open_plot.h"
#include "persistence/workspace_file.h"
#include "platform/no_printers.h"
#include "platform/qt/plot_picture.h"
#include "platform/recording_form.h"
#include "program/closing.h"
#include "program/recalculate.h"
#include "program/reference.h"
#include "program/start.h"
#include "stereo/axis_rows.h"
#include "stereo/plot_driver.h"
#include "stereo/plot_stages.h"
#include "stereo/plot_state.h"
#include "stereo/row_positions.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <fstream>
#include <optional>
#include <ostream>
#include <set>

namespace quandrel {

namespace {

NoPrinters noPrinters;

/// The number of a whole-number argument within bounds, or nothing.
std::optional<int> WholeArgument(const std::optional<std::string>& text, int lowest, int highest) {
    const std::optional<double> value = text ? ReadNumber(*text) : std::nullopt;
    if (!value || !IsWholeNumber(*value) || *value < lowest || *value > highest) {
        return std::nullopt;
    }
    return static_cast<int>(*value);
}

/// A text of several lines on one.
std::string OnOneLine(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

/// Fields whose change moves rows, or changes what is counted.
bool MovesRows(const std::string& field) {
    return field == "PlotKind" || field == "DataKind" || field == "ShowSecondary"
           || field == "PrimaryFormat" || field == "SecondaryFormat"
           || field.starts_with("OverlayKind");
}

/// Fields that are an edit of the plot: its texts, its styles and its marks. What is shown, and
/// how, is not.
bool IsEdit(const std::string& name) {
    static const std::set<std::string> edits = {
        "DescriptionText", "FabricText",        "AppNumName",         "AppNonNumName",
        "PlotTitle",       "AxisItems",         "ClassTable",         "ClassStats",
        "ClassLow",        "ClassHigh",         "ClassWidth",         "ClassMode",
        "NumClasses",      "RoseShape",         "RoseType",           "RoseEqualArea",
        "RoseSectorSize",  "RoseOddSectorSize", "RoseStartAngle",     "RoseScaleType",
        "RoseHistStyle",   "RoseSegShape",      "RoseSectorFraction", "RoseZeroCircle",
        "RoseBiasMode",    "RoseSamplePlunge",  "RoseSampleTrend",    "RoseMinBiasAngle"};
    return edits.contains(name);
}

/// The values that a field may take from a script.
struct FieldRange {
    double lowest = 0;
    double highest = 0;
};

/// Fields whose values index tables or choose procedures.
const std::map<std::string, FieldRange>& FieldRanges() {
    static const std::map<std::string, FieldRange> ranges = {
        {"PlotKind", {kEqualArea, kRose}},
        {"DataKind", {kPlanes, kPolarLines}},
        {"PrimaryFormat", {0, kPrimaryLine}},
        {"SecondaryFormat", {kNoSecondary, kHadeInPlane}},
        {"PlotSymbolMode", {kGreatCircles, kContoursAndGrid}},
        {"OverlayKind", {kOverlayGreatCircles, kOverlayPolarLines}},
        {"GridSize", {0, 150}},
        {"NumClasses", {0, 4}},
        {"ClassMode", {0, 3}},
    };
    return ranges;
}

/// Fields that keep account of the rows; they follow from what is loaded.
bool KeepsAccount(const std::string& name) {
    static const std::set<std::string> names = {
        "NumData",  "NumValidData",    "NumLoadedData",  "NumFiles",        "OverlayRows",
        "SlotFree", "SelectedOverlay", "NumContours",    "KinematicState",  "IntersectionState",
        "GridSize", "DensityCount",    "GridDensityMax", "PointDensityMax", "NumClassified"};
    return names.contains(name);
}

/// The set that is shown now is plotted as what it is.
void FollowShownSet(PlotRecord& record) {
    record.DataKind = DataKindOfSet(ShowsPlaneData(record), record.DataKind);
}

/// What is wrong with a value for a field, or nothing.
std::string RefusalOf(const std::string& field, const std::string& value) {
    const std::string name = field.substr(0, field.find('['));
    if (KeepsAccount(name)) {
        return "'" + name + "' follows from the rows and cannot be set";
    }
    const auto range = FieldRanges().find(name);
    const std::optional<double> number = ReadNumber(value);
    if (range != FieldRanges().end()
        && (!number || *number < range->second.lowest || *number > range->second.highest)) {
        return "'" + value + "' is no value of " + name;
    }
    if (name == "ShowSecondary" && number && *number != 0
        && ActiveRecord().SecondaryFormat == kNoSecondary) {
        return "the plot holds no secondary set";
    }
    if (name == "PlotSymbolMode" && number
        && MixesAxes(ActiveRecord(), static_cast<int>(*number))) {
        return kMixedAxesRefusal;
    }
    return {};
}

/// The statistics of a kind as they stand.
std::string StatisticsText(const std::string& kind) {
    if (kind == "reference") {
        return TextOfReference(ReferenceOfActivePlot());
    }
    const PlotForm& form = FormOf(gActivePlot);
    return form.BoxText(kind == "advanced" ? PlotBox::StatsAdvanced : PlotBox::StatsNormal);
}

} // namespace

BatchSession::BatchSession(std::ostream& out, std::ostream& log, OutsideFiles outside)
    : out_(out)
    , log_(log)
    , prompts_(ScriptedPrompts::Mode::Batch)
    , formerPlatform_(gPlatform) {
    prompts_.OnBox([this](const ShownBox& box) {
        log_ << "[" << box.message.title << "] " << OnOneLine(box.message.text) << " -> "
             << ButtonName(box.answer) << '\n';
    });
    prompts_.OnFormat([this](const FormatQuestion& question) -> std::optional<FormatAnswer> {
        if (question.path != formatPath_) { // the next file of a workspace
            formatPath_ = question.path;
            formatQuestions_ = 0;
        }
        if (++formatQuestions_ > 1) {
            return std::nullopt;
        }
        if (const std::string refusal = TakeDataKind(stated_, question.plotKindFromFile);
            !refusal.empty()) {
            log_ << refusal << '\n';
            return std::nullopt;
        }
        FormatAnswer answer;
        answer.plotSecondary = stated_.showSecondary || question.showSecondary;
        answer.columnHeadings = question.columnHeadings;
        answer.frequencyColumn = stated_.frequencyColumn;
        return answer;
    });
    gPlatform = {};
    gPlatform.prompts = &prompts_;
    gPlatform.status = &status_;
    gPlatform.settings = &settings_;
    gPlatform.clipboard = &clipboard_;
    gPlatform.printers = &noPrinters;
    gPlatform.makePlotForm = [](int) { return std::make_unique<RecordingForm>(); };
    InitialiseApplication();
    SetOutsideFiles(outside);
    firstFormat_ = CurrentFormat();
}

BatchSession::~BatchSession() {
    SetOutsideFiles(OutsideFiles::Ask);
    MakeStoreTables();
    gPlatform = formerPlatform_;
}

const std::map<std::string, BatchSession::Handler>& BatchSession::Handlers() {
    static const CommandShape none;
    static const CommandShape one{1, {}};
    static const CommandShape its{0, {}, true};
    static const std::map<std::string, Handler> handlers = {
        {"activate", {&BatchSession::Activate, one}},
        {"answer", {&BatchSession::Answer, its}},
        {"blank", {&BatchSession::Blank, none}},
        {"close", {&BatchSession::Close, none}},
        {"dump", {&BatchSession::Dump, one}},
        {"export", {&BatchSession::Export, {1, {"size", "part"}}}},
        {"format", {&BatchSession::Format, its}},
        {"formulas", {&BatchSession::ChooseFormulas, one}},
        {"get", {&BatchSession::Get, one}},
        {"merge", {&BatchSession::MergeFile, one}},
        {"open", {&BatchSession::Open, one}},
        {"overlay", {&BatchSession::Overlay, one}},
        {"save", {&BatchSession::Save, one}},
        {"set", {&BatchSession::Set, {2, {}}}},
        {"stats", {&BatchSession::Stats, one}},
        {"workspace", {&BatchSession::Workspace, {2, {}}}},
    };
    return handlers;
}

std::string BatchSession::Run(const std::vector<Command>& commands) {
    for (const Command& command : commands) {
        const std::string error = RunCommand(command);
        if (!error.empty()) {
            const std::string line =
                command.line > 0 ? "line " + std::to_string(command.line) + ": " : "";
            return line + command.name + ": " + error;
        }
    }
    return {};
}

std::string BatchSession::RunCommand(const Command& command) {
    if (const PlotCommand* const own = FindPlotCommand(command.name)) {
        std::string error = RefusedWord(command, own->shape);
        error = error.empty() ? NeedPlot() : error;
        return error.empty() ? own->act(command, log_) : error;
    }
    const auto handler = Handlers().find(command.name);
    if (handler == Handlers().end()) {
        return "there is no such command";
    }
    const std::string refusal = RefusedWord(command, handler->second.shape);
    return refusal.empty() ? (this->*handler->second.act)(command) : refusal;
}

std::string BatchSession::NeedPlot() const {
    return IsOpenSlot(gActivePlot) ? std::string() : "no plot is open";
}

std::string BatchSession::NeedPlotAsSet() {
    const std::string error = NeedPlot();
    if (error.empty() && setPlots_.erase(gActivePlot) != 0) {
        ReplotActivePlot(false);
    }
    return error;
}

std::string BatchSession::OpenFile(const char* engineCommand, const Command& command) {
    const std::optional<std::string> path = command.Bare(0);
    if (!path) {
        return "a path is missing";
    }
    formatQuestions_ = 0;
    if (OpenPlotFile(engineCommand, *path) == kLoadError) {
        return "'" + *path + "' was not loaded";
    }
    LogMissingFiles(*path);
    return {};
}

std::string BatchSession::Activate(const Command& command) {
    const std::optional<int> slot = WholeArgument(command.Bare(0), 1, HighestSlot());
    if (!slot || !IsOpenSlot(*slot)) {
        return "'" + command.Words() + "' is no open plot";
    }
    gActivePlot = *slot;
    FollowGridOfPlot();
    return {};
}

std::string BatchSession::Answer(const Command& command) {
    std::vector<Button> buttons;
    for (const auto& [name, value] : command.arguments) {
        const std::optional<Button> button = ButtonFromName(value);
        if (!name.empty() || !button) {
            return "'" + (name.empty() ? value : name + "=" + value) + "' is no button";
        }
        buttons.push_back(*button);
    }
    for (const Button button : buttons) {
        prompts_.QueueAnswer(button);
    }
    return buttons.empty() ? "a button is missing" : std::string();
}

std::string BatchSession::Blank(const Command&) {
    return OpenPlotFile(kBlankCommand) == kLoadError ? "no plot could be made" : std::string();
}

std::string BatchSession::Close(const Command&) {
    const std::string error = NeedPlot();
    if (error.empty()) {
        CloseWithLinks(gActivePlot);
    }
    return error;
}

std::string BatchSession::Dump(const Command& command) {
    const std::optional<std::string> path = command.Bare(0);
    if (!path) {
        return "a path is missing";
    }
    if (const std::string error = NeedPlotAsSet(); !error.empty()) {
        return error;
    }
    auto& form = static_cast<RecordingForm&>(FormOf(gActivePlot));
    const nlohmann::ordered_json json = DumpActivePlot(prompts_, form.Plot());
    const std::string error = WriteFileAtomically(
        *path, json.dump(1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n");
    return error.empty() ? error : "'" + *path + "' could not be written: " + error;
}

std::string BatchSession::Export(const Command& command) {
    const std::optional<std::string> path = command.Bare(0);
    if (!path) {
        return "a path is missing";
    }
    if (const std::string error = NeedPlotAsSet(); !error.empty()) {
        return error;
    }
    PictureOptions options;
    if (const std::optional<std::string> text = command.Value("size")) {
        const std::optional<int> size = WholeArgument(text, 50, 20000);
        if (!size) {
            return "'" + *text + "' is no size: 50 to 20000 pixels";
        }
        options.size = *size;
    }
    const std::string part = command.Value("part").value_or("whole");
    if (part != "whole" && part != "net") {
        return "'" + part + "' is none of whole, net";
    }
    options.part = part == "net" ? PicturePart::NetAlone : PicturePart::WholePlot;
    return SavePlotPicture(*path, options);
}

std::string BatchSession::Format(const Command& command) {
    return ApplyFormatArguments(command.arguments, firstFormat_, stated_);
}

std::string BatchSession::ChooseFormulas(const Command& command) {
    for (const Formulas formulas : {Formulas::Own, Formulas::Textbook}) {
        if (command.Words() == NameOf(formulas)) {
            UseFormulas(formulas);
            return {};
        }
    }
    return "'" + command.Words() + "' is none of own, textbook";
}

std::string BatchSession::Get(const Command& command) {
    if (const std::string error = NeedPlot(); !error.empty()) {
        return error;
    }
    const Result<std::string> text = FieldText(ActiveRecord(), command.Bare(0).value_or(""));
    if (!text) {
        return text.Error();
    }
    out_ << *text << '\n';
    return {};
}

std::string BatchSession::MergeFile(const Command& command) {
    const std::string error = NeedPlot();
    return error.empty() ? OpenFile(kMergeCommand, command) : error;
}

std::string BatchSession::Open(const Command& command) {
    return OpenFile(kNewCommand, command);
}

std::string BatchSession::Overlay(const Command& command) {
    const std::string error = NeedPlot();
    return error.empty() ? OpenFile(kOverlayCommand, command) : error;
}

std::string BatchSession::Save(const Command& command) {
    const std::optional<std::string> path = command.Bare(0);
    if (!path) {
        return "a path is missing";
    }
    if (const std::string error = NeedPlot(); !error.empty()) {
        return error;
    }
    return SavePlotAs(*path, SaveKind::SaveAs) == SaveOutcome::Saved
               ? std::string()
               : "'" + *path + "' was not saved";
}

std::string BatchSession::Set(const Command& command) {
    const std::optional<std::string> field = command.Bare(0);
    const std::optional<std::string> value = command.Bare(1);
    if (!field || !value) {
        return "a field and a value are wanted";
    }
    if (const std::string error = NeedPlot(); !error.empty()) {
        return error;
    }
    std::string error = RefusalOf(*field, *value);
    const bool showedSecondary = ActiveRecord().ShowSecondary != 0;
    if (error.empty()) {
        error = SetField(ActiveRecord(), *field, *value);
    }
    if (error.empty()) {
        setPlots_.insert(gActivePlot);
        if (IsEdit(field->substr(0, field->find('[')))) {
            ActiveRecord().Modified = kTrue;
        }
    }
    if (showedSecondary != (ActiveRecord().ShowSecondary != 0)) {
        FollowShownSet(ActiveRecord());
    }
    if (error.empty() && MovesRows(*field)) {
        RebuildRowTable(gActivePlot);
    }
    return error;
}

std::string BatchSession::Stats(const Command& command) {
    if (const std::string error = NeedPlotAsSet(); !error.empty()) {
        return error;
    }
    const std::string kind = command.Bare(0).value_or("normal");
    if (kind != "normal" && kind != "advanced" && kind != "reference") {
        return "'" + kind + "' is none of normal, advanced, reference";
    }
    const std::string text = StatisticsText(kind);
    if (const auto load = gPlotLoads.find(gActivePlot);
        load != gPlotLoads.end() && ActiveRecord().NumFiles > 0) {
        out_ << LoadText(load->second) << '\n';
    }
    out_ << (text.empty() ? "No. of Data = " + std::to_string(ActiveRecord().NumValidData) : text)
         << '\n';
    return {};
}

std::string BatchSession::Workspace(const Command& command) {
    const std::string what = command.Bare(0).value_or("");
    const std::optional<std::string> path = command.Bare(1);
    if ((what != "open" && what != "save") || !path) {
        return "'" + command.Words() + "' is none of open PATH, save PATH";
    }
    if (what == "save") {
        return SaveWorkspaceAs(*path, PlotsSavedAsText::List) == WorkspaceOutcome::Saved
                   ? std::string()
                   : "'" + *path + "' was not saved";
    }
    formatQuestions_ = 0;
    if (OpenPlotFile(kNewCommand, *path) == kLoadError) {
        return "'" + *path + "' opened no plot";
    }
    LogMissingFiles(*path);
    return {};
}

void BatchSession::LogMissingFiles(const std::string& path) const {
    const OpenedWorkspace& workspace = LastOpenedWorkspace();
    if (workspace.path != NormalPath(path) || workspace.missing.empty()) {
        return;
    }
    log_ << path << ": " << TextOfOpening(workspace) << '\n';
    for (const std::string& missing : workspace.missing) {
        log_ << "not opened: " << missing << '\n';
    }
}

} // namespace quandrel

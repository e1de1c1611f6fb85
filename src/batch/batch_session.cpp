// SPDX-License-Identifier: MIT

#include "batch/batch_session.h"

#include "batch/dump.h"
#include "batch/field_access.h"
#include "batch/field_rules.h"
#include "batch/key_values.h"
#include "batch/plot_commands.h"
#include "batch/save_command.h"
#include "batch/standard_streams.h"
#include "core/atomic_file.h"
#include "core/data_format.h"
#include "core/formulas.h"
#include "core/messages.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "core/plot_texts.h"
#include "core/replot.h"
#include "core/settings.h"
#include "drawing/plot_state.h"
#include "input/file_loading.h"
#include "input/load_report.h"
#include "orientation/number_text.h"
#include "persistence/open_plot.h"
#include "persistence/workspace_file.h"
#include "platform/scripted/no_printers.h"
#include "platform/scripted/recording_form.h"
#include "qt/plot_picture.h"
#include "session/closing.h"
#include "session/recalculate.h"
#include "session/reference.h"
#include "session/start.h"
#include "statistics/confidence_cone.h"
#include "stereo/axis_rows.h"
#include "stereo/row_positions.h"

#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <new>
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

/// The set that is shown now is plotted as what it is.
void FollowShownSet(PlotRecord& record) {
    record.DataKind = DataKindOfSet(ShowsPlaneData(record), record.DataKind);
}

/// The statistics of a kind as they stand.
std::string StatisticsText(const std::string& kind) {
    if (kind == "reference") {
        return TextOfReference(ReferenceOfActivePlot());
    }
    const PlotStatistics& texts = StatisticsOf(ActivePlot());
    return kind == "advanced" ? texts.advanced : texts.normal;
}

} // namespace

BatchSession::BatchSession(std::ostream& out, std::ostream& log, OutsideFiles outside,
                           InputUse input)
    : out_(out)
    , log_(log)
    , input_(input)
    , prompts_(ScriptedPrompts::Mode::Batch)
    , formerPlatform_(gPlatform) {
    prompts_.OnBox([this](const ShownBox& box) {
        const std::string text =
            inputCopy_ != nullptr ? inputCopy_->Named(box.message.text) : box.message.text;
        log_ << "[" << box.message.title << "] " << OnOneLine(text) << " -> "
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
    firstFormat_ = gSettings.format;
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
        {"cone", {&BatchSession::Cone, one}},
        {"dump", {&BatchSession::Dump, one}},
        {"export", {&BatchSession::Export, {1, {"size", "part"}}}},
        {"format", {&BatchSession::Format, its}},
        {"formulas", {&BatchSession::ChooseFormulas, one}},
        {"get", {&BatchSession::Get, one}},
        {"merge", {&BatchSession::MergeFile, one}},
        {"open", {&BatchSession::Open, one}},
        {"overlay", {&BatchSession::Overlay, one}},
        {"save", {&BatchSession::Save, {1, {"lines"}}}},
        {"set", {&BatchSession::Set, {2, {}}}},
        {"stats", {&BatchSession::Stats, one}},
        {"workspace", {&BatchSession::Workspace, {2, {}}}},
    };
    return handlers;
}

std::string BatchSession::Run(const Command& command) {
    const std::string error = RunCommand(command);
    answers_->flush(); // whoever writes the script may wait for the answer
    if (error.empty()) {
        return error;
    }
    const std::string line = command.line > 0 ? "line " + std::to_string(command.line) + ": " : "";
    return line + command.name + ": " + error;
}

std::string BatchSession::Run(const std::vector<Command>& commands) {
    std::string error;
    for (auto command = commands.begin(); error.empty() && command != commands.end(); ++command) {
        error = Run(*command);
    }
    return error;
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
    if (*path == kStandardStream) {
        return OpenStandardInput(engineCommand);
    }
    if (OpenPlotFile(engineCommand, *path) == kLoadError) {
        return "'" + *path + "' was not loaded";
    }
    LogMissingFiles(*path);
    return {};
}

std::string BatchSession::OpenStandardInput(const char* engineCommand) {
    if (input_ == InputUse::Script) {
        return "the script comes from standard input; no data can";
    }
    if (input_ == InputUse::Read) {
        return "standard input has been read already";
    }
    input_ = InputUse::Read;
    Result<std::unique_ptr<InputCopy>> copy = InputCopy::Make(STDIN_FILENO);
    if (!copy) {
        return copy.Error();
    }
    inputCopy_ = std::move(*copy);
    const bool isLoaded = OpenPlotFile(engineCommand, inputCopy_->Path()) != kLoadError;
    if (isLoaded) {
        inputCopy_->NameIn(ActiveRecord());
    }
    inputCopy_.reset();
    return isLoaded ? "" : std::string(kStandardInputName) + " was not loaded";
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

/// Shows or hides the 95% confidence cone, and prints the one that is shown.
std::string BatchSession::Cone(const Command& command) {
    if (const std::string error = NeedPlot(); !error.empty()) {
        return error;
    }
    const std::string error =
        TakeName({{"on", 1}, {"off", 0}}, command.Words(), ActiveRecord().ShowConfidenceCone);
    if (!error.empty()) {
        return error;
    }
    ReplotActivePlot(false);
    if (ActiveRecord().ShowConfidenceCone) {
        *answers_ << ConfidenceConeText() << '\n';
    }
    return {};
}

std::string BatchSession::Dump(const Command& command) {
    const std::optional<std::string> path = command.Bare(0);
    if (!path) {
        return "a path is missing";
    }
    if (const std::string error = NeedPlotAsSet(); !error.empty()) {
        return error;
    }
    const auto dump = [this](JsonLayout layout, const PutBytes& put) {
        const auto& form = static_cast<const RecordingForm&>(FormOf(gActivePlot));
        return DumpActivePlot(prompts_, form.Plot(), layout, put);
    };
    if (*path == kStandardStream) {
        // One line, as every answer of a script.
        return dump(JsonLayout::OneLine,
                    [this](std::string_view bytes) {
                        return static_cast<bool>(
                            out_.write(bytes.data(), static_cast<std::streamsize>(bytes.size())));
                    })
                   ? ""
                   : "standard output could not be written";
    }
    const std::string error = WriteFileAtomically(*path, [&dump](const PutBytes& put) {
        try {
            // Of a write that fails the file knows why.
            return dump(JsonLayout::Lines, put) ? std::string() : std::string("it is cut short");
        } catch (const std::bad_alloc&) {
            return std::string("there is not enough memory");
        }
    });
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
    *answers_ << *text << '\n';
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
    const std::string error = NeedPlot();
    return error.empty() ? SaveToFile(command) : error;
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
    std::string error = RefusalOfField(*field, *value);
    const bool showedSecondary = ActiveRecord().ShowSecondary != 0;
    if (error.empty()) {
        error = SetField(ActiveRecord(), *field, *value);
    }
    if (error.empty()) {
        setPlots_.insert(gActivePlot);
        if (IsEditOfPlot(field->substr(0, field->find('[')))) {
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
    if (const LoadCounters* load = LoadOf(ActivePlot());
        load != nullptr && ActiveRecord().NumFiles > 0) {
        *answers_ << LoadText(*load) << '\n';
    }
    *answers_ << (text.empty() ? "No. of Data = " + std::to_string(ActiveRecord().NumValidData)
                               : text)
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
        std::string reason;
        return SaveWorkspaceAs(*path, PlotsSavedAsText::List, &reason) == WorkspaceOutcome::Saved
                   ? std::string()
                   : "'" + *path + "' was not saved: " + reason;
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

// SPDX-License-Identifier: MIT

#include "batch/batch_session.h"

#include "batch/export_command.h"
#include "batch/fabric_command.h"
#include "batch/key_values.h"
#include "batch/plot_commands.h"
#include "batch/save_command.h"
#include "batch/suggested_format.h"
#include "core/data_format.h"
#include "core/formulas.h"
#include "core/messages.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "core/settings.h"
#include "drawing/plot_state.h"
#include "input/file_loading.h"
#include "pdf/pdf_file.h"
#include "persistence/open_plot.h"
#include "platform/scripted/recording_form.h"
#include "session/closing.h"
#include "session/recalculate.h"
#include "session/start.h"

#include <algorithm>
#include <optional>
#include <ostream>

namespace quandrel {

namespace {

/// A text of several lines on one line.
std::string OnOneLine(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

std::string ChooseFormulasOfPreferences(const std::string& name) {
    for (const Formulas formulas : {Formulas::Own, Formulas::Textbook}) {
        if (name == NameOf(formulas)) {
            UseFormulas(formulas);
            return {};
        }
    }
    return name == "preferences" ? "no plot is open that could follow the preferences"
                                 : "'" + name + "' is neither own nor textbook";
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
        const auto chosen = std::ranges::find(question.tables, stated_.table, &NamedTable::name);
        const auto table =
            static_cast<std::size_t>(stated_.table.empty() ? 0 : chosen - question.tables.begin());
        if (table >= question.tables.size() && !stated_.table.empty()) {
            log_ << "the file has no table '" << stated_.table << "'\n";
            return std::nullopt;
        }
        if (stated_.isSuggested) {
            const Result<FormatAnswer> answer = TakeSuggestedFormat(question, table);
            if (!answer) {
                log_ << answer.Error() << '\n';
            }
            return answer ? std::optional(*answer) : std::nullopt;
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
        answer.table = table;
        return answer;
    });
    gPlatform = {};
    gPlatform.prompts = &prompts_;
    gPlatform.status = &status_;
    gPlatform.settings = &settings_;
    gPlatform.clipboard = &clipboard_;
    gPlatform.printers = &printers_;
    gPlatform.makePlotForm = [](int) { return std::make_unique<RecordingForm>(); };
    OpenState::now.readPdf = AttachmentOfPdf;
    OpenState::now.sheets = this;
    InitialiseApplication();
    gSettings.newPlots.style = {}; // scripts choose a style by a command
    SetOutsideFiles(outside);
    firstFormat_ = gSettings.format;
}

BatchSession::~BatchSession() {
    OpenState::now.sheets = nullptr;
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
        {"export", {&BatchSession::Export, {1, ExportKeys()}}},
        {"fabric", {&BatchSession::Fabric, {1, {kFabricOf, kFabricKind, kFabricSize}}}},
        {"figure", {&BatchSession::Figure, its}},
        {"format", {&BatchSession::Format, its}},
        {"formulas", {&BatchSession::ChooseFormulas, one}},
        {"get", {&BatchSession::Get, one}},
        {"maxima", {&BatchSession::Maxima, none}},
        {"merge", {&BatchSession::MergeFile, one}},
        {"open", {&BatchSession::Open, one}},
        {"overlay", {&BatchSession::Overlay, one}},
        {"region", {&BatchSession::Region, its}},
        {"save", {&BatchSession::Save, {2, {"lines"}}}},
        {"set", {&BatchSession::Set, {2, {}}}},
        {"stats", {&BatchSession::Stats, one}},
        {"suggest", {&BatchSession::Suggest, one}},
        {"tests", {&BatchSession::Tests, its}},
        {"workspace", {&BatchSession::Workspace, {2, {}}}},
    };
    return handlers;
}

std::string BatchSession::Run(const Command& command) {
    const std::string error = RunCommand(command);
    answers_->flush(); // the author of the script may be waiting for the answer
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

std::string BatchSession::Activate(const Command& command) {
    const std::optional<int> slot = WholeNumber(command.Bare(0).value_or(""), 1, HighestSlot());
    if (!slot || !IsOpenSlot(*slot)) {
        return "'" + command.Words() + "' is not an open plot";
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
            return "'" + (name.empty() ? value : name + "=" + value) + "' is not a button";
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

std::string BatchSession::Format(const Command& command) {
    return ApplyFormatArguments(command.arguments, firstFormat_, stated_);
}

std::string BatchSession::ChooseFormulas(const Command& command) {
    if (!IsOpenSlot(gActivePlot)) {
        return ChooseFormulasOfPreferences(command.Words());
    }
    std::int16_t choice = kFormulasOfPreferences;
    const std::string error = TakeName({{"preferences", kFormulasOfPreferences},
                                        {NameOf(Formulas::Own), kOwnFormulas},
                                        {NameOf(Formulas::Textbook), kTextbookFormulas}},
                                       command.Words(), choice);
    if (error.empty()) {
        UsePlotFormulas(gActivePlot, choice);
    }
    return error;
}

std::string BatchSession::Save(const Command& command) {
    const std::string error = NeedPlot();
    return error.empty() ? SaveToFile(command) : error;
}

} // namespace quandrel

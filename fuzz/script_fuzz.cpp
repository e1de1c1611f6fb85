// SPDX-License-Identifier: MIT
//
// Arbitrary text as a script: it is read whole and in pieces, which must give the same commands.
// The commands that act on a plot's fields, roses, classes, girdles, circles, rotations and rows
// are run on a small plot. The first byte says where the text is cut into pieces.

#include "batch/annotate_commands.h"
#include "batch/classify_command.h"
#include "batch/edit_commands.h"
#include "batch/field_access.h"
#include "batch/field_rules.h"
#include "batch/format_command.h"
#include "batch/girdle_commands.h"
#include "batch/rose_command.h"
#include "batch/rotate_command.h"
#include "batch/script.h"
#include "core/data_format.h"
#include "core/plot_store.h"
#include "edit/history/undo.h"
#include "fuzz_engine.h"
#include "rotation/rotate_data.h"
#include "support/plot_rows.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {
namespace {

constexpr std::size_t kMostCommands = 12; ///< number of commands of a script that are run

/// The commands of a script as texts, and the reason for its end.
struct ReadScript {
    std::vector<std::string> commands;
    std::string error;

    bool operator==(const ReadScript&) const = default;
};

std::string TextOf(const Command& command) {
    std::string text = std::to_string(command.line) + ' ' + command.name;
    for (const Argument& argument : command.arguments) {
        text += '\0' + argument.name + '\1' + argument.value;
    }
    return text;
}

/// Reads the commands that a reader has; false at the end or after a failure.
bool TakeCommands(ScriptReader& reader, ReadScript& read) {
    for (;;) {
        const Result<std::optional<Command>> next = reader.Next();
        if (!next) {
            read.error = next.Error();
            return false;
        }
        if (!*next) {
            return true;
        }
        read.commands.push_back(TextOf(**next));
    }
}

ReadScript ReadInPieces(std::string_view text, std::size_t piece, CommandBreak breaks) {
    ScriptReader reader(breaks);
    ReadScript read;
    for (std::size_t at = 0; at < text.size(); at += piece) {
        reader.Add(text.substr(at, piece));
        if (!TakeCommands(reader, read)) {
            return read;
        }
    }
    reader.End();
    TakeCommands(reader, read);
    return read;
}

void CheckReading(std::string_view text, std::size_t piece, CommandBreak breaks) {
    const Result<std::vector<Command>> whole = ParseScript(text, breaks);
    const ReadScript read = ReadInPieces(text, piece, breaks);
    Require(static_cast<bool>(whole) == read.error.empty());
    if (!whole) {
        Require(whole.Error() == read.error);
        return;
    }
    Require(std::ranges::equal(*whole, read.commands, {}, TextOf));
}

/// Rows of planes with slip lines, a number and a text.
void NewPlot() {
    ForgetUndo();
    ForgetRotation();
    TakeFreshPlot();
    PlotRecord& record = ActiveRecord();
    record.PrimaryFormat = kPrimaryPlane;
    record.DataKind = kPlanes;
    for (const auto& [dip, azimuth] : {std::pair{30, 120}, {45, 270}, {60, 10}, {80, 200}}) {
        AddRow(dip, azimuth);
    }
}

std::string SetByWords(const Command& command) {
    const std::optional<std::string> field = command.Bare(0);
    const std::optional<std::string> value = command.Bare(1);
    if (!field || !value) {
        return "a field and a value are required";
    }
    const std::string refusal = RefusalOfField(*field, *value);
    return refusal.empty() ? SetField(ActiveRecord(), *field, *value) : refusal;
}

using Act = std::function<std::string(const Command&)>;

const std::map<std::string, Act>& Acts() {
    static const FormatSettings first = gSettings.format;
    static const std::map<std::string, Act> acts = {
        {"addpoint", [](const Command& c) { return ApplyAddPointArguments(c.arguments); }},
        {"annotate", [](const Command& c) { return ApplyAnnotateArguments(c.arguments); }},
        {"classify", [](const Command& c) { return ApplyClassArguments(c.arguments); }},
        {"edit", [](const Command& c) { return EditByWords(c.Words()); }},
        {"format",
         [](const Command& c) {
             StatedFormat stated;
             return ApplyFormatArguments(c.arguments, first, stated);
         }},
        {"get",
         [](const Command& c) {
             const auto text = FieldText(ActiveRecord(), c.Bare(0).value_or(""));
             return text ? *text : text.Error();
         }},
        {"girdle", [](const Command& c) { return ApplyGirdleArguments(c.arguments); }},
        {"layer", [](const Command& c) { return ChooseLayer(c.Words()); }},
        {"redo", [](const Command&) { return MakeEditAgain(); }},
        {"rose", [](const Command& c) { return ApplyRoseArguments(c.arguments); }},
        {"rotate",
         [](const Command& c) {
             std::string note;
             return ApplyRotateArguments(c.arguments, note);
         }},
        {"select", [](const Command& c) { return SelectByWords(c.Words()); }},
        {"set", SetByWords},
        {"smallcircle", [](const Command& c) { return ApplySmallCircleArguments(c.arguments); }},
        {"undo", [](const Command&) { return TakeEditBack(); }},
    };
    return acts;
}

void RunCommands(const std::vector<Command>& commands) {
    const ScriptedAnswers answers;
    (void)Acts().at("format")({}); // reset to the state before any script
    NewPlot();
    std::size_t run = 0;
    for (const Command& command : commands) {
        const auto act = Acts().find(command.name);
        if (act != Acts().end() && run++ < kMostCommands) {
            (void)act->second(command);
        }
    }
    const PlotRecord& record = ActiveRecord();
    Require(record.NumValidData >= 0 && record.NumValidData <= record.NumData);
    Require(record.NumData <= record.NumLoadedData);
}

} // namespace
} // namespace quandrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quandrel;
    UseEngine(Drawings::None);
    if (size == 0) {
        return 0;
    }
    const std::size_t piece = data[0] % 16 + 1;
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    CheckReading(text, piece, CommandBreak::LineOnly);
    CheckReading(text, piece, CommandBreak::SemicolonToo);
    if (const auto commands = ParseScript(text, CommandBreak::SemicolonToo)) {
        RunCommands(*commands);
    }
    return 0;
}

// SPDX-License-Identifier: MIT
//
// Session commands that show the active plot and its fields.

#include "batch/batch_session.h"
#include "batch/density_command.h"
#include "batch/dump.h"
#include "batch/export_command.h"
#include "batch/fabric_command.h"
#include "batch/field_access.h"
#include "batch/field_rules.h"
#include "batch/key_values.h"
#include "batch/region_command.h"
#include "batch/sheet_command.h"
#include "batch/standard_streams.h"
#include "batch/suggest_command.h"
#include "batch/tests_command.h"
#include "core/atomic_file.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "core/plot_texts.h"
#include "core/replot.h"
#include "input/load_report.h"
#include "platform/scripted/recording_form.h"
#include "qt/plot_picture.h"
#include "session/reference.h"
#include "statistics/confidence_cone.h"
#include "statistics/plot_region_texts.h"
#include "stereo/axis_rows.h"
#include "stereo/row_positions.h"

#include <nlohmann/json.hpp>

#include <new>
#include <optional>
#include <ostream>

namespace quandrel {

namespace {

/// The set that is now shown is plotted as its own kind.
void FollowShownSet(PlotRecord& record) {
    record.DataKind = DataKindOfSet(ShowsPlaneData(record), record.DataKind);
}

/// The current statistics of a kind.
std::string StatisticsText(const std::string& kind) {
    if (kind == "reference") {
        return TextOfReference(ReferenceOfActivePlot());
    }
    const PlotStatistics& texts = StatisticsOf(ActivePlot());
    return kind == "advanced" ? texts.advanced : texts.normal;
}

} // namespace

/// Shows or hides the 95% confidence cone, and prints it if it is visible.
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
        // One line, like every answer to a script.
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
            // If a write fails, the file object has the reason.
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
    const Result<PictureOptions> options = OptionsOfExport(command);
    return options ? SavePlotPicture(*path, *options) : options.Error();
}

/// Draws a fabric plot, and prints its values as one line of JSON.
std::string BatchSession::Fabric(const Command& command) {
    std::string error = NeedPlotAsSet();
    std::vector<FabricPoint> points;
    if (error.empty()) {
        error = MakeFabricPlot(command, points);
    }
    if (error.empty()) {
        *answers_ << FabricJson(points).dump(-1, ' ', false,
                                             nlohmann::json::error_handler_t::replace)
                  << '\n';
    }
    return error;
}

std::string BatchSession::Suggest(const Command& command) {
    const std::optional<std::string> path = command.Bare(0);
    if (!path) {
        return "the file is missing";
    }
    const Result<std::string> text = SuggestionsOfFile(*path);
    if (!text) {
        return text.Error();
    }
    *answers_ << *text;
    return {};
}

/// Acts on the figure sheet.
std::string BatchSession::Figure(const Command& command) {
    if (AddsActivePlot(command)) {
        if (const std::string error = NeedPlotAsSet(); !error.empty()) {
            return error;
        }
    }
    const Result<std::string> text = ApplySheetCommand(command, sheet_);
    if (!text) {
        return text.Error();
    }
    const std::string act = command.Bare(0).value_or("");
    if (act == "open" || act == "save") {
        sheetFile_ = {NormalPath(*command.Bare(1)), sheet_};
    }
    *answers_ << *text;
    return {};
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

std::string BatchSession::Set(const Command& command) {
    const std::optional<std::string> field = command.Bare(0);
    const std::optional<std::string> value = command.Bare(1);
    if (!field || !value) {
        return "a field and a value are required";
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

std::string BatchSession::Maxima(const Command&) {
    if (const std::string error = NeedPlotAsSet(); !error.empty()) {
        return error;
    }
    const std::string table = MaximaText();
    if (table.empty()) {
        return "the plot shows no density of a method other than the counting cone in per cent";
    }
    *answers_ << table;
    return {};
}

/// Chooses the confidence regions, and prints those that the plot has now.
std::string BatchSession::Region(const Command& command) {
    if (const std::string error = NeedPlot(); !error.empty()) {
        return error;
    }
    const std::string error = ApplyRegionArguments(command.arguments);
    if (error.empty()) {
        *answers_ << TextOfRegions(ActivePlot(), "\n");
    }
    return error;
}

std::string BatchSession::Stats(const Command& command) {
    if (const std::string error = NeedPlotAsSet(); !error.empty()) {
        return error;
    }
    const std::string kind = command.Bare(0).value_or("normal");
    if (kind != "normal" && kind != "advanced" && kind != "reference") {
        return "'" + kind + "' is not one of normal, advanced, reference";
    }
    const std::string text = StatisticsText(kind);
    if (const LoadCounters* load = LoadOf(ActivePlot());
        load != nullptr && ActiveRecord().NumFiles > 0) {
        *answers_ << LoadText(*load, ActiveRecord()) << '\n';
    }
    *answers_ << (text.empty() ? "No. of Data = " + std::to_string(ActiveRecord().NumValidData)
                               : text)
              << '\n';
    return {};
}

/// Prints the statistical tests of the plot's rows.
std::string BatchSession::Tests(const Command& command) {
    if (const std::string error = NeedPlotAsSet(); !error.empty()) {
        return error;
    }
    const Result<std::string> json = TestsJson(command.arguments);
    if (!json) {
        return json.Error();
    }
    *answers_ << *json << '\n';
    return {};
}

} // namespace quandrel

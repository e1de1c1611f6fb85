// SPDX-License-Identifier: MIT

#include "mapinfo/table_paste.h"

#include "core/measured_rows.h"
#include "core/messages.h"
#include "core/plot_life.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "edit/history/edit_step.h"
#include "edit/rows/paste_rows.h"
#include "edit/rows/pasted_format.h"
#include "input/file_loading.h"
#include "input/line_loop.h"
#include "input/plot_files.h"
#include "mapinfo/geo_link.h"
#include "mapinfo/head_file.h"
#include "mapinfo/map_link.h"
#include "mapinfo/table_reader.h"
#include "platform/platform.h"

#include <exception>
#include <utility>

namespace quandrel {

namespace {

constexpr const char* kTitleStart = "MapInfo Table:";
constexpr std::string_view kTabs = "\t";

/// A paste, from the checks to the link. Works on gActivePlot.
class TablePaste {
public:
    TablePaste(std::string table, std::string command, TableShape shape, const std::string& head)
        : table_(std::move(table))
        , command_(std::move(command))
        , shape_(std::move(shape))
        , head_(table_, head)
        , plot_(ActivePlot())
        , record_(plot_.record) {}

    /// False when nothing was pasted.
    [[nodiscard]] bool Run() {
        while (AskFormat() && SetUpPlot()) {
            const PassEnd end = ReadRows();
            if (!IsMapInfoLinked()) {
                break; // an incomplete table is not pasted
            }
            if (end != PassEnd::Left && (end == PassEnd::Retry || LoadFailed(LastLoad()))) {
                DropRows();
                continue;
            }
            if (LastLoad().rowsValid == 0) {
                break;
            }
            Finish();
            return true;
        }
        DropRows();
        RestoreState(plot_, before_);
        return false;
    }

private:
    [[nodiscard]] bool Joins() const { return command_ == kMergeCommand && joinsRows_; }

    [[nodiscard]] bool AskFormat() {
        gFileDelimiter = kTabs;
        gSettings.format.hasHeadings = true;
        FormatQuestion question;
        question.path = head_.Path();
        question.command = command_ == kMergeCommand ? kMergeCommand : kNewCommand;
        question.showSecondary = answer_.plotSecondary;
        question.frequencyColumn = answer_.frequencyColumn;
        question.columnHeadings = true;
        const std::optional<FormatAnswer> answer = gPlatform.prompts->AskFormat(question);
        if (answer) {
            answer_ = *answer;
        }
        return answer.has_value();
    }

    /// Gives an empty plot the format, or asks whether rows of this kind may join the others.
    [[nodiscard]] bool SetUpPlot() {
        PastedFormat pasted;
        pasted.settings = gSettings.format;
        pasted.dataKind = gPlotDataKind;
        pasted.showsSecondary = answer_.plotSecondary && gSecondaryDataType != kNoSecondary;
        if (!Joins()) {
            TakeFormat(pasted.showsSecondary);
            overlay_ = 0;
            target_ = {0, record_.SecondaryFormat, false, false};
            return true;
        }
        if (const auto question = QuestionBeforePaste(record_, pasted);
            question && !AskYes(*question)) {
            return false;
        }
        overlay_ = record_.OverlayRows[kOverlayCount];
        target_ = TargetOfPaste(record_, pasted, overlay_);
        return true;
    }

    void TakeFormat(bool showsSecondary) {
        SetPlotFormatFromGlobals();
        record_.PlotKind = gPrimaryDataType <= kDirections ? std::int16_t{kRose} : formerKind_;
        record_.NumFiles = 0;
        record_.ShowSecondary = showsSecondary ? kTrue : std::int16_t{0};
        if (showsSecondary) {
            record_.DataKind = DataKindOfSet(gSecondaryDataType == kSecondaryPlane, gPlotDataKind);
        }
        record_.HasFrequencyColumn = answer_.frequencyColumn ? kTrue : std::int16_t{0};
        ResetAppendedRange();
    }

    /// Values of the session have decimal points in every region.
    [[nodiscard]] LineFormat FormatOfRows() const {
        LineFormat format = LineFormatFromGlobals(overlay_ > 0);
        if (record_.SecondaryFormat == kNoSecondary) {
            format.secondary = kNoSecondary;
        }
        format.wantLine = gFileLineAppended && record_.HasAppendedLine != 0;
        format.wantNumber = gFileNumericAppended && record_.HasAppendedNumeric != 0;
        format.wantText = gFileNonNumericAppended && record_.HasAppendedText != 0;
        format.decimalIsComma = false;
        format.convertDecimals = false;
        format.neededColumns = HighestColumnNeeded(format) + 1;
        return format;
    }

    [[nodiscard]] PassEnd ReadRows() {
        const BusyPointer busy(*gPlatform.status);
        gPlatform.status->SetText("Please wait - pasting MapInfo Table");
        PassEnd end = PassEnd::Left;
        gBusy = true;
        try {
            end = ReadTableRows(table_, shape_, FormatOfRows(), target_, LastLoad(), link_);
        } catch (const std::exception& error) {
            ReportLoadFailure(LastLoad(), error.what());
        }
        gBusy = false;
        LastLoad().rowsWithDecimals =
            CountRowsWithDecimals(plot_.rows, before_.counts.all + 1, record_.NumLoadedData);
        if (end == PassEnd::Done && IsMapInfoLinked()) {
            ReportLoadSummary(LastLoad(), record_);
        }
        return end;
    }

    /// Removes the rows of a pass.
    void DropRows() {
        CutRows(plot_, before_.counts);
        RestoreRanges(record_, before_);
        link_ = {};
    }

    void Finish() {
        record_.RowsChanged = kTrue;
        record_.ClassifyCheckPending = kTrue;
        NamePlot();
        KeepLoad(plot_, LastLoad());
        gMIGeoLinks.Add(gActivePlot, std::move(link_));
        record_.MapInfoLinked = kTrue;
    }

    void NamePlot() {
        const std::string title = kTitleStart + table_;
        if (Joins()) {
            record_.PlotTitle += " + " + title;
        } else {
            record_.PlotTitle = title + ": " + std::to_string(gActivePlot);
        }
        if (!Joins() || record_.FileTitle.empty()) {
            record_.FileTitle = title;
        }
    }

    std::string table_;
    std::string command_;
    TableShape shape_;
    HeadFile head_;
    Plot& plot_;
    PlotRecord& record_;
    PlotBeforeLoad before_ = StateOf(ActiveRecord());
    std::int16_t formerKind_ = record_.PlotKind;
    bool joinsRows_ = record_.NumLoadedData > 0;
    FormatAnswer answer_;
    int overlay_ = 0;
    RowTarget target_;
    MIGeoLink link_;
};

/// True when the active plot can take the rows of a table.
[[nodiscard]] bool TakesTable(const std::string& command) {
    if (command != kMergeCommand) {
        return true;
    }
    if (!IsOpenSlot(gActivePlot) || gMIGeoLinks.Item(gActivePlot) != nullptr) {
        return false;
    }
    // Rows computed from another plot are not mixed with others.
    const PlotRecord& record = ActiveRecord();
    return record.DataFull == 0 && record.KinematicState == 0 && record.AxesTitle.empty();
}

/// Facts about a table before its rows are read: its shape, and its first rows. Nothing, with a
/// message, when it cannot be pasted.
[[nodiscard]] std::optional<TableShape> ReadHead(const std::string& table,
                                                 const std::string& command, std::string& head) {
    const auto refuse = [](const std::string& text) {
        TellInMapAction(text);
        return std::nullopt;
    };
    std::optional<TableShape> shape = ReadTableShape(table);
    if (!shape) {
        return refuse("Couldn't get information from " + table + "\nPlease check your settings");
    }
    if (shape->columns < 1 || !TakesTable(command)) {
        return refuse("The selected Table cannot be pasted into the current Quandrel plot.\n"
                      "Check that the Table is of a type that is suitable for linking");
    }
    if (!ReadColumnNames(table, *shape)) {
        return refuse("Couldn't get information from " + table + "\nPlease check your settings");
    }
    if (shape->rows == 0) {
        return refuse("The table " + table + " has no rows.");
    }
    if (!MIDo("Fetch First From " + table)) {
        return refuse("Couldn't fetch the first row of " + table);
    }
    SetMIStatus("Please wait - pasting MapInfo Table");
    head = TableHead(table, *shape);
    return shape;
}

bool IsEmptyPlot() {
    return IsOpenSlot(gActivePlot) && ActiveRecord().NumLoadedData == 0
           && gMIGeoLinks.Item(gActivePlot) == nullptr;
}

/// Opens a window for the rows if they need one.
[[nodiscard]] bool OpenWindowFor(const std::string& command) {
    const bool needsNone = command == kMergeCommand || (command == kBlankCommand && IsEmptyPlot());
    return needsNone || PrepareNewPlotWindow();
}

std::string Paste(const std::string& table, const std::string& command) {
    std::string head;
    std::optional<TableShape> shape = ReadHead(table, command, head);
    const std::int32_t formerPlot = gActivePlot;
    if (!shape || !IsMapInfoLinked() || !OpenWindowFor(command)) {
        return kLoadError;
    }
    const bool isNewWindow = gActivePlot != formerPlot;
    const FormatBefore former;
    const bool isPasted = TablePaste(table, command, *std::move(shape), head).Run();
    SetMIStatus("");
    // Settings made for the table do not apply to files.
    if (isPasted) {
        gFileDelimiter = former.format.delimiter;
        gSettings.format.hasHeadings = former.format.hasHeadings;
        gPlotKind = kEqualArea;
        FinishUnkeptRows(gActivePlot, Redraw::Plot);
        if (gPlatform.mapLink.tablePlotted) {
            gPlatform.mapLink.tablePlotted(command);
        }
        return command;
    }
    former.PutBack();
    if (isNewWindow) {
        ClosePlot(gActivePlot);
        gActivePlot = IsOpenSlot(formerPlot) ? formerPlot : gActivePlot;
    }
    return kLoadError;
}

} // namespace

std::string PasteMITable(const std::string& table, const std::string& command) {
    std::string outcome = kLoadError;
    if (gBusy) {
        return outcome;
    }
    InMapAction([&] {
        outcome = Paste(table, command);
        if (!IsMapInfoLinked()) {
            TellInMapAction(kCommandFailed);
        }
        RefreshAfterMapAction();
    });
    return outcome;
}

} // namespace quandrel

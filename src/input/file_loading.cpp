// SPDX-License-Identifier: MIT

#include "input/file_loading.h"

#include "core/data_format.h"
#include "core/letter_case.h"
#include "core/messages.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "core/result.h"
#include "core/settings.h"
#include "input/format_model.h"
#include "input/further_files.h"
#include "input/line_loop.h"
#include "input/parameter_line.h"
#include "input/plot_files.h"
#include "input/table_files.h"
#include "input/text_file.h"
#include "platform/platform.h"
#include "stereo/axis_rows.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <utility>
#include <vector>

namespace quandrel {

namespace {

/// True when the main rows of a plot hold planes in their primary columns.
bool MainRowsArePlanes(const PlotRecord& record) {
    return record.ShowSecondary != 0 ? record.PrimaryFormat == kPrimaryPlane
                                     : IsPlottedAsPole(record, 0);
}

/// True when the format in force reads planes, or lines that are to be plotted as planes.
bool FormatReadsPlanes() {
    return gPrimaryDataType == kPrimaryPlane
           || (gPrimaryDataType == kPrimaryLine && gPlotDataKind == kPlanes);
}

/// The kind of an overlay in the format in force. Planes are shown by their poles, whatever their
/// kind of plot.
std::int16_t KindOfOverlay(const PlotRecord& record) {
    const bool showsPlanes = record.ShowSecondary != 0 ? gSecondaryDataType == kSecondaryPlane
                                                       : gPrimaryDataType == kPrimaryPlane;
    if (showsPlanes) {
        return kOverlayPoles;
    }
    const bool isSecondaryLine = record.ShowSecondary != 0 && gPlotDataKind == kPlanes;
    return isSecondaryLine ? std::int16_t{kOverlayLines} : gPlotDataKind;
}

/// A load of a text file, from its parameter lines to its rows.
class TextLoad {
public:
    TextLoad(std::string command, std::string path, FormatDialog dialog)
        : command_(std::move(command))
        , path_(std::move(path))
        , dialog_(dialog)
        , plot_(ActivePlot())
        , record_(plot_.record) {}

    /// False when the load came to nothing.
    [[nodiscard]] bool Run() {
        const Result<std::string> text = TextOfFile(path_, tables_);
        if (!text) {
            Tell("The indicated file cannot be opened\n" + path_ + "\n" + text.Error());
            return false;
        }
        gFileDelimiter = tables_.empty() ? gFileDelimiter : "\t";
        items_ = ReadParameterLines(*text, gSettings.format.comments);
        const auto further = FurtherFilesOf(path_, items_.extraFiles);
        if (!further) {
            return false;
        }
        furtherFiles_ = *further;
        missingFiles_ = MissingFilesOf(path_, items_.extraFiles);
        saysAll_ = dialog_ == FormatDialog::ForeignFiles && items_.isOwnText;
        ApplyParameterItems();
        if (!AskFormat() || !Accept()) {
            return false;
        }
        EnterFile();
        if (!LoadFile(tables_.empty() ? *text : tables_[answer_.table].text)) {
            return false;
        }
        LoadFurtherFiles();
        if (IsNew() || fillsEmptyPlot_) {
            RestoreAxes(gActivePlot);
        }
        return true;
    }

    /// What the parameter lines of the file say.
    [[nodiscard]] const ParameterItems& Items() const { return items_; }

private:
    [[nodiscard]] bool IsNew() const { return command_ == kNewCommand; }

    [[nodiscard]] bool IsOverlay() const { return command_ == kOverlayCommand; }

    /// Puts what the file states into the format globals.
    void ApplyParameterItems() {
        ApplyFormatItems(items_);
        if (IsNew()) {
            ApplyNewPlotItems(items_);
        }
    }

    [[nodiscard]] bool AskFormat() {
        FormatQuestion question;
        question.path = path_;
        question.command = command_;
        question.plotKindFromFile = items_.T.value_or(0);
        // When asked again, the dialog shows what the user left.
        question.showSecondary = asked_ ? answer_.plotSecondary : items_.S.value_or(false);
        question.frequencyColumn = answer_.frequencyColumn;
        question.columnHeadings = gSettings.format.hasHeadings;
        question.isRepeated = asked_;
        question.tables = tables_;
        const bool isClear = saysAll_ && !asked_;
        asked_ = true;
        if (isClear && !items_.T) {
            gPlotDataKind = DataKindOfSet(gPrimaryDataType == kPrimaryPlane, kLines);
        }
        const std::optional<FormatAnswer> answer =
            isClear ? FormatAnswer{question.showSecondary, question.columnHeadings,
                                   question.frequencyColumn, 0}
                    : gPlatform.prompts->AskFormat(question);
        if (answer) {
            answer_ = *answer;
            gSettings.format.hasHeadings = answer->columnHeadings;
        }
        return answer.has_value();
    }

    [[nodiscard]] bool Accept() {
        if (IsNew()) {
            SetUpNewPlot();
            return true;
        }
        fillsEmptyPlot_ = !IsOverlay() && record_.NumLoadedData == 0 && record_.NumFiles == 0;
        if (fillsEmptyPlot_) {
            SetUpEmptyPlot();
        }
        return (IsOverlay() || AcceptOtherDataKind()) && AcceptFileAgain();
    }

    void SetUpNewPlot() {
        if (gPrimaryDataType <= kDirections) {
            gPlotKind = kRose;
        }
        SetPlotFormatFromGlobals();
        record_.PlotKind = gPlotKind;
        ChooseShownSet();
        record_.HasFrequencyColumn = answer_.frequencyColumn ? kTrue : std::int16_t{0};
        record_.FileTitle = FileTitleOf(path_);
        record_.PlotTitle = record_.FileTitle + ": " + std::to_string(gActivePlot);
        ResetAppendedRange();
        before_ = StateOf(record_);
    }

    /// Shows the secondary set where it was asked for and the rows hold one. The kind asked for is
    /// that of the primary set: lines in planes are not to be plotted as poles.
    void ChooseShownSet() {
        const bool isSecondary = answer_.plotSecondary && record_.SecondaryFormat != kNoSecondary;
        record_.ShowSecondary = isSecondary ? kTrue : std::int16_t{0};
        if (isSecondary) {
            record_.DataKind = DataKindOfSet(ShowsPlaneData(record_), gPlotDataKind);
        }
    }

    /// An empty plot takes the format of the first file that is merged into it.
    void SetUpEmptyPlot() {
        const std::int16_t files = record_.NumFiles;
        SetPlotFormatFromGlobals();
        record_.NumFiles = files;
        ChooseShownSet();
        if (gPrimaryDataType <= kDirections) {
            record_.PlotKind = kRose;
        }
    }

    /// True when the rows that the file's rows join hold planes.
    [[nodiscard]] bool TargetHoldsPlanes() const {
        const std::int32_t overlay = record_.OverlayRows[kOverlayCount];
        return overlay > 0 ? IsPlottedAsPole(record_, overlay) : MainRowsArePlanes(record_);
    }

    /// Asks about lines for a plot of planes, or planes for one of lines.
    [[nodiscard]] bool AcceptOtherDataKind() const {
        const bool fileHasPlanes = FormatReadsPlanes();
        if (TargetHoldsPlanes() == fileHasPlanes || record_.NumLoadedData == 0) {
            return true;
        }
        const std::string what = fileHasPlanes ? "planes with line data" : "lines with plane data";
        return AskToGoOn("You are trying to merge data you have indicated are " + what
                         + " in this plot\nContinue anyway?\n(This will transform your data into "
                           "the form already in this plot)");
    }

    [[nodiscard]] bool AcceptFileAgain() const {
        if (record_.DataFull != 0) {
            Tell("This plot already contains the maximum no. of data allowed by your memory "
                 "configuration.\n You cannot add any more data.");
            return false;
        }
        if (!IsInPlot(record_, path_)) {
            return true;
        }
        if (IsOverlay()) {
            Tell("You have already plotted this file");
            return false;
        }
        return TimesInPlot(record_, path_) < 2
               || AskToGoOn("This plot already contains data from this file. \nDo you really want "
                            "to include additional data from the same file?");
    }

    /// Enters the file in the plot's lists and titles.
    void EnterFile() {
        const std::string title = FileTitleOf(path_);
        if (IsNew()) {
            record_.NumFiles = 1;
            record_.FileNames[kFirstFile] = path_;
            record_.MainFiles = {path_};
            return;
        }
        if (IsOverlay()) {
            OpenOverlay(record_, KindOfOverlay(record_));
            record_.SelectedOverlay = 0;
        }
        AddToPlot(path_);
        if (record_.FileTitle.empty()) {
            record_.FileTitle = title;
        }
        record_.Modified = kTrue;
    }

    /// Adds a file to the lists and the title of the plot, which name each file only once.
    void AddToPlot(const std::string& path) {
        if (!IsInPlot(record_, path)) {
            record_.PlotTitle += " + " + FileTitleOf(path);
        }
        const auto overlay = static_cast<std::size_t>(record_.OverlayRows[kOverlayCount]);
        std::vector<std::string>& files =
            overlay > 0 ? record_.OverlayFiles[overlay] : record_.MainFiles;
        files.push_back(path);
        AddFileName(record_, path);
    }

    [[nodiscard]] LinePass PassFromGlobals() const {
        LinePass pass;
        pass.skipHeading = gSettings.format.hasHeadings;
        pass.target.overlay = record_.OverlayRows[kOverlayCount];
        if (record_.SecondaryFormat != kNoSecondary) {
            pass.target.secondaryFormat = gSecondaryDataType;
        }
        pass.format = LineFormatFromGlobals(record_.OverlayRows[kOverlayCount] > 0);
        pass.format.secondary = pass.target.secondaryFormat;
        // A file that joins a plot is parsed only for what both have.
        pass.format.wantLine = pass.format.wantLine && record_.HasAppendedLine != 0;
        pass.format.wantNumber = pass.format.wantNumber && record_.HasAppendedNumeric != 0;
        pass.format.wantText = pass.format.wantText && record_.HasAppendedText != 0;
        if (items_.isOwnText) {
            pass.format.secondaryMayBeMissing = true;
            pass.format.decimalIsComma = false;
        }
        pass.format.neededColumns = HighestColumnNeeded(pass.format) + 1;
        const bool joins = command_ == kMergeCommand;
        pass.target.turnToPole = joins && FormatReadsPlanes() != TargetHoldsPlanes();
        pass.target.turnSecondary = joins
                                    && (gSecondaryDataType == kSecondaryPlane)
                                           != (record_.SecondaryFormat == kSecondaryPlane);
        return pass;
    }

    /// Removes the rows of a pass that is to be repeated.
    void DropRows() {
        CutRows(plot_, countsBefore_);
        RestoreRanges(record_, before_);
    }

    /// Asks for the format once more. False when the user cancels or the plot does not accept it.
    [[nodiscard]] bool AskFormatAgain() {
        DropRows();
        if (!AskFormat()) {
            return false;
        }
        if (IsNew()) {
            SetUpNewPlot();
            return true;
        }
        if (fillsEmptyPlot_) {
            SetUpEmptyPlot();
            return true;
        }
        if (IsOverlay()) {
            SetOverlayKind(record_, record_.OverlayRows[kOverlayCount], KindOfOverlay(record_));
            return true;
        }
        return AcceptOtherDataKind();
    }

    /// One pass over a text, with progress bar and cursor.
    [[nodiscard]] PassEnd RunPass(std::string_view text, bool reportBadLines) {
        LinePass pass = PassFromGlobals();
        pass.reportBadLines = reportBadLines;
        const bool isFirst = IsNew() && record_.NumLoadedData == 0;
        std::string heading;
        PassEnd end = PassEnd::Left;
        gBusy = true;
        try {
            end = LoadDataLines(text, pass, LastLoad(), heading);
        } catch (const std::exception& error) {
            ReportLoadFailure(LastLoad(), error.what());
        }
        gBusy = false;
        if (reportBadLines) {
            LastLoad().missingFiles = missingFiles_; // named once, with the file that names them
        }
        if (end == PassEnd::Done) {
            ReportLoadSummary(LastLoad(), record_);
        }
        if (isFirst) {
            record_.FileHeadLine = heading;
        }
        return end;
    }

    /// Loads the rows of a text. False when that failed and the user does not want to go on.
    [[nodiscard]] bool LoadFile(std::string_view text) {
        const BusyPointer busy(*gPlatform.status);
        gPlatform.status->SetText("Please wait - loading data from " + FileTitleOf(path_));
        countsBefore_ = CountsOf(record_);
        for (;;) {
            const PassEnd end = RunPass(text, true);
            if (end == PassEnd::Left || (end == PassEnd::Done && !LoadFailed(LastLoad()))) {
                goOn_ = end == PassEnd::Done && !LastLoad().cancelled && !LastLoad().outOfMemory;
                break;
            }
            if (!AskFormatAgain()) {
                return false;
            }
        }
        if (LastLoad().rowsValid == 0) {
            DropRows();
            return false;
        }
        MarkRows();
        return true;
    }

    /// Updates what depends on the rows.
    void MarkRows() {
        record_.RowsChanged = kTrue;
        record_.ClassifyCheckPending = kTrue;
    }

    /// Loads the files named in the parameter lines after the first file. A file that is in the
    /// plot already, or cannot be read, is skipped.
    void LoadFurtherFiles() {
        const BusyPointer busy(*gPlatform.status);
        for (const std::string& further : furtherFiles_) {
            if (!goOn_ || record_.NumFiles >= kMaxFiles || IsInPlot(record_, further)) {
                continue;
            }
            if (const Result<std::string> text = ReadTextBytes(further)) {
                const LoadCounters first = LastLoad();
                goOn_ = RunPass(*text, false) == PassEnd::Done && !LastLoad().cancelled
                        && !LastLoad().outOfMemory;
                MarkRows();
                AddToPlot(further);
                LastLoad().missingFiles = first.missingFiles;
                AddCounters(first, LastLoad());
            }
        }
    }

    std::string command_;
    std::string path_;
    FormatDialog dialog_;
    Plot& plot_;
    PlotRecord& record_;
    ParameterItems items_;
    std::vector<std::string> furtherFiles_;
    std::vector<std::string> missingFiles_;
    std::vector<NamedTable> tables_; ///< of a file that is not text
    FormatAnswer answer_;
    bool asked_ = false;
    bool saysAll_ = false; ///< the format is not asked for
    PlotBeforeLoad before_ = StateOf(ActiveRecord());
    RowCounts countsBefore_; ///< before the rows of the first file
    bool fillsEmptyPlot_ = false;
    bool goOn_ = true; ///< further files may follow
};

} // namespace

std::string ReadTextFile(const std::string& command, const std::string& path, FormatDialog dialog) {
    const FormatBefore formerFormat;
    const PlotBeforeLoad formerState = StateOf(ActiveRecord());
    TextLoad load(command, path, dialog);
    if (load.Run()) {
        gSettings.format = AfterText(formerFormat.format, load.Items(), gSettings.format);
        KeepLoad(ActivePlot(), LastLoad());
        return command;
    }
    formerFormat.PutBack();
    RestoreState(ActivePlot(), formerState);
    gPlatform.status->SetText("Nothing was loaded from " + FileTitleOf(path));
    return kLoadError;
}

void SetPlotFormat(Plot& plot, const FormatSettings& format) {
    PlotRecord& record = plot.record;
    record.PrimaryFormat = format.primary;
    record.SecondaryFormat = format.secondary;
    record.HasAppendedLine = format.lineAppended ? kTrue : std::int16_t{0};
    record.HasAppendedNumeric = format.numericAppended ? kTrue : std::int16_t{0};
    record.HasAppendedText = format.nonNumericAppended ? kTrue : std::int16_t{0};
    record.AppNumName = format.numericName;
    record.AppNonNumName = format.nonNumericName;
    record.NumFiles = 1;
    ClearRows(plot);
    record.DataKind = format.plotDataKind;
    record.RoseType = 0;
    // The names stay from file to file; these two imply columns that are read alone.
    if (format.nonNumericAppended && LowerCase(record.AppNonNumName) == "mean wind speed") {
        record.RoseType = 4;
    }
    if (format.numericAppended && LowerCase(record.AppNumName) == "mean wind frequency") {
        record.RoseType = 1;
    }
}

void SetPlotFormatFromGlobals() {
    SetPlotFormat(ActivePlot(), gSettings.format);
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "input/file_loading.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/result.h"
#include "core/settings.h"
#include "input/format_model.h"
#include "input/line_loop.h"
#include "input/parameter_line.h"
#include "input/text_file.h"
#include "platform/platform.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <utility>
#include <vector>

namespace quandrel {

namespace {

[[nodiscard]] bool AskToGoOn(const std::string& text) {
    const Message question{gCaption, text, Icon::Question, Buttons::OkCancel};
    return gPlatform.prompts->Ask(question) == Button::Ok;
}

void Tell(const std::string& text) {
    (void)gPlatform.prompts->Ask({gCaption, text, Icon::Exclamation, Buttons::Ok});
}

std::string LowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return text;
}

bool IsInPlot(const PlotRecord& record, const std::string& path) {
    return std::find(record.FileNames.begin() + 1, record.FileNames.end(), path)
           != record.FileNames.end();
}

/// Adds a file to the list of a plot. A full list has no place for it, and its name is not kept.
void AddFileName(PlotRecord& record, const std::string& path) {
    if (record.NumFiles < kMaxFiles) {
        ++record.NumFiles;
        record.FileNames[static_cast<std::size_t>(record.NumFiles)] = path;
    }
}

/// What a plot says of its files and overlays.
struct FileLists {
    std::int16_t numFiles = 0;
    std::array<std::string, kMaxFiles + 1> names;
    std::vector<std::string> mainFiles;
    std::array<std::string, kMaxOverlays + 1> overlayTitles;
    std::string fileTitle;
    std::string plotTitle;
    std::int32_t overlays = 0;
};

FileLists FilesOf(const PlotRecord& record) {
    return {record.NumFiles,  record.FileNames, record.MainFiles,     record.OverlayTitles,
            record.FileTitle, record.PlotTitle, record.OverlayRows[0]};
}

void RestoreFiles(PlotRecord& record, const FileLists& files) {
    record.NumFiles = files.numFiles;
    record.FileNames = files.names;
    record.MainFiles = files.mainFiles;
    record.OverlayTitles = files.overlayTitles;
    record.FileTitle = files.fileTitle;
    record.PlotTitle = files.plotTitle;
    record.OverlayRows[0] = files.overlays;
}

/// A load of a text file, from its parameter lines to its rows.
class TextLoad {
public:
    TextLoad(std::string command, std::string path)
        : command_(std::move(command))
        , path_(std::move(path))
        , record_(ActiveRecord()) {}

    /// False when the load came to nothing.
    [[nodiscard]] bool Run() {
        const Result<std::string> text = ReadTextBytes(path_);
        if (!text) {
            Tell("The indicated file cannot be opened\n" + path_ + "\n" + text.Error());
            return false;
        }
        items_ = ReadParameterLines(*text);
        ApplyParameterItems();
        if (!AskFormat() || !Accept()) {
            return false;
        }
        EnterFile();
        if (!LoadFile(*text)) {
            return false;
        }
        LoadFurtherFiles();
        return true;
    }

private:
    [[nodiscard]] bool IsNew() const { return command_ == kNewCommand; }

    [[nodiscard]] bool IsOverlay() const { return command_ == kOverlayCommand; }

    /// What the file says of itself goes into the format globals.
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
        question.showSecondary = items_.S.value_or(false);
        question.columnHeadings = gFileHasHeadings;
        const std::optional<FormatAnswer> answer = gPlatform.prompts->AskFormat(question);
        if (answer) {
            answer_ = *answer;
            gFileHasHeadings = answer->columnHeadings;
        }
        return answer.has_value();
    }

    [[nodiscard]] bool Accept() {
        if (IsNew()) {
            SetUpNewPlot();
            return true;
        }
        return (IsOverlay() || AcceptOtherDataKind()) && AcceptFileAgain();
    }

    void SetUpNewPlot() {
        if (gPrimaryDataType <= kDirections) {
            gPlotKind = kRose;
        }
        SetPlotFormatFromGlobals();
        record_.PlotKind = gPlotKind;
        record_.ShowSecondary = answer_.plotSecondary ? kTrue : std::int16_t{0};
        record_.HasFrequencyColumn = answer_.frequencyColumn ? kTrue : std::int16_t{0};
        record_.FileTitle = FileTitleOf(path_);
        record_.PlotTitle = record_.FileTitle + ": " + std::to_string(gActivePlot);
        ResetAppendedRange();
    }

    /// Lines for a plot of planes, or planes for one of lines.
    [[nodiscard]] bool AcceptOtherDataKind() const {
        const bool plotHasPlanes = record_.DataKind == kPlanes;
        const bool fileHasPlanes = gPlotDataKind == kPlanes;
        if (plotHasPlanes == fileHasPlanes || record_.NumValidData == 0) {
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
        return record_.NumFiles < 2
               || AskToGoOn("This plot already contains data from this file. \nDo you really want "
                            "to include additional data from the same file?");
    }

    /// The file's place in the plot's lists and titles.
    void EnterFile() {
        const std::string title = FileTitleOf(path_);
        if (IsOverlay()) {
            OpenOverlay(title);
        } else if (record_.OverlayRows[0] == 0) {
            record_.MainFiles.push_back(path_);
        }
        if (IsNew()) {
            record_.NumFiles = 1;
            record_.FileNames[1] = path_;
            return;
        }
        if (!IsInPlot(record_, path_)) {
            record_.PlotTitle += " + " + title;
        }
        if (record_.FileTitle.empty()) {
            record_.FileTitle = title;
        }
        AddFileName(record_, path_);
        record_.Modified = kTrue;
    }

    void OpenOverlay(const std::string& title) {
        const auto overlay = static_cast<std::size_t>(++record_.OverlayRows[0]);
        record_.OverlayRows[overlay] = 0;
        // Planes are shown by their poles however they are to be plotted.
        record_.OverlayKind[overlay] = gPlotDataKind;
        if (gPrimaryDataType == kPrimaryPlane) {
            record_.OverlayKind[overlay] = kOverlayPoles;
        }
        record_.OverlayTitles[overlay] = title;
        record_.SelectedOverlay = 0;
    }

    [[nodiscard]] LinePass PassFromGlobals() const {
        LinePass pass;
        pass.firstRow = record_.NumLoadedData;
        pass.skipHeading = gFileHasHeadings;
        pass.target.overlay = record_.OverlayRows[0];
        if (record_.SecondaryFormat != kNoSecondary) {
            pass.target.secondaryFormat = gSecondaryDataType;
        }
        pass.format = LineFormatFromGlobals(record_.OverlayRows[0] > 0);
        pass.format.secondary = pass.target.secondaryFormat;
        pass.format.wantLine = record_.HasAppendedLine != 0;
        pass.format.wantNumber = record_.HasAppendedNumeric != 0;
        pass.format.wantText = record_.HasAppendedText != 0;
        if (items_.isOwnText) {
            pass.format.secondaryMayBeMissing = true;
            pass.format.decimalIsComma = false;
        }
        pass.format.neededColumns = HighestColumnNeeded(pass.format) + 1;
        const bool fileIsPlanes = gPrimaryDataType == kPrimaryPlane || gPlotDataKind == kPlanes;
        pass.target.turnToPole =
            pass.target.overlay == 0 && !IsNew() && fileIsPlanes != IsPlottedAsPole(record_, 0);
        return pass;
    }

    /// Takes back the rows of a pass that is to be repeated.
    void DropRows() {
        ResizeRowTable(TableOf(gActivePlot), static_cast<std::size_t>(record_.NumLoadedData));
        std::erase_if(gErrorLines[static_cast<std::size_t>(gActivePlot)],
                      [this](const auto& held) { return held.first > record_.NumLoadedData; });
        if (IsNew()) {
            ResetAppendedRange();
        }
    }

    /// Loads the rows of a text. False when nothing came of it, and the user does not want to go
    /// on.
    [[nodiscard]] bool LoadFile(std::string_view text) {
        const BusyPointer busy(*gPlatform.status);
        gPlatform.status->SetText("Please wait - loading data from " + FileTitleOf(path_));
        for (;;) {
            const LinePass pass = PassFromGlobals();
            gBusy = true;
            const PassEnd end = StoreLines(text, pass, gLastLoad, heading_);
            gBusy = false;
            if (end == PassEnd::Done) {
                ShowLoadSummary(gLastLoad);
            }
            const bool again =
                end == PassEnd::Retry || (end == PassEnd::Done && LoadFailed(gLastLoad));
            if (!again) {
                break;
            }
            DropRows();
            if (!AskFormat()) {
                return false;
            }
            if (IsNew()) {
                SetUpNewPlot();
                record_.NumFiles = 1;
            }
        }
        CountRows();
        return gLastLoad.rowsValid > 0 || !IsNew();
    }

    /// Takes the rows of the last pass into the plot's counts.
    void CountRows() {
        record_.FileHeadLine = heading_;
        record_.NumLoadedData += gLastLoad.rowsRead;
        if (record_.OverlayRows[0] == 0) {
            record_.NumData = record_.NumLoadedData;
            record_.NumValidData += gLastLoad.rowsValid;
        } else {
            record_.OverlayRows[static_cast<std::size_t>(record_.OverlayRows[0])] +=
                gLastLoad.rowsRead;
        }
        record_.RowsChanged = kTrue;
        record_.ClassifyCheckPending = kTrue;
    }

    /// The files that the parameter lines name go in behind the first one.
    void LoadFurtherFiles() {
        const std::filesystem::path folder = std::filesystem::path(path_).parent_path();
        for (const std::string& name : items_.extraFiles) {
            const std::string further = (folder / name).string();
            std::error_code unreadable;
            if (record_.NumFiles >= kMaxFiles || IsInPlot(record_, further)
                || !std::filesystem::is_regular_file(further, unreadable)) {
                continue;
            }
            const Result<std::string> text = ReadTextBytes(further);
            if (!text) {
                continue;
            }
            LoadCounters first = gLastLoad;
            LinePass pass = PassFromGlobals();
            pass.reportBadLines = false;
            (void)StoreLines(*text, pass, gLastLoad, heading_);
            CountRows();
            AddFileName(record_, further);
            record_.MainFiles.push_back(further);
            AddCounters(first, gLastLoad);
        }
    }

    /// The counts of all files of a load together.
    static void AddCounters(const LoadCounters& first, LoadCounters& sum) {
        sum.rowsRead += first.rowsRead;
        sum.rowsValid += first.rowsValid;
        sum.blankLines += first.blankLines;
        sum.invalidLines += first.invalidLines;
        sum.badNumeric += first.badNumeric;
        sum.badText += first.badText;
        sum.badLine += first.badLine;
    }

    std::string command_;
    std::string path_;
    PlotRecord& record_;
    ParameterItems items_;
    FormatAnswer answer_;
    std::string heading_;
};

} // namespace

std::string ReadTextFile(const std::string& command, const std::string& path) {
    const FormatSettings formerFormat = CurrentFormat();
    const FileLists formerFiles = FilesOf(ActiveRecord());
    TextLoad load(command, path);
    if (load.Run()) {
        return command;
    }
    RestoreFormat(formerFormat);
    RestoreFiles(ActiveRecord(), formerFiles);
    return kLoadError;
}

void SetPlotFormatFromGlobals() {
    PlotRecord& record = ActiveRecord();
    record.PrimaryFormat = gPrimaryDataType;
    record.SecondaryFormat = gSecondaryDataType;
    record.HasAppendedLine = gFileLineAppended ? kTrue : std::int16_t{0};
    record.HasAppendedNumeric = gFileNumericAppended ? kTrue : std::int16_t{0};
    record.HasAppendedText = gFileNonNumericAppended ? kTrue : std::int16_t{0};
    record.AppNumName = gFileAppNumName;
    record.AppNonNumName = gFileAppNonNumName;
    record.NumFiles = 1;
    record.NumData = 0;
    record.OverlayRows[0] = 0;
    record.DataKind = gPlotDataKind;
    if (LowerCase(record.AppNonNumName) == "mean wind speed") {
        record.RoseType = 4;
    }
    if (LowerCase(record.AppNumName) == "mean wind frequency") {
        record.RoseType = 1;
    }
}

void RemoveLastOverlay(int slot) {
    PlotRecord& record = RecordOf(slot);
    const std::int32_t last = record.OverlayRows[0];
    if (last < 1) {
        return;
    }
    const auto overlay = static_cast<std::size_t>(last);
    record.NumLoadedData -= record.OverlayRows[overlay];
    record.OverlayRows[overlay] = 0;
    record.OverlayKind[overlay] = 0;
    if (!record.OverlayTitles[overlay].empty() && record.NumFiles > 0) {
        record.FileNames[static_cast<std::size_t>(record.NumFiles)].clear();
        --record.NumFiles;
    }
    record.OverlayTitles[overlay].clear();
    record.OverlayRows[0] = last - 1;
    ResizeRowTable(TableOf(slot), static_cast<std::size_t>(record.NumLoadedData));
    record.Modified = kTrue;
}

std::string FileTitleOf(const std::string& path) {
    return std::filesystem::path(path).filename().string();
}

} // namespace quandrel

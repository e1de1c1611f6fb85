// SPDX-License-Identifier: MIT

#include "persistence/open_plot.h"

#include "core/messages.h"
#include "core/path_names.h"
#include "core/plot_life.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "core/settings.h"
#include "input/decimal_delimiter.h"
#include "input/file_loading.h"
#include "input/text_file.h"
#include "persistence/binary_plot_file.h"
#include "persistence/summary_plot.h"
#include "persistence/workspace_file.h"
#include "platform/platform.h"
#include "summary/summary_file.h"

#include <filesystem>
#include <optional>
#include <utility>
#include <vector>

namespace quandrel {

constinit OpenState OpenState::now;

namespace {

constexpr std::string_view kFileCommand = "File";
constexpr const char* kPictureFilter =
    "|Figures (*.qsheet)|*.qsheet|Summaries (*.qsum)|*.qsum|Pictures with their data (*.svg)|*.svg "
    "*.png *.pdf";
constexpr const char* kTableFilter =
    "|Spreadsheets and map tables (*.xlsx)|*.xlsx *.ods *.gpkg *.shp *.geojson *.tab *.mif";

bool NeedsNewPlot(const std::string& command) {
    return command != kMergeCommand && command != kOverlayCommand;
}

/// False, with a message, when the active plot cannot take another file or overlay.
[[nodiscard]] bool HasRoomFor(const std::string& command) {
    const PlotRecord& record = ActiveRecord();
    const bool isOverlay = command == kOverlayCommand;
    if (isOverlay && record.OverlayRows[kOverlayCount] >= kMaxOverlays) {
        Tell("You can't overlay more than 20 datasets in any one plot.\n"
             "This data set cannot be plotted.",
             Icon::Stop);
        return false;
    }
    if (record.NumFiles < kMaxFiles) {
        return true;
    }
    Tell(isOverlay ? "You can't have more than 20 total files in any one plot.\n"
                     "This data set cannot be plotted."
                   : "You can't have more than 20 files in any one plot.\n"
                     "If you want to use more data in this plot \n"
                     "save the merged data as an ASCII Quandrel file"
                     " Then replot the data as a single file.",
         Icon::Stop);
    return false;
}

std::string StartFolder() {
    if (!OpenState::now.hasOpened && !gSettings.files.lastFolder.empty()) {
        return gSettings.files.lastFolder;
    }
    return gSettings.files.folder.empty() && OpenState::now.hasOpened ? gSettings.files.lastFolder
                                                                      : gSettings.files.folder;
}

std::optional<std::string> AskForPath(const std::string& command) {
    PathQuestion question;
    question.title = command + " File";
    question.folder = StartFolder();
    question.filter =
        std::string(gFileFilter) + (command == kNewCommand ? kPictureFilter : "") + kTableFilter;
    question.filterIndex = OpenState::now.filterIndex;
    return gPlatform.prompts->AskOpenPath(question);
}

void RememberPath(const std::string& path) {
    OpenState::now.hasOpened = true;
    gSettings.files.lastFolder = std::filesystem::path(path).parent_path().string();
    OpenState::now.filterIndex = HasEnding(path, kBinaryEnding) ? 3
                                 : HasEnding(path, ".txt")      ? 2
                                                                : 1;
}

void WarnOfDecimalMismatch() {
    std::vector<std::string> texts;
    for (const auto& held : ActiveRecord().DistinctValues) {
        texts.push_back(TextOf(held[kOfTexts]));
    }
    if (DetectDecimalMismatch(texts, gDecimalIsComma) == 0) {
        return;
    }
    Tell(std::string("Apparent decimal values in your Appended data do not appear to use ")
             + (gDecimalIsComma ? "comma " : "period ")
             + "decimal delimiters as indicated in your Windows regional settings.\n"
               "These may give unexpected results if used as numeric values in certain types of "
               "plots!\n[Use the Preferences dialog to set automatic conversion of such data]",
         Icon::Exclamation);
}

/// A blank plot is a net, to which points can be added, even after files of directions.
void MakeBlankPlot() {
    SetPlotFormatFromGlobals();
    PlotRecord& record = ActiveRecord();
    if (record.PlotKind == kRose) {
        record.PlotKind = kEqualArea;
    }
    if (record.PrimaryFormat <= kDirections) {
        record.PrimaryFormat = kPrimaryPlane;
        record.SecondaryFormat = kNoSecondary;
        record.DataKind = kPlanes;
    }
    record.NumFiles = 0;
    record.PlotTitle = "Plot " + std::to_string(gActivePlot) + ": Untitled";
}

/// Draws the opened plot, and remembers the file.
void FinishOpening(const std::string& path, ReplotCause cause = ReplotCause::Settings) {
    ReplotPlot(gActivePlot, cause);
    if (!path.empty()) {
        AddRecentFile(path);
    }
}

/// Discards the new plot and brings another one into focus: the former one if it still exists.
void GiveUpPlot(std::int32_t formerPlot) {
    ClosePlot(gActivePlot);
    gActivePlot = IsOpenSlot(formerPlot) ? formerPlot : gActivePlot;
}

void TellUnreadable(const std::string& path, const std::string& reason) {
    Tell("The indicated file cannot be opened\n" + path + "\n" + reason, Icon::Exclamation);
}

/// Binary plot files and pictures cannot join a plot.
[[nodiscard]] bool AcceptAsSeparatePlot(const std::string& command) {
    return AskToGoOn("You can't " + command
                     + " this type of file with this plot.\nLoad file as a separate plot?");
}

/// The plot of a file that holds it: a binary plot file, or a picture.
enum class Holder { PlotFile, Picture };

/// The file that a picture holds.
Result<std::string> FileOfPicture(const std::string& path) {
    const Result<std::string> picture = FirstBytes(path, kLargestTextFile);
    return picture ? PlotFileOfPicture(*picture, OpenState::now.readPdf) : picture;
}

/// A plot that was read and validated before anything in the program changes.
std::string OpenBinaryPlot(Holder holder, const std::string& path, Result<BinaryPlot> plot) {
    if (!plot) {
        TellUnreadable(path, plot.Error());
        return kLoadError;
    }
    const std::int32_t formerPlot = gActivePlot;
    const BinaryPlotRemarks remarks = RemarksOn(*plot);
    if (!PrepareNewPlotWindow()) {
        return kLoadError;
    }
    const auto store = holder == Holder::Picture ? StorePlotOfPicture : StoreBinaryPlot;
    if (!store(std::move(*plot), path, gActivePlot)) {
        GiveUpPlot(formerPlot);
        TellUnreadable(path, kNoMemoryForPlot);
        return kLoadError;
    }
    TellRemarks(remarks);
    FinishOpening(path, ReplotCause::File);
    return kBinaryCommand;
}

/// A new plot is discarded when the load fails.
std::string OpenNewPlot(const std::string& path, FormatDialog dialog) {
    const std::int32_t formerPlot = gActivePlot;
    if (!PrepareNewPlotWindow()) {
        return kLoadError;
    }
    if (path.empty()) {
        MakeBlankPlot();
    } else if (ReadTextFile(kNewCommand, path, dialog) == kLoadError) {
        GiveUpPlot(formerPlot);
        return kLoadError;
    } else {
        WarnOfDecimalMismatch();
    }
    FinishOpening(path);
    return path.empty() ? kBlankCommand : kNewCommand;
}

std::string AddToPlot(const std::string& command, const std::string& path, FormatDialog dialog) {
    const std::string outcome = ReadTextFile(command, path, dialog);
    if (outcome == kLoadError) {
        ReplotActivePlot(false);
        return outcome;
    }
    WarnOfDecimalMismatch();
    FinishOpening(path);
    return outcome;
}

/// The kind of file at a path; empty with a message when it cannot be read.
enum class FileKind { Text, BinaryPlot, Picture, Summary, Workspace, Sheet, Unreadable };

FileKind KindOfFile(const std::string& path) {
    const Result<std::string> start = FirstBytes(path, 4096);
    if (!start) {
        TellUnreadable(path, start.Error());
        return FileKind::Unreadable;
    }
    if (IsBinaryPlotSignature(*start)
        || (HasEnding(path, kBinaryEnding) && start->starts_with("bin"))) {
        return FileKind::BinaryPlot;
    }
    if (KindOfPicture(*start)) {
        return FileKind::Picture;
    }
    if (IsSummarySignature(*start)) {
        return FileKind::Summary;
    }
    if (HasEnding(path, ".qsheet") || IsSheetText(*start)) {
        return FileKind::Sheet;
    }
    const std::string_view firstLine =
        std::string_view(*start).substr(0, start->find_first_of("\r\n"));
    const bool isWorkspace = HasEnding(path, kWorkspaceEnding)
                             || (LooksLikeWorkspace(firstLine) && HasFilesList(*start));
    return isWorkspace ? FileKind::Workspace : FileKind::Text;
}

/// @param text  of the sheet in a picture; null for the sheet of the file
std::string OpenSheet(const std::string& command, const std::string& path,
                      const std::string* text) {
    if (!NeedsNewPlot(command)) {
        Tell("You can't " + command + " a figure with a plot.\n" + path, Icon::Exclamation);
        return kLoadError;
    }
    if (OpenState::now.sheets == nullptr) {
        TellUnreadable(path, "It is a figure, and there is no window for figures.");
        return kLoadError;
    }
    SheetHolder& sheets = *OpenState::now.sheets;
    if (text != nullptr ? !sheets.OpenSheetOfPicture(path, *text) : !sheets.OpenSheet(path)) {
        return kLoadError;
    }
    AddRecentFile(path);
    return kSheetCommand;
}

/// Opens the plot or the sheet that a picture holds, by itself.
std::string OpenPicture(const std::string& path) {
    const Result<std::string> held = FileOfPicture(path);
    if (held && IsSheetText(*held)) {
        return OpenSheet(kNewCommand, path, &*held);
    }
    return OpenBinaryPlot(Holder::Picture, path,
                          held ? ReadBinaryPlot(*held) : Failure{held.Error()});
}

/// Opens a summary as a plot of its cells.
std::string OpenSummary(const std::string& path) {
    const Result<RowSummary> summary = ReadSummaryFile(path);
    return OpenBinaryPlot(Holder::Picture, path,
                          summary ? PlotOfSummary(*summary, gSettings) : Failure{summary.Error()});
}

/// A workspace among the files of a workspace is skipped: it might list itself.
std::string OpenListedPlots(const std::string& path) {
    if (std::exchange(OpenState::now.isOpeningWorkspace, true)) {
        return kLoadError;
    }
    const int formerPlots = CountOpenPlots();
    const std::optional<int> opened = OpenWorkspace(path);
    OpenState::now.isOpeningWorkspace = false;
    if (!opened) {
        return kLoadError;
    }
    if (*opened == 0) {
        Tell("None of the files that this workspace lists was opened\n" + path, Icon::Information);
        return kLoadError;
    }
    AddRecentFile(path);
    return CountOpenPlots() > formerPlots ? kNewCommand : kSheetCommand;
}

std::string OpenByKind(const std::string& command, const std::string& path, FormatDialog dialog) {
    const FileKind kind = KindOfFile(path);
    if (kind != FileKind::Unreadable) {
        RememberPath(path);
    }
    switch (kind) {
    case FileKind::Text:
        return NeedsNewPlot(command) ? OpenNewPlot(path, dialog) : AddToPlot(command, path, dialog);
    case FileKind::BinaryPlot:
        return NeedsNewPlot(command) || AcceptAsSeparatePlot(command)
                   ? OpenBinaryPlot(Holder::PlotFile, path, ReadBinaryPlotFile(path))
                   : kLoadError;
    case FileKind::Picture:
        return NeedsNewPlot(command) || AcceptAsSeparatePlot(command) ? OpenPicture(path)
                                                                      : kLoadError;
    case FileKind::Summary:
        return NeedsNewPlot(command) || AcceptAsSeparatePlot(command) ? OpenSummary(path)
                                                                      : kLoadError;
    case FileKind::Workspace:
        return OpenListedPlots(path);
    case FileKind::Sheet:
        return OpenSheet(command, path, nullptr);
    case FileKind::Unreadable:
        break;
    }
    return kLoadError;
}

/// Opens a file, or an empty plot without a path. The requested kind applies to one plot; a command
/// that opens nothing leaves it for the next.
std::string OpenAsRequested(const std::string& command, const std::string& path,
                            FormatDialog dialog) {
    const std::int16_t requested = gPlotKind;
    std::string outcome =
        path.empty() ? OpenNewPlot(path, dialog) : OpenByKind(command, path, dialog);
    gPlotKind = HasOpenedPlot(outcome) ? std::int16_t{kEqualArea} : requested;
    return outcome;
}

} // namespace

std::string OpenPlotFile(const std::string& command, const std::string& path, FormatDialog dialog) {
    if (!NeedsNewPlot(command) && (!IsOpenSlot(gActivePlot) || !HasRoomFor(command))) {
        return kLoadError;
    }
    if (path.empty()) {
        return kLoadError;
    }
    return OpenAsRequested(command, NormalPath(path), dialog);
}

std::string OpenPlotFile(const std::string& command) {
    if (command == kBlankCommand) {
        return OpenAsRequested(command, {}, FormatDialog::Always);
    }
    if (command.starts_with(kFileCommand)) {
        return OpenPlotFile(kNewCommand, command.substr(kFileCommand.size()));
    }
    if (!NeedsNewPlot(command) && (!IsOpenSlot(gActivePlot) || !HasRoomFor(command))) {
        return kLoadError;
    }
    const std::optional<std::string> path = AskForPath(command);
    if (path) {
        return OpenPlotFile(command, *path);
    }
    return CountOpenPlots() == 0 ? OpenPlotFile(kBlankCommand) : kLoadError;
}

bool HasOpenedPlot(const std::string& outcome) {
    return outcome != kLoadError && outcome != kSheetCommand;
}

} // namespace quandrel

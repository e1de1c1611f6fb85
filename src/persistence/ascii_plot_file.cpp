// SPDX-License-Identifier: MIT

#include "persistence/ascii_plot_file.h"

#include "core/atomic_file.h"
#include "core/data_format.h"
#include "core/measured_rows.h"
#include "core/messages.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "input/data_line.h"
#include "input/format_model.h"
#include "input/parameter_line.h"
#include "input/table_files.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "persistence/binary_plot_file.h"
#include "persistence/row_cells.h"
#include "platform/platform.h"
#include "stereo/plot_title.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <optional>
#include <unordered_map>
#include <vector>

namespace quandrel {

namespace {

/// The gDataFileFilter index of binary plot files, which store a complete plot.
constexpr int kBinaryFilter = 3;

constexpr const char* kCsvEnding = ".csv";
constexpr const char* kTableFilter = "|Tables with headings (*.csv)|*.csv"
                                     "|Spreadsheets (*.xlsx)|*.xlsx"
                                     "|GeoPackages (*.gpkg)|*.gpkg";

ParameterItems ItemsOf(const Plot& plot) {
    const PlotRecord& record = plot.record;
    ParameterItems items;
    items.T = record.DataKind;
    if (record.PlotSymbolMode == kBetaIntersections) {
        items.T = kLines;
    }
    items.P = 0;
    items.N = record.PlotKind;
    items.I = 2;
    items.C = 1;
    items.one = record.PrimaryFormat;
    items.two = record.SecondaryFormat;
    items.S = record.ShowSecondary != 0;
    items.A = record.HasAppendedLine != 0;
    items.L = record.HasAppendedNumeric != 0;
    items.W = record.HasAppendedText != 0;
    if (record.HasAppendedNumeric != 0) {
        items.F = record.AppNumName;
    }
    if (record.HasAppendedText != 0) {
        items.D = record.AppNonNumName;
    }
    if (HasMapPlaces(plot)) {
        items.G = true;
    }
    return items;
}

/// Line breaks and tabs would end a field.
std::string OnOneLine(std::string_view text) {
    std::string field(text);
    for (char& c : field) {
        if (c == '\t' || c == '\r' || c == '\n') {
            c = ' ';
        }
    }
    return field;
}

/// A text as a field. A text that begins with a quote is enclosed in quotes, and its own quotes are
/// doubled, because a reader removes quotes around a field.
std::string FieldOfText(std::string_view text) {
    const std::string field = OnOneLine(text);
    if (field.empty() || field.front() != '"') {
        return field;
    }
    std::string quoted = "\"";
    for (const char c : field) {
        quoted += c;
        if (c == '"') {
            quoted += c;
        }
    }
    return quoted + "\"";
}

/// The user's texts about the plot, as comments: a name at the start of each line.
std::string CommentLines(const std::string& name, const std::string& text) {
    std::string lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        lines += "; " + name + ": " + OnOneLine(text.substr(start, end - start)) + "\r\n";
        start = end + 1;
    }
    return lines;
}

std::string HeadLines(const Plot& plot) {
    const PlotRecord& record = plot.record;
    std::string head = std::string(";") + gCaption + "\r\n";
    head += "; " + OnOneLine(record.PlotTitle) + "\r\n";
    head += CommentLines("Fabric", record.FabricText);
    head += CommentLines("Description", record.DescriptionText);
    head += record.PrimaryFormat <= kDirections     ? "; direction"
            : record.PrimaryFormat == kPrimaryPlane ? "; dip\tdip direction"
                                                    : "; plunge\ttrend";
    if (record.SecondaryFormat != kNoSecondary) {
        head += record.SecondaryFormat == kSecondaryPlane ? "\tsecond dip\tdip direction"
                                                          : "\tsecond plunge\ttrend";
    }
    if (record.HasAppendedLine != 0) {
        head += "\tappended plunge\ttrend";
    }
    if (record.HasAppendedNumeric != 0) {
        head += "\t" + OnOneLine(record.AppNumName);
    }
    if (record.HasAppendedText != 0) {
        head += "\t" + OnOneLine(record.AppNonNumName);
    }
    if (HasMapPlaces(plot)) {
        head += "\tx\ty";
    }
    return head + "\r\n";
}

std::string TextOfRow(const Plot& plot, std::int32_t row, SavedDegrees degrees, bool hasPlaces) {
    std::vector<std::string> cells = CellsOfRow(plot, row, degrees);
    if (plot.record.HasAppendedText != 0) {
        cells.back() = FieldOfText(cells.back());
    }
    if (hasPlaces) {
        std::ranges::copy(PlaceCells(plot, row), std::back_inserter(cells));
    }
    std::string line;
    for (const std::string& cell : cells) {
        line += (&cell == &cells.front() ? "" : "\t") + cell;
    }
    return line + "\r\n";
}

/// How a reader interprets the lines of the text.
LineFormat FormatOfOwnText() {
    ParameterItems items = ParseParameterLine(BuildParameterLine(true));
    items.isOwnText = true;
    return LineFormatOf(WithNewPlotItems(WithFormatItems(gSettings.format, items), items),
                        gSettings.notation, false);
}

/// The stored non-data lines of a plot, row by row.
class NonDataLines {
public:
    NonDataLines(int slot, const PlotRecord& record)
        : lines_(PlotOf(slot).rows.errorLines)
        , format_(FormatOfOwnText()) {
        // The program's own head is written again.
        const bool hasOwnHead = Of(1).starts_with(kOwnTextStart);
        for (std::int32_t row = 1; hasOwnHead && row <= record.NumData; ++row) {
            if (DipOfRow(slot, row) != kErrorRow || IsParameterLine(Of(row))) {
                return;
            }
            lastOfHead_ = row;
        }
    }

    /// The line of an error row with its line end, as a comment if a reader would take it for data.
    /// Empty if it was blank or set a format, because the new text has its own format.
    [[nodiscard]] std::string TextOfErrorRow(std::int32_t row) const {
        const std::string_view line = Of(row);
        if (row <= lastOfHead_ || line.empty() || IsParameterLine(line)) {
            return {};
        }
        // In another format it may have been no data.
        const bool wouldBeData = ParseLine(line, format_).status == LineStatus::Row;
        return (wouldBeData ? "; " : "") + std::string(line) + "\r\n";
    }

private:
    [[nodiscard]] std::string_view Of(std::int32_t row) const {
        const auto line = lines_.find(row);
        return line == lines_.end() ? std::string_view() : WithoutLineEnd(line->second);
    }

    static std::string_view WithoutLineEnd(std::string_view line) {
        const std::size_t last = line.find_last_not_of("\r\n");
        return line.substr(0, last == std::string_view::npos ? 0 : last + 1);
    }

    static bool IsParameterLine(std::string_view line) {
        return WithoutBlanks(line).starts_with('/');
    }

    const std::unordered_map<std::int32_t, std::string>& lines_;
    LineFormat format_;
    std::int32_t lastOfHead_ = 0;
};

[[nodiscard]] bool AcceptSeveralFiles(const PlotRecord& record, const std::string& name) {
    return record.NumFiles < 2
           || AskToGoOn("This plot contains data from more than one file.\n"
                        "Do you wish to store the entire data set in:\n"
                            + name,
                        AtStake::Work);
}

[[nodiscard]] bool AcceptLossOfOverlays(const PlotRecord& record, const std::string& name) {
    return record.OverlayRows[kOverlayCount] == 0
           || AskToGoOn(name
                            + ":\nOnly the primary data set will be saved as an ASCII file. \n"
                              "The added overlayed data in this plot will be not be saved.\n"
                              "If you wish to preserve the entire plot for later use in Quandrel "
                              "save it as a binary Quandrel file (*.qpx)\n"
                              "Continue and save primary dataset only?",
                        AtStake::Work);
}

void TellFailure(const PlotRecord& record, const std::string& path, const std::string& reason,
                 SaveKind kind) {
    std::string text =
        "There has been an unknown error trying to save\nthis plot: " + record.PlotTitle
        + "\nand the Save operation has been aborted\n(" + path + ": " + reason + ")";
    if (kind == SaveKind::SaveAll) {
        text += "\nWe will continue to try and save any remaining plots";
    }
    Tell(text);
}

/// The folder of the plot's own file, or of the last one that was opened.
std::string FolderOfPlot(const PlotRecord& record) {
    return record.MainFiles.empty()
               ? gSettings.files.lastFolder
               : std::filesystem::path(record.MainFiles.front()).parent_path().string();
}

std::string ProposedName(const PlotRecord& record) {
    const std::string stem = record.FileTitle.empty()
                                 ? "Plot" + std::to_string(gActivePlot)
                                 : std::filesystem::path(record.FileTitle).stem().string();
    return FileNameOf(stem) + kBinaryEnding;
}

/// Saves the rows of a plot, the one in focus, in the kind of file that the path says.
///
/// @return empty, or an error message
std::string SaveRows(const Plot& plot, const std::string& path, const TextContents& contents) {
    for (const char* const ending : kWrittenEndings) {
        if (HasEnding(path, ending)) {
            const Result<std::string> bytes =
                BytesOfTable(TableOfRows(plot, contents.degrees), ending);
            return bytes ? WriteFileAtomically(path, *bytes) : bytes.Error();
        }
    }
    return WriteFileAtomically(path, HasEnding(path, kCsvEnding) ? CsvOfRows(plot, contents.degrees)
                                                                 : AsciiPlotText(contents));
}

/// The plot takes the name of the file to which it was saved.
void TakeNameOf(PlotRecord& record, const std::string& path) {
    record.FileTitle = FileTitleOf(path);
    record.PlotTitle = record.FileTitle + ": " + std::to_string(gActivePlot);
    record.MainFiles = {path};
    if (record.NumFiles == 0) {
        record.NumFiles = 1;
        record.FileNames[kFirstFile] = path;
    }
    record.Modified = 0;
    UpdateTitle();
}

} // namespace

std::string BuildParameterLine(bool full) {
    return BuildParameterText(ItemsOf(ActivePlot()), full);
}

std::string AsciiPlotText(const TextContents& contents) {
    const Plot& plot = ActivePlot();
    const PlotRecord& record = plot.record;
    std::string text = HeadLines(plot) + BuildParameterLine(true);
    const NonDataLines nonData(gActivePlot, record);
    const bool hasPlaces = HasMapPlaces(plot);
    for (std::int32_t row = 1; row <= record.NumData; ++row) {
        if (DipOfRow(gActivePlot, row) != kErrorRow) {
            text += TextOfRow(plot, row, contents.degrees, hasPlaces);
        } else if (contents.nonDataLines) {
            text += nonData.TextOfErrorRow(row);
        }
    }
    return text;
}

SaveOutcome SaveAsciiPlot(SaveKind kind) {
    const Plot& plot = ActivePlot();
    const PlotRecord& record = plot.record;
    if (kind != SaveKind::SaveAs && !record.SaveFileName.empty()) {
        return SavePlotAs(record.SaveFileName, kind);
    }
    PathQuestion question;
    question.title = "Save As";
    question.folder = FolderOfPlot(record);
    question.fileName = ProposedName(record);
    question.filter = std::string(gDataFileFilter) + kTableFilter;
    question.filterIndex = kBinaryFilter;
    const bool hasDecimals = CountRowsWithDecimals(plot.rows, 1, record.NumData) > 0;
    const auto answer = gPlatform.prompts->AskPlotPath(question, hasDecimals);
    if (!answer) {
        return SaveOutcome::Cancelled;
    }
    TextContents contents;
    if (answer->wholeDegrees) {
        contents.degrees = SavedDegrees::Whole;
    }
    return SavePlotAs(answer->path, kind, contents);
}

SaveOutcome SavePlotAs(const std::string& target, SaveKind kind, const TextContents& contents) {
    Plot& plot = ActivePlot();
    PlotRecord& record = plot.record;
    const std::string path = NormalPath(target);
    const std::string name = FileTitleOf(path);
    const bool isBinary = HasEnding(path, kBinaryEnding);
    // For the plot's own file the user has already agreed.
    const bool isOwnFile = isBinary && path == record.SaveFileName;
    if ((!isOwnFile && !AcceptSeveralFiles(record, name))
        || (!isBinary && !AcceptLossOfOverlays(record, name))) {
        return SaveOutcome::Cancelled;
    }
    const std::string error =
        isBinary ? SaveBinaryPlot(path, gActivePlot) : SaveRows(plot, path, contents);
    if (!error.empty()) {
        TellFailure(record, path, error, kind);
        return SaveOutcome::Failed;
    }
    // A text holds less than the plot: an earlier binary file no longer holds this plot.
    record.SaveFileName = isBinary ? path : std::string();
    TakeNameOf(record, path);
    return SaveOutcome::Saved;
}

} // namespace quandrel

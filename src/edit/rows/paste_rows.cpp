// SPDX-License-Identifier: MIT

#include "edit/rows/paste_rows.h"

#include "core/messages.h"
#include "core/plot_store.h"
#include "derive/derived_plots.h"
#include "edit/history/edit_step.h"
#include "edit/marks/annotation_edits.h"
#include "edit/rows/add_point.h"
#include "edit/rows/clipboard_text.h"
#include "edit/rows/pasted_format.h"
#include "edit/rows/row_change.h"
#include "edit/selection/marquee.h"
#include "input/decimal_delimiter.h"
#include "input/file_loading.h"
#include "input/format_preview.h"
#include "input/load_report.h"
#include "input/text_file.h"
#include "orientation/angles.h"
#include "platform/platform.h"
#include "stereo/row_positions.h"

#include <exception>
#include <new>
#include <utility>
#include <vector>

namespace quandrel {

AcceptedPasteFormat AcceptedPasteFormat::now;

namespace {

/// The command of a load of foreign text.
constexpr const char* kPasteCommand = "Paste";

/// Gives an empty plot the format of the text. Its titles and files stay.
void TakeFormatOfText(Plot& plot, const PastedFormat& format) {
    PlotRecord& record = plot.record;
    const std::int16_t files = record.NumFiles;
    SetPlotFormat(plot, format.settings);
    record.NumFiles = files;
    record.DataKind = format.dataKind;
    const bool isSecondary = format.showsSecondary && format.settings.secondary != kNoSecondary;
    record.ShowSecondary = isSecondary ? kTrue : std::int16_t{0};
    if (format.settings.primary <= kDirections) {
        record.PlotKind = kRose;
    }
    ResetAppendedRange();
}

/// True for a line that should be a row but is not.
bool IsRefused(LineStatus status) {
    return status != LineStatus::Row && status != LineStatus::Blank && status != LineStatus::Comment
           && status != LineStatus::ParameterLine;
}

/// Reads the rows of a text into gActivePlot.
class RowPaste {
public:
    RowPaste(const PastedFormat& format, int overlay)
        : format_(format)
        , plot_(ActivePlot())
        , record_(plot_.record)
        , overlay_(overlay)
        , target_(TargetOfPaste(record_, format, overlay))
        , lines_(FormatOfLines(format)) {}

    PasteReport Run(std::string_view text) {
        LineReader reader(text);
        bool headingIsDue = format_.settings.hasHeadings;
        for (std::string_view line; reader.Next(line);) {
            ParsedRow row = ParseLine(line, lines_);
            if (headingIsDue && (IsRefused(row.status) || row.status == LineStatus::Row)) {
                headingIsDue = false;
                report_.headingIsData = row.status == LineStatus::Row;
                continue;
            }
            if (IsRefused(row.status)) {
                ++report_.refused;
            } else if (row.status == LineStatus::Row && !Take(line, row)) {
                break;
            }
        }
        return report_;
    }

private:
    [[nodiscard]] LineFormat FormatOfLines(const PastedFormat& format) const {
        LineFormat lines =
            LineFormatOf(format.settings, gSettings.notation, overlay_ > 0 && !format.isOwn);
        if (record_.SecondaryFormat == kNoSecondary) {
            lines.secondary = kNoSecondary;
        }
        lines.wantLine = format.settings.lineAppended && record_.HasAppendedLine != 0;
        lines.wantNumber = format.settings.numericAppended && record_.HasAppendedNumeric != 0;
        lines.wantText = format.settings.nonNumericAppended && record_.HasAppendedText != 0;
        if (format.isOwn) {
            lines.secondaryMayBeMissing = true;
            lines.decimalIsComma = false;
        }
        lines.neededColumns = HighestColumnNeeded(lines) + 1;
        return lines;
    }

    /// Stores a row. False when the paste ends with it.
    [[nodiscard]] bool Take(std::string_view line, ParsedRow& row) {
        if (row.numberStatus == NumberStatus::WrongDelimiter && !asked_
            && !AnswerDelimiter(line, row)) {
            report_.aborted = true;
            return false;
        }
        RowFaults faults;
        if (!StoreDataRow(plot_, row, target_, faults)) {
            report_.outOfMemory = true;
            return false;
        }
        ++report_.pasted;
        if (!format_.isOwn) {
            CountUpwardLine(row, lines_, overlay_, report_.upward);
        }
        return true;
    }

    [[nodiscard]] bool AnswerDelimiter(std::string_view line, ParsedRow& row) {
        asked_ = true;
        const LineAnswer answer = ReportWrongDelimiter(line);
        if (answer == LineAnswer::Retry) {
            gConvertDecimals = true;
            lines_.convertDecimals = true;
            row = ParseLine(line, lines_);
        }
        return answer != LineAnswer::Leave;
    }

    const PastedFormat& format_;
    Plot& plot_;
    PlotRecord& record_;
    int overlay_;
    RowTarget target_;
    LineFormat lines_;
    bool asked_ = false;
    PasteReport report_;
};

/// Reports when the texts of the last rows have the other decimal delimiter.
void WarnOfDecimalMismatch(std::int32_t pasted) {
    const std::int32_t last = ActiveRecord().NumLoadedData;
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(pasted));
    for (std::int32_t row = last - pasted + 1; row <= last; ++row) {
        texts.emplace_back(gAppText(gActivePlot, row));
    }
    if (DetectDecimalMismatch(texts, gDecimalIsComma) != 0) {
        Tell(std::string("Apparent decimal values entered into your Appended data do not appear to "
                         "use ")
             + (gDecimalIsComma ? "comma " : "period ")
             + "decimal delimiters as indicated in your Windows regional settings.\nThese may give "
               "unexpected results if used as numeric values in certain types of plots!\n"
               "[Use the Preferences dialog to set automatic conversion of such data]");
    }
}

/// The first lines of a text, unchanged.
std::string HeadOfText(const std::string& text) {
    LineReader reader(text);
    std::string_view line;
    for (std::size_t lines = 0; lines < kPreviewLines && reader.Next(line);) {
        ++lines;
    }
    return text.substr(0, reader.Position());
}

/// Shows the data format dialog with the text in its preview. Whether the first row is a heading
/// depends on this text alone, not on an earlier one.
[[nodiscard]] std::optional<FormatAnswer> AskPasteFormat(const std::string& text,
                                                         const ParameterItems& items) {
    FormatQuestion question;
    question.command = kPasteCommand;
    question.text = HeadOfText(text);
    question.plotKindFromFile = items.T.value_or(0);
    question.columnHeadings =
        SuggestsHeadings(FirstLinesOfText(text, kPreviewLines), LineFormatFromGlobals(false));
    return gPlatform.prompts->AskFormat(question);
}

/// The format of a text; asks for it when the text does not state it and none was accepted before.
/// Nothing when the user cancels.
std::optional<PastedFormat> FindFormat(const std::string& text, ClipboardKind kind) {
    ParameterItems items = ReadParameterLines(text, gSettings.format.comments);
    items.isOwnText = kind != ClipboardKind::Foreign;
    if (kind == ClipboardKind::OwnRows
        || (kind == ClipboardKind::Companion && TellsItsFormat(items))) {
        return FormatOfPastedText(gSettings.format, items, true);
    }
    bool hasHeadings = false;
    if (!AcceptedPasteFormat::now.settings) {
        const FormatSettings before = gSettings.format;
        gSettings.format = WithFormatItems(before, items);
        const std::optional<FormatAnswer> answer = AskPasteFormat(text, items);
        if (!answer) {
            return std::nullopt;
        }
        gSettings.format.hasHeadings = before.hasHeadings;
        hasHeadings = answer->columnHeadings;
        AcceptedPasteFormat::now.showsSecondary = answer->plotSecondary;
        AcceptedPasteFormat::now.settings = gSettings.format;
        gSettings.format = AfterText(before, items, gSettings.format);
    } else {
        hasHeadings = SuggestsHeadings(
            FirstLinesOfText(text, kPreviewLines),
            LineFormatOf(*AcceptedPasteFormat::now.settings, gSettings.notation, false));
    }
    PastedFormat format = FormatOfPastedText(*AcceptedPasteFormat::now.settings, {}, false);
    format.settings.hasHeadings = hasHeadings;
    format.showsSecondary = AcceptedPasteFormat::now.showsSecondary
                            && AcceptedPasteFormat::now.settings->secondary != kNoSecondary;
    return format;
}

/// What is done after rows have been added to the plot.
void SettlePastedRows(PlotRecord& record) {
    if (!record.AxesTitle.empty()) {
        TakeAxesAsLines(record);
    }
    record.RowsChanged = kTrue;
    record.ClassifyCheckPending = kTrue;
}

/// Pastes rows of a known format. When none is read, the plot stays unchanged.
PasteReport PasteRows(const std::string& text, const PastedFormat& format) {
    Plot& plot = ActivePlot();
    PlotRecord& record = plot.record;
    EditStep step(kPasteEdit, Before<RowChange>);
    if (!step.IsKept()) {
        throw std::bad_alloc(); // so that a paste that fails half way is undone
    }
    if (record.NumLoadedData == 0) {
        TakeFormatOfText(plot, format);
    }
    int overlay = 0;
    if (GoesIntoOverlay(record, format)) {
        const std::optional<int> taker = OverlayForAddedRows(record);
        if (!taker) {
            return {};
        }
        overlay = *taker;
        record.SelectedOverlay = 0;
    }
    const BusyPointer busy(*gPlatform.status);
    gBusy = true;
    PasteReport report;
    try {
        report = RowPaste(format, overlay).Run(text);
    } catch (const std::exception&) {
        report.outOfMemory = true;
    }
    gBusy = false;
    if (report.pasted == 0) {
        step.PutBack();
        return report;
    }
    SettlePastedRows(record);
    step.Finish(Redraw::Rows);
    return report;
}

/// Pastes rows after the questions about their format. False when no row was pasted.
bool PasteRowText(const std::string& text, ClipboardKind kind) {
    const FormatBefore former;
    const std::optional<PastedFormat> format = FindFormat(text, kind);
    if (!format) {
        former.PutBack();
        return false;
    }
    const std::optional<std::string> question = QuestionBeforePaste(ActiveRecord(), *format);
    if (question && !AskYes(*question)) {
        return false;
    }
    const PasteReport report = PasteRows(text, *format);
    if (report.pasted == 0 && !format->isOwn) {
        ForgetPasteFormat();
    }
    if (const std::string note = NoteOnPaste(report); !note.empty()) {
        Tell(note);
    }
    if (report.pasted > 0 && ActiveRecord().HasAppendedText != 0) {
        WarnOfDecimalMismatch(report.pasted);
    }
    return report.pasted > 0;
}

/// Pastes annotations onto their layer, after a question where it is not the active one.
void PasteMarkText(const std::string& text) {
    if (ActiveRecord().PlotKind == kRose) {
        Tell("The data on the clipboard is annotation data, and a rose has no annotations.");
        return;
    }
    if (gActiveLayer == kAnnotationLayer
        || AskYes("The data on the clipboard is annotation data. Plot it in the annotation "
                  "layer?")) {
        UseLayer(kAnnotationLayer);
        PasteAnnotationText(text);
    }
}

} // namespace

std::string NoteOnPaste(const PasteReport& report) {
    std::string note;
    if (report.refused > 0) {
        note = Counted(report.refused, "line")
               + (report.refused == 1 ? " of the text is not data and was not pasted."
                                      : " of the text are not data and were not pasted.");
    }
    if (report.headingIsData) {
        note += std::string(note.empty() ? "" : "\n")
                + "The first line was left out as column headings, but reads as data.";
    }
    if (report.outOfMemory) {
        note += std::string(note.empty() ? "" : "\n") + "There is not enough memory for more than "
                + Counted(report.pasted, "row") + " of the text.";
    }
    if (const std::string upward = UpwardLinesText(report.upward); !upward.empty()) {
        note += (note.empty() ? "" : "\n") + upward;
    }
    return note;
}

void PasteData() {
    static_cast<void>(PasteText(gPlatform.clipboard->Text().value_or("")));
}

bool PasteText(const std::string& text) {
    if (gBusy || !IsOpenSlot(gActivePlot)) {
        return false;
    }
    const ClipboardKind kind = KindOfClipboardText(text);
    if (kind == ClipboardKind::Empty) {
        return false;
    }
    if (kind == ClipboardKind::Marks) {
        PasteMarkText(text);
        return false;
    }
    try {
        return PasteRowText(text, kind);
    } catch (const std::bad_alloc&) {
        Tell("There is not enough memory to paste these data.");
        return false;
    }
}

void ForgetPasteFormat() {
    AcceptedPasteFormat::now.settings.reset();
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "input/load_report.h"

#include "core/messages.h"
#include "core/plot_store.h"
#include "input/format_model.h"
#include "platform/platform.h"

namespace quandrel {

LoadCounters LoadCounters::now;

namespace {

constexpr std::size_t kLongestLineShown = 200;

/// A line as a message shows it: cut to the width of a screen.
std::string Shown(std::string_view line) {
    if (line.size() <= kLongestLineShown) {
        return std::string(line);
    }
    return std::string(line.substr(0, kLongestLineShown)) + "...";
}

std::string TooFewColumnsText(std::string_view line, std::int32_t rowsSoFar, int neededColumns) {
    return "The following line has been found after " + std::to_string(rowsSoFar)
           + " lines of data have been processed:\n" + Shown(line)
           + "\nYou have indicated that there are at least " + std::to_string(neededColumns)
           + " columns of data in this file but this line does not "
             "appear to contain that many columns.\n"
             "Either ignore the problem, or reset the appropriate settings in the File Format menu "
             "and then continue"
             " or, if this is not the problem, then check your raw data file.";
}

std::string NotOrientationText(std::string_view line) {
    return "The following line of invalid orientation data (not in a recognizable format) has been "
           "detected:\n"
           + Shown(line)
           + "\nCheck that you have indicated the appropriate file structure in the File Format "
             "menu "
             "and that the following Data Conventions are correct:\n"
           + ConventionsText(gConventions)
           + "\nIf this is not the problem, then check that your raw data file does not contain "
             "illegal values";
}

std::string MissingDataText(std::string_view line) {
    return "Critical orientation information appears to be missing from your data.\n"
           "The following is the first invalid line detected:\n"
           + Shown(line)
           + "\nEither reset the appropriate settings in the File Format menu and then continue"
             " or, if this is not the problem, check your raw data file.";
}

std::string TextOfBadLine(LineStatus status, std::string_view line, std::int32_t rowsSoFar,
                          int neededColumns) {
    switch (status) {
    case LineStatus::TooFewItems:
        return TooFewColumnsText(line, rowsSoFar, neededColumns);
    case LineStatus::Missing:
        return MissingDataText(line);
    default:
        return NotOrientationText(line);
    }
}

LineAnswer FromButton(Button button) {
    switch (button) {
    case Button::Abort:
        return LineAnswer::Leave;
    case Button::Retry:
        return LineAnswer::Retry;
    default:
        return LineAnswer::GoOn;
    }
}

LineAnswer AskAboutQuadrant(std::string_view line) {
    const Message message{
        gCaption,
        "Incorrect quadrant notation has been detected in the following line of data:\n"
            + Shown(line) + "\nContinue with more data from this file?",
        Icon::Exclamation, Buttons::OkCancel};
    return gPlatform.prompts->Ask(message) == Button::Ok ? LineAnswer::GoOn : LineAnswer::Leave;
}

std::string AppendedCount(std::int32_t bad, std::int32_t valid) {
    return std::to_string(bad) + " of the " + std::to_string(valid) + " lines of valid ";
}

std::string AppendedText(const LoadCounters& counters) {
    std::string text;
    if (counters.badNumeric > 0) {
        text += AppendedCount(counters.badNumeric, counters.rowsValid)
                + "orientation data were found to contain invalid appended numeric data. "
                  "These data will not be included in some types of rose diagram or classified "
                  "plots.\n";
    }
    if (counters.badText > 0) {
        text += (text.empty() ? "" : " Also ") + AppendedCount(counters.badText, counters.rowsValid)
                + "orientation data in this file were found to contain invalid appended "
                  "alphanumeric data. \n";
    }
    if (counters.badLine > 0) {
        text += (text.empty() ? "" : " Also ") + AppendedCount(counters.badLine, counters.rowsValid)
                + "orientation data were found to contain invalid appended line data. These data "
                  "will not be able to be used in calculations requiring such data (e.g. Sample "
                  "line bias corrections, unfolding data, etc.\n";
    }
    if (!text.empty()) {
        text += "The full data set will be included in all other plot types.";
    }
    return text;
}

std::string OutOfMemoryText(const LoadCounters& counters) {
    return "An 'Out of Memory' error has been encountered after "
           + std::to_string(counters.rowsRead)
           + " data points have been entered in this plot.\n"
             "It is probable that you have reached the limit of either the absolute maximum number "
             "of data points (32766) allowed or the number allowed by your memory configuration. \n"
             "(If it is the latter then try restarting Quandrel and reduce the setting at the "
             "opening screen for the maximum number of plots allowed).\n"
             "We will try to proceed by truncating further data addition.";
}

std::string NothingReadText(const LoadCounters& counters) {
    const std::string lead =
        counters.stoppedAtLine > 0
            ? "The first 1000 datalines were found to contain invalid data and no data were "
              "plotted."
            : "All datalines were found to contain invalid data and no data were plotted.";
    return lead
           + "\nCheck that the data structure set in the Data Format dialog is consistent with the "
             "clipboard data.\nNote that the currently set Data Conventions are:\n"
           + ConventionsText(gConventions) + "\nand you have indicated that you are plotting your "
           + "data as " + (gPlotDataKind == kPlanes ? "Planes." : "Lines.");
}

std::string MissingFilesText(const std::vector<std::string>& missing) {
    std::string text = missing.size() == 1 ? "This further file was not found: "
                                           : "These further files were not found: ";
    for (const std::string& name : missing) {
        text += (&name == &missing.front() ? "" : ", ") + Shown(name);
    }
    return text + "\n";
}

std::string StoppedText(const LoadCounters& counters) {
    const std::string lead = "\nReading ended at line " + std::to_string(counters.stoppedAtLine)
                             + ", after " + std::to_string(kMostBadLines);
    if (counters.invalidInRun == 0) {
        return lead + " lines in a row without data.";
    }
    return lead
           + (counters.invalidInRun < kMostBadLines
                  ? " lines in a row that are invalid or without data."
                  : " invalid lines in a row.");
}

} // namespace

LoadCounters& LastLoad() {
    return LoadCounters::now;
}

bool CountsUpwardLines(const LineFormat& format, int overlay) {
    const PlotRecord& record = ActiveRecord();
    // Where the rows join others, the kind of those decides.
    const std::int16_t kind = record.ShowSecondary != 0 ? gPlotDataKind
                              : overlay > 0 ? record.OverlayKind[static_cast<std::size_t>(overlay)]
                                            : record.DataKind;
    return format.primary == kPrimaryLine && kind == kLines;
}

const LoadCounters* LoadOf(const Plot& plot) {
    return plot.attachments.Find<LoadCounters>();
}

void KeepLoad(Plot& plot, const LoadCounters& counters) {
    plot.attachments.Of<LoadCounters>() = counters;
}

void CountUpwardLine(const ParsedRow& row, const LineFormat& format, int overlay,
                     LoadCounters& counters) {
    if (row.dip < 0 && CountsUpwardLines(format, overlay)) {
        ++counters.upwardLines;
        counters.negativePlunge = format.negativePlunge;
    }
}

void AddCounters(const LoadCounters& part, LoadCounters& sum) {
    sum.rowsRead += part.rowsRead;
    sum.rowsValid += part.rowsValid;
    sum.blankLines += part.blankLines;
    sum.headLines += part.headLines;
    sum.invalidLines += part.invalidLines;
    sum.badNumeric += part.badNumeric;
    sum.badText += part.badText;
    sum.badLine += part.badLine;
    sum.rowsWithDecimals += part.rowsWithDecimals;
    sum.hasMoreDecimals = sum.hasMoreDecimals || part.hasMoreDecimals;
    if (part.upwardLines > 0) {
        sum.upwardLines += part.upwardLines;
        sum.negativePlunge = part.negativePlunge;
    }
}

std::string DecimalsText(const LoadCounters& counters, bool usesDecimals) {
    std::string text;
    if (counters.rowsWithDecimals > 0) {
        const bool isOne = counters.rowsWithDecimals == 1;
        text = std::to_string(counters.rowsWithDecimals) + (isOne ? " row has" : " rows have")
               + " decimals";
        text += usesDecimals ? "."
                : isOne      ? "; Plot > Use Decimals shows it."
                             : "; Plot > Use Decimals shows them.";
    }
    if (counters.hasMoreDecimals) {
        text += std::string(text.empty() ? "" : " ")
                + "Angles with more than six decimals were rounded to six.";
    }
    return text;
}

std::string UpwardLinesText(const LoadCounters& counters) {
    if (counters.upwardLines == 0) {
        return {};
    }
    const bool isOne = counters.upwardLines == 1;
    const std::string count = std::to_string(counters.upwardLines);
    std::string text = count + (isOne ? " line has" : " lines have") + " a negative plunge. ";
    if (counters.negativePlunge == NegativePlunge::Vector) {
        text += isOne ? "Its trend was taken to name the end that it points to, and was turned to "
                        "the lower end."
                      : "Their trends were taken to name the ends that they point to, and were "
                        "turned to the lower ends.";
    } else {
        text += isOne ? "Its trend was taken to name its lower end."
                      : "Their trends were taken to name their lower ends.";
    }
    return text + " Plotted as lines, they count as axes without a sense.";
}

LineAnswer ReportBadLine(LineStatus status, std::string_view line, std::int32_t rowsSoFar,
                         int neededColumns) {
    if (status == LineStatus::NotQuadrant) {
        return AskAboutQuadrant(line);
    }
    const Message message{gCaption,
                          TextOfBadLine(status, line, rowsSoFar, neededColumns)
                              + "\n\nABORT this file altogether; RETRY after adjusting the "
                                "FileFormat settings; or IGNORE this line and continue?",
                          Icon::Exclamation, Buttons::AbortRetryIgnore};
    return FromButton(gPlatform.prompts->Ask(message));
}

LineAnswer ReportWrongDelimiter(std::string_view line) {
    const std::string delimiter = gDecimalIsComma ? "comma " : "period ";
    const Message message{
        gCaption,
        "The Appended numeric data in the following line appears to contain an incorrect decimal "
        "delimiter:\n"
            + Shown(line) + "\nYour Windows Regional Settings are set to use a " + delimiter
            + "as the decimal delimiter!\n\nABORT this file altogether; RETRY by converting all "
              "similar values into the current decimal setting; "
              "or IGNORE this line and continue?\n"
              "[Permanent conversion of such data can be set in the Preferences dialog]",
        Icon::Exclamation, Buttons::AbortRetryIgnore};
    return FromButton(gPlatform.prompts->Ask(message));
}

void ReportLoadFailure(const LoadCounters& counters, const std::string& error) {
    Tell("The following error has occurred in loading this data:\n" + error + "\nafter "
         + std::to_string(counters.rowsValid)
         + " valid new data have been loaded.\nFurther processing of the file will have to be "
           "aborted.\nCheck the data on file and try replotting. If problems persist then contact "
           "the author by email at: the address in the program's README file");
}

std::string LoadText(const LoadCounters& counters) {
    const std::string end =
        counters.cancelled ? "You ended the load before the end of the file: " : "";
    return end + std::to_string(counters.rowsRead) + " rows read, "
           + std::to_string(counters.rowsValid) + " of them data; "
           + std::to_string(counters.blankLines) + " lines without data, "
           + std::to_string(counters.invalidLines) + " invalid.";
}

std::string LoadText(const LoadCounters& counters, const PlotRecord& record) {
    const std::string decimals = DecimalsText(counters, record.UseDecimals != 0);
    return LoadText(counters) + (decimals.empty() ? "" : " ") + decimals;
}

bool LoadFailed(const LoadCounters& counters) {
    return counters.rowsValid == 0 && !counters.outOfMemory;
}

std::string LoadSummaryText(const LoadCounters& counters) {
    if (counters.outOfMemory) {
        return OutOfMemoryText(counters);
    }
    std::string text;
    if (LoadFailed(counters)) {
        text = NothingReadText(counters);
    } else {
        if (counters.invalidLines > 0) {
            text += std::to_string(counters.invalidLines)
                    + " invalid data have been detected and have not been plotted.\n";
        }
        // Lines that the program itself wrote at the head of the file are not reported.
        if (const std::int32_t foreign = counters.blankLines - counters.headLines; foreign > 0) {
            text += std::to_string(foreign)
                    + " non-data (blank, comments, etc.) lines were found in this file.\n";
        }
        if (!counters.missingFiles.empty()) {
            text += MissingFilesText(counters.missingFiles);
        }
        if (counters.upwardLines > 0) {
            text += UpwardLinesText(counters) + "\n";
        }
        text += AppendedText(counters);
    }
    if (counters.stoppedAtLine > 0) {
        text += StoppedText(counters);
    }
    while (!text.empty() && text.back() == '\n') {
        text.pop_back();
    }
    return text;
}

void ReportLoadSummary(const LoadCounters& counters, const PlotRecord& record) {
    std::string text = LoadSummaryText(counters);
    if (!text.empty()) {
        const std::string decimals = DecimalsText(counters, record.UseDecimals != 0);
        text += (decimals.empty() ? "" : "\n") + decimals;
        (void)gPlatform.prompts->Ask({gCaption, text, Icon::Exclamation, Buttons::Ok});
    }
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "derive/derived_plots.h"

#include "core/data_format.h"
#include "core/messages.h"
#include "core/plot_life.h"
#include "core/plot_store.h"
#include "core/plot_style.h"
#include "core/replot.h"
#include "derive/measured_line.h"
#include "input/data_rows.h"
#include "input/plot_files.h"
#include "orientation/angles.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr const char* kDerivedFrom = "Derived from ";

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The position of the line that says where rows come from, or npos.
std::size_t PlaceOfDerivation(const std::string& description) {
    const std::string opening = kDerivedFrom;
    if (description.starts_with(opening)) {
        return 0;
    }
    const std::size_t place = description.find("\n" + opening);
    return place == std::string::npos ? place : place + 1;
}

/// Rows without a line are known by their source. Without it they become ordinary error rows.
void MarkRowsWithoutLine(int slot) {
    constexpr std::int32_t kNoLine = -90;
    for (std::int32_t row = 1; row <= RecordOf(slot).NumData; ++row) {
        if (gDataDip(slot, row) == kNoLine) {
            gDataDip.At(slot, row) = kErrorRow;
            ClearDecimals(PlotOf(slot).rows, RowAngles::Primary, row);
        }
    }
}

} // namespace

int LeftBeside(int neighbourLeft, int neighbourWidth, int width, int screenWidth) {
    const int quarter = std::max(width / 4, 1);
    int left = neighbourLeft + neighbourWidth;
    while (left + 3 * quarter > screenWidth) {
        left -= quarter;
    }
    return left;
}

int OpenDerivedPlot(int source) {
    const std::int16_t usesDecimals = RecordOf(source).UseDecimals;
    const std::int16_t formulas = RecordOf(source).PlotFormulas;
    const StyleChoice style = StyleChoiceOf(RecordOf(source));
    if (!PrepareNewPlotWindow()) {
        return 0;
    }
    PlotRecord& record = ActiveRecord();
    record.UseDecimals = usesDecimals;
    record.PlotFormulas = formulas;
    SetStyle(record, style);
    if (record.PlotKind == kRose) { // the next file says nothing about derived lines
        record.PlotKind = kEqualArea;
    }
    return gActivePlot;
}

void CloseDerivedPlot(int slot) {
    BreakDerivedLinks(slot);
    ClosePlot(slot);
}

void ClearDerivedRows(int slot) {
    PlotRecord& record = RecordOf(slot);
    while (record.OverlayRows[kOverlayCount] > 0) {
        RemoveLastOverlay(slot);
    }
    ClearRows(PlotOf(slot));
    ResetAppendedRange(record);
    record.DataFull = 0;
    record.RowsChanged = kTrue;
}

void PrepareDerivedPlot(PlotRecord& record, std::int16_t dataKind, const std::string& textColumn) {
    record.DataKind = dataKind;
    record.PrimaryFormat = kPrimaryLine;
    record.SecondaryFormat = kNoSecondary;
    record.ShowSecondary = 0;
    record.HasAppendedText = kTrue;
    record.AppNonNumName = textColumn;
    record.KinematicBlock.fill(std::int16_t{0});
    record.KinematicBlock[kSlotDip] = std::int16_t{1};
    record.KinematicBlock[kSlotDirection] = std::int16_t{2};
}

bool StoreDerivedLine(int slot, double plunge, double trend, const std::string& source) {
    ParsedRow line;
    line.status = LineStatus::Row;
    const Attitude kept = MeasuredLine(plunge, trend);
    line.dip = WholeDegree(kept.dip);
    line.az = WholeDegree(kept.azimuth) % 360;
    line.text.View(source);
    line.textStatus = TextStatus::Good;
    MeasuredValues measured;
    if (plunge != kNoAnswerPlunge) {
        measured[static_cast<std::size_t>(RowAngles::Primary)] = kept;
    }
    return StoreMeasuredRow(PlotOf(slot), line, measured, RowTarget{});
}

void GiveUpDerivedRows(int slot) {
    ClearRows(PlotOf(slot));
    Tell("An error has been encountered and plot could not be completed");
}

std::string RestOfTitle(const std::string& parentTitle) {
    const std::string word = "Plot ";
    std::size_t end = word.size();
    while (end < parentTitle.size() && IsDigit(parentTitle[end])) {
        ++end;
    }
    const bool isNumbered = parentTitle.starts_with(word) && end > word.size()
                            && (end == parentTitle.size() || parentTitle[end] == ':');
    return isNumbered ? parentTitle.substr(end) : ": " + parentTitle;
}

std::string Counted(std::int64_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

void DescribeDerivation(PlotRecord& record, const std::string& parentTitle,
                        const std::string& what) {
    std::string line = kDerivedFrom + parentTitle + ": " + what;
    std::replace(line.begin(), line.end(), '\n', ' ');
    std::string& description = record.DescriptionText;
    const std::size_t place = PlaceOfDerivation(description);
    if (place != std::string::npos) {
        const std::size_t end = std::min(description.find('\n', place), description.size());
        description.replace(place, end - place, line);
    } else {
        description = description.empty() ? line : line + "\n" + description;
    }
}

void ShowDerivedPlot(int slot) {
    gActivePlot = slot;
    ReplotActivePlot(true);
}

void BreakDerivedLinks(int slot) {
    if (!IsOpenSlot(slot)) {
        return;
    }
    PlotRecord& closing = RecordOf(slot);
    for (int other = 1; other <= HighestSlot(); ++other) {
        if (other == slot || !IsOpenSlot(other) || RecordOf(other).KinematicState != slot) {
            continue;
        }
        if (closing.IntersectionState == other) {
            MarkRowsWithoutLine(other);
        }
        RecordOf(other).KinematicState = 0;
    }
    const int parent = closing.KinematicState;
    if (IsOpenSlot(parent) && RecordOf(parent).IntersectionState == slot) {
        RecordOf(parent).IntersectionState = 0;
    }
    closing.KinematicState = 0;
    closing.IntersectionState = 0;
}

void TakeAxesAsLines(PlotRecord& record) {
    if (record.AxesTitle == kBothAxes) {
        SetCountOfValid(record, record.NumData);
    }
    record.AxesTitle.clear();
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "derive/kinematic_plots.h"

#include "core/data_format.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "derive/derived_plots.h"
#include "derive/fault_rows.h"
#include "derive/kinematic_axes.h"
#include "input/data_rows.h"
#include "orientation/angles.h"
#include "platform/platform.h"
#include "stereo/plot_driver.h"

#include <cmath>
#include <string>
#include <utility>

namespace quandrel {

namespace {

/// A parent with the plots of its axes, 0 where there is none yet. On two plots the first is of P.
struct Family {
    int parent = 0;
    int first = 0;
    int second = 0;
};

/// What became of the faults of a parent.
struct FaultCounts {
    std::int32_t used = 0;
    std::int32_t offPlane = 0;
    std::int32_t withoutLine = 0;
    bool outOfMemory = false;
};

struct AxisLines {
    double pPlunge = kErrorRow;
    double pTrend = 0;
    double tPlunge = 0;
    double tTrend = 0;
};

bool HasReadableParent(const PlotRecord& record) {
    return IsOpenSlot(record.KinematicState)
           && RecordOf(record.KinematicState).SecondaryFormat != kNoSecondary;
}

[[nodiscard]] bool AcceptPrimaryData(const PlotRecord& record) {
    if (record.PrimaryFormat <= kDirections) {
        Tell("Your primary data is directional only and unsuitable for kinematic calculations");
        return false;
    }
    return record.PrimaryFormat != kPrimaryLine
           || AskToGoOn("You have indicated that your Primary data are lines not the planes "
                        "required for the kinematic calculations\n"
                        "Would you like to continue and treat this Primary data as planes anyway?");
}

[[nodiscard]] bool CheckDerivedPlot(const PlotRecord& record) {
    if (record.AxesTitle.empty()) {
        Tell("You don't have any Secondary line data in this plot to use as slip vectors.\n"
             "(Check that you are focussed on the correct plot)");
        return false;
    }
    if (!HasReadableParent(record)) {
        Tell("The parent data set for this P/T kinematic plot can no longer be recognised "
             "and cannot be processed further");
        return false;
    }
    return true;
}

/// The plot of the other axes of the same parent, or 0. Other plots of the parent are none of it.
int PartnerOf(int slot) {
    const PlotRecord& record = RecordOf(slot);
    const std::string wanted =
        record.AxesTitle == kShorteningAxes ? kExtensionAxes : kShorteningAxes;
    for (int other = 1; other <= HighestSlot() && record.AxesTitle != kBothAxes; ++other) {
        if (IsOpenSlot(other) && RecordOf(other).KinematicState == record.KinematicState
            && RecordOf(other).AxesTitle == wanted) {
            return other;
        }
    }
    return 0;
}

Family FamilyOfActivePlot() {
    const PlotRecord& record = ActiveRecord();
    if (record.SecondaryFormat != kNoSecondary) {
        return {gActivePlot, 0, 0};
    }
    Family family{record.KinematicState, gActivePlot, PartnerOf(gActivePlot)};
    if (family.second != 0 && RecordOf(family.second).AxesTitle == kShorteningAxes) {
        std::swap(family.first, family.second);
    }
    return family;
}

/// Rows that the user has laid over axes go when these are recomputed.
[[nodiscard]] bool AcceptLossOfOverlays(const Family& family) {
    for (const int slot : {family.first, family.second}) {
        if (slot != 0 && RecordOf(slot).OverlayRows[0] > 0) {
            return AskToGoOn("This will remove the overlayed data in this plot.\n"
                             "Do you want to continue?",
                             AtStake::Work);
        }
    }
    return true;
}

/// Opens the windows that are missing. When one cannot be had, all is as before.
[[nodiscard]] bool OpenMissing(Family& family, bool onTwoPlots) {
    const std::int32_t former = gActivePlot;
    const bool isNew = family.first == 0;
    if (isNew) {
        family.first = OpenDerivedPlot();
    }
    const bool needsSecond = onTwoPlots && family.second == 0;
    if (needsSecond && family.first != 0) {
        family.second = OpenDerivedPlot();
    }
    if (family.first != 0 && (!needsSecond || family.second != 0)) {
        if (needsSecond && gPlaceBeside) {
            gPlaceBeside(family.second, family.first);
        }
        return true;
    }
    if (isNew && family.first != 0) {
        CloseDerivedPlot(family.first);
    }
    gActivePlot = former;
    return false;
}

void SetUpChild(int slot, int parent, const char* axes) {
    ClearDerivedRows(slot);
    PrepareKinematicPlot(slot);
    PlotRecord& record = RecordOf(slot);
    record.KinematicState = static_cast<std::int16_t>(parent);
    record.PlotTitle = "Plot " + std::to_string(slot) + RestOfTitle(RecordOf(parent).PlotTitle);
    record.AxesTitle = axes;
    const PlotInWork work(slot);
    UpdateTitle();
}

/// The axes of a fault; a P plunge of kErrorRow where it has none.
AxisLines LinesOfAxes(const Fault& fault) {
    double polePlunge = 0;
    double poleTrend = 0;
    OppositeOfPlane(DegToRad(std::abs(fault.plane.dip)), DegToRad(fault.plane.azimuth), polePlunge,
                    poleTrend);
    AxisLines axes;
    ComputePTAxes(polePlunge, poleTrend, DegToRad(fault.line.dip), DegToRad(fault.line.azimuth),
                  kKinematicTolerance, axes.pPlunge, axes.pTrend, axes.tPlunge, axes.tTrend);
    return axes;
}

[[nodiscard]] bool StoreExtensionAxis(int slot, std::int32_t row, const AxisLines& axes) {
    if (!StoreDerivedLine(slot, row, axes.tPlunge, axes.tTrend)) {
        return false;
    }
    // A horizontal one has no sign to be told by.
    const SymbolCode code = CodeOfStyleRow(kDerivedUpSymbol);
    gDataSymbol.At(slot, row) = code;
    gDataSymbolBase.At(slot, row) = code;
    return true;
}

/// Stores the axes of one more fault.
[[nodiscard]] bool StoreAxes(const Family& family, std::int32_t fault, const AxisLines& axes) {
    if (family.second != 0) {
        return StoreDerivedLine(family.first, fault, axes.pPlunge, axes.pTrend)
               && StoreExtensionAxis(family.second, fault, axes);
    }
    return StoreDerivedLine(family.first, 2 * fault - 1, axes.pPlunge, axes.pTrend)
           && StoreExtensionAxis(family.first, 2 * fault, axes);
}

/// Stores the axes of all faults of the parent, in the order of its table.
FaultCounts StoreAllAxes(const Family& family) {
    FaultCounts counts;
    const RowTable& table = TableOf(family.parent);
    const std::int32_t last = RecordOf(family.parent).NumData;
    for (std::size_t place = 0; place < table.size(); ++place) {
        const std::int32_t row = table.index[place];
        const Fault fault = FaultOfRow(family.parent, row);
        if (row > last || !IsReadable(fault.plane)) {
            continue;
        }
        if (!IsReadable(fault.line)) {
            ++counts.withoutLine;
            continue;
        }
        const AxisLines axes = LinesOfAxes(fault);
        if (axes.pPlunge == kErrorRow) {
            ++counts.offPlane;
        } else if (StoreAxes(family, counts.used + 1, axes)) {
            ++counts.used;
        } else {
            counts.outOfMemory = true;
            break;
        }
    }
    return counts;
}

void CountRows(const Family& family, const FaultCounts& counts) {
    PlotRecord& first = RecordOf(family.first);
    first.NumValidData = counts.used; // of faults, on one plot too
    first.NumData = family.second != 0 ? counts.used : 2 * counts.used;
    first.NumLoadedData = first.NumData;
    if (family.second != 0) {
        PlotRecord& second = RecordOf(family.second);
        second.NumValidData = counts.used;
        second.NumData = counts.used;
        second.NumLoadedData = counts.used;
    }
}

std::string TextOfCounts(const std::string& axes, const FaultCounts& counts) {
    const std::int32_t all = counts.used + counts.offPlane + counts.withoutLine;
    std::string text = (axes == kBothAxes ? "P and T" : axes) + " axes of "
                       + std::to_string(counts.used) + " of " + Counted(all, "fault");
    if (counts.offPlane > 0) {
        text += "; " + std::to_string(counts.offPlane)
                + " left out: slip line 10 degrees or more off the fault plane";
    }
    if (counts.withoutLine > 0) {
        text += "; " + std::to_string(counts.withoutLine) + " left out: no slip line";
    }
    return text;
}

/// Fills the children from their parent. False when memory ran out.
[[nodiscard]] bool FillChildren(const Family& family) {
    const BusyPointer busy(*gPlatform.status);
    const FaultCounts counts = StoreAllAxes(family);
    if (!counts.outOfMemory) {
        CountRows(family, counts);
    }
    for (const int slot : {family.first, family.second}) {
        if (slot != 0) {
            PlotRecord& record = RecordOf(slot);
            DescribeDerivation(record, RecordOf(family.parent).PlotTitle,
                               counts.outOfMemory ? kNotCompleted
                                                  : TextOfCounts(record.AxesTitle, counts));
        }
    }
    return !counts.outOfMemory;
}

} // namespace

bool CheckKinematicData() {
    const PlotRecord& record = ActiveRecord();
    const bool isGood = record.SecondaryFormat != kNoSecondary ? AcceptPrimaryData(record)
                                                               : CheckDerivedPlot(record);
    return isGood
           && (record.SecondaryFormat != kSecondaryPlane
               || AskToGoOn("You have indicated during loading this data that your Secondary data "
                            "consists of planes, not the lines required to be used as slip "
                            "vectors.\n"
                            "Would you like to continue and treat this Secondary data as lines?"));
}

bool MakeKinematicPlots(int index) {
    if (gBusy || !IsOpenSlot(gActivePlot) || index < kAxesOnOnePlot || index > kContouredAxes
        || !CheckKinematicData()) {
        return false;
    }
    const bool onTwoPlots = index == kAxesOnTwoPlots;
    Family family = FamilyOfActivePlot();
    if (!AcceptLossOfOverlays(family) || !OpenMissing(family, onTwoPlots)) {
        return false;
    }
    if (!onTwoPlots && family.second != 0) {
        CloseDerivedPlot(family.second);
        family.second = 0;
    }
    SetUpChild(family.first, family.parent, onTwoPlots ? kShorteningAxes : kBothAxes);
    if (onTwoPlots) {
        SetUpChild(family.second, family.parent, kExtensionAxes);
    }
    const bool filled = FillChildren(family);
    if (!filled) {
        GiveUpDerivedRows(family.first);
        if (onTwoPlots) {
            ResizeRowTable(TableOf(family.second), 0);
        }
    }
    ShowDerivedPlot(family.first);
    if (onTwoPlots) {
        ShowDerivedPlot(family.second);
    }
    return filled;
}

void PrepareKinematicPlot(int slot) {
    PrepareDerivedPlot(RecordOf(slot), kPolarLines);
}

} // namespace quandrel

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
#include "stereo/plot_title.h"

#include <cmath>
#include <string>
#include <utility>

namespace quandrel {

namespace {

/// A parent with the plots of its axes, 0 for a missing one. Of two plots the first is that of P.
struct Family {
    int parent = 0;
    int first = 0;
    int second = 0;
};

/// Counts of the faults of a parent by their results.
struct FaultCounts {
    std::int32_t used = 0;
    std::int32_t offPlane = 0;
    std::int32_t withoutLine = 0;
    bool outOfMemory = false;
};

/// Settings for the plots of a family.
struct AxesWanted {
    bool onTwoPlots = false;
    bool asContours = false;
    std::optional<SlipSense> assumed;
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

/// The plot of the other axes of the same parent, or 0. Other plots of the parent do not count.
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

/// Rows that the user has laid over the axes are removed when the axes are recomputed.
[[nodiscard]] bool AcceptLossOfOverlays(const Family& family) {
    for (const int slot : {family.first, family.second}) {
        if (slot != 0 && RecordOf(slot).OverlayRows[kOverlayCount] > 0) {
            return AskToGoOn("This will remove the overlayed data in this plot.\n"
                             "Do you want to continue?",
                             AtStake::Work);
        }
    }
    return true;
}

/// Opens the missing windows. When one cannot be opened, everything is restored.
[[nodiscard]] bool OpenMissing(Family& family, bool onTwoPlots) {
    const std::int32_t former = gActivePlot;
    const bool isNew = family.first == 0;
    if (isNew) {
        family.first = OpenDerivedPlot(family.parent);
    }
    const bool needsSecond = onTwoPlots && family.second == 0;
    if (needsSecond && family.first != 0) {
        family.second = OpenDerivedPlot(family.parent);
    }
    if (family.first != 0 && (!needsSecond || family.second != 0)) {
        if (needsSecond) {
            FormOf(family.second).PlaceBeside(FormOf(family.first));
        }
        return true;
    }
    if (isNew && family.first != 0) {
        CloseDerivedPlot(family.first);
    }
    gActivePlot = former;
    return false;
}

void SetUpChild(int slot, int parent, const char* axes, const AxesWanted& wanted) {
    ClearDerivedRows(slot);
    PrepareKinematicPlot(slot, wanted.assumed);
    PlotRecord& record = RecordOf(slot);
    record.KinematicState = static_cast<std::int16_t>(parent);
    record.PlotTitle = "Plot " + std::to_string(slot) + RestOfTitle(RecordOf(parent).PlotTitle);
    record.AxesTitle = axes;
    if (wanted.asContours) {
        record.PlotSymbolMode = kContours;
    }
    MendMixedAxes(record);
    const PlotInWork work(slot);
    UpdateTitle();
}

[[nodiscard]] bool StoreShorteningAxis(int slot, const AxisLines& axes, std::int32_t parentRow) {
    return StoreDerivedLine(slot, axes.pPlunge, axes.pTrend,
                            AxisText(AxisKind::Shortening, parentRow));
}

[[nodiscard]] bool StoreExtensionAxis(int slot, const AxisLines& axes, std::int32_t parentRow) {
    if (!StoreDerivedLine(slot, axes.tPlunge, axes.tTrend,
                          AxisText(AxisKind::Extension, parentRow))) {
        return false;
    }
    // A horizontal one has no sign to identify it.
    const SymbolCode code = CodeOfStyleRow(kDerivedUpSymbol);
    const std::int32_t row = RecordOf(slot).NumLoadedData;
    gDataSymbol.At(slot, row) = code;
    gDataSymbolBase.At(slot, row) = code;
    return true;
}

/// Stores the axes of one more fault, a row of the parent.
[[nodiscard]] bool StoreAxes(const Family& family, const AxisLines& axes, std::int32_t parentRow) {
    const int ofExtension = family.second != 0 ? family.second : family.first;
    return StoreShorteningAxis(family.first, axes, parentRow)
           && StoreExtensionAxis(ofExtension, axes, parentRow);
}

/// Stores the axes of all faults of the parent, in row order.
FaultCounts StoreAllAxes(const Family& family, std::optional<SlipSense> assumed) {
    FaultCounts counts;
    const std::int32_t last = RecordOf(family.parent).NumData;
    for (std::int32_t row = 1; row <= last; ++row) {
        const Fault fault = FaultOfRow(family.parent, row);
        if (!IsReadable(fault.plane)) {
            continue;
        }
        if (!IsReadable(fault.line)) {
            ++counts.withoutLine;
            continue;
        }
        const std::optional<AxisLines> axes = LinesOfAxes(fault, assumed);
        if (!axes) {
            ++counts.offPlane;
        } else if (StoreAxes(family, *axes, row)) {
            ++counts.used;
        } else {
            counts.outOfMemory = true;
            break;
        }
    }
    return counts;
}

std::string TextOfAssumption(SlipSense assumed) {
    return std::string("; sense assumed: the hanging walls moved ")
           + (assumed == SlipSense::Normal ? "down" : "up");
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
[[nodiscard]] bool FillChildren(const Family& family, std::optional<SlipSense> assumed) {
    const BusyPointer busy(*gPlatform.status);
    const FaultCounts counts = StoreAllAxes(family, assumed);
    if (!counts.outOfMemory) {
        if (family.second == 0) {
            SetCountOfValid(RecordOf(family.first), counts.used); // faults, also on one plot
        }
    }
    for (const int slot : {family.first, family.second}) {
        if (slot != 0) {
            PlotRecord& record = RecordOf(slot);
            std::string what = counts.outOfMemory ? std::string(kNotCompleted)
                                                  : TextOfCounts(record.AxesTitle, counts);
            what += assumed ? TextOfAssumption(*assumed) : std::string();
            DescribeDerivation(record, RecordOf(family.parent).PlotTitle, what);
        }
    }
    return !counts.outOfMemory;
}

/// Finds the sense of movement: from rows that state it, else the known one, else by asking the
/// user. False when the user cancels.
[[nodiscard]] bool FindSense(int faults, std::optional<SlipSense>& assumed) {
    if (!LacksMovement(faults)) {
        assumed.reset();
        return true;
    }
    if (assumed) {
        return true;
    }
    const Message question{gCaption, kSenseQuestion, Icon::Question, Buttons::YesNoCancel,
                           Button::Cancel};
    const Button answer = gPlatform.prompts->Ask(question);
    if (answer == Button::Cancel) {
        return false;
    }
    assumed = answer == Button::Yes ? SlipSense::Normal : SlipSense::Reverse;
    return true;
}

/// Opens the missing windows, and closes a window that is no longer wanted.
[[nodiscard]] bool MatchWindows(Family& family, const AxesWanted& wanted) {
    if (!AcceptLossOfOverlays(family) || !OpenMissing(family, wanted.onTwoPlots)) {
        return false;
    }
    if (!wanted.onTwoPlots && family.second != 0) {
        CloseDerivedPlot(family.second);
        family.second = 0;
    }
    return true;
}

} // namespace

std::optional<AxisLines> LinesOfAxes(const Fault& fault, std::optional<SlipSense> assumed) {
    double polePlunge = 0;
    double poleTrend = 0;
    OppositeOfPlane(DegToRad(std::abs(fault.plane.dip)), DegToRad(fault.plane.azimuth), polePlunge,
                    poleTrend);
    AxisLines axes;
    axes.pPlunge = kErrorRow;
    ComputePTAxes(polePlunge, poleTrend, DegToRad(fault.line.dip), DegToRad(fault.line.azimuth),
                  kKinematicTolerance, axes.pPlunge, axes.pTrend, axes.tPlunge, axes.tTrend);
    if (axes.pPlunge == kErrorRow) {
        return std::nullopt;
    }
    if (assumed == SlipSense::Reverse) {
        // The other sense swaps the axes; a horizontal line has no sign to express it.
        const double tPlunge = axes.pPlunge > 0 ? -axes.pPlunge : 0;
        axes = {std::abs(axes.tPlunge), axes.tTrend, tPlunge, axes.pTrend};
    }
    return axes;
}

int SlotOfFaults() {
    const PlotRecord& record = ActiveRecord();
    if (record.SecondaryFormat != kNoSecondary) {
        return gActivePlot;
    }
    return record.AxesTitle.empty() ? 0 : record.KinematicState;
}

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

bool MakeKinematicPlots(int index, std::optional<SlipSense> assumed) {
    if (gBusy || !IsOpenSlot(gActivePlot) || index < kAxesOnOnePlot || index > kContouredAxes
        || !CheckKinematicData()) {
        return false;
    }
    const bool onTwoPlots = index != kAxesOnOnePlot;
    Family family = FamilyOfActivePlot();
    if (!FindSense(family.parent, assumed)) {
        return false;
    }
    const AxesWanted wanted{onTwoPlots, index == kContouredAxes, assumed};
    if (!MatchWindows(family, wanted)) {
        return false;
    }
    SetUpChild(family.first, family.parent, onTwoPlots ? kShorteningAxes : kBothAxes, wanted);
    if (onTwoPlots) {
        SetUpChild(family.second, family.parent, kExtensionAxes, wanted);
    }
    const bool filled = FillChildren(family, assumed);
    if (!filled) {
        GiveUpDerivedRows(family.first);
        if (onTwoPlots) {
            ClearRows(PlotOf(family.second));
        }
    }
    ShowDerivedPlot(family.first);
    if (onTwoPlots) {
        ShowDerivedPlot(family.second);
    }
    return filled;
}

void PrepareKinematicPlot(int slot, std::optional<SlipSense> assumed) {
    PrepareDerivedPlot(RecordOf(slot), kPolarLines, AxisColumnName(assumed));
}

} // namespace quandrel

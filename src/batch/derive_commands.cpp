// SPDX-License-Identifier: MIT

#include "batch/derive_commands.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "derive/intersection_lines.h"
#include "derive/kinematic_plots.h"
#include "derive/secondary_data.h"

namespace quandrel {

namespace {

/// Why the buttons of the secondary data cannot act on the active plot, or nothing.
std::string LackOfSecondarySet() {
    const PlotRecord& record = ActiveRecord();
    if (record.SecondaryFormat == kNoSecondary) {
        return "the plot holds no secondary set";
    }
    if (record.NumValidData == 0) {
        return "the plot holds no valid rows";
    }
    return record.PlotKind == kRose ? "a rose cannot show a secondary set beside its own" : "";
}

constexpr std::string_view kNormal = "normal";
constexpr std::string_view kReverse = "reverse";

std::string SetButton(int button, bool down) {
    SetSecondaryButton(button, down);
    return IsSecondaryButtonDown(button) == down ? "" : "refused: see the message";
}

} // namespace

std::string MakeAxes(const std::string& index, const std::optional<std::string>& sense) {
    if (index.size() != 1 || index[0] < '0' || index[0] > '2') {
        return "'" + index
               + "' is not one of 0 (one plot), 1 (two plots), 2 (two plots, contoured)";
    }
    if (sense && *sense != kNormal && *sense != kReverse) {
        return "sense: '" + *sense + "' is neither normal nor reverse";
    }
    const int faults = SlotOfFaults();
    if (!sense && IsOpenSlot(faults) && LacksMovement(faults)) {
        return "no row says in which sense it moved: state sense=normal (hanging walls down) or "
               "sense=reverse";
    }
    std::optional<SlipSense> assumed;
    if (sense) {
        assumed = *sense == kNormal ? SlipSense::Normal : SlipSense::Reverse;
    }
    return MakeKinematicPlots(index[0] - '0', assumed) ? "" : "no axes were made: see the message";
}

std::string MakeIntersections() {
    const PlotRecord& record = ActiveRecord();
    if (record.PrimaryFormat != kPrimaryPlane || record.SecondaryFormat != kSecondaryPlane) {
        return "the rows of the plot do not hold two planes each";
    }
    return MakeIntersectionPlot() ? "" : "no intersections were made: their plot has been changed";
}

std::string PlotOtherSet() {
    if (ActiveRecord().SecondaryFormat == kNoSecondary) {
        return "the plot holds no secondary set";
    }
    if (ActiveRecord().OverlayRows[kOverlayCount] > 0) {
        return "the set of a plot with overlays cannot change";
    }
    ToggleSecondaryData();
    return {};
}

std::string OverlaySecondarySet(const std::string& state) {
    if (state != "on" && state != "off") {
        return "'" + state + "' is neither on nor off";
    }
    const std::string lack = LackOfSecondarySet();
    return lack.empty() ? SetButton(kOverlaySecondary, state == "on") : lack;
}

std::string PressSecondaryButton(int button) {
    const std::string lack = LackOfSecondarySet();
    return lack.empty() ? SetButton(button, !IsSecondaryButtonDown(button)) : lack;
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "statistics/plot_regions.h"

#include "core/data_format.h"
#include "core/overlay_names.h"
#include "core/plot_rows.h"
#include "core/told_step.h"
#include "platform/platform.h"
#include "statistics/fabric_kernels.h"
#include "stereo/axis_rows.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace quandrel {

namespace {

/// What the samples of a plot follow from.
struct RowsKey {
    std::uint64_t version = 0;
    std::int32_t last = 0;
    std::int16_t dataKind = 0;
    std::int16_t useDecimals = 0;
    std::string axes;
    decltype(RecordOverlays::OverlayRows) overlayRows{};
    decltype(RecordOverlays::OverlayKind) overlayKinds{};
    std::vector<std::string> overlayNames;
    RowClasses classes;

    friend bool operator==(const RowsKey&, const RowsKey&) = default;
};

struct KnownRegions {
    RowsKey key;
    RecordRegions choice;
    std::vector<PlotRegion> regions;
};

/// What the regions of a plot follow from: not how they are drawn.
RecordRegions Essence(RecordRegions choice) {
    choice.RegionDespite = 0;
    choice.RegionCloud = 0;
    return choice;
}

RecordRegions AtLevel(RecordRegions choice, std::int16_t level) {
    choice.RegionLevel = level;
    return choice;
}

bool IsWanted(std::int16_t sum, int part) {
    return (sum & part) != 0;
}

std::vector<RegionTarget> TargetsOf(std::int16_t about, bool isPolar) {
    std::vector<RegionTarget> targets;
    if (IsWanted(about, kRegionOfAxis)) {
        targets.push_back(RegionTarget::PrincipalAxis);
    }
    if (IsWanted(about, kRegionOfGirdle)) {
        targets.push_back(RegionTarget::GirdlePole);
    }
    if (IsWanted(about, kRegionOfMean) && isPolar) {
        targets.push_back(RegionTarget::MeanDirection);
    }
    return targets;
}

/// The computation of the regions of a plot, one after another.
class RegionWork {
public:
    /// @param steps   how many regions there are
    RegionWork(const RecordRegions& choice, std::size_t steps, StatusLine* watcher)
        : choice_(choice)
        , watcher_(watcher)
        , step_(" Please wait - resampling for confidence regions; Esc stops it",
                static_cast<std::int64_t>(steps) * choice.RegionResamples, watcher) {}

    /// @param former  with the same resamples at any level, or null
    void Add(const RowGroup& group, RegionTarget target, const ChosenRegion* former);

    [[nodiscard]] std::vector<PlotRegion> Regions() { return std::move(regions_); }

private:
    [[nodiscard]] RegionChoice ChoiceFor(RegionTarget target);
    [[nodiscard]] bool GoesOn(int done);

    const RecordRegions& choice_;
    StatusLine* watcher_;
    ToldStep step_;
    bool isStopped_ = false;
    std::vector<PlotRegion> regions_;
};

bool RegionWork::GoesOn(int done) {
    step_.Reach(static_cast<std::int64_t>(regions_.size()) * choice_.RegionResamples + done);
    isStopped_ = isStopped_ || (watcher_ != nullptr && watcher_->CancelRequested());
    return !isStopped_;
}

RegionChoice RegionWork::ChoiceFor(RegionTarget target) {
    RegionChoice choice;
    choice.target = target;
    choice.level = choice_.RegionLevel / 100.0;
    choice.method = MethodOfCode(choice_.RegionMethod, target);
    choice.bootstrap.resamples = choice_.RegionResamples;
    choice.bootstrap.seed = static_cast<std::uint64_t>(choice_.RegionSeed);
    choice.bootstrap.threads = ThreadsToUse();
    choice.bootstrap.onDone = [this](int done) { return GoesOn(done); };
    return choice;
}

void RegionWork::Add(const RowGroup& group, RegionTarget target, const ChosenRegion* former) {
    const bool isDirected = target == RegionTarget::MeanDirection;
    const RegionSample sample = RegionSampleOf(
        DirectionsOf(group.lines, isDirected ? LinePolarity::kDirected : LinePolarity::kAxial),
        isDirected ? RowsAre::Directions : RowsAre::Axes);
    PlotRegion region{group.name, target, {}};
    if (former != nullptr) {
        region.chosen = *former;
        region.chosen->region = RegionAtLevel(sample, *former, choice_.RegionLevel / 100.0);
    } else {
        region.chosen = ChooseRegion(sample, ChoiceFor(target));
    }
    regions_.push_back(std::move(region));
}

RowsKey KeyOf(const Plot& plot, const RowClasses& classes) {
    const PlotRecord& record = plot.record;
    std::vector<std::string> names;
    for (int overlay = 1; overlay <= record.OverlayRows[kOverlayCount]; ++overlay) {
        names.push_back(NameOfOverlay(record, overlay));
    }
    return {plot.table.version, record.NumData,   record.DataKind,
            record.UseDecimals, record.AxesTitle, record.OverlayRows,
            record.OverlayKind, std::move(names), classes};
}

} // namespace

RegionRows RegionRowsOf(const PlotRecord& record) {
    RegionRows rows;
    rows.hasPolarLines = HasPolarMainRows(record);
    rows.hasOverlays = record.OverlayRows[kOverlayCount] > 0;
    for (int overlay = 1; overlay <= record.OverlayRows[kOverlayCount]; ++overlay) {
        const auto place = static_cast<std::size_t>(overlay);
        rows.hasPolarLines = rows.hasPolarLines || record.OverlayKind[place] == kOverlayPolarLines;
    }
    rows.hasClasses = record.ClassMode > 0 && !HoldsBothAxes(record);
    return rows;
}

std::optional<RegionMethod> MethodOfCode(std::int16_t code, RegionTarget target) {
    const bool isDirected = target == RegionTarget::MeanDirection;
    std::optional<RegionMethod> method;
    if (code == kRegionByBootstrap) {
        method = RegionMethod::Bootstrap;
    } else if (code == (isDirected ? kRegionByEllipseOfDirections : kRegionByPrentice)) {
        method = RegionMethod::Ellipse;
    } else if (code == kRegionByFisher) {
        method = RegionMethod::FisherCone;
    } else if (code == kRegionByWatson) {
        method = RegionMethod::WatsonCone;
    } else if (code == kRegionByBingham) {
        method = RegionMethod::Bingham;
    }
    const auto methods = MethodsFor(target);
    return method && std::ranges::find(methods, *method) != methods.end() ? method : std::nullopt;
}

void WorkOutRegions(Plot& plot, const Styles& styles, const RowClasses& classes,
                    StatusLine* watcher) {
    const PlotRecord& record = plot.record;
    if (record.RegionsAbout == 0 || record.PlotKind == kRose) {
        plot.attachments.Drop<KnownRegions>();
        return;
    }
    auto& known = plot.attachments.Of<KnownRegions>();
    RowsKey key = KeyOf(plot, classes);
    const RecordRegions choice = Essence(record);
    const bool isForRows = known.key == key;
    if (isForRows && known.choice == choice) {
        return;
    }
    const bool isSameButLevel = isForRows && AtLevel(known.choice, choice.RegionLevel) == choice;
    const std::vector<RowGroup> groups = RowGroupsOf(plot, styles, classes, record.RegionsOf);
    std::vector<std::pair<const RowGroup*, RegionTarget>> wanted;
    for (const RowGroup& group : groups) {
        for (const RegionTarget target : TargetsOf(choice.RegionsAbout, group.isPolar)) {
            wanted.emplace_back(&group, target);
        }
    }
    RegionWork work(choice, wanted.size(), watcher);
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        const bool isKept = isSameButLevel && known.regions[i].chosen;
        work.Add(*wanted[i].first, wanted[i].second, isKept ? &*known.regions[i].chosen : nullptr);
    }
    known = {std::move(key), choice, work.Regions()};
}

std::span<const PlotRegion> RegionsOfPlot(const Plot& plot) {
    const auto* const known = plot.attachments.Find<KnownRegions>();
    return known == nullptr ? std::span<const PlotRegion>() : known->regions;
}

bool IsShown(const PlotRecord& record, const PlotRegion& region) {
    if (!region.chosen || !HasBounds(region.chosen->region)) {
        return false;
    }
    return region.chosen->region.state == RegionState::Given || record.RegionDespite != 0;
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "statistics/region_choice.h"

#include "statistics/axis_regions.h"
#include "statistics/direction_regions.h"
#include "statistics/symmetry_tests.h"

#include <array>
#include <utility>

namespace quandrel {

namespace {

constexpr std::array kAxisMethods = {RegionMethod::Bootstrap, RegionMethod::WatsonCone,
                                     RegionMethod::Ellipse, RegionMethod::Bingham};
constexpr std::array kDirectionMethods = {RegionMethod::Bootstrap, RegionMethod::FisherCone,
                                          RegionMethod::Ellipse};

/// What the choice depends on, besides the number of rows.
struct Findings {
    std::optional<double> symmetry;      ///< probability of symmetry about the centre
    std::optional<double> otherSymmetry; ///< of axes, about the other of e1 and e3
    std::optional<double> concentration; ///< of directions, Fisher's k
};

/// A method with the reason to take it.
struct MethodTaken {
    RegionMethod method = RegionMethod::Bootstrap;
    RegionGrounds grounds = RegionGrounds::Wanted;
};

bool IsRejected(const std::optional<double>& probability) {
    return probability && *probability < kSymmetryLevel;
}

bool IsTooDispersed(const std::optional<double>& concentration) {
    return concentration && *concentration < kLeastFisherConcentration;
}

std::optional<double> SymmetryAboutAxis(const RegionSample& sample, FrameCentre centre) {
    const auto frame = AxisFrameOf(sample, centre);
    return frame ? std::optional(SymmetryOfAxes(sample, *frame)) : std::nullopt;
}

Findings FindingsOf(const RegionSample& sample, const RegionChoice& choice) {
    Findings findings;
    if (choice.target == RegionTarget::MeanDirection) {
        const auto frame = MeanFrameOf(sample);
        if (frame) {
            findings.symmetry = SymmetryOfDirections(sample, *frame);
            findings.concentration = FisherCone(sample, choice.level).concentration;
        }
        return findings;
    }
    const bool isPole = choice.target == RegionTarget::GirdlePole;
    findings.symmetry = SymmetryAboutAxis(sample, CentreOf(choice.target));
    findings.otherSymmetry =
        SymmetryAboutAxis(sample, isPole ? FrameCentre::Greatest : FrameCentre::Least);
    return findings;
}

MethodTaken AutomaticMethod(const RegionSample& sample, RegionTarget target,
                            const Findings& findings) {
    if (sample.count < kLeastCountOfAsymptotics) {
        return {RegionMethod::Bootstrap, RegionGrounds::FewRows};
    }
    const bool isSymmetric = !IsRejected(findings.symmetry);
    const RegionGrounds grounds =
        isSymmetric ? RegionGrounds::Symmetric : RegionGrounds::NotSymmetric;
    if (target != RegionTarget::MeanDirection) {
        return {isSymmetric ? RegionMethod::WatsonCone : RegionMethod::Ellipse, grounds};
    }
    const bool isDispersed = IsTooDispersed(findings.concentration);
    if (isSymmetric && !isDispersed) {
        return {RegionMethod::FisherCone, grounds};
    }
    return {sample.count >= kLeastCountOfEllipse ? RegionMethod::Ellipse : RegionMethod::Bootstrap,
            isSymmetric ? RegionGrounds::TooDispersed : grounds};
}

/// Why a region is refused although it has bounds.
RegionReason ReasonToRefuse(const ConfidenceRegion& region) {
    if (region.otherSymmetry && !IsRejected(region.otherSymmetry)) {
        return region.target == RegionTarget::GirdlePole ? RegionReason::NotAGirdle
                                                         : RegionReason::NotACluster;
    }
    const bool isFisher = region.method == RegionMethod::FisherCone;
    if ((isFisher || region.method == RegionMethod::WatsonCone) && IsRejected(region.symmetry)) {
        return RegionReason::NotSymmetric;
    }
    if (isFisher && IsTooDispersed(region.concentration)) {
        return RegionReason::TooDispersed;
    }
    const bool isDirectionEllipse =
        region.target == RegionTarget::MeanDirection && region.method == RegionMethod::Ellipse;
    return isDirectionEllipse && region.count < kLeastCountOfEllipse
               ? RegionReason::FewForTheEllipse
               : RegionReason::None;
}

ConfidenceRegion UndefinedRegion(const RegionSample& sample, const RegionChoice& choice,
                                 RegionReason reason) {
    ConfidenceRegion region;
    region.target = choice.target;
    region.method = RegionMethod::Bootstrap;
    region.level = choice.level;
    region.count = sample.count;
    region.state = RegionState::Undefined;
    region.reason = reason;
    return region;
}

/// A region that needs no resamples.
ConfidenceRegion DirectRegion(RegionMethod method, const RegionSample& sample, RegionTarget target,
                              double level) {
    switch (method) {
    case RegionMethod::FisherCone:
        return FisherCone(sample, level);
    case RegionMethod::WatsonCone:
        return WatsonCone(sample, target, level);
    case RegionMethod::Bingham:
        return BinghamEllipse(sample, target, level);
    case RegionMethod::Ellipse:
    case RegionMethod::Bootstrap:
        break;
    }
    return target == RegionTarget::MeanDirection ? DirectionEllipse(sample, level)
                                                 : AxisEllipse(sample, target, level);
}

/// Empty when stopped.
std::optional<ChosenRegion> BootstrapOf(const RegionSample& sample, const RegionChoice& choice) {
    // The ellipse for large samples says whether there is a centre at all.
    const ConfidenceRegion ellipse =
        DirectRegion(RegionMethod::Ellipse, sample, choice.target, choice.level);
    if (ellipse.state == RegionState::Undefined && ellipse.reason != RegionReason::WithoutBounds) {
        return ChosenRegion{UndefinedRegion(sample, choice, ellipse.reason), {}};
    }
    if (sample.count > kMostRowsOfBootstrap) {
        return ChosenRegion{UndefinedRegion(sample, choice, RegionReason::TooManyRows), {}};
    }
    auto resampled = Resample(sample, choice.target, choice.bootstrap);
    if (!resampled) {
        return std::nullopt;
    }
    ConfidenceRegion region = BootstrapRegion(sample, choice.target, *resampled, choice.level);
    return ChosenRegion{region, std::move(*resampled)};
}

/// Refuses a region that has bounds but not its conditions. One without bounds stays undefined;
/// where e1, e2 or e2, e3 are not told apart, that is the reason for it.
void Judge(ConfidenceRegion& region) {
    const RegionReason refusal = ReasonToRefuse(region);
    const bool isNotToldApart =
        refusal == RegionReason::NotACluster || refusal == RegionReason::NotAGirdle;
    if (region.state == RegionState::Given && refusal != RegionReason::None) {
        region.state = RegionState::Refused;
        region.reason = refusal;
    } else if (region.reason == RegionReason::WithoutBounds && isNotToldApart
               && region.method != RegionMethod::Bootstrap) {
        region.reason = refusal;
    }
}

} // namespace

std::span<const RegionMethod> MethodsFor(RegionTarget target) {
    if (target == RegionTarget::MeanDirection) {
        return kDirectionMethods;
    }
    return kAxisMethods;
}

std::optional<ChosenRegion> ChooseRegion(const RegionSample& sample, const RegionChoice& choice) {
    const Findings findings = FindingsOf(sample, choice);
    const MethodTaken taken = choice.method ? MethodTaken{*choice.method, RegionGrounds::Wanted}
                                            : AutomaticMethod(sample, choice.target, findings);
    std::optional<ChosenRegion> chosen;
    if (taken.method == RegionMethod::Bootstrap) {
        chosen = BootstrapOf(sample, choice);
    } else {
        chosen = ChosenRegion{DirectRegion(taken.method, sample, choice.target, choice.level), {}};
    }
    if (!chosen) {
        return std::nullopt;
    }
    ConfidenceRegion& region = chosen->region;
    region.grounds = taken.grounds;
    region.symmetry = findings.symmetry;
    region.otherSymmetry = findings.otherSymmetry;
    region.concentration = findings.concentration;
    Judge(region);
    return chosen;
}

ConfidenceRegion RegionAtLevel(const RegionSample& sample, const ChosenRegion& chosen,
                               double level) {
    const ConfidenceRegion& known = chosen.region;
    if (known.method == RegionMethod::Bootstrap && chosen.resampled.statistics.empty()) {
        ConfidenceRegion region = known; // undefined at any level
        region.level = level;
        return region;
    }
    ConfidenceRegion region = known.method == RegionMethod::Bootstrap
                                  ? BootstrapRegion(sample, known.target, chosen.resampled, level)
                                  : DirectRegion(known.method, sample, known.target, level);
    region.grounds = known.grounds;
    region.symmetry = known.symmetry;
    region.otherSymmetry = known.otherSymmetry;
    region.concentration = known.concentration;
    Judge(region);
    return region;
}

} // namespace quandrel

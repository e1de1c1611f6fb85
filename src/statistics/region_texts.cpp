// SPDX-License-Identifier: MIT

#include "statistics/region_texts.h"

#include "orientation/number_text.h"
#include "statistics/bootstrap_region.h"
#include "statistics/direction_regions.h"
#include "statistics/region_choice.h"
#include "statistics/symmetry_tests.h"

namespace quandrel {

namespace {

constexpr double kLeastProbability = 0.001;

std::string Number(double value) {
    return FormatNumber(value, "0.#");
}

std::string Degrees(double radians) {
    return FormatNumber(RadToDeg(radians), "0.0");
}

/// "(p = 0.21)". More places near the level of the tests.
std::string ProbabilityText(double probability) {
    if (probability < kLeastProbability) {
        return "(p < " + FormatNumber(kLeastProbability, "0.000") + ")";
    }
    return "(p = " + FormatNumber(probability, probability < 0.1 ? "0.000" : "0.00") + ")";
}

std::string CentreName(RegionTarget target) {
    switch (target) {
    case RegionTarget::PrincipalAxis:
        return "axis";
    case RegionTarget::GirdlePole:
        return "pole";
    case RegionTarget::MeanDirection:
        break;
    }
    return "mean";
}

std::string SymmetryText(const ConfidenceRegion& region) {
    const double probability = region.symmetry.value_or(1);
    const std::string about = " about the " + CentreName(region.target);
    return (probability < kSymmetryLevel ? "Not symmetric" + about
                                         : "Symmetry" + about + " not rejected")
           + " " + ProbabilityText(probability);
}

std::string DispersedText(const ConfidenceRegion& region) {
    return "oncentration " + Number(region.concentration.value_or(0)) + " below "
           + Number(kLeastFisherConcentration);
}

std::string GroundsText(const ConfidenceRegion& region) {
    switch (region.grounds) {
    case RegionGrounds::FewRows:
        return "Fewer than " + Number(kLeastCountOfAsymptotics);
    case RegionGrounds::TooDispersed:
        return "C" + DispersedText(region);
    case RegionGrounds::Wanted:
        if (region.method == RegionMethod::Bootstrap || region.method == RegionMethod::Bingham
            || !region.symmetry) {
            return "As chosen";
        }
        break;
    case RegionGrounds::Symmetric:
    case RegionGrounds::NotSymmetric:
        break;
    }
    return SymmetryText(region);
}

std::string Capitalised(std::string text) {
    if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') {
        text[0] = static_cast<char>(text[0] - 'a' + 'A');
    }
    return text;
}

std::string AlikeText(RegionTarget target) {
    return target == RegionTarget::MeanDirection ? "the directions cancel"
                                                 : "eigenvalues not told apart";
}

} // namespace

std::string NameOfMethod(RegionMethod method, RegionTarget target) {
    switch (method) {
    case RegionMethod::FisherCone:
        return "cone of Fisher";
    case RegionMethod::WatsonCone:
        return "cone of Watson";
    case RegionMethod::Ellipse:
        return target == RegionTarget::MeanDirection ? "ellipse of large samples"
                                                     : "ellipse of Prentice";
    case RegionMethod::Bingham:
        return "ellipse of Bingham";
    case RegionMethod::Bootstrap:
        break;
    }
    return "bootstrap";
}

std::string NameOfRegion(const ConfidenceRegion& region) {
    const std::string name = FormatNumber(100 * region.level, "0.##") + "% region of the ";
    switch (region.target) {
    case RegionTarget::PrincipalAxis:
        return name + "principal axis";
    case RegionTarget::GirdlePole:
        return name + "girdle's pole";
    case RegionTarget::MeanDirection:
        break;
    }
    return name + "mean direction";
}

std::string ReasonText(const ConfidenceRegion& region) {
    switch (region.reason) {
    case RegionReason::None:
        break;
    case RegionReason::TooFewRows:
        return "too few rows";
    case RegionReason::TooManyRows:
        return "no bootstrap of more than " + Number(kMostRowsOfBootstrap) + " rows";
    case RegionReason::AxesAlike:
        return AlikeText(region.target);
    case RegionReason::RowsAlike:
        return "the rows share a line or a great circle";
    case RegionReason::WithoutBounds:
        return region.target == RegionTarget::GirdlePole ? "girdle undefined" : "mean undefined";
    case RegionReason::NotAGirdle:
        return "girdle not told apart from a cluster "
               + ProbabilityText(region.otherSymmetry.value_or(1));
    case RegionReason::NotACluster:
        return "mean not told apart from a girdle "
               + ProbabilityText(region.otherSymmetry.value_or(1));
    case RegionReason::NotSymmetric:
        return "not symmetric about the " + CentreName(region.target) + " "
               + ProbabilityText(region.symmetry.value_or(1));
    case RegionReason::TooDispersed:
        return "c" + DispersedText(region);
    case RegionReason::FewForTheEllipse:
        return "fewer than " + Number(kLeastCountOfEllipse) + " rows";
    case RegionReason::NoMaximum:
        return "too concentrated for the distribution of Bingham";
    }
    return {};
}

std::string SizeText(const ConfidenceRegion& region) {
    const auto semiAxes = SemiAxes(region);
    if (!semiAxes) {
        return {};
    }
    const bool isCone =
        region.method == RegionMethod::FisherCone || region.method == RegionMethod::WatsonCone;
    return isCone ? "Semi-angle " + Degrees((*semiAxes)[0]) + " degrees."
                  : "Semi-axes " + Degrees((*semiAxes)[1]) + " and " + Degrees((*semiAxes)[0])
                        + " degrees.";
}

std::array<std::string, 2> RegionTexts(const ConfidenceRegion& region, RefusedRegions refused) {
    const bool isDirected = region.target == RegionTarget::MeanDirection;
    std::string method = NameOfMethod(region.method, region.target);
    if (region.method == RegionMethod::Bootstrap && region.resamples > 0) {
        method += " of " + std::to_string(region.resamples) + " resamples";
    }
    const std::string first = std::string(isDirected ? "Directions" : "Axes")
                              + ", n = " + Number(region.count) + ". " + GroundsText(region) + ": "
                              + method + ".";
    if (region.state == RegionState::Given) {
        return {first, SizeText(region)};
    }
    const std::string reason = Capitalised(ReasonText(region)) + ".";
    const bool isShown = region.state == RegionState::Refused && refused == RefusedRegions::Shown;
    return {first, isShown ? reason + " " + SizeText(region) : reason};
}

} // namespace quandrel

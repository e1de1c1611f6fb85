// SPDX-License-Identifier: MIT

#include "statistics/region_choice.h"
#include "statistics/region_texts.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <set>
#include <string>
#include <vector>

namespace quandrel {
namespace {

double Sine(double degrees) {
    return std::sin(DegToRad(degrees));
}

ConfidenceRegion AxisRegion() {
    ConfidenceRegion region;
    region.level = 0.95;
    region.count = 38;
    region.symmetry = 0.0031;
    region.otherSymmetry = 0.0001;
    region.components = {Sine(9.8), Sine(4.1)};
    return region;
}

std::string Joined(const ConfidenceRegion& region,
                   RefusedRegions refused = RefusedRegions::Hidden) {
    const auto lines = RegionTexts(region, refused);
    return lines[0] + " " + lines[1];
}

TEST(RegionTexts, SayWhatWasDoneAndWhy) {
    ConfidenceRegion region = AxisRegion();
    EXPECT_EQ(Joined(region), "Axes, n = 38. Not symmetric about the axis (p = 0.003): ellipse of "
                              "Prentice. Semi-axes 4.1 and 9.8 degrees.");
    region.symmetry = 0.213;
    region.method = RegionMethod::WatsonCone;
    region.grounds = RegionGrounds::Symmetric;
    region.target = RegionTarget::GirdlePole;
    region.components = {Sine(7.04), Sine(7.04)};
    EXPECT_EQ(Joined(region), "Axes, n = 38. Symmetry about the pole not rejected (p = 0.21): cone "
                              "of Watson. Semi-angle 7.0 degrees.");
    region.method = RegionMethod::Bingham;
    region.grounds = RegionGrounds::Wanted;
    region.count = 37.44;
    EXPECT_EQ(Joined(region),
              "Axes, n = 37.4. As chosen: ellipse of Bingham. Semi-axes 7.0 and 7.0 degrees.");
    region.method = RegionMethod::Bootstrap;
    region.grounds = RegionGrounds::FewRows;
    region.resamples = 2000;
    EXPECT_EQ(Joined(region), "Axes, n = 37.4. Fewer than 50: bootstrap of 2000 resamples. "
                              "Semi-axes 7.0 and 7.0 degrees.");
}

TEST(RegionTexts, OfDirectionsNameTheMean) {
    ConfidenceRegion region = AxisRegion();
    region.target = RegionTarget::MeanDirection;
    region.method = RegionMethod::FisherCone;
    region.symmetry = 0.051;
    region.otherSymmetry.reset();
    EXPECT_EQ(RegionTexts(region, RefusedRegions::Hidden)[0],
              "Directions, n = 38. Symmetry about the mean not rejected (p = 0.051): cone of "
              "Fisher.");
    region.method = RegionMethod::Ellipse;
    region.grounds = RegionGrounds::TooDispersed;
    region.concentration = 1.52;
    EXPECT_EQ(RegionTexts(region, RefusedRegions::Hidden)[0],
              "Directions, n = 38. Concentration 1.5 below 4: ellipse of large samples.");
    region.grounds = RegionGrounds::NotSymmetric;
    region.symmetry = 1e-9;
    EXPECT_EQ(RegionTexts(region, RefusedRegions::Hidden)[0],
              "Directions, n = 38. Not symmetric about the mean (p < 0.001): ellipse of large "
              "samples.");
}

TEST(RegionTexts, OfARefusedRegionHaveItsSizeOnlyWhereItIsShown) {
    ConfidenceRegion region = AxisRegion();
    region.state = RegionState::Refused;
    region.reason = RegionReason::NotACluster;
    region.otherSymmetry = 0.21;
    EXPECT_EQ(ReasonText(region), "mean not told apart from a girdle (p = 0.21)");
    EXPECT_EQ(RegionTexts(region, RefusedRegions::Hidden)[1],
              "Mean not told apart from a girdle (p = 0.21).");
    EXPECT_EQ(RegionTexts(region, RefusedRegions::Shown)[1],
              "Mean not told apart from a girdle (p = 0.21). Semi-axes 4.1 and 9.8 degrees.");
    region.target = RegionTarget::GirdlePole;
    region.reason = RegionReason::NotAGirdle;
    EXPECT_EQ(ReasonText(region), "girdle not told apart from a cluster (p = 0.21)");
}

TEST(RegionTexts, OfAnUndefinedRegionHaveNoSize) {
    ConfidenceRegion region = AxisRegion();
    region.state = RegionState::Undefined;
    region.reason = RegionReason::WithoutBounds;
    for (const RefusedRegions refused : {RefusedRegions::Hidden, RefusedRegions::Shown}) {
        EXPECT_EQ(RegionTexts(region, refused)[1], "Mean undefined.");
    }
    EXPECT_EQ(SizeText(region), "");
}

TEST(RegionTexts, EveryReasonHasItsOwn) {
    std::set<std::string> texts;
    ConfidenceRegion region = AxisRegion();
    const int last = static_cast<int>(RegionReason::NoMaximum);
    for (int reason = 1; reason <= last; ++reason) {
        region.reason = static_cast<RegionReason>(reason);
        EXPECT_FALSE(ReasonText(region).empty()) << reason;
        texts.insert(ReasonText(region));
    }
    EXPECT_EQ(texts.size(), static_cast<std::size_t>(last));
}

TEST(NameOfRegion, HasTheLevelAndTheTarget) {
    ConfidenceRegion region = AxisRegion();
    EXPECT_EQ(NameOfRegion(region), "95% region of the principal axis");
    region.level = 0.63;
    region.target = RegionTarget::GirdlePole;
    EXPECT_EQ(NameOfRegion(region), "63% region of the girdle's pole");
    region.level = 0.99;
    region.target = RegionTarget::MeanDirection;
    EXPECT_EQ(NameOfRegion(region), "99% region of the mean direction");
}

TEST(NameOfMethod, IsDifferentForEachMethodOfATarget) {
    for (const RegionTarget target : {RegionTarget::PrincipalAxis, RegionTarget::MeanDirection}) {
        std::set<std::string> names;
        for (const RegionMethod method : MethodsFor(target)) {
            names.insert(NameOfMethod(method, target));
        }
        EXPECT_EQ(names.size(), MethodsFor(target).size());
    }
}

} // namespace
} // namespace quandrel

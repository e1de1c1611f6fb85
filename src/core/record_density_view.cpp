// SPDX-License-Identifier: MIT

#include "core/record_density_view.h"

#include <cmath>

namespace quandrel {

namespace {

constexpr double kSmallestK = 1;
constexpr double kLargestK = 1000;
constexpr double kWidestKernel = 60;
constexpr std::size_t kLongestLevels = 400;
constexpr std::int16_t kLeastLevel = 50;
constexpr std::int16_t kGreatestLevel = 99;
constexpr std::int16_t kFewestResamples = 2000;
constexpr std::int16_t kMostResamples = 10000;

template <class T>
bool IsWithin(T value, T lowest, T highest) {
    return value >= lowest && value <= highest;
}

bool IsTruth(std::int16_t value) {
    return value == 0 || value == kTrue;
}

constexpr std::int16_t kAllBits = 7; ///< of RegionsAbout and RegionsOf

} // namespace

bool IsValid(const RecordDensityView& view) {
    return IsWithin<std::int16_t>(view.DensityMethod, kDensityByCone, kDensityByKernel)
           && IsWithin(view.DensityK, kSmallestK, kLargestK)
           && IsWithin(view.KernelWidth, 0.0, kWidestKernel)
           && IsWithin<std::int16_t>(view.DensityUnit, kPerCentInConeUnit, kMultiplesUnit)
           && IsWithin<std::int16_t>(view.LevelRule, kDoublingLevels, kLevelsByHand)
           && view.LevelStep >= 0 && std::isfinite(view.LevelStep)
           && view.LevelsByHand.size() <= kLongestLevels
           && IsWithin<std::int16_t>(view.ContourPicture, kContourLines, kLinesOverBands)
           && IsWithin<std::int16_t>(view.BandPalette, 0, kBandPalettes - 1)
           && IsTruth(view.PaletteReversed) && IsWithin(view.BandOpacity, 0.0, 1.0)
           && IsTruth(view.ShowEnvelope) && IsTruth(view.ShowMaxima);
}

bool IsValid(const RecordRegions& regions) {
    return IsWithin(regions.RegionLevel, kLeastLevel, kGreatestLevel)
           && IsWithin<std::int16_t>(regions.RegionsAbout, 0, kAllBits)
           && IsWithin<std::int16_t>(regions.RegionsOf, 0, kAllBits)
           && IsWithin<std::int16_t>(regions.RegionMethod, kRegionAutomatic, kRegionByBootstrap)
           && IsTruth(regions.RegionDespite) && IsTruth(regions.RegionCloud)
           && IsWithin(regions.RegionResamples, kFewestResamples, kMostResamples)
           && regions.RegionSeed >= 0;
}

} // namespace quandrel

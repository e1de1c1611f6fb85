// SPDX-License-Identifier: MIT
//
// How the densities of a plot are estimated and drawn, and which confidence regions are shown.
//
// Plot files keep these parts in their extension; without them a plot has the values below. The
// densities of the fields DensityGrid and PointDensityMax are always those of the counting cone.

#pragma once

#include "core/record_fields.h"

#include <cstdint>
#include <string>

namespace quandrel {

/// RecordDensityView::DensityMethod, in the order of DensityMethod (density/density_method.h).
enum DensityMethodCode : std::int16_t {
    kDensityByCone = 0,
    kDensityByKamb = 1,
    kDensityByKambLinear = 2,
    kDensityByKambSquare = 3,
    kDensityByKambExponential = 4,
    kDensityByKernel = 5,
};

/// RecordDensityView::DensityUnit, in the order of DensityUnit (density/density_method.h).
enum DensityUnitCode : std::int16_t {
    kPerCentInConeUnit = 0,
    kCountsUnit = 1,
    kSigmaUnit = 2,
    kDeviationUnit = 3,
    kMultiplesUnit = 4,
};

/// RecordDensityView::LevelRule.
enum LevelRuleCode : std::int16_t {
    kDoublingLevels = 0,
    kEvenLevels = 1,
    kLevelsByHand = 2,
};

/// RecordDensityView::ContourPicture.
enum ContourPictureCode : std::int16_t {
    kContourLines = 0,
    kFilledBands = 1,
    kLinesOverBands = 2,
};

/// The most levels by hand or in even steps.
inline constexpr int kMostLevels = 24;

/// The palettes of bands, the colours of the levels among them.
inline constexpr std::int16_t kBandPalettes = 5;

/// The densities of a plot.
struct RecordDensityView {
    std::int16_t DensityMethod = kDensityByCone; ///< DensityMethodCode
    double DensityK = 3;                         ///< of Kamb's methods, 1 to 1000
    double KernelWidth = 0;                      ///< half-width of the kernel, degrees to 60 (less
                                                 ///< than 2 counts as 2); 0 for the most likely one
    std::int16_t DensityUnit = kPerCentInConeUnit; ///< DensityUnitCode; one that the method has
    std::int16_t LevelRule = kDoublingLevels;      ///< LevelRuleCode
    double LevelStep = 0;                        ///< of even levels, in the unit; 0 for a round one
    std::string LevelsByHand;                    ///< "2, 4, 8", ascending, in the unit
    std::int16_t ContourPicture = kContourLines; ///< ContourPictureCode
    std::int16_t BandPalette = 0;                ///< 0 for the colours of the levels
    std::int16_t PaletteReversed = 0;            ///< truth value
    double BandOpacity = 1;                      ///< 0 to 1
    std::int16_t ShowEnvelope = 0; ///< truth value: the outline of significant density
    std::int16_t ShowMaxima = 0;   ///< truth value: markers and numbers of the local maxima

    QUANDREL_FIELDS(DensityMethod, DensityK, KernelWidth, DensityUnit, LevelRule, LevelStep,
                    LevelsByHand, ContourPicture, BandPalette, PaletteReversed, BandOpacity,
                    ShowEnvelope, ShowMaxima);

    friend bool operator==(const RecordDensityView&, const RecordDensityView&) = default;
};

/// Whether all values are within their limits.
[[nodiscard]] bool IsValid(const RecordDensityView& view);

/// RecordRegions::RegionsAbout, to be added.
enum RegionsAboutCode : std::int16_t {
    kRegionOfAxis = 1,   ///< of the principal axis
    kRegionOfGirdle = 2, ///< of the pole of the girdle, with the band of its great circle
    kRegionOfMean = 4,   ///< of the mean of polar lines
};

/// RecordRegions::RegionsOf, to be added.
enum RegionsOfCode : std::int16_t {
    kRegionsOfPlot = 1,
    kRegionsOfOverlays = 2,
    kRegionsOfClasses = 4,
};

/// RecordRegions::RegionMethod.
enum RegionMethodCode : std::int16_t {
    kRegionAutomatic = 0,
    kRegionByFisher = 1,
    kRegionByEllipseOfDirections = 2,
    kRegionByWatson = 3,
    kRegionByPrentice = 4,
    kRegionByBingham = 5,
    kRegionByBootstrap = 6,
};

/// The confidence regions of a plot.
struct RecordRegions {
    std::int16_t RegionsAbout = 0;                ///< sum of RegionsAboutCode; 0 shows none
    std::int16_t RegionsOf = kRegionsOfPlot;      ///< sum of RegionsOfCode
    std::int16_t RegionLevel = 95;                ///< per cent, 50 to 99
    std::int16_t RegionMethod = kRegionAutomatic; ///< RegionMethodCode
    std::int16_t RegionDespite = 0;      ///< truth value: also where the data do not tell it apart
    std::int16_t RegionCloud = 0;        ///< truth value: the axes of the bootstrap's resamples
    std::int16_t RegionResamples = 2000; ///< of the bootstrap, 2,000 to 10,000
    std::int32_t RegionSeed = 1;

    QUANDREL_FIELDS(RegionsAbout, RegionsOf, RegionLevel, RegionMethod, RegionDespite, RegionCloud,
                    RegionResamples, RegionSeed);

    friend bool operator==(const RecordRegions&, const RecordRegions&) = default;
};

/// Whether all values are within their limits.
[[nodiscard]] bool IsValid(const RecordRegions& regions);

} // namespace quandrel

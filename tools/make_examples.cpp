// SPDX-License-Identifier: MIT

// Writes the data files of examples/: the measurements of an invented field season.
//
//   make_examples DIR           writes every file into DIR
//   make_examples --check DIR   exit code 1, and the name, at the first file that differs
//
// Everything follows from two models. Beds are folded cylindrically about a gently plunging axis,
// with a cleavage that fans about the axial plane. Faults slip along the shear stress that a stress
// tensor resolves on them (M. H. P. Bott, The mechanics of oblique slip faulting, Geological
// Magazine 96, 1959). Each file has a generator with its own seed, so that changing one file leaves
// the others unchanged. Angles are degrees; directions are (north, east, down).

#include "example_rows.h"
#include "field_season.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

namespace {

// ---- Folded beds --------------------------------------------------------------------------------

struct Rock {
    const char* name;
    double thickness; ///< median of a bed, metres
    double fan;       ///< share of the bed's rotation that its cleavage has followed
};

constexpr std::array<Rock, 3> kRocks{
    {{"limestone", 0.35, 0.18}, {"marl", 0.12, -0.06}, {"sandstone", 0.60, 0.32}}};

struct Fold {
    double axisPlunge, axisTrend;
};

constexpr Fold kFold{14.0, 52.0};

// Rotations of a bed about the fold axis, from the horizontal; positive ones dip to the south-east.
constexpr double kGentleLimb = 34.0;
constexpr double kSteepLimb = -70.0;
constexpr double kAxialRotation = (kGentleLimb + kSteepLimb) / 2.0;

struct Bed {
    double rotation;
    Direction pole;
    WholePlane plane;
    const Rock* rock;
};

/// A direction in horizontal beds, folded: rotated about the axis while that is horizontal, then
/// tilted with it.
Direction Folded(const Fold& fold, const Direction& flat, double rotation) {
    const Direction level = LineDirection(0.0, fold.axisTrend);
    const Direction across = LineDirection(0.0, fold.axisTrend + 90.0);
    return Turned(Turned(flat, level, rotation), across, -fold.axisPlunge);
}

/// Most beds are on the limbs, every fifth is in the hinge.
double BedRotation(Random& random) {
    const double share = random.Uniform();
    if (share < 0.80) {
        return random.Normal(share < 0.42 ? kGentleLimb : kSteepLimb, 7.0);
    }
    return kSteepLimb + (kGentleLimb - kSteepLimb) * random.Uniform();
}

Bed DrawBed(Random& random) {
    const double rotation = BedRotation(random);
    const Direction pole = Scattered(random, Folded(kFold, {0, 0, 1}, rotation), 3.0);
    return {rotation, pole, PlaneOf(pole), &kRocks[random.Index(kRocks.size())]};
}

Direction CleavagePole(Random& random, const Bed& bed) {
    const Direction uprightPole = LineDirection(0.0, kFold.axisTrend + 90.0);
    const double fanned = kAxialRotation + bed.rock->fan * (bed.rotation - kAxialRotation);
    return Scattered(random, Folded(kFold, uprightPole, fanned), 3.0);
}

std::string FoldedBedding(Random& random, std::size_t) {
    const Bed bed = DrawBed(random);
    const double thickness = std::max(0.02, random.LogNormal(bed.rock->thickness, 0.5));
    return Row("\t", {bed.plane.dip, bed.plane.dipDirection, Fixed(thickness, 2), bed.rock->name});
}

std::string Cleavage(Random& random, std::size_t) {
    const Bed bed = DrawBed(random);
    const WholePlane plane = PlaneOf(CleavagePole(random, bed));
    const double spacing = std::max(0.001, random.LogNormal(bed.rock->thickness / 10.0, 0.4));
    return Row("\t", {plane.dip, plane.dipDirection, Fixed(spacing, 3), bed.rock->name});
}

/// The gentle limb across its bend, measured on a model.
std::string OutcropModel(Random& random, std::size_t index) {
    const double step = static_cast<double>(index) + random.Uniform() / 2.0;
    const Direction pole = Folded(kFold, {0, 0, 1}, kGentleLimb + step - 12.0);
    return MeasuredPlane("\t", Scattered(random, pole, 0.1)) + "\n";
}

std::string BeddingAndCleavageRightHand(Random& random, std::size_t index) {
    const bool isCleavage = index % 5 > 2;
    const Bed bed = DrawBed(random);
    const WholePlane plane = isCleavage ? PlaneOf(CleavagePole(random, bed)) : bed.plane;
    return Row(",", {Padded(StrikeOf(plane)), plane.dip, isCleavage ? "cleavage" : "bedding",
                     bed.rock->name});
}

/// Either end of the strike line may have been read.
std::string BeddingStrikeDipSense(Random& random, std::size_t) {
    const auto [rotation, pole, plane, rock] = DrawBed(random);
    const int strike = WholeAzimuth(StrikeOf(plane) + (random.Uniform() < 0.5 ? 0 : 180));
    return Row("\t", {strike, plane.dip, Sense(plane.dipDirection), rock->name});
}

std::string BeddingDipSenseQuadrant(Random& random, std::size_t index) {
    const std::string comment =
        index == 26 ? "\n* upper valley, second visit: the marl is wet\n" : "";
    const auto [rotation, pole, plane, rock] = DrawBed(random);
    const int strike = StrikeOf(plane);
    const int northEnd = strike <= 90 || strike >= 270 ? strike : WholeAzimuth(strike + 180);
    const std::string dipAndSense = std::to_string(plane.dip) + Sense(plane.dipDirection);
    return comment + Row("  ", {dipAndSense, Quadrant(northEnd), rock->name});
}

/// Intersections of bedding and cleavage, and stretching lines down the cleavage.
std::string LineationsQuadrant(Random& random, std::size_t index) {
    const std::string comment = index == 32 ? "\n* notebook 2, items parted by blanks\n"
                                              "12 NE intersection\n16 NE intersection\n"
                                            : "";
    const bool isStretching = index % 4 == 3;
    const Bed bed = DrawBed(random);
    const Direction cleavage = CleavagePole(random, bed);
    const Direction line = isStretching ? Scattered(random, LineDirection(70.0, 150.0), 6.0)
                                        : Unit(Cross(bed.pole, cleavage));
    const WholeLine whole = LineOf(Downward(line));
    return comment
           + Row(index < 32 ? ", " : " ", {whole.plunge, Quadrant(whole.trend),
                                           isStretching ? "stretching" : "intersection"});
}

/// Hinges of small folds; the plunge is negative for folds that look like an S down the plunge.
std::string FoldHingesPolar(Random& random, std::size_t) {
    const bool isS = random.Uniform() < 0.4;
    const Direction hinge = LineDirection(kFold.axisPlunge, kFold.axisTrend);
    const WholeLine line = LineOf(Downward(Scattered(random, hinge, 8.0)));
    const int plunge = std::max(1, line.plunge);
    return Row("\t", {line.trend, isS ? -plunge : plunge, isS ? "S" : "Z"});
}

/// Beds with their groove casts, which all had one direction before folding, and the local fold
/// axis.
std::string BeddingFoldAxes(Random& random, std::size_t index) {
    static constexpr std::array<Fold, 3> kAreas{{{14.0, 52.0}, {7.0, 45.0}, {22.0, 61.0}}};
    static constexpr std::array<const char*, 3> kNames{"mill", "ridge", "lake"};
    const Fold& fold = kAreas[index / 15];
    const double rotation = BedRotation(random);
    const Direction flatGroove = LineDirection(0.0, random.Normal(15.0, 6.0));
    const WholePlane plane = PlaneOf(Folded(fold, {0, 0, 1}, rotation));
    const WholeLine groove = LineOf(Downward(Folded(fold, flatGroove, rotation)));
    return Row("\t", {plane.dip, plane.dipDirection, groove.plunge, groove.trend,
                      Whole(fold.axisPlunge), Whole(fold.axisTrend), kNames[index / 15]});
}

// ---- Faults -------------------------------------------------------------------------------------

/// Principal stresses of 1, the middle one and 0, compression positive.
struct Stress {
    Direction greatest, middle;
    double middleValue;
};

/// Extension towards 118.
Stress Extension() {
    return {{0, 0, 1}, LineDirection(0.0, 28.0), 0.45};
}

/// The shortening that made the fold.
Stress Shortening() {
    return {LineDirection(0.0, 142.0), LineDirection(0.0, 52.0), 0.35};
}

struct Fault {
    WholePlane plane;
    int strike;     ///< with the dip to its right
    int slipAngle;  ///< in the plane, from the strike via the dip line, 0 to 359
    Direction slip; ///< of the hanging wall
};

/// A fault close to the given plane. The hanging wall moves along the shear stress on it.
Fault DrawFault(Random& random, const Stress& stress, double dip, double dipDirection) {
    const int steepness = Whole(std::clamp(random.Normal(dip, 5.0), 5.0, 88.0));
    const int azimuth = WholeAzimuth(random.Normal(dipDirection, 13.0));
    const Direction pole = PoleDirection(steepness, azimuth);
    const Direction traction = Dot(stress.greatest, pole) * stress.greatest
                               + (stress.middleValue * Dot(stress.middle, pole)) * stress.middle;
    const Direction shear = Unit(traction + (-Dot(traction, pole)) * pole);
    const Direction slip = Turned(shear, pole, random.Normal(0.0, 5.0));
    const double alongStrike = Dot(slip, LineDirection(0.0, azimuth - 90));
    const double downDip = Dot(slip, LineDirection(steepness, azimuth));
    return {{steepness, azimuth},
            WholeAzimuth(azimuth - 90),
            WholeAzimuth(std::atan2(downDip, alongStrike) / kDegree),
            slip};
}

/// Conjugate normal faults, with some of the older reverse faults.
Fault DrawMixedFault(Random& random) {
    const double kind = random.Uniform();
    if (kind < 0.68) {
        return DrawFault(random, Extension(), 61.0, kind < 0.36 ? 116.0 : 299.0);
    }
    return DrawFault(random, Shortening(), 32.0, kind < 0.88 ? 145.0 : 320.0);
}

std::string Movement(const Fault& fault) {
    const std::string vertical = fault.slip.down >= 0.0 ? "normal" : "reverse";
    const int fromStrike = fault.slipAngle % 180;
    if (fromStrike > 75 && fromStrike < 105) {
        return vertical;
    }
    const bool alongStrike = fault.slipAngle < 90 || fault.slipAngle > 270;
    return vertical + (alongStrike ? "-sinistral" : "-dextral");
}

std::string FaultsPitch(Random& random, std::size_t index) {
    const Fault fault = DrawFault(random, Extension(), 62.0, index % 5 < 3 ? 105.0 : 306.0);
    const bool fromStrike = fault.slipAngle <= 90;
    const int pitch = fromStrike ? fault.slipAngle : 180 - fault.slipAngle;
    const std::string pitchAndSense =
        std::to_string(pitch) + Sense(fromStrike ? fault.strike : fault.strike + 180);
    return Row("\t", {fault.plane.dip, fault.strike, pitchAndSense, Movement(fault)});
}

std::string FaultsSlipLines(Random& random, std::size_t) {
    const Fault fault = DrawMixedFault(random);
    const WholeLine slip = LineOf(fault.slip);
    return Row("\t", {fault.plane.dipDirection, fault.plane.dip, slip.trend, slip.plunge,
                      Movement(fault)});
}

std::string FaultsSlipAngle(Random& random, std::size_t) {
    const Fault fault = DrawMixedFault(random);
    return Row("\t", {fault.strike, fault.plane.dip, fault.slipAngle, Movement(fault)});
}

// ---- A shear zone -------------------------------------------------------------------------------

struct Mylonite {
    WholePlane foliation;
    WholeLine lineation;
};

/// Foliation in open waves about the stretching direction, and the lineation on it.
Mylonite DrawMylonite(Random& random) {
    const Direction stretching = LineDirection(33.0, 332.0);
    const double wave = random.Normal(0.0, 14.0);
    const Direction pole =
        Scattered(random, Turned(PoleDirection(34.0, 326.0), stretching, wave), 2.5);
    const Direction near = Scattered(random, stretching, 5.0);
    const Direction inPlane = Unit(near + (-Dot(near, pole)) * pole);
    return {PlaneOf(pole), LineOf(Downward(inPlane))};
}

std::string FoliationLineationTrend(Random& random, std::size_t index) {
    const Mylonite rock = DrawMylonite(random);
    const bool isHidden = index == 17 || index == 41; // no visible lineation
    return Row(",", {rock.foliation.dip, rock.foliation.dipDirection,
                     isHidden ? Field("-") : Field(rock.lineation.trend),
                     index % 3 == 0 ? "mica" : "quartz"});
}

std::string MylonitesParameterLine(Random& random, std::size_t index) {
    static constexpr std::array<const char*, 3> kGrades{"protomylonite", "mylonite",
                                                        "ultramylonite"};
    static constexpr std::array<double, 3> kGrains{0.9, 0.25, 0.05}; // medians, millimetres
    const std::size_t grade = index / 18;
    const auto [plane, line] = DrawMylonite(random);
    const double grain = std::max(0.01, random.LogNormal(kGrains[grade], 0.3));
    return Row("\t", {plane.dip, plane.dipDirection, line.plunge, line.trend, Fixed(grain, 2),
                      kGrades[grade]});
}

// ---- Joints, currents, traces, wind -------------------------------------------------------------

std::string Joints(Random& random, std::size_t index) {
    struct Set {
        double share, dip, dipDirection, scatter, spacing; // spacing: median, metres
    };

    static constexpr std::array<Set, 3> kSets{{{0.45, 86.0, 52.0, 6.0, 0.40},
                                               {0.80, 82.0, 318.0, 8.0, 0.85},
                                               {1.00, 22.0, 160.0, 7.0, 1.60}}};
    static constexpr std::array<const char*, 3> kStations{"Q1", "Q2", "R7"};
    const double share = random.Uniform();
    const Set& set = kSets[share < kSets[0].share ? 0 : share < kSets[1].share ? 1 : 2];
    const Direction pole = PoleDirection(set.dip, set.dipDirection);
    const WholePlane plane = PlaneOf(Scattered(random, pole, set.scatter));
    const Rock& rock = kRocks[index / 25 % 3];
    const double spacing =
        std::max(0.03, random.LogNormal(set.spacing * (0.5 + rock.thickness), 0.6));
    return Row(
        ",", {kStations[index / 50], plane.dipDirection, plane.dip, Fixed(spacing, 2), rock.name});
}

/// Cross-beds of the ebb, and fewer of the flood in the opposite direction.
std::string Palaeocurrents(Random& random, std::size_t) {
    const bool isEbb = random.Uniform() < 0.78;
    const int azimuth =
        WholeAzimuth(isEbb ? random.Normal(48.0, 22.0) : random.Normal(230.0, 16.0));
    return Row("\t", {azimuth, random.Uniform() < 0.7 ? "cross-bedding" : "ripples"});
}

std::string TracesDecimalComma(Random& random, std::size_t index) {
    const std::string comment = index == 70    ? "\n; second bench\n\n"
                                : index == 130 ? "\n* third bench, partly under water\n\n"
                                               : "";
    const bool isLong = random.Uniform() < 0.6;
    const double azimuth = isLong ? random.Normal(142.0, 9.0) : random.Normal(48.0, 12.0);
    const double axial = std::min(179.9, azimuth - 180.0 * std::floor(azimuth / 180.0));
    const double length = std::max(0.2, random.LogNormal(isLong ? 2.4 : 1.1, 0.6));
    return comment + Row(";", {Fixed(axial, 1, ','), Fixed(length, 2, ',')});
}

/// Frequency of the winds at an azimuth: the main one from 232, another from 55.
double WindSwell(double azimuth) {
    const double chief = std::exp(3.5 * (std::cos(kDegree * (azimuth - 232.0)) - 1.0));
    return chief + 0.45 * std::exp(6.0 * (std::cos(kDegree * (azimuth - 55.0)) - 1.0));
}

/// Ten-degree sectors; the frequencies are percentages of the year, the remainder was calm.
std::string WindTable(Random& random, std::size_t index) {
    double total = 0.0;
    for (int sector = 0; sector < 360; sector += 10) {
        total += 0.12 + WindSwell(sector);
    }
    const int azimuth = static_cast<int>(index) * 10;
    const double weight = (0.12 + WindSwell(azimuth)) * random.LogNormal(1.0, 0.04);
    const double speed = 3.0 + 3.8 * WindSwell(azimuth) + random.Normal(0.0, 0.15);
    return Row("\t", {azimuth, Fixed(speed, 1), Fixed(97.0 * weight / total, 2)});
}

// ---- The program --------------------------------------------------------------------------------

struct Example {
    const char* name;
    std::uint64_t seed;
    std::size_t rows;
    std::string (*row)(Random& random, std::size_t index); ///< including the comments before it
    const char* head;
};

constexpr std::array<Example, 18> kExamples{{
    {"folded_bedding.txt", 101, 120, FoldedBedding, "dip\tdip direction\tthickness\trock type\n"},
    {"cleavage.txt", 117, 64, Cleavage, "dip\tdip direction\tspacing\trock type\n"},
    {"outcrop_model.txt", 118, 25, OutcropModel, "dip\tdip direction\n"},
    {"bedding_cleavage_strike_rhr.csv", 102, 90, BeddingAndCleavageRightHand,
     "strike,dip,structure,rock type\n"},
    {"bedding_strike_dip_sense.txt", 103, 60, BeddingStrikeDipSense,
     "strike\tdip\tsense\trock type\n"},
    {"bedding_dip_sense_quadrant.txt", 104, 48, BeddingDipSenseQuadrant,
     "; Bedding: dip with its sense, then the northern end of the strike line\n"
     "* upper valley, first visit\n\n"},
    {"bedding_fold_axes.txt", 116, 45, BeddingFoldAxes,
     "dip\tdip direction\tgroove plunge\tgroove trend\taxis plunge\taxis trend\tsubarea\n"},
    {"lineations_quadrant.txt", 105, 56, LineationsQuadrant,
     "; Lineations on the folded beds: plunge, trend, kind\n"
     "; notebook 1, items parted by commas\n\n"},
    {"fold_hinges_polar.txt", 115, 44, FoldHingesPolar, "trend\tplunge\tshape\n"},
    {"faults_pitch.txt", 106, 48, FaultsPitch, "dip\tstrike\tpitch\tmovement\n"},
    {"faults_slip_lines.txt", 107, 72, FaultsSlipLines,
     "dip direction\tdip\ttrend\tplunge\tmovement\n"},
    {"faults_slip_angle.txt", 109, 40, FaultsSlipAngle, "strike\tdip\tslip angle\tmovement\n"},
    {"foliation_lineation_trend.csv", 108, 60, FoliationLineationTrend,
     "dip,dip direction,lineation trend,mineral\n"},
    {"mylonites_parameter_line.txt", 114, 54, MylonitesParameterLine,
     "; Foliation and stretching lineation across a shear zone\n"
     "; dip, dip direction, plunge, trend, grain size in mm, rock type\n"
     "/T1\t/N2\t/I2\t/C1\t/12\t/23\t/S0\t/A0\t/L1\t/W1\t/Fgrainsize\t/Drock type\n"},
    {"joints.csv", 110, 150, Joints, "station,dip direction,dip,spacing,rock type\n"},
    {"palaeocurrents.txt", 111, 76, Palaeocurrents, "azimuth\tstructure\n"},
    {"traces_decimal_comma.txt", 112, 180, TracesDecimalComma,
     "; Joint traces in the old quarry of Hüttlingsried\n"
     "; azimuth from 0 to 180, length in metres, decimal commas\n\n"
     "azimuth;length\n"},
    {"wind_table.txt", 113, 36, WindTable, "direction\tMean wind speed\tMean wind frequency\n"},
}};

std::string TextOf(const Example& example) {
    Random random(example.seed);
    std::string text = example.head;
    for (std::size_t index = 0; index < example.rows; ++index) {
        text += example.row(random, index);
    }
    return text;
}

int WriteExamples(const std::filesystem::path& folder) {
    for (const Example& example : kExamples) {
        std::ofstream file(folder / example.name, std::ios::binary);
        file << TextOf(example);
        file.close();
        if (!file) {
            std::fprintf(stderr, "cannot write %s\n", (folder / example.name).string().c_str());
            return 1;
        }
    }
    return 0;
}

int CheckExamples(const std::filesystem::path& folder) {
    for (const Example& example : kExamples) {
        std::ifstream file(folder / example.name, std::ios::binary);
        const std::string found{std::istreambuf_iterator<char>(file), {}};
        if (!file.is_open() || found != TextOf(example)) {
            std::fprintf(stderr, "%s differs from what make_examples writes\n", example.name);
            return 1;
        }
    }
    return 0;
}

} // namespace

} // namespace quandrel

int main(int argc, char** argv) {
    const std::vector<std::string_view> arguments(argv + 1, argv + argc);
    if (arguments.size() == 2 && arguments[0] == "--check") {
        return quandrel::CheckExamples(arguments[1]);
    }
    if (arguments.size() == 1 && !arguments[0].starts_with('-')) {
        return quandrel::WriteExamples(arguments[0]);
    }
    std::fputs("usage: make_examples DIR | make_examples --check DIR\n", stderr);
    return 2;
}

// SPDX-License-Identifier: MIT
//
// How often the density of even rows stays within the envelope of significant density: simulated
// samples, of which the greatest density is sought by direct sums.
//
// usage: envelope_coverage [SAMPLES] [ROWS ...]    1000 samples of 30 and of 100 rows by default
//
// A row of the table is a method with a number of rows. The columns give the share of samples that
// exceed the envelope nowhere, of axes and of polar lines, with decimals and in whole degrees. It
// should be 0.95; 1000 samples and the envelope itself have a standard error of 0.010. Counts are
// whole numbers: their share is the first that is not below 0.95.

#include "support/envelope_coverage.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace quandrel;

constexpr int kDefaultSamples = 1000;
constexpr std::uint64_t kSeed = 17;

struct Trial {
    std::string name;
    DensityChoice choice;
};

std::vector<Trial> Trials() {
    std::vector<Trial> trials = {{"Kamb", {DensityMethod::Kamb}},
                                 {"Kamb, linear", {DensityMethod::KambLinear}},
                                 {"Kamb, square", {DensityMethod::KambSquare}},
                                 {"Kamb, exponential", {DensityMethod::KambExponential}}};
    for (const double degrees : {4.0, 10.0, 25.0, 60.0}) {
        DensityChoice choice{DensityMethod::Kernel};
        choice.halfWidth = DegToRad(degrees);
        trials.push_back({"Kernel, " + std::to_string(std::lround(degrees)) + " degrees", choice});
    }
    return trials;
}

struct Cell {
    LineSense sense = LineSense::Axes;
    Precision precision = Precision::Decimals;
};

constexpr std::array kCells = {Cell{LineSense::Axes, Precision::Decimals},
                               Cell{LineSense::Axes, Precision::WholeDegrees},
                               Cell{LineSense::Directions, Precision::Decimals},
                               Cell{LineSense::Directions, Precision::WholeDegrees}};

void PrintRow(const Trial& trial, int rows, int samples) {
    std::array<double, kCells.size()> shares{};
    {
        std::vector<std::jthread> workers; // a cell has seeds of its own: threads do not matter
        for (std::size_t i = 0; i < kCells.size(); ++i) {
            workers.emplace_back([&, i] {
                DensityChoice choice = trial.choice;
                choice.sense = kCells.at(i).sense;
                const DensityFormula formula = FormulaOf(choice, rows);
                const double level = LevelOfEnvelope(formula, kCells.at(i).precision);
                const EnvelopeTally tally =
                    TallyOfEnvelope(formula, kCells.at(i).precision, level, samples, kSeed);
                shares.at(i) = static_cast<double>(tally.within) / samples;
            });
        }
    }
    std::printf("%-18s %5d", trial.name.c_str(), rows);
    for (const double share : shares) {
        std::printf("   %5.3f", share);
    }
    std::printf("\n");
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    const int samples = argc > 1 ? std::atoi(argv[1]) : kDefaultSamples;
    std::vector<int> counts;
    for (int i = 2; i < argc; ++i) {
        counts.push_back(std::atoi(argv[i]));
    }
    if (counts.empty()) {
        counts = {30, 100};
    }
    if (samples < 1 || std::ranges::min(counts) < 1) {
        std::fprintf(stderr, "usage: envelope_coverage [SAMPLES] [ROWS ...]\n");
        return 2;
    }
    std::printf("%-18s %5s   %s\n%-18s %5s   %5s   %5s   %5s   %5s\n", "", "",
                "axes            polar", "method", "rows", "decim", "whole", "decim", "whole");
    for (const Trial& trial : Trials()) {
        for (const int rows : counts) {
            PrintRow(trial, rows, samples);
        }
    }
    return 0;
}

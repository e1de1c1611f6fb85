// SPDX-License-Identifier: MIT
//
// Densities of published lines and poles, by every method, compared with direct sums at random
// places.

#include "core/settings.h"
#include "density/density_field.h"
#include "density/direct_density.h"
#include "input/file_loading.h"
#include "persistence/open_plot.h"
#include "sample_data/sample_files.h"
#include "stereo/distinct_lines.h"
#include "support/density_samples.h"
#include "support/test_platform.h"

#include <algorithm>
#include <cmath>

namespace quandrel {
namespace {

constexpr std::size_t kPlaces = 500;

/// Row by row: a part of each density, and of the greatest the rounding of running totals.
constexpr double kOfRows = 1e-9;
constexpr double kOfTotals = 1e-11;

/// By the lattice: a part of the greatest.
constexpr double kOfLattice = 5e-4;

double ToleranceOf(const DensityFormula& formula, double density, double greatest) {
    return IsSpline(formula) ? kOfLattice * greatest : kOfRows * density + kOfTotals * greatest;
}

class DensitySamples : public EngineTest, public ::testing::WithParamInterface<const char*> {
protected:
    /// The measured lines and poles of the file.
    std::vector<MeasuredLine> Load() {
        const SampleFile file = FileNamed(GetParam());
        gPrimaryDataType = file.format.primary;
        gSecondaryDataType = file.format.secondary;
        gConventions = file.format.conventions;
        gFileDelimiter = file.format.delimiter;
        gFileColumnSettings = file.format.columns;
        gSettings.format.hasHeadings = file.format.heading;
        gFileNumericAppended = file.format.number;
        gPlotDataKind = file.format.dataKind;
        AcceptFormat({}, 1000);
        for (const char* box : file.boxes) {
            const bool isLine = std::string(box).find("line of invalid") == 0;
            Expect(box, isLine ? Button::Ignore : Button::Ok);
        }
        EXPECT_EQ(OpenPlotFile(kNewCommand, PathOf(file.name)), kNewCommand);
        const RowLines lines = MeasuredStatisticsLinesOf(ActivePlot(), gSettings.styles);
        std::vector<MeasuredLine> rows = lines.measured;
        for (const DistinctLine& line : lines.whole) {
            rows.insert(rows.end(), static_cast<std::size_t>(line.rows),
                        {DegToRad(line.plunge), DegToRad(line.trend)});
        }
        return rows;
    }

    /// All methods, by several widths.
    static std::vector<DensityFormula> Formulas(LineSense sense, double rows) {
        std::vector<DensityFormula> formulas;
        if (sense == LineSense::Axes) {
            formulas.push_back(FormulaOf({DensityMethod::Cone}, rows));
        }
        for (const DensityMethod method :
             {DensityMethod::Kamb, DensityMethod::KambLinear, DensityMethod::KambSquare,
              DensityMethod::KambExponential}) {
            for (const double k : {1.0, 3.0, 8.0}) {
                formulas.push_back(FormulaOf({method, sense, k}, rows));
            }
        }
        for (const double degrees : {4.0, 10.0, 30.0}) {
            formulas.push_back(
                FormulaOf({DensityMethod::Kernel, sense, 3, DegToRad(degrees)}, rows));
        }
        return formulas;
    }

    static void ExpectDirectSums(const DensityFormula& formula,
                                 const std::vector<MeasuredLine>& rows, DensityRows& gathered) {
        RandomLines random(500);
        const DensityField field(gathered, formula, 2);
        const std::vector<Direction> directions = DirectionsOfLines(rows);
        std::vector<double> found;
        std::vector<double> expected;
        for (std::size_t i = 0; i < kPlaces; ++i) {
            const MeasuredLine place = random.Even(formula.sense);
            found.push_back(field.At(place));
            expected.push_back(DirectDensity(formula, directions, {}, DirectionOf(place)));
        }
        const double greatest = std::ranges::max(expected);
        EXPECT_GT(greatest, formula.mean) << NameOf(formula);
        for (std::size_t i = 0; i < kPlaces; ++i) {
            ASSERT_NEAR(found[i], expected[i], ToleranceOf(formula, expected[i], greatest))
                << NameOf(formula) << ", place " << i;
        }
    }
};

TEST_P(DensitySamples, AreDirectSums) {
    const std::vector<MeasuredLine> rows = Load();
    ASSERT_GT(rows.size(), 80U);
    for (const LineSense sense : kSenses) {
        DensityRows gathered(rows, {}, sense);
        for (const DensityFormula& formula : Formulas(sense, static_cast<double>(rows.size()))) {
            ExpectDirectSums(formula, rows, gathered);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Files, DensitySamples,
                         ::testing::Values(kFoliation, kLineations, kLofotenFaults,
                                           "joints_dip_dipdir.txt"),
                         [](const auto& each) {
                             const std::string name = each.param;
                             return name.substr(0, name.find('_'));
                         });

} // namespace
} // namespace quandrel

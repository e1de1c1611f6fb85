// SPDX-License-Identifier: MIT
//
// Axes of published faults, compared with the vector form computed row by row from the data
// columns.

#include "derive/derived_plots.h"
#include "derive/kinematic_plots.h"
#include "input/file_loading.h"
#include "orientation/angles.h"
#include "orientation/vectors.h"
#include "persistence/open_plot.h"
#include "sample_data/sample_files.h"
#include "support/test_platform.h"

#include <cmath>

namespace quandrel {
namespace {

using testing::AcuteAngleOf;
using testing::Dot;
using testing::LineVector;
using testing::PlaneNormal;
using testing::Radians;
using testing::Sum;
using testing::Unit;
using testing::Vector;

struct Axes {
    Vector p;
    Vector t;
};

class KinematicSamples : public EngineTest, public ::testing::WithParamInterface<const char*> {
protected:
    int Load() {
        const SampleFile file = FileNamed(GetParam());
        gPrimaryDataType = file.format.primary;
        gSecondaryDataType = file.format.secondary;
        gConventions = file.format.conventions;
        gFileDelimiter = file.format.delimiter;
        gFileColumnSettings = file.format.columns;
        gSettings.format.hasHeadings = file.format.heading;
        gPlotDataKind = file.format.dataKind;
        AcceptFormat({}, 1000);
        for (const char* box : file.boxes) {
            const bool isLine = std::string(box).find("does not appear") == 0;
            Expect(box, isLine ? Button::Ignore : Button::Ok);
        }
        EXPECT_EQ(OpenPlotFile(kNewCommand, PathOf(file.name)), kNewCommand);
        return gActivePlot;
    }

    /// Axes of the faults of a plot whose line is nearer than 10 degrees to its plane.
    static std::vector<Axes> AxesOf(int slot) {
        std::vector<Axes> all;
        for (std::int32_t row = 1; row <= RecordOf(slot).NumData; ++row) {
            const double dip = gDataDip(slot, row);
            const double plunge = gData2Dip(slot, row);
            if (dip == kErrorRow || plunge == kErrorRow) {
                continue;
            }
            const Vector pole = PlaneNormal(Radians(dip), Radians(gDataAz(slot, row)));
            const Vector slip = LineVector(Radians(std::abs(plunge)), Radians(gData2Az(slot, row)));
            if (std::abs(Dot(pole, slip)) > std::sin(Radians(10)) - 1e-9) {
                continue;
            }
            const Vector inPlane = Unit(Sum(slip, 1, pole, -Dot(pole, slip)));
            const Axes axes{Sum(pole, 1, inPlane, plunge < 0 ? -1 : 1),
                            Sum(pole, 1, inPlane, plunge < 0 ? 1 : -1)};
            all.push_back(axes);
        }
        return all;
    }

    static Vector StoredLine(int slot, std::int32_t row) {
        return LineVector(Radians(std::abs(gDataDip(slot, row))), Radians(gDataAz(slot, row)));
    }
};

TEST_P(KinematicSamples, GiveTheAxesOfTheVectorForm) {
    const int parent = Load();
    const std::vector<Axes> axes = AxesOf(parent);
    EXPECT_TRUE(LacksMovement(parent)) << "no plunge of these files is negative";
    const SlipSense assumed = SlipSense::Normal;
    ASSERT_TRUE(MakeKinematicPlots(kAxesOnOnePlot, assumed));
    const int both = gActivePlot;
    gActivePlot = parent;
    ASSERT_TRUE(MakeKinematicPlots(kAxesOnTwoPlots, assumed));
    const int second = gActivePlot;
    const int first = second - 1;
    const auto faults = static_cast<std::int32_t>(axes.size());
    EXPECT_GT(faults, 20);
    EXPECT_EQ(RecordOf(both).NumValidData, faults);
    EXPECT_EQ(RecordOf(both).NumData, 2 * faults);
    EXPECT_EQ(RecordOf(first).NumData, faults);
    EXPECT_EQ(RecordOf(second).NumData, faults);
    const std::string valid = std::to_string(RecordOf(parent).NumValidData);
    EXPECT_NE(RecordOf(both).DescriptionText.find("P and T axes of " + std::to_string(faults)
                                                  + " of " + valid + " faults"),
              std::string::npos)
        << RecordOf(both).DescriptionText;
    EXPECT_EQ(Form(second).Caption(), "Plot " + std::to_string(second) + ": " + GetParam() + ": "
                                          + std::to_string(parent) + "   [T axes, sense assumed]");
    for (std::int32_t i = 1; i <= faults; ++i) {
        const Axes& fault = axes[static_cast<std::size_t>(i) - 1];
        EXPECT_LT(AcuteAngleOf(StoredLine(first, i), fault.p), Radians(0.75)) << i;
        EXPECT_LT(AcuteAngleOf(StoredLine(second, i), fault.t), Radians(0.75)) << i;
        EXPECT_GE(gDataDip(first, i), 0);
        EXPECT_LE(gDataDip(second, i), 0);
        EXPECT_EQ(gDataDip(both, 2 * i - 1), gDataDip(first, i));
        EXPECT_EQ(gDataAz(both, 2 * i - 1), gDataAz(first, i));
        EXPECT_EQ(gDataDip(both, 2 * i), gDataDip(second, i));
        EXPECT_EQ(gDataAz(both, 2 * i), gDataAz(second, i));
    }
}

INSTANTIATE_TEST_SUITE_P(Faults, KinematicSamples, ::testing::Values(kCreteFaults, kLofotenFaults),
                         [](const auto& each) {
                             return std::string(each.param == kCreteFaults ? "Crete" : "Lofoten");
                         });

} // namespace
} // namespace quandrel

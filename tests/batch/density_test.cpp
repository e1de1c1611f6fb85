// SPDX-License-Identifier: MIT
//
// Densities by choice in scripts.

#include "batch_fixture.h"

#include <string>

namespace quandrel {
namespace {

class BatchDensity : public BatchTest {
protected:
    void SetUp() override {
        BatchTest::SetUp();
        std::string rows;
        for (int i = 0; i < 40; ++i) {
            rows += std::to_string(40 + i % 9) + "\t" + std::to_string(100 + i % 13) + "\n";
        }
        Write("rows.txt", rows);
    }

    static constexpr const char* kOpen =
        "format primary=line data=lines delimiter=tab; open \"FOLDER/rows.txt\"; symbols 5; ";
};

TEST_F(BatchDensity, IsChosenByKeys) {
    ASSERT_EQ(Run(std::string(kOpen)
                  + "density method=\"kamb exponential\" k=2.5 unit=deviation levels=2,4,8 "
                    "picture=both palette=warm reversed=yes opacity=0.5 maxima=yes; "
                    "get DensityMethod; get DensityK; get DensityUnit; get LevelsByHand; "
                    "get ContourPicture; get BandPalette; get PaletteReversed; get BandOpacity; "
                    "get ShowMaxima; get ShowEnvelope"),
              "");
    EXPECT_EQ(out.str(), "4\n2.5\n3\n2,4,8\n2\n1\n-1\n0.5\n-1\n0\n");
}

TEST_F(BatchDensity, KeepsWhatIsNotNamedAndTakesAUnitOfTheMethod) {
    ASSERT_EQ(Run(std::string(kOpen)
                  + "density method=kamb unit=counts k=4; density method=kernel width=12; "
                    "get DensityK; get DensityUnit; get KernelWidth; density width=auto; "
                    "get KernelWidth; density levels=even:2; get LevelStep; density levels=even; "
                    "get LevelStep; get LevelRule; density levels=doubling; get LevelRule"),
              "");
    EXPECT_EQ(out.str(), "4.0\n4\n12.0\n0.0\n2.0\n0.0\n1\n0\n");
}

TEST_F(BatchDensity, RefusesWhatIsImpossible) {
    EXPECT_EQ(Run("density method=kamb"), "line 1: density: no plot is open");
    const auto refusal = [this](const std::string& arguments) {
        return Run(std::string(kOpen) + "density " + arguments);
    };
    EXPECT_NE(refusal("method=best"), "");
    EXPECT_EQ(refusal("k=0.5"), "line 1: density: k: '0.5' is not a number from 1 to 1000");
    EXPECT_EQ(refusal("width=1"), "line 1: density: width: '1' is not a number from 2 to 60");
    EXPECT_EQ(refusal("method=kernel unit=sigma"),
              "line 1: density: unit: the method does not have this unit");
    EXPECT_NE(refusal("levels=2,2"), "");
    EXPECT_NE(refusal("levels=even:0"), "");
    EXPECT_NE(refusal("opacity=1.5"), "");
}

TEST_F(BatchDensity, IsUndoneAndKeptInFiles) {
    ASSERT_EQ(Run(std::string(kOpen)
                  + "density method=kamb; density k=5; undo; get DensityK; get DensityMethod; "
                    "redo; get DensityK; save \"FOLDER/plot.qpx\"; close; "
                    "open \"FOLDER/plot.qpx\"; get DensityK; get DensityMethod"),
              "");
    EXPECT_EQ(out.str(), "3.0\n1\n5.0\n5.0\n1\n");
}

TEST_F(BatchDensity, ListsItsMaxima) {
    EXPECT_EQ(Run(std::string(kOpen) + "maxima"),
              "line 1: maxima: the plot shows no density of a method other than the counting cone "
              "in per cent");
    ASSERT_EQ(Run(std::string(kOpen) + "density method=kernel width=10; maxima"), "");
    EXPECT_TRUE(out.str().starts_with("No.\tPlunge\tTrend\tMultiples of uniform\tRows\n1\t4"))
        << out.str();
}

} // namespace
} // namespace quandrel

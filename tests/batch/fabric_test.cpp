// SPDX-License-Identifier: MIT
//
// Fabric plots in scripts.

#include "batch_fixture.h"

#include <cmath>
#include <string>

namespace quandrel {
namespace {

class BatchFabric : public BatchTest {
protected:
    void SetUp() override {
        BatchTest::SetUp();
        // Two level lines to the north, one to the east: S1, S2, S3 are 2/3, 1/3, 0.
        Write("level.txt", "0\t0\n0\t0\n0\t90\n");
        // Three lines to the north, two to the east, one down: 1/2, 1/3, 1/6.
        Write("solid.txt", "0\t0\n0\t0\n0\t0\n0\t90\n0\t90\n90\t0\n");
    }

    nlohmann::json Values(const std::string& commands) {
        EXPECT_EQ(Run(commands), "");
        return nlohmann::json::parse(out.str());
    }

    std::string BytesOf(const std::string& name) const {
        std::ifstream stream(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    static constexpr const char* kLevel =
        "format primary=line data=lines delimiter=tab; open \"FOLDER/level.txt\"; ";
    static constexpr const char* kSolid =
        "format primary=line data=lines delimiter=tab; open \"FOLDER/solid.txt\"; ";
};

TEST_F(BatchFabric, PrintsTheValues) {
    const nlohmann::json values = Values(std::string(kSolid) + "fabric");
    ASSERT_EQ(values.size(), 1U);
    const nlohmann::json& one = values[0];
    EXPECT_EQ(one["count"], 6);
    EXPECT_NEAR(one["eigenvalues"][0].get<double>(), 1.0 / 2, 1e-9);
    EXPECT_NEAR(one["eigenvalues"][2].get<double>(), 1.0 / 6, 1e-9);
    EXPECT_NEAR(one["lnS2S3"].get<double>(), std::log(2), 1e-9);
    EXPECT_NEAR(one["lnS1S2"].get<double>(), std::log(1.5), 1e-9);
    EXPECT_NEAR(one["K"].get<double>(), std::log(1.5) / std::log(2), 1e-9);
    EXPECT_NEAR(one["C"].get<double>(), std::log(3), 1e-9);
    EXPECT_NEAR(one["P"].get<double>(), 1.0 / 6, 1e-9);
    EXPECT_NEAR(one["G"].get<double>(), 1.0 / 3, 1e-9);
    EXPECT_NEAR(one["R"].get<double>(), 1.0 / 2, 1e-9);
    EXPECT_NEAR(one["B"].get<double>(), 1.0 / 2, 1e-9);
}

TEST_F(BatchFabric, OfOnePlaneHaveNoLogRatios) {
    const nlohmann::json one = Values(std::string(kLevel) + "fabric")[0];
    for (const char* key : {"lnS2S3", "lnS1S2", "K", "C"}) {
        EXPECT_TRUE(one[key].is_null()) << key;
    }
    EXPECT_NEAR(one["B"].get<double>(), 1, 1e-9);
}

TEST_F(BatchFabric, TakesOverlaysAndAllPlots) {
    const std::string both = std::string(kSolid) + "overlay \"FOLDER/level.txt\"; ";
    const nlohmann::json overlay = Values(both + "fabric of=plot,overlays");
    ASSERT_EQ(overlay.size(), 2U);
    EXPECT_EQ(overlay[1]["rows"], "level.txt");
    EXPECT_EQ(overlay[1]["count"], 3);
    const nlohmann::json all =
        Values(std::string(kSolid) + "open \"FOLDER/level.txt\"; fabric of=all");
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0]["count"], 6);
    EXPECT_EQ(all[1]["count"], 3);
}

TEST_F(BatchFabric, DrawsByTheEndingOfTheFile) {
    ASSERT_EQ(Run(std::string(kSolid) + "fabric \"FOLDER/a.svg\" kind=woodcock"), "");
    EXPECT_NE(BytesOf("a.svg").find("ln(S1/S2)"), std::string::npos);
    EXPECT_EQ(BytesOf("a.svg").find("P (point)"), std::string::npos);
    ASSERT_EQ(Run(std::string(kSolid) + "fabric \"FOLDER/b.svg\" kind=triangle"), "");
    EXPECT_EQ(BytesOf("b.svg").find("ln(S1/S2)"), std::string::npos);
    EXPECT_NE(BytesOf("b.svg").find("P (point)"), std::string::npos);
    ASSERT_EQ(Run(std::string(kSolid) + "fabric \"FOLDER/c.pdf\""), "");
    EXPECT_EQ(BytesOf("c.pdf").substr(0, 5), "%PDF-");
    ASSERT_EQ(Run(std::string(kSolid) + "fabric \"FOLDER/d.png\" size=300"), "");
    // The height is in bytes 20 to 23 of a PNG.
    const std::string png = BytesOf("d.png");
    ASSERT_GT(png.size(), 24U);
    EXPECT_EQ(static_cast<unsigned char>(png[22]) * 256 + static_cast<unsigned char>(png[23]), 300);
}

TEST_F(BatchFabric, RefusesWhatIsImpossible) {
    EXPECT_EQ(Run("fabric"), "line 1: fabric: no plot is open");
    EXPECT_EQ(Run(std::string(kSolid) + "fabric of=rows"),
              "line 1: fabric: of: 'rows' is not one of all, classes, overlays, plot");
    EXPECT_EQ(Run(std::string(kSolid) + "fabric kind=square"),
              "line 1: fabric: kind: 'square' is not one of both, triangle, woodcock");
    EXPECT_EQ(Run(std::string(kSolid) + "fabric of=overlays"),
              "line 1: fabric: there are no such rows");
    EXPECT_EQ(Run(std::string(kSolid) + "fabric size=20"),
              "line 1: fabric: size: '20' is not a whole number from 50 to 20000");
    EXPECT_NE(Run(std::string(kSolid) + "fabric \"FOLDER/a.gif\""), "");
}

} // namespace
} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Confidence regions in scripts.

#include "batch_fixture.h"

#include <string>

namespace quandrel {
namespace {

class BatchRegion : public BatchTest {
protected:
    void SetUp() override {
        BatchTest::SetUp();
        std::string rows;
        for (int i = 0; i < 80; ++i) {
            rows +=
                std::to_string(45 + i * 7 % 11) + "\t" + std::to_string(100 + i * 13 % 41) + "\n";
        }
        Write("rows.txt", rows);
    }

    static constexpr const char* kOpen =
        "format primary=line data=lines delimiter=tab; open \"FOLDER/rows.txt\"; ";
};

TEST_F(BatchRegion, PrintsTheRegionsThatItChooses) {
    ASSERT_EQ(Run(std::string(kOpen) + "region about=axis method=prentice"), "");
    EXPECT_EQ(out.str().find("95% region of the principal axis at "), 0U);
    EXPECT_NE(out.str().find("(plunge - trend)\nAxes, n = 80. "), std::string::npos);
    EXPECT_NE(out.str().find(": ellipse of Prentice.\nSemi-axes "), std::string::npos);
    ASSERT_EQ(Run(std::string(kOpen) + "region about=axis; region off; get RegionsAbout"), "");
    EXPECT_EQ(out.str().substr(out.str().size() - 2), "0\n");
}

TEST_F(BatchRegion, TakesAllKeys) {
    ASSERT_EQ(Run(std::string(kOpen)
                  + "region about=axis,girdle of=plot,overlays,classes level=99 method=bootstrap "
                    "despite=yes cloud=yes resamples=3000 seed=7"),
              "");
    EXPECT_NE(out.str().find("99% region of the girdle's pole"), std::string::npos);
    EXPECT_NE(out.str().find("bootstrap of 3000 resamples"), std::string::npos);
    ASSERT_EQ(Run(std::string(kOpen)
                  + "region about=mean of=classes level=63 method=fisher seed=7 despite=yes; "
                    "region cloud=yes; get RegionsAbout; get RegionsOf; get RegionLevel; "
                    "get RegionMethod; get RegionSeed; get RegionDespite; get RegionCloud"),
              "");
    const std::string fields = "4\n4\n63\n1\n7\n-1\n-1\n";
    EXPECT_EQ(out.str().substr(out.str().size() - fields.size()), fields);
}

TEST_F(BatchRegion, NamesOverlaysByTheirFiles) {
    Write("other.txt", "10\t20\n12\t24\n15\t18\n11\t27\n9\t21\n14\t25\n");
    ASSERT_EQ(Run(std::string(kOpen)
                  + "overlay \"FOLDER/other.txt\"; region about=axis of=overlays; dump -"),
              "");
    EXPECT_EQ(out.str().find("other.txt: 95% region of the principal axis at "), 0U) << out.str();
    EXPECT_NE(out.str().find("\"rows\":\"other.txt\""), std::string::npos);
}

TEST_F(BatchRegion, RefusesWhatIsImpossible) {
    EXPECT_EQ(Run("region about=axis"), "line 1: region: no plot is open");
    const auto refusal = [this](const std::string& arguments) {
        return Run(std::string(kOpen) + "region " + arguments);
    };
    EXPECT_EQ(refusal("about=pole"),
              "line 1: region: about: 'pole' is not one of axis, girdle, mean");
    EXPECT_EQ(refusal("level=99"), "line 1: region: about is missing: axis, girdle or mean");
    EXPECT_EQ(refusal("about=axis level=80"),
              "line 1: region: level: '80' is not one of 63, 90, 95, 99");
    EXPECT_EQ(refusal("about=axis,girdle method=fisher"),
              "line 1: region: method: none of these regions can be computed by fisher");
    EXPECT_EQ(refusal("about=axis resamples=100"), "line 1: region: resamples: '100' is not a "
                                                   "whole number from 2000 to 10000");
    EXPECT_EQ(Run(std::string(kOpen) + "plot rose; region about=axis"),
              "line 1: region: a rose has no confidence regions");
}

TEST_F(BatchRegion, TheDumpHoldsTheValues) {
    const std::string commands = std::string(kOpen) + "region about=axis method=prentice";
    const nlohmann::json regions = Dump(commands)["regions"];
    ASSERT_EQ(regions.size(), 1U);
    const nlohmann::json& region = regions[0];
    EXPECT_EQ(region["about"], "axis");
    EXPECT_EQ(region["method"], "ellipse of Prentice");
    EXPECT_EQ(region["state"], "given");
    EXPECT_EQ(region["count"], 80);
    EXPECT_NEAR(region["centre"]["plunge"].get<double>(), 50, 2);
    EXPECT_NEAR(region["centre"]["trend"].get<double>(), 120, 2);
    EXPECT_GT(region["semiAxes"][0], region["semiAxes"][1]);
    EXPECT_LT(region["symmetry"].get<double>(), 0.05);
    EXPECT_FALSE(Dump(kOpen).contains("regions"));
}

TEST_F(BatchRegion, AreUndoneAndSaved) {
    ASSERT_EQ(Run(std::string(kOpen) + "region about=axis method=prentice; undo; get RegionsAbout"),
              "");
    EXPECT_EQ(out.str().substr(out.str().size() - 2), "0\n");
    ASSERT_EQ(Run(std::string(kOpen)
                  + "region about=axis method=prentice level=99; "
                    "save \"FOLDER/rows.qpx\"; close; open \"FOLDER/rows.qpx\"; "
                    "get RegionsAbout; get RegionLevel; get RegionMethod; stats advanced"),
              "");
    EXPECT_NE(out.str().find("1\n99\n4\n"), std::string::npos);
    EXPECT_NE(out.str().find("Semi-axes", out.str().find("1\n99\n4\n")), std::string::npos);
    EXPECT_NE(out.str().rfind("99% region of the principal axis"), std::string::npos);
}

} // namespace
} // namespace quandrel

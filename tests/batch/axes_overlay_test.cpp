// SPDX-License-Identifier: MIT
//
// T axes as an overlay of P axes: their densities, and what the legend says.

#include "batch_fixture.h"

#include <regex>

namespace quandrel {
namespace {

class AxesOverlay : public BatchTest {
protected:
    void SetUp() override {
        BatchTest::SetUp();
        std::string rows;
        for (int i = 0; i < 30; ++i) {
            rows += std::to_string(50 + i % 9) + "\t" + std::to_string(100 + 3 * i % 20) + "\t"
                    + std::to_string(45 + i % 7) + "\t" + std::to_string(90 + 2 * i % 30) + "\n";
        }
        Write("faults.txt", rows);
    }

    std::string Svg(const std::string& commands) {
        EXPECT_EQ(Run("format primary=plane secondary=line columns=0,1,2,2,3,5 delimiter=tab "
                      "data=planes; open \"FOLDER/faults.txt\"; kinematic 1 sense=normal; "
                      "activate 3; "
                      + commands + "export \"FOLDER/a.svg\" style=journal width=84mm legend=below"),
                  "");
        std::ifstream file(folder / "a.svg");
        return {std::istreambuf_iterator<char>(file), {}};
    }

    static std::string Maximum(const std::string& svg) {
        static const std::regex maximum("max ([0-9.]+)<");
        std::smatch found;
        EXPECT_TRUE(std::regex_search(svg, found, maximum));
        return found[1];
    }
};

TEST_F(AxesOverlay, HasTheDensitiesThatItHasAlone) {
    const std::string method =
        "density method=kernel width=15 unit=uniform levels=even picture=bands; ";
    const std::string alone = Svg(method + "symbols 5; ");
    const std::string overlaid =
        Svg("save \"FOLDER/t.txt\"; activate 2; overlay \"FOLDER/t.txt\"; symbols 1; " + method
            + "layer add overlay1 bands name=\"T axes\"; ");
    EXPECT_EQ(Maximum(overlaid), Maximum(alone));
}

TEST_F(AxesOverlay, IsNotCalledUpward) {
    const std::string svg =
        Svg("save \"FOLDER/t.txt\"; activate 2; overlay \"FOLDER/t.txt\"; symbols 1; replot; ");
    EXPECT_NE(svg.find(">t.txt, n = 28<"), std::string::npos) << "two have no axes";
    EXPECT_EQ(svg.find("upward"), std::string::npos);
}

} // namespace
} // namespace quandrel

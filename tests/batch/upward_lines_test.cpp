// SPDX-License-Identifier: MIT
//
// Lines that point up, from files to statistics, roses and saved texts; and the kind of data that a
// format leads to.

#include "batch/batch_fixture.h"
#include "core/data_format.h"
#include "orientation/angles.h"

#include <cmath>
#include <numbers>
#include <random>

namespace quandrel {
namespace {

/// A line of a file that names the end a line points to.
std::string VectorLine(double plunge, double trend) {
    return std::to_string(static_cast<int>(std::lround(plunge))) + "\t"
           + std::to_string(static_cast<int>(std::lround(trend + 360)) % 360) + "\n";
}

/// 20 directions about 50/010 and 20 about the opposite, up by 50 toward 190.
std::string TwoPolarities() {
    std::mt19937 random(40);
    std::normal_distribution<double> scatter(0, 5.6);
    std::string text;
    for (int i = 0; i < 20; ++i) {
        const double widen = std::cos(50 * std::numbers::pi / 180);
        text += VectorLine(50 + scatter(random), 10 + scatter(random) / widen);
        text += VectorLine(-50 + scatter(random), 190 + scatter(random) / widen);
    }
    return text;
}

double ValueOf(const nlohmann::json& entry) {
    return entry.is_object() ? entry["value"].get<double>() : entry.get<double>();
}

class UpwardLines : public BatchTest {
protected:
    void SetUp() override {
        BatchTest::SetUp();
        Write("poles.txt", TwoPolarities());
        Write("up.txt", "-30\t120\n-30\t120\n");
    }

    nlohmann::json Reference(const std::string& upward) {
        return Dump("format primary=line data=polar upward=" + upward
                    + "; open \"FOLDER/poles.txt\"")["statsReference"];
    }
};

TEST_F(UpwardLines, OfBothPolaritiesAreAntipodesWhenTheTrendsAreThoseTheyPointTo) {
    const nlohmann::json found = Reference("vector");
    EXPECT_NEAR(ValueOf(found["eigenvalue 3"]), 0.981, 0.006);
    EXPECT_LT(ValueOf(found["Fisher R/n"]), 0.03);
}

TEST_F(UpwardLines, OfBothPolaritiesAreTwoAxesWhenTheTrendsAreOfLowerEnds) {
    const nlohmann::json found = Reference("lowerend");
    EXPECT_NEAR(ValueOf(found["eigenvalue 3"]), 0.58, 0.02);
    EXPECT_NEAR(ValueOf(found["Fisher R/n"]), 0.64, 0.02);
}

TEST_F(UpwardLines, AreToldAndCountedByOneMeaning) {
    const std::string open = "; open \"FOLDER/up.txt\"; stats normal";
    EXPECT_EQ(Run("format primary=line data=polar" + open), "");
    EXPECT_NE(out.str().find("Mean Resultant dir'n = -30-120"), std::string::npos) << out.str();
    EXPECT_EQ(Run("format primary=line data=polar upward=vector" + open), "");
    EXPECT_NE(out.str().find("Mean Resultant dir'n = -30-300"), std::string::npos) << out.str();
    EXPECT_NE(Run("format primary=line upward=down"), "");
    const nlohmann::json rose =
        Dump("format primary=line data=polar upward=vector; open \"FOLDER/up.txt\"; plot rose");
    EXPECT_EQ(rose["rows"]["gDataAz"], (std::vector<int>{300, 300}));
    EXPECT_NEAR(rose["record"]["RoseMeanDir"][0].get<double>(), 120 * std::numbers::pi / 180, 1e-6);
}

TEST_F(UpwardLines, AreSavedByTheirLowerEndsAndReadBackUnderEitherSetting) {
    const auto first = Dump("format primary=line data=polar upward=vector; open "
                            "\"FOLDER/poles.txt\"; save \"FOLDER/saved.txt\"");
    for (const char* upward : {"lowerend", "vector"}) {
        const auto again = Dump(std::string("format primary=line upward=") + upward
                                + "; open \"FOLDER/saved.txt\"");
        std::vector<int> rows;
        for (const auto& dip : again["rows"]["gDataDip"]) {
            if (dip != kErrorRow) {
                rows.push_back(dip);
            }
        }
        EXPECT_EQ(rows, first["rows"]["gDataDip"].get<std::vector<int>>()) << upward;
        EXPECT_EQ(ValueOf(again["statsReference"]["Fisher R/n"]),
                  ValueOf(first["statsReference"]["Fisher R/n"]))
            << upward;
    }
}

TEST_F(UpwardLines, RotatedRigidlyKeepTheirStatistics) {
    Write("tight.txt", "10\t40\n2\t45\n-4\t222\n-8\t230\n5\t50\n-2\t215\n-12\t228\n0\t38\n");
    const std::string open = "format primary=line data=polar; open \"FOLDER/tight.txt\"";
    const auto before = Dump(open)["statsReference"];
    EXPECT_GT(ValueOf(before["Fisher R/n"]), 0.97);
    for (const char* rotation :
         {"op=3 axis=0,90 angle=90", "op=3 axis=20,310 angle=37", "op=3 axis=60,200 angle=-120"}) {
        const auto after = Dump(open + "; rotate " + rotation)["statsReference"];
        EXPECT_NEAR(ValueOf(after["Fisher R/n"]), ValueOf(before["Fisher R/n"]), 0.003) << rotation;
        EXPECT_NEAR(ValueOf(after["eigenvalue 3"]), ValueOf(before["eigenvalue 3"]), 0.006)
            << rotation;
    }
}

// The kind of data of a format.

class KindOfFormat : public BatchTest {
protected:
    void SetUp() override {
        BatchTest::SetUp();
        Write("pairs.txt", "30\t120\n45\t270\n");
        Write("azimuths.txt", "10\n20\n350\n");
        Write("kind.txt", "/T3\n30\t120\n");
    }

    int KindAfter(const std::string& commands) { return Dump(commands)["record"]["DataKind"]; }
};

TEST_F(KindOfFormat, FollowsTheFormatWhereNobodyStatesIt) {
    EXPECT_EQ(KindAfter("open \"FOLDER/pairs.txt\""), kPlanes);
    EXPECT_EQ(KindAfter("format primary=plane; open \"FOLDER/pairs.txt\""), kPlanes);
    EXPECT_EQ(KindAfter("format primary=line; open \"FOLDER/pairs.txt\""), kLines);
    EXPECT_EQ(KindAfter("format primary=directions columns=0,0; open \"FOLDER/azimuths.txt\""),
              kLines);
}

TEST_F(KindOfFormat, IsTheOneStated) {
    EXPECT_EQ(KindAfter("format primary=line data=polar; open \"FOLDER/pairs.txt\""), kPolarLines);
    EXPECT_EQ(KindAfter("format primary=plane data=lines; open \"FOLDER/pairs.txt\""), kLines);
    EXPECT_EQ(KindAfter("format primary=line data=lines; open \"FOLDER/kind.txt\""), kPolarLines)
        << "the file's own word";
}

TEST_F(KindOfFormat, OfOneFileIsNotThatOfTheNext) {
    EXPECT_EQ(KindAfter("format primary=line; open \"FOLDER/kind.txt\"; open \"FOLDER/pairs.txt\""),
              kLines);
    EXPECT_EQ(KindAfter("format primary=line data=lines; open \"FOLDER/kind.txt\"; "
                        "open \"FOLDER/pairs.txt\""),
              kLines);
}

TEST_F(KindOfFormat, OfDirectionsIsNeverPlanes) {
    const std::string refusal = "line 1: format: directions have no dip and cannot be planes: "
                                "state data=lines or data=polar, or neither";
    EXPECT_EQ(Run("format primary=directions data=planes"), refusal);
    EXPECT_EQ(Run("format data=planes primary=directions"), refusal);
    Write("stated.txt", "/11\n10\n20\n");
    EXPECT_NE(Run("format data=planes columns=0,0; open \"FOLDER/stated.txt\""), "");
    EXPECT_NE(log.str().find("cannot be planes"), std::string::npos) << log.str();
    // A text of a version that took directions for planes.
    Write("old.txt", "/T1 /11\n10\n20\n");
    EXPECT_EQ(KindAfter("format columns=0,0; open \"FOLDER/old.txt\""), kLines);
    EXPECT_EQ(Run("format columns=0,0; open \"FOLDER/old.txt\"; data planes"),
              "line 1: data: directions have no dip and cannot be planes");
}

} // namespace
} // namespace quandrel

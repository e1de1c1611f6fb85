// SPDX-License-Identifier: MIT
//
// Statistical tests in scripts.

#include "batch_fixture.h"

#include <filesystem>
#include <string>

namespace quandrel {
namespace {

class BatchTests : public BatchTest {
protected:
    void SetUp() override {
        BatchTest::SetUp();
        std::string rows;
        std::string others;
        for (int i = 0; i < 60; ++i) {
            const int plunge = 45 + i * 7 % 11;
            const int trend = 100 + i * 13 % 41;
            rows += std::to_string(plunge) + "\t" + std::to_string(trend) + "\n";
            if (i < 20) {
                others += std::to_string(plunge + 15) + "\t" + std::to_string(trend) + "\n";
            }
        }
        Write("rows.txt", rows);
        Write("others.txt", others);
    }

    /// The answer of the last command.
    nlohmann::json Answer(const std::string& commands) {
        EXPECT_EQ(Run(std::string(kOpen) + commands), "");
        const std::string text = out.str();
        return nlohmann::json::parse(text.substr(text.rfind('{', text.find("\"of\""))));
    }

    static nlohmann::json Named(const nlohmann::json& answer, const std::string& name) {
        for (const nlohmann::json& test : answer["tests"]) {
            if (test["name"] == name) {
                return test;
            }
        }
        ADD_FAILURE() << name;
        return {};
    }

    static constexpr const char* kOpen =
        "format primary=line data=lines delimiter=tab; open \"FOLDER/rows.txt\"; ";
};

TEST_F(BatchTests, GiveStatisticProbabilityAndSentence) {
    const nlohmann::json answer = Answer("tests");
    EXPECT_EQ(answer["of"]["as"], "axes");
    EXPECT_EQ(answer["of"]["count"], 60);
    EXPECT_TRUE(answer["with"].is_null());
    const nlohmann::json uniform = Named(answer, "Uniform axes (Bingham)");
    EXPECT_EQ(uniform["symbol"], "S");
    EXPECT_GT(uniform["statistic"].get<double>(), 50);
    EXPECT_LT(uniform["p"].get<double>(), 0.001);
    EXPECT_EQ(uniform["sentence"].get<std::string>().find("The axes have a preferred orientation"),
              0U);
    EXPECT_FALSE(Named(answer, "Cluster, girdle or neither").contains("p"));
}

TEST_F(BatchTests, ComparePlotsFromASeed) {
    const std::string command = "open \"FOLDER/others.txt\"; tests with=1:main tries=499 seed=";
    const nlohmann::json answer = Answer(command + "8");
    EXPECT_EQ(answer["of"]["count"], 20);
    EXPECT_EQ(answer["with"]["count"], 60);
    EXPECT_EQ(answer["tries"], 499);
    const nlohmann::json means = Named(answer, "Equal means");
    EXPECT_EQ(means["p"], 1.0 / 500) << "the means are 15 degrees apart";
    EXPECT_EQ(means["sentence"].get<std::string>().find("The means differ"), 0U);
    EXPECT_EQ(Answer(command + "8"), answer);
}

TEST_F(BatchTests, TestAzimuthsOfARose) {
    const nlohmann::json answer = Answer("plot rose; tests tries=99");
    EXPECT_EQ(answer["of"]["as"], "axial azimuths");
    EXPECT_EQ(Named(answer, "Uniform azimuths (Rayleigh)")["symbol"], "n R^2");
    EXPECT_TRUE(Named(answer, "Even spacing (Rao)")["p"].is_number());
    EXPECT_GT(Named(answer, "Concentration")["statistic"].get<double>(), 1);
}

TEST_F(BatchTests, CompareClassesInTheirOrder) {
    std::string rows;
    for (int i = 0; i < 30; ++i) {
        rows += std::to_string(40 + i * 7 % 11) + "\t" + std::to_string(100 + i * 13 % 41) + "\t"
                + (i < 12 ? "marl" : "sandstone") + "\n";
    }
    Write("named.txt", rows);
    ASSERT_EQ(Run("format primary=line data=lines delimiter=tab columns=0,1,2,3,4,5,6,7,8,2 "
                  "appended=text textname=rock; open \"FOLDER/named.txt\"; classify mode=3 "
                  "procedure=first classes=2; tests of=class1 with=class2 tries=99"),
              "");
    const nlohmann::json answer = nlohmann::json::parse(out.str());
    EXPECT_EQ(answer["of"]["count"], 12);
    EXPECT_EQ(answer["with"]["count"], 18);
    EXPECT_NE(answer["with"]["rows"].get<std::string>().find("sandstone"), std::string::npos);
}

TEST_F(BatchTests, DrawQuantilePlots) {
    for (const std::string ending : {"svg", "png", "pdf"}) {
        ASSERT_EQ(Run(std::string(kOpen) + "tests qq=\"FOLDER/qq." + ending + "\""), "");
        EXPECT_GT(std::filesystem::file_size(folder / ("qq." + ending)), 1000U);
    }
    std::ifstream stream(folder / "qq.svg");
    const std::string svg(std::istreambuf_iterator<char>(stream), {});
    EXPECT_NE(svg.find("Colatitudes"), std::string::npos);
    EXPECT_NE(svg.find("Normal distribution"), std::string::npos);
}

TEST_F(BatchTests, ChangeNothing) {
    const std::string before = Dump(kOpen).dump();
    EXPECT_EQ(Dump(std::string(kOpen) + "tests").dump(), before);
}

TEST_F(BatchTests, RefuseWhatIsImpossible) {
    EXPECT_EQ(Run("tests"), "line 1: tests: no plot is open");
    const auto refusal = [this](const std::string& arguments) {
        return Run(std::string(kOpen) + "tests " + arguments);
    };
    EXPECT_EQ(refusal("of=all"), "line 1: tests: of: 'all' is not one of main, p, t, overlay1, "
                                 "class1 and so on");
    EXPECT_EQ(refusal("of=overlay1"), "line 1: tests: of: the plot has no such rows");
    EXPECT_EQ(refusal("with=class2"), "line 1: tests: with: the plot has no such rows");
    EXPECT_EQ(refusal("with=9:main"), "line 1: tests: with: '9' is not an open plot");
    EXPECT_EQ(refusal("tries=5"),
              "line 1: tests: tries: '5' is not a whole number from 99 to 99999");
    EXPECT_EQ(Run(std::string(kOpen) + "open \"FOLDER/others.txt\"; plot rose; tests with=1:main"),
              "line 1: tests: with: axial azimuths are not compared with axes");
    EXPECT_EQ(Run(std::string(kOpen) + "plot rose; tests tries=99 qq=\"FOLDER/qq.svg\""),
              "line 1: tests: qq: these tests have no quantile plots");
}

} // namespace
} // namespace quandrel

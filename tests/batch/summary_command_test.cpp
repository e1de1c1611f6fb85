// SPDX-License-Identifier: MIT

#include "batch/batch_fixture.h"
#include "batch/command_line.h"

#include <gtest/gtest.h>

#include <random>

namespace quandrel {
namespace {

class SummaryCommandTest : public BatchTest {
protected:
    /// A cluster of planes, some lines of which are no rows.
    std::string RandomRows(std::uint32_t seed, std::size_t count = 400) {
        std::mt19937 random(seed);
        std::normal_distribution<double> dip(50, 10);
        std::normal_distribution<double> azimuth(120, 25);
        std::string text;
        for (std::size_t row = 0; row < count; ++row) {
            text += std::to_string(std::clamp(static_cast<int>(dip(random)), 0, 90)) + "\t"
                    + std::to_string((static_cast<int>(azimuth(random)) + 360) % 360) + "\n";
        }
        return text;
    }

    [[nodiscard]] std::string In(const std::string& name) const { return (folder / name).string(); }

    int Summarise(const std::vector<std::string>& files, const std::string& output,
                  const std::string& format = "primary=plane") {
        log.str("");
        return SummariseFiles({files, In(output), format}, out, log);
    }

    int Merge(const std::vector<std::string>& files, const std::string& output) {
        log.str("");
        return MergeSummaries({files, In(output), {}}, log);
    }

    [[nodiscard]] std::string BytesOf(const std::string& name) const {
        std::ifstream stream(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    nlohmann::json Printed(const std::string& name) {
        std::ostringstream text;
        EXPECT_EQ(PrintSummary({{In(name)}, {}, {}}, text, log), kBatchDone);
        return nlohmann::json::parse(text.str());
    }
};

TEST_F(SummaryCommandTest, PartsMergedInAnyOrderAreTheWhole) {
    std::vector<std::string> parts;
    std::string all;
    for (std::uint32_t part = 0; part < 4; ++part) {
        const std::string text = RandomRows(part);
        all += text;
        parts.push_back(Write("part" + std::to_string(part) + ".txt", text));
        ASSERT_EQ(Summarise({parts.back()}, std::to_string(part) + ".qsum"), kBatchDone);
    }
    ASSERT_EQ(Summarise({Write("all.txt", all)}, "all.qsum"), kBatchDone);
    ASSERT_EQ(Summarise(parts, "files.qsum"), kBatchDone);
    ASSERT_EQ(Merge({In("2.qsum"), In("0.qsum"), In("3.qsum"), In("1.qsum")}, "m.qsum"),
              kBatchDone);
    EXPECT_EQ(BytesOf("m.qsum"), BytesOf("all.qsum"));
    EXPECT_EQ(BytesOf("files.qsum"), BytesOf("all.qsum"));
    EXPECT_EQ(Printed("m.qsum")["rows"], 1600);
}

TEST_F(SummaryCommandTest, APlotOfASummaryShowsWhatItsRowsShow) {
    Write("rows.txt", RandomRows(7, 3000));
    ASSERT_EQ(Summarise({In("rows.txt")}, "rows.qsum"), kBatchDone);
    const std::string shown =
        "; symbols 5; density method=kernel width=15; region about=axis,girdle";
    const nlohmann::json rows = Dump("format primary=plane; open \"FOLDER/rows.txt\"" + shown);
    const nlohmann::json cells = Dump("open \"FOLDER/rows.qsum\"" + shown);
    EXPECT_LT(cells["record"]["NumData"], 3000);
    for (const char* const what : {"statsReference", "statsPrinted", "regions", "densityGrid"}) {
        EXPECT_EQ(cells[what], rows[what]) << what;
    }
    EXPECT_EQ(cells["record"]["NumValidData"], 3000);
    Dump("open \"FOLDER/rows.qsum\"; save \"FOLDER/rows.qpx\"");
    const nlohmann::json again = Dump("open \"FOLDER/rows.qpx\"" + shown);
    EXPECT_EQ(again["statsReference"], rows["statsReference"]);
    EXPECT_EQ(again["record"]["NumValidData"], 3000);
}

TEST_F(SummaryCommandTest, ARoseOfASummaryCountsItsRows) {
    Write("rows.txt", RandomRows(8, 2000));
    ASSERT_EQ(Summarise({In("rows.txt")}, "rows.qsum"), kBatchDone);
    const nlohmann::json rows =
        Dump("format primary=plane; open \"FOLDER/rows.txt\"; rose sector=10");
    const nlohmann::json cells = Dump("open \"FOLDER/rows.qsum\"; rose sector=10");
    ASSERT_EQ(cells["rose"]["sectors"].size(), rows["rose"]["sectors"].size());
    for (std::size_t sector = 0; sector < rows["rose"]["sectors"].size(); ++sector) {
        EXPECT_EQ(cells["rose"]["sectors"][sector]["value"][0],
                  rows["rose"]["sectors"][sector]["frequency"][0]);
    }
    for (const char* const name : {"n", "mean direction", "mean resultant length R1"}) {
        EXPECT_NEAR(cells["statsReference"][name], rows["statsReference"][name], 1e-9) << name;
    }
}

TEST_F(SummaryCommandTest, TestsNeedSingleRows) {
    ASSERT_EQ(Summarise({In("planes.txt")}, "s.qsum"), kBatchDone);
    EXPECT_EQ(Run("open \"FOLDER/s.qsum\"; tests"), "");
    EXPECT_NE(out.str().find("A summary has no single rows to test."), std::string::npos);
}

TEST_F(SummaryCommandTest, MeasuredValuesAreSummed) {
    const std::string path = Write("rows.csv", "dip,dip direction\n30.4,120.3\n30.4,120.1\n");
    ASSERT_EQ(Summarise({path}, "s.qsum", ""), kBatchDone) << log.str();
    const nlohmann::json json = Printed("s.qsum");
    EXPECT_EQ(json["rows"], 2);
    EXPECT_EQ(json["rowsWithDecimals"], 2);
    EXPECT_EQ(json["lines"]["blank"], 1);
    EXPECT_NEAR(json["fabric"]["axes"][2]["plunge"], 59.6, 1e-3);
    EXPECT_NEAR(json["fabric"]["axes"][2]["trend"], 300.2, 1e-3);
}

TEST_F(SummaryCommandTest, WeightsCount) {
    const std::string path = Write("rows.txt", "40\t120\t3\n40\t130\t1\n");
    ASSERT_EQ(Summarise({path}, "s.qsum",
                        "primary=plane appended=numeric columns=0,1,2,3,4,5,6,7,2,9 frequency=yes"),
              kBatchDone)
        << log.str();
    const nlohmann::json json = Printed("s.qsum");
    EXPECT_EQ(json["fabric"]["count"], 4.0);
    EXPECT_EQ(json["number"]["sum"], 4.0);
    EXPECT_EQ(Dump("open \"FOLDER/s.qsum\"")["record"]["NumValidData"], 4);
}

TEST_F(SummaryCommandTest, FaultsAreTold) {
    EXPECT_EQ(Summarise({In("none.txt")}, "s.qsum"), kBatchFailed);
    EXPECT_NE(log.str().find("none.txt"), std::string::npos);
    EXPECT_EQ(Summarise({In("planes.txt")}, "s.qsum", "primary=beds"), kBatchFailed);
    EXPECT_EQ(Summarise({In("planes.txt")}, "no folder/s.qsum"), kBatchFailed);
    ASSERT_EQ(Summarise({In("planes.txt")}, "s.qsum"), kBatchDone);
    ASSERT_EQ(Summarise({In("planes.txt")}, "l.qsum", "primary=line"), kBatchDone);
    EXPECT_EQ(Merge({In("s.qsum"), In("l.qsum")}, "m.qsum"), kBatchFailed);
    EXPECT_EQ(Merge({In("planes.txt")}, "m.qsum"), kBatchFailed);
    EXPECT_NE(log.str().find("It is not a summary."), std::string::npos);
    ASSERT_EQ(Summarise({Write("empty.txt", "")}, "e.qsum"), kBatchDone);
    EXPECT_NE(Run("open \"FOLDER/e.qsum\""), "");
}

} // namespace
} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "batch_fixture.h"

#include <algorithm>

namespace quandrel {
namespace {

constexpr const char* kRockFormat =
    "format primary=line delimiter=tab columns=0,1,2,3,4,5,6,7,2,3 "
    "appended=numeric,text numericname=Grade textname=Rock data=lines header=no; "
    "open \"FOLDER/v.txt\"; ";

class BatchClasses : public BatchTest {
protected:
    void SetUp() override {
        BatchTest::SetUp();
        Write("v.txt", "10\t20\t1\tslate\n20\t140\t3\tmarl\n30\t260\t5\tSlate\n80\t80\t7\tchert\n");
    }

    const std::string open = kRockFormat;
};

TEST_F(BatchClasses, AreThoseOfTheLimitsGiven) {
    const auto dump = Dump(open + "classify mode=1 limits=2,4,6 low=yes high=no");
    EXPECT_EQ(dump["record"]["ClassMode"], 1);
    EXPECT_EQ(dump["record"]["NumClassified"], 3);
    EXPECT_EQ(dump["rows"]["gDataSymbol"][3], "000000");
    EXPECT_EQ(
        dump["legend"],
        nlohmann::json::parse(R"(["Data: v.txt", "Classified by: Grade", "< 2", "2-4", "4-6"])"));
}

TEST_F(BatchClasses, AreThoseOfAProcedure) {
    const auto dump = Dump(open + "classify mode=1 procedure=equal classes=3");
    EXPECT_EQ(dump["record"]["ClassTable"][1][0], 1);
    EXPECT_EQ(dump["record"]["ClassTable"][2][0], 3);
    EXPECT_EQ(dump["record"]["ClassTable"][3][0], 5);
    EXPECT_EQ(dump["record"]["ClassTable"][11][0], 7);
    EXPECT_EQ(dump["record"]["NumClassified"], 4);
}

TEST_F(BatchClasses, OfNamesHeedCaseOnDemand) {
    EXPECT_EQ(Run(open
                  + "classify mode=3 names=slate low=no; get NumClassified; "
                    "classify mode=3 casesensitive=yes; get NumClassified"),
              "");
    EXPECT_EQ(out.str(), "2\n1\n");
}

TEST_F(BatchClasses, GoAndLeaveTheSymbolsAsTheyWere) {
    const auto before = Dump(open);
    const auto after = Dump(open + "classify mode=3 procedure=first; classify mode=0");
    EXPECT_EQ(before["rows"], after["rows"]);
    EXPECT_EQ(after["record"]["NumClassified"], 0);
}

TEST_F(BatchClasses, ShowTheGridOfTheirValues) {
    const auto dump = Dump(open
                           + "griddensity 20; classify mode=1 limits=0,4,8 plottype=3 "
                             "gridvalues=cumulative background=none");
    EXPECT_EQ(dump["valueGrid"]["contours"]["limits"], (std::vector<double>{0, 4}));
    double most = 0;
    for (const auto& column : dump["valueGrid"]["cumulative"]) {
        for (const auto& value : column) {
            most = value.is_null() ? most : std::max(most, value.get<double>());
        }
    }
    EXPECT_EQ(most, 7) << "rows are far apart";
}

TEST_F(BatchClasses, RefuseWhatTheDialogRefuses) {
    for (const char* const wrong :
         {"mode=4", "mode=1 procedure=first", "mode=3 procedure=equal", "mode=1 limits=1",
          "mode=1 limits=a,b", "plottype=5", "procedure=best", "background=low",
          "mode=1 procedure=stddev classes=1", "mode=1 names=slate", "mode=2 names=1",
          "mode=2 limits=1,2 names=", "mode=3 limits=1,2", "mode=3 high=yes",
          "mode=3 names=slate high=no"}) {
        EXPECT_NE(Run(open + "classify " + wrong), "") << wrong;
    }
}

TEST_F(BatchClasses, OfAPlotWithoutAnyBeginAsInTheDialog) {
    EXPECT_EQ(Run(open
                  + "classify mode=1 classes=3; get ClassTable; get NumClassified; "
                    "classify mode=1 classes=2; get NumClassified; "
                    "classify mode=3 classes=2 low=no; get NumClassified"),
              "");
    const auto dump = Dump(open + "classify mode=1 classes=3");
    const auto& table = dump["record"]["ClassTable"];
    EXPECT_EQ(table[0][0], 3);
    EXPECT_EQ(table[1][0], 1);
    EXPECT_EQ(table[2][0], 3);
    EXPECT_EQ(table[3][0], 5);
    EXPECT_EQ(table[11][0], 7);
    const auto again = Dump(open + "classify mode=1 limits=0,1,9; classify mode=1 classes=2");
    EXPECT_EQ(again["record"]["ClassTable"][2][0], 1) << "limits that are there stay";
    const auto types = Dump(open + "classify mode=3 classes=2 low=no");
    EXPECT_EQ(types["record"]["ClassTable"][1][2], "slate");
    EXPECT_EQ(types["record"]["ClassTable"][2][2], "marl");
    EXPECT_EQ(types["record"]["NumClassified"], 3);
}

} // namespace
} // namespace quandrel

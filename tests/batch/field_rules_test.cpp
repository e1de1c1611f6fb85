// SPDX-License-Identifier: MIT

#include "batch/field_access.h"
#include "batch_fixture.h"
#include "core/plot_store.h"
#include "support/trial.h"

#include <nlohmann/json.hpp>

#include <set>

namespace quandrel {
namespace {

using Json = nlohmann::ordered_json;

class FieldRules : public BatchTest {
protected:
    void SetUp() override {
        BatchTest::SetUp();
        Write("values.txt", "30\t120\t2.5\tslate\n45\t270\t1\tmarl\n60\t10\t7\tslate\n"
                            "50\t20\t3\tmarl\n");
    }
};

/// The paths of the first cells and the last one of a field.
void AddCells(const std::string& path, const Json& value, std::vector<std::string>& paths) {
    if (!value.is_array()) {
        paths.push_back(path);
        return;
    }
    for (const std::size_t i : std::set<std::size_t>{0, 1, 9, value.size() - 1}) {
        if (i >= value.size()) {
            continue;
        }
        AddCells(path + "[" + std::to_string(i) + "]", value[i], paths);
    }
}

std::vector<std::string> CellsOfAllFields() {
    std::vector<std::string> paths;
    const Json record = RecordJson(PlotRecord());
    for (const auto& [name, value] : record.items()) {
        AddCells(name, value, paths);
    }
    return paths;
}

constexpr const char* kWithValues =
    "format primary=plane delimiter=tab columns=0,1,2,3,4,5,6,7,2,3 appended=numeric,text "
    "data=planes; open \"FOLDER/values.txt\"; ";

using FieldRulesTrial = FieldRules;

TEST_F(FieldRulesTrial, WhatIsSetOutlivesTheNextDrawing) {
    TrialShare share;
    const std::vector<std::string> cells = CellsOfAllFields();
    ASSERT_GT(cells.size(), 150U);
    const std::vector<std::string> setUps = {
        std::string(kWithValues),
        std::string(kWithValues) + "symbols 6; ",
        std::string(kWithValues) + "classify mode=1; ",
        std::string(kWithValues) + "rose sector=20; ",
        std::string(kWithValues) + "girdle 1 45/120; smallcircle 1 40 120 20; cone on; ",
        "format conventions=1; open \"FOLDER/planes.txt\"; rose sector=20; "};
    for (const std::string& setUp : setUps) {
        ASSERT_EQ(Run(setUp), "");
        for (const std::string& cell : cells) {
            for (const std::string value : {"1", "-1", "word"}) {
                if (!share.Takes()) {
                    continue;
                }
                const std::string set = "set " + cell + " " + value;
                const std::string get = "get " + cell;
                if (!Run(setUp + set + "; " + get).empty()) {
                    continue;
                }
                const std::string before = out.str();
                ASSERT_EQ(Run(setUp + set + "; replot; " + get), "");
                EXPECT_EQ(out.str(), before) << setUp << set;
            }
        }
    }
}

TEST_F(FieldRules, ResultsAndAccountsAreRefusedByName) {
    const std::vector<std::pair<std::string, std::string>> lines = {
        {"NumValidData 3", "'NumValidData' follows from the rows and cannot be set"},
        {"AppendedMin[0] 3", "'AppendedMin' follows from the rows and cannot be set"},
        {"FabricValueC 0.1", "'FabricValueC' is computed when the plot is drawn and cannot be set"},
        {"EigenResults[1][1] 0.5",
         "'EigenResults[1][1]' is computed when the plot is drawn and cannot be set"},
        {"RoseMedian 40", "'RoseMedian' is computed when the plot is drawn and cannot be set"},
        {"AxisItems[9][2] 1",
         "'AxisItems[9][2]' is computed when the plot is drawn and cannot be set"},
    };
    for (const auto& [words, refusal] : lines) {
        EXPECT_EQ(Run("open \"FOLDER/planes.txt\"; set " + words), "line 1: set: " + refusal);
    }
}

TEST_F(FieldRules, KindsOfRoseWithoutTheirColumnAreRefused) {
    const std::string rose = "format conventions=1; open \"FOLDER/planes.txt\"; rose sector=20; ";
    for (const std::string type : {"1", "2", "3", "7", "8", "10", "14"}) {
        EXPECT_NE(Run(rose + "set RoseType " + type), "") << type;
    }
    EXPECT_EQ(Run(rose + "set RoseType 3"),
              "line 1: set: '3' is not a value of RoseType: The plot has "
              "no appended numbers");
    EXPECT_EQ(Run(rose + "set RoseType 20"),
              "line 1: set: '20' is not a value of RoseType: The plot "
              "has no appended texts");
    for (const std::string type : {"-1", "9", "19", "30", "1.5", "wide"}) {
        EXPECT_EQ(Run(kWithValues + ("set RoseType " + type)),
                  "line 1: set: '" + type
                      + "' is not a value of RoseType: a kind from 0 to 8, and 10 "
                        "or 20 more with classes");
    }
    for (const std::string type : {"0", "1", "2", "3", "11"}) {
        EXPECT_EQ(Run(kWithValues + ("rose sector=20; set RoseType " + type)), "") << type;
    }
    EXPECT_EQ(Run(rose + "set RoseType 0"), "");
}

TEST_F(FieldRules, ValuesOfTheWrongKindAreRefused) {
    for (const std::string words :
         {"ShowSecondary maybe", "LayerVisible[1] 7", "RoseEqualArea 2", "RoseShape 5",
          "RoseSectorSize 0", "RoseSectorSize wide", "RoseZeroCircle 91", "RoseBiasMode -1",
          "PlotKind rose", "ShowAnnotations yes", "RoseSamplePlunge 2.5", "AxisItems[1][2] steep",
          "RoseStartAngle nan", "RoseScaleType 5", "RoseScaleType tickwide"}) {
        EXPECT_NE(Run("open \"FOLDER/planes.txt\"; girdle 1 45/120; set " + words), "") << words;
    }
    for (const std::string words :
         {"LayerVisible[1] -1", "LayerVisible[1] 0", "RoseEqualArea -1", "RoseSectorSize 22.5",
          "DescriptionText 5", "RoseScaleType circ5", "AxisItems[1][2] 0.5"}) {
        EXPECT_EQ(Run("open \"FOLDER/planes.txt\"; girdle 1 45/120; set " + words), "") << words;
    }
}

TEST_F(FieldRules, ACellKeepsItsKind) {
    const auto json = Dump("open \"FOLDER/planes.txt\"; girdle 1 45/120; set AxisItems[1][1] 50");
    EXPECT_TRUE(json["record"]["AxisItems"][1][1].is_string());
}

} // namespace
} // namespace quandrel

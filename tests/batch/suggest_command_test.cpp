// SPDX-License-Identifier: MIT

#include "batch/suggest_command.h"
#include "batch_fixture.h"

namespace quandrel {
namespace {

class BatchSuggest : public BatchTest {
protected:
    nlohmann::json Suggested(const std::string& file) {
        EXPECT_EQ(Run("suggest \"FOLDER/" + file + "\""), "");
        return nlohmann::json::parse(out.str());
    }
};

TEST_F(BatchSuggest, AFormatThatIsTakenReadsTheFile) {
    Write("beds.csv", "Dip direction,Dip,Rock type,Thickness\n142,52,schist,3\n35,43,marble,4\n");
    const nlohmann::json list = Suggested("beds.csv");
    ASSERT_EQ(list.size(), 1U);
    EXPECT_GE(list[0]["probability"].get<double>(), 0.9);
    EXPECT_EQ(list[0]["reasons"][0], "column 2 is headed 'Dip' and lies in 43..52");
    const nlohmann::json plot =
        Dump("format " + list[0]["format"].get<std::string>() + "; open \"FOLDER/beds.csv\"");
    EXPECT_EQ(plot["record"]["NumValidData"], 2);
    EXPECT_EQ(plot["record"]["AppNumName"], "Thickness");
    EXPECT_EQ(plot["record"]["AppNonNumName"], "Rock type");
}

TEST_F(BatchSuggest, SeveralAreListedWhereNothingSaysIt) {
    const nlohmann::json list = Suggested("planes.txt");
    ASSERT_EQ(list.size(), 3U);
    EXPECT_GE(list[0]["probability"], list[1]["probability"]);
    EXPECT_LT(list[0]["probability"].get<double>(), 0.9);
}

TEST_F(BatchSuggest, AFileThatStatesItsFormatHasNone) {
    Write("own.txt", "/T1\t/C1\n30\t120\n");
    EXPECT_TRUE(Suggested("own.txt").empty());
    EXPECT_NE(Run("suggest \"FOLDER/none.txt\""), "");
    EXPECT_EQ(Run("suggest"), "line 1: suggest: the file is missing");
}

} // namespace
} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "batch/format_command.h"
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

TEST_F(BatchSuggest, ArgumentsOfAFormatAreReadBack) {
    BatchSession session(out, log); // its settings are those of a first run
    FormatChoice choice;
    choice.primary = kPrimaryPlane;
    choice.secondary = kSecondaryLine;
    choice.planeConvention = kStrikeDipSense;
    choice.isQuadrant = true;
    choice.delimiter = " ";
    choice.columns = {4, 3, 4, 1, 2, 5, 6, 7, 8, 9};
    choice.columnHeadings = true;
    choice.numericAppended = choice.nonNumericAppended = true;
    choice.numericName = "width = \"true\"";
    choice.nonNumericName = "Rock type";
    const auto script = ParseScript("format " + FormatArgumentsOf(choice), CommandBreak::LineOnly);
    ASSERT_TRUE(script) << script.Error();
    StatedFormat stated;
    ASSERT_EQ(ApplyFormatArguments(script->at(0).arguments, gSettings.format, stated), "");
    FormatQuestion question;
    question.columnHeadings = gSettings.format.hasHeadings;
    const FormatChoice read = ChoiceOf(question);
    EXPECT_EQ(FormatArgumentsOf(read), FormatArgumentsOf(choice));
    EXPECT_EQ(read.numericName, choice.numericName);
    EXPECT_EQ(read.columns, choice.columns);
    EXPECT_EQ(read.planeConvention, choice.planeConvention);
    EXPECT_TRUE(read.isQuadrant);
}

TEST_F(BatchSuggest, DecimalCommasAreSaid) {
    Write("beds.csv", "Dip direction;Dip\n142,5;52\n35,25;43\n");
    const nlohmann::json list = Suggested("beds.csv");
    const nlohmann::json plot =
        Dump("format " + list.at(0)["format"].get<std::string>() + "; open \"FOLDER/beds.csv\"");
    EXPECT_EQ(plot["record"]["NumValidData"], 2);
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

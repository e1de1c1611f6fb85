// SPDX-License-Identifier: MIT

#include "batch/format_command.h"
#include "batch_fixture.h"
#include "input/text_file.h"
#include "support/formats_alike.h"

#include <fstream>

namespace quandrel {
namespace {

class BatchSuggestedFormat : public BatchTest {};

struct Example {
    std::string path;
    std::string format; ///< as the page of the examples states it
};

std::vector<Example> Examples() {
    std::vector<Example> examples;
    std::ifstream stream(std::string(QUANDREL_SOURCE_DIR "/examples/README.md"));
    for (std::string line; std::getline(stream, line);) {
        const std::string start = "quandrel-batch examples/";
        const std::size_t format = line.find("--format '");
        if (line.starts_with(start) && format != std::string::npos) {
            const std::size_t end = line.find('\'', format + 10);
            examples.push_back(
                {QUANDREL_SOURCE_DIR "/examples/"
                     + line.substr(start.size(), line.find(' ', start.size()) - start.size()),
                 line.substr(format + 10, end - format - 10)});
        }
    }
    return examples;
}

LineFormat KnownFormatOf(const Example& example, const FormatSettings& defaults) {
    const auto script = ParseScript("format " + example.format, CommandBreak::LineOnly);
    EXPECT_TRUE(script) << example.format;
    StatedFormat stated;
    EXPECT_EQ(ApplyFormatArguments(script->at(0).arguments, defaults, stated), "");
    return LineFormatFromGlobals(false);
}

TEST_F(BatchSuggestedFormat, ReadsEveryExampleAsItsPageSays) {
    BatchSession session(out, log); // its settings are those of a first run
    const FormatSettings defaults = gSettings.format;
    int asked = 0;
    int sure = 0;
    for (const Example& example : Examples()) {
        const auto lines = FirstLines(example.path, 2000);
        ASSERT_TRUE(lines) << example.path;
        if (StatesItsFormat(*lines)) {
            EXPECT_TRUE(SuggestFormats(*lines).empty()) << example.path;
            continue;
        }
        ++asked;
        const Suggested suggested = SuggestionFor(*lines, KnownFormatOf(example, defaults));
        EXPECT_TRUE(suggested.isRight) << example.path;
        sure += suggested.isSure ? 1 : 0;
    }
    EXPECT_EQ(asked, 17);
    EXPECT_GE(sure, 10) << "others are strikes without a word on the right-hand rule, or azimuths";
}

TEST_F(BatchSuggestedFormat, IsTakenByAutoWhereItIsSure) {
    Write("beds.csv", "# Valley, 1979\nDip direction;Dip;Rock type\n142;52;schist\n35;43;marble\n");
    const auto json = Dump("format auto; open \"FOLDER/beds.csv\"");
    EXPECT_EQ(json["record"]["NumValidData"], 2);
    EXPECT_EQ(json["record"]["AppNonNumName"], "Rock type");
    EXPECT_EQ(json["load"]["invalidLines"], 0) << "the year stands in a comment";
}

TEST_F(BatchSuggestedFormat, IsRefusedByAutoWithAllCandidates) {
    Write("beds.csv", "strike,dip\n10,30\n120,45\n170,80\n95,20\n");
    EXPECT_NE(Run("format auto; open \"FOLDER/beds.csv\""), "");
    EXPECT_NE(log.str().find("no format is sure enough:"), std::string::npos) << log.str();
    EXPECT_NE(log.str().find("55%: planes, dip 2, strike 1 (column 2 is headed 'dip'"),
              std::string::npos)
        << log.str();
}

TEST_F(BatchSuggestedFormat, IsTheTextsOwnWhereItStatesOne) {
    Write("beds.txt", "/T1\t/I2\t/C2\t/12\n142\t52\n35\t43\n");
    EXPECT_EQ(Dump("format auto; open \"FOLDER/beds.txt\"")["record"]["NumValidData"], 2);
}

TEST_F(BatchSuggestedFormat, GivesWayToTheNextFormat) {
    Write("beds.csv", "strike,dip\n10,30\n120,45\n");
    EXPECT_EQ(
        Run("format auto; format primary=plane plane=6 delimiter=comma columns=1,0 header=yes; "
            "open \"FOLDER/beds.csv\""),
        "");
}

TEST_F(BatchSuggestedFormat, HasCommentsAndPairsAsKeys) {
    Write("beds.csv", "site,plane\n# seen 1979\nA,045/60SE\nB,230/45NW\n");
    const auto json = Dump("format primary=plane plane=3 delimiter=comma columns=1,1,1 header=yes "
                           "comments=# pairs=yes; open \"FOLDER/beds.csv\"");
    EXPECT_EQ(json["record"]["NumValidData"], 2);
    EXPECT_EQ(json["load"]["invalidLines"], 0);
    EXPECT_NE(Run("format comments=!"), "");
}

} // namespace
} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Rows saved as tables with headings.

#include "batch_fixture.h"

namespace quandrel {
namespace {

class CsvFiles : public BatchTest {
protected:
    std::string Saved(const std::string& commands) {
        EXPECT_EQ(Run(commands + "; save \"FOLDER/out.csv\""), "");
        std::ifstream file(folder / "out.csv", std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

TEST_F(CsvFiles, HaveHeadingsInWords) {
    EXPECT_EQ(Saved("open \"FOLDER/planes.txt\""),
              "dip,dip direction\r\n30,120\r\n45,270\r\n60,10\r\n");
    Write("lines.csv",
          "plunge,trend,rock,w\n20.25,30,\"marl, \"\"a\"\"\",1.5\n99,1,x,1\n5,310,,\n");
    EXPECT_EQ(Saved("format primary=line delimiter=comma header=yes columns=0,1,2,3,4,5,6,7,3,2 "
                    "appended=numeric,text numericname=w textname=\"rock, kind\"; "
                    "open \"FOLDER/lines.csv\""),
              "plunge,trend,w,\"rock, kind\"\r\n20.25,30,1.5,\"marl, \"\"a\"\"\"\r\n5,310,,\r\n")
        << "a line that is no row is left out";
}

TEST_F(CsvFiles, AreReadBackByTheirHeadings) {
    Write("faults.txt", "128\t55\t105\t53.5\tnormal\n317\t34\t323\t-34\treverse\n");
    const std::string opened = "format primary=plane secondary=line conventions=12 "
                               "columns=1,0,2,3,2,5,6,7,8,4 appended=text textname=movement; "
                               "open \"FOLDER/faults.txt\"";
    const nlohmann::json first = Dump(opened);
    EXPECT_EQ(Saved(opened).substr(0, 54),
              "dip,dip direction,second plunge,second trend,movement\r");
    const nlohmann::json again = Dump("format auto; open \"FOLDER/out.csv\"");
    EXPECT_EQ(again["rows"], first["rows"]);
    EXPECT_EQ(again["record"]["AppNonNumName"], "movement");
    EXPECT_EQ(again["load"]["invalidLines"], 0);
}

TEST_F(CsvFiles, CanHaveWholeDegrees) {
    Write("p.txt", "30.4\t120.6\n");
    EXPECT_EQ(Run("open \"FOLDER/p.txt\"; save \"FOLDER/out.csv\" whole"), "");
    std::ifstream file(folder / "out.csv", std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}),
              "dip,dip direction\r\n30,121\r\n");
}

} // namespace
} // namespace quandrel

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

TEST_F(CsvFiles, HavePlacesOnTheMap) {
    Write("beds.csv", "dip,dip direction,rock,easting,northing\n30,120,marl,651234.125,5200100\n"
                      "45,270,slate,,\n60,10,marl,-7.5,0\n");
    const std::string opened = "format auto; open \"FOLDER/beds.csv\"";
    EXPECT_EQ(Saved(opened), "dip,dip direction,rock,x,y\r\n30,120,marl,651234.125,5200100\r\n"
                             "45,270,slate,,\r\n60,10,marl,-7.5,0\r\n");
    const nlohmann::json places = Dump(opened)["rows"]["places"];
    EXPECT_EQ(places, nlohmann::json::parse("[[651234.125, 5200100], null, [-7.5, 0]]"));
    EXPECT_EQ(Dump("format auto; open \"FOLDER/out.csv\"")["rows"]["places"], places);
    EXPECT_EQ(Run(opened + "; save \"FOLDER/beds.qpx\""), "");
    EXPECT_EQ(Dump("open \"FOLDER/beds.qpx\"")["rows"]["places"], places);
    EXPECT_EQ(Run(opened + "; save \"FOLDER/beds.txt\""), "");
    const nlohmann::json text = Dump("open \"FOLDER/beds.txt\"")["rows"];
    const std::size_t head = text["places"].size() - places.size(); // rows without data
    for (std::size_t row = 0; row < places.size(); ++row) {
        EXPECT_EQ(text["places"][head + row], places[row]) << row;
    }
    EXPECT_EQ(text["gAppText"][head + 1], "slate");
    EXPECT_FALSE(Dump("open \"FOLDER/planes.txt\"")["rows"].contains("places"));
}

TEST_F(CsvFiles, PlacesOnTheMapAreInStatedColumns) {
    Write("p.txt", "30\t120\t7.25\t46.5\n");
    const auto placesBy = [this](const std::string& format) {
        return Dump("format " + format + "; open \"FOLDER/p.txt\"")["rows"].value("places",
                                                                                  nlohmann::json());
    };
    EXPECT_EQ(placesBy("places=2,3"), nlohmann::json::parse("[[7.25, 46.5]]"));
    EXPECT_EQ(placesBy("places=3,2"), nlohmann::json::parse("[[46.5, 7.25]]"));
    EXPECT_TRUE(placesBy("places=none").is_null());
    for (const char* odd : {"places=2", "places=2,3,4", "places=a,b", "places=-1,2", "places="}) {
        EXPECT_NE(Run(std::string("format ") + odd), "") << odd;
    }
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

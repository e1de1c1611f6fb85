// SPDX-License-Identifier: MIT

#include "batch_fixture.h"

namespace quandrel {
namespace {

/// Directions with a length and a type each: 045 twice, 050, 130 and 315.
constexpr const char* kDirectionRows = "azimuth\tlength\ttype\n"
                                       "45\t1\tjoint\n"
                                       "45\t3\tvein\n"
                                       "50\t5\tjoint\n"
                                       "130\t7\tfault\n"
                                       "315\t9\tjoint\n";

constexpr const char* kDirectionFormat =
    "format primary=directions delimiter=tab columns=0,0,2,3,4,5,6,7,1,2 "
    "appended=numeric,text numericname=Length textname=Type header=yes data=";

class BatchRose : public BatchTest {
protected:
    void SetUp() override {
        BatchTest::SetUp();
        Write("d.txt", kDirectionRows);
    }

    static std::string Open(const std::string& kind) {
        std::string commands = kDirectionFormat;
        commands += kind;
        commands += "; open \"FOLDER/d.txt\"";
        return commands;
    }

    /// Rows counted in the sector of a dump with these bounds.
    static double CountIn(const nlohmann::json& dump, const std::string& azimuths) {
        for (const auto& sector : dump["rose"]["sectors"]) {
            if (sector["azimuths"] == azimuths) {
                return sector["frequency"][0];
            }
        }
        ADD_FAILURE() << "no sector " << azimuths;
        return -1;
    }
};

TEST_F(BatchRose, CountsAndDrawsWithTheSettingsGiven) {
    const auto dump = Dump(Open("polar") + "; rose sector=10 start=0 zero=20 scale=circ5");
    EXPECT_EQ(dump["rose"]["sectors"].size(), 36U);
    EXPECT_EQ(CountIn(dump, "040-050"), 3) << "a datum on an edge is in the sector that ends there";
    EXPECT_EQ(CountIn(dump, "120-130"), 1);
    EXPECT_EQ(CountIn(dump, "310-320"), 1);
    EXPECT_EQ(dump["rose"]["wedges"].size(), 3U);
    EXPECT_EQ(dump["record"]["RoseScaleType"], "circ5");
    EXPECT_EQ(dump["record"]["RoseZeroCircle"], 20);
}

TEST_F(BatchRose, OfAxialDataHasEachPetalTwice) {
    const auto dump = Dump(Open("lines") + "; rose sectors=18");
    EXPECT_EQ(dump["rose"]["sectors"].size(), 18U);
    EXPECT_EQ(dump["record"]["RoseSectorSize"], 20);
    int mirrored = 0;
    for (const auto& wedge : dump["rose"]["wedges"]) {
        mirrored += wedge["mirror"].get<bool>() ? 1 : 0;
    }
    EXPECT_EQ(static_cast<std::size_t>(2 * mirrored), dump["rose"]["wedges"].size());
}

TEST_F(BatchRose, OfAMissingColumnSaysSoAndCountsRows) {
    const std::string plain = "format data=planes; open \"FOLDER/planes.txt\"; rose ";
    for (const char* const settings :
         {"type=1", "type=2", "type=3", "type=8", "type=0 classify=length",
          "type=4 classify=length", "type=0 classify=type"}) {
        const auto dump = Dump(plain + settings);
        EXPECT_EQ(dump["record"]["RoseType"], 0) << settings;
        EXPECT_FALSE(dump["rose"]["wedges"].empty()) << settings;
        EXPECT_NE(log.str().find(" data were found in this data set. These data will only be "
                                 "plotted as Frequency-Azimuth roses."),
                  std::string::npos)
            << settings << log.str();
    }
}

TEST_F(BatchRose, KeepsAnAutomaticScaleInAPlotFile) {
    const std::string saved = "save \"FOLDER/auto.qpx\"; close; open \"FOLDER/auto.qpx\"";
    const auto dump = Dump(Open("polar") + "; rose sector=10 scale=circauto; " + saved);
    EXPECT_EQ(dump["record"]["RoseScaleType"], "circauto");
    const auto again = Dump("open \"FOLDER/auto.qpx\"; rose sector=90");
    EXPECT_EQ(again["record"]["RoseScaleType"], "circauto");
    const auto typed = Dump("open \"FOLDER/auto.qpx\"; rose scale=circ4; " + saved);
    EXPECT_EQ(typed["record"]["RoseScaleType"], "circ4");
}

TEST_F(BatchRose, OfAxesWithoutPairsOfSectorsCountsBothEnds) {
    Write("n.txt", "azimuth\n356\n357\n358\n359\n0\n1\n2\n3\n4\n");
    const auto dump = Dump("format primary=directions columns=0,0,1 header=yes data=lines; "
                           "open \"FOLDER/n.txt\"; rose sector=40 start=340");
    EXPECT_EQ(CountIn(dump, "340-020"), 9);
    EXPECT_EQ(CountIn(dump, "140-180"), 5);
    EXPECT_EQ(CountIn(dump, "180-220"), 4);
    EXPECT_EQ(dump["rose"]["stats"][0][0], 9);
    EXPECT_EQ(dump["record"]["RoseRangeB"][0][0], 100);
    EXPECT_EQ(dump["rose"]["wedges"].size(), 3U);
    EXPECT_EQ(dump["legend"][2], "(axes counted at both ends)");
}

TEST_F(BatchRose, IsClassifiedByTheClassesGiven) {
    const auto dump = Dump(
        Open("polar") + "; rose classify=length; classify mode=1 limits=0,4,8 high=yes low=no");
    EXPECT_EQ(dump["record"]["RoseType"], 10);
    EXPECT_EQ(dump["record"]["NumClassified"], 5);
    EXPECT_EQ(
        dump["legend"],
        nlohmann::json::parse(
            R"(["Data: d.txt", "Data Frequency-Azimuth", "Classified by: Length", "0-4", "4-8", "> 8"])"));
}

TEST_F(BatchRose, IsClassifiedByNames) {
    const auto dump =
        Dump(Open("polar") + "; rose sector=360; classify mode=3 names=Joint,Vein low=yes");
    ASSERT_EQ(dump["rose"]["sectors"].size(), 1U);
    const std::vector<double> classes = dump["rose"]["sectors"][0]["frequency"];
    EXPECT_EQ(classes, (std::vector<double>{5, 1, 3, 1})) << "whole, others, joint, vein";
}

TEST_F(BatchRose, MakesARoseOfANet) {
    const auto dump = Dump("format data=planes; open \"FOLDER/planes.txt\"; rose type=0");
    EXPECT_EQ(dump["record"]["PlotKind"], 3);
    EXPECT_EQ(dump["rose"]["stats"][0][0], 3);
}

TEST_F(BatchRose, RefusesWhatTheDialogRefuses) {
    const std::string open = Open("polar") + "; rose ";
    for (const char* const wrong :
         {"sector=0.5", "sector=361", "fraction=0", "zero=91", "scale=dots", "scale=tickfew",
          "type=9", "sample=91,0", "sample=10", "bias=4", "classify=size", "colour=red", "sector",
          "equalarea=maybe", "scale=circ0.0001"}) {
        EXPECT_NE(Run(open + wrong), "") << wrong;
    }
    EXPECT_EQ(Run(open + "sector=30"), "");
}

TEST_F(BatchRose, AsksBeforeItMakesASmallerSector) {
    EXPECT_EQ(
        Run(Open("polar") + "; rose sector=10; answer Cancel; rose sector=7; get RoseSectorSize"),
        "");
    EXPECT_EQ(out.str(), "10.0\n");
    EXPECT_NE(log.str().find("one sector will be smaller than the others.Continue anyway?"),
              std::string::npos);
    EXPECT_EQ(Run(Open("polar") + "; rose sector=7; get RoseOddSectorSize"), "");
    EXPECT_EQ(out.str(), "3.0\n");
}

TEST_F(BatchRose, PrintsItsOwnStatistics) {
    EXPECT_EQ(Run(Open("polar") + "; rose sector=10; stats; stats advanced; stats reference"), "");
    EXPECT_NE(out.str().find("No. of Data = 5\r\nSector angle = 10°"), std::string::npos);
    EXPECT_NE(out.str().find("kappa = "), std::string::npos);
    EXPECT_NE(out.str().find("Rayleigh p = "), std::string::npos);
}

} // namespace
} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// The choice of formulas in scripts.

#include "batch_fixture.h"
#include "orientation/angles.h"

#include <cmath>
#include <fstream>
#include <iterator>
#include <string>

namespace quandrel {
namespace {

class BatchFormulas : public BatchTest {
protected:
    void SetUp() override {
        BatchTest::SetUp();
        std::ofstream(folder / "axes.txt") << "10\t040\n20\t045\n30\t050\n";
    }

    static constexpr const char* kOpen =
        "format data=lines delimiter=tab; open \"FOLDER/axes.txt\"; plot rose; ";
};

TEST_F(BatchFormulas, ChangeTheStatisticsOfOpenPlots) {
    ASSERT_EQ(Run(std::string(kOpen) + "stats normal"), "");
    EXPECT_NE(out.str().find("Mean Resultant dir'n  = 090-270\r\n(textbook: 045-225)\r\n"),
              std::string::npos)
        << out.str();
    out.str({});
    ASSERT_EQ(Run(std::string(kOpen) + "formulas textbook; stats normal; get RoseMeanDir[0]"), "");
    EXPECT_NE(out.str().find("Mean Resultant dir'n  = 045-225\r\n"), std::string::npos)
        << out.str();
    EXPECT_EQ(out.str().find("(textbook:"), std::string::npos);
    EXPECT_NE(out.str().find("\n0.785398"), std::string::npos) << "45 degrees: " << out.str();
    out.str({});
    ASSERT_EQ(Run(std::string("formulas textbook; ") + kOpen + "formulas own; stats normal"), "");
    EXPECT_NE(out.str().find("Mean Resultant dir'n  = 090-270\r\n"), std::string::npos);
}

TEST_F(BatchFormulas, AreThoseOfThePlotInFocus) {
    const std::string both =
        std::string(kOpen) + "open \"FOLDER/axes.txt\"; plot rose; activate 1; formulas textbook; ";
    ASSERT_EQ(Run(both + "stats normal; get PlotFormulas; activate 2; get PlotFormulas"), "");
    EXPECT_NE(out.str().find("Mean Resultant dir'n  = 045-225\r\n"), std::string::npos);
    EXPECT_TRUE(out.str().ends_with("\n2\n0\n")) << out.str();
    ASSERT_EQ(Run(both + "activate 2; stats normal"), "");
    EXPECT_NE(out.str().find("= 090-270\r\n(textbook: 045-225)\r\n"), std::string::npos);
    ASSERT_EQ(Run(both + "open \"FOLDER/axes.txt\"; get PlotFormulas"), "");
    EXPECT_EQ(out.str(), "0\n") << "plots to come follow the preferences";
}

TEST_F(BatchFormulas, OfThePreferencesAreThoseBeforeTheFirstPlot) {
    const std::string mean = "stats normal; get PlotFormulas";
    ASSERT_EQ(Run(std::string("formulas textbook; ") + kOpen + "formulas own; " + mean), "");
    EXPECT_NE(out.str().find("= 090-270\r\n(textbook: 045-225)\r\n"), std::string::npos);
    EXPECT_TRUE(out.str().ends_with("\n1\n")) << out.str();
    ASSERT_EQ(Run(std::string("formulas textbook; ") + kOpen
                  + "formulas own; formulas preferences; " + mean),
              "");
    EXPECT_NE(out.str().find("= 045-225\r\n"), std::string::npos);
    EXPECT_EQ(out.str().find("(textbook:"), std::string::npos);
    EXPECT_TRUE(out.str().ends_with("\n0\n")) << out.str();
}

TEST_F(BatchFormulas, AreKeptInPlotFiles) {
    ASSERT_EQ(Run(std::string(kOpen)
                  + "formulas textbook; save \"FOLDER/rose.qpx\"; close; "
                    "open \"FOLDER/rose.qpx\"; stats normal; get PlotFormulas"),
              "");
    EXPECT_NE(out.str().find("= 045-225\r\n"), std::string::npos) << out.str();
    EXPECT_EQ(out.str().find("(textbook:"), std::string::npos);
    EXPECT_TRUE(out.str().ends_with("\n2\n")) << out.str();
}

TEST_F(BatchFormulas, CanBeSetAsAField) {
    const std::string set = std::string(kOpen) + "set PlotFormulas ";
    ASSERT_EQ(Run(set + "2; stats normal; get RoseMeanDir[0]; get Modified"), "");
    EXPECT_NE(out.str().find("= 045-225\r\n"), std::string::npos) << out.str();
    EXPECT_NE(out.str().find("\n0.785398"), std::string::npos) << out.str();
    EXPECT_TRUE(out.str().ends_with("\n0\n")) << out.str();
    const nlohmann::json own = Dump(set + "2; plot equalarea; set PlotFormulas 1");
    EXPECT_EQ(own["record"]["PlotFormulas"], 1);
    EXPECT_EQ(own["record"], Dump(std::string(kOpen) + "plot equalarea; formulas own")["record"]);
    for (const char* value : {"3", "-1", "textbook"}) {
        EXPECT_EQ(Run(set + value),
                  "line 1: set: '" + std::string(value) + "' is not a value of PlotFormulas");
    }
}

TEST_F(BatchFormulas, HoldForPlotsToComeAndNeedNone) {
    ASSERT_EQ(Run(std::string("formulas textbook; ") + kOpen + "stats normal"), "");
    EXPECT_NE(out.str().find("Mean Resultant dir'n  = 045-225\r\n"), std::string::npos);
}

TEST_F(BatchFormulas, NotesStandInPicturesToo) {
    const auto picture = [this](const std::string& formulas) {
        EXPECT_EQ(Run("formulas " + formulas + "; " + kOpen + "export \"FOLDER/rose.svg\""), "");
        std::ifstream stream(folder / "rose.svg");
        return std::string(std::istreambuf_iterator<char>(stream), {});
    };
    EXPECT_NE(picture("own").find("(textbook: 045-225)"), std::string::npos);
    const std::string textbook = picture("textbook");
    EXPECT_EQ(textbook.find("(textbook:"), std::string::npos);
    EXPECT_NE(textbook.find("045-225"), std::string::npos);
}

TEST_F(BatchFormulas, NotesStandBesideThePrintedConeToo) {
    // Lines about the vertical, three times as long as wide: 12 degrees to the north, 4 to the
    // east.
    std::ofstream file(folder / "ellipse.txt");
    for (int i = 0; i < 24; ++i) {
        const double angle = DegToRad(15.0 * i);
        const double north = 12 * std::cos(angle);
        const double east = 4 * std::sin(angle);
        const double trend = RadToDeg(WrappedAngle(std::atan2(east, north)));
        file << std::lround(90 - std::hypot(north, east)) << '\t' << std::lround(trend) << '\n';
    }
    file.close();
    const std::string cone =
        "format primary=line data=lines delimiter=tab; open \"FOLDER/ellipse.txt\"; cone on";
    ASSERT_EQ(Run(cone), "");
    EXPECT_NE(out.str().find("semi-angle"), std::string::npos) << out.str();
    EXPECT_NE(out.str().find("\n(textbook: none, for the data are not symmetric"),
              std::string::npos)
        << out.str();
    out.str({});
    ASSERT_EQ(Run("formulas textbook; " + cone), "");
    EXPECT_EQ(out.str().find("semi-angle"), std::string::npos) << out.str();
    EXPECT_EQ(out.str().find("(textbook:"), std::string::npos) << out.str();
}

TEST_F(BatchFormulas, RefuseOtherWords) {
    EXPECT_EQ(Run("formulas"), "line 1: formulas: '' is neither own nor textbook");
    EXPECT_EQ(Run("formulas mine"), "line 1: formulas: 'mine' is neither own nor textbook");
    EXPECT_EQ(Run("formulas preferences"),
              "line 1: formulas: no plot is open that could follow the preferences");
    EXPECT_EQ(Run("blank; formulas mine"),
              "line 1: formulas: 'mine' is not one of own, preferences, textbook");
    EXPECT_EQ(Run("formulas own textbook"), "line 1: formulas: 'textbook' is one word too many");
}

TEST_F(BatchFormulas, DumpsHaveWhatTheFormulasLeaveOpenAsNull) {
    std::ofstream(folder / "opposite.txt") << "10\t020\n10\t110\n";
    const std::string open = "format data=lines delimiter=tab; "
                             "open \"FOLDER/opposite.txt\"; plot rose";
    const nlohmann::json json = Dump(open);
    EXPECT_TRUE(json["statsReference"]["mean direction"].is_null()
                || json["statsReference"]["mean direction"]["value"].is_null())
        << json["statsReference"];
    EXPECT_NE(json["statsNormal"].get<std::string>().find("Mean Resultant dir'n  = undetermined"),
              std::string::npos);
    EXPECT_EQ(json["record"]["RoseMeanDir"][0], 0) << "fields keep their number";
}

} // namespace
} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Decimals of orientations in scripts and dumps.

#include "batch_fixture.h"

#include <numbers>
#include <string>

namespace quandrel {
namespace {

class BatchDecimals : public BatchTest {
protected:
    void SetUp() override {
        BatchTest::SetUp();
        Write("phone.txt", "47.3\t218.6\n10\t20\n30.25\t359.7\n");
        Write("faults.txt", "60\t120\t12.5\t35.25\n45\t90\t10\t100\n");
    }

    static constexpr const char* kOpen =
        "format primary=line data=lines delimiter=tab; open \"FOLDER/phone.txt\"; ";

    static constexpr const char* kOpenFaults =
        "format primary=plane secondary=line delimiter=tab columns=0,1,2,2,3 data=planes; "
        "open \"FOLDER/faults.txt\"";

    /// The plunge of the line that is plotted for row 1, degrees.
    static double PlungeIn(const nlohmann::json& dump) {
        const nlohmann::json& table = dump["table"];
        for (std::size_t i = 0; i < table["index"].size(); ++i) {
            if (table["index"][i] == 1) {
                return table["plunge"][i].get<double>() * 180 / std::numbers::pi;
            }
        }
        return -1;
    }
};

TEST_F(BatchDecimals, AreSwitchedOnAndOff) {
    const nlohmann::json off = Dump(kOpen);
    EXPECT_EQ(off["record"]["UseDecimals"], 0);
    EXPECT_NEAR(PlungeIn(off), 47, 1e-9);
    const nlohmann::json on = Dump(std::string(kOpen) + "decimals on");
    EXPECT_EQ(on["record"]["UseDecimals"], -1);
    EXPECT_NEAR(PlungeIn(on), 47.3, 1e-6);
    for (const char* const column : {"gDataDip", "gDataAz", "measured"}) {
        EXPECT_EQ(on["rows"][column], off["rows"][column]) << column;
    }
    EXPECT_EQ(Dump(std::string(kOpen) + "decimals on; decimals off")["table"], off["table"]);
}

TEST_F(BatchDecimals, AreSwitchedInThePlotInFocus) {
    const std::string both = std::string(kOpen) + "open \"FOLDER/phone.txt\"; activate 1; ";
    ASSERT_EQ(Run(both + "decimals on; get UseDecimals; activate 2; get UseDecimals"), "");
    EXPECT_EQ(out.str(), "-1\n0\n");
}

TEST_F(BatchDecimals, CanBeSetAsAField) {
    const nlohmann::json on = Dump(std::string(kOpen) + "set UseDecimals -1");
    EXPECT_NEAR(PlungeIn(on), 47.3, 1e-6);
    EXPECT_EQ(on["table"], Dump(std::string(kOpen) + "decimals on")["table"]);
    EXPECT_NE(Run(std::string(kOpen) + "set UseDecimals 3"), "");
}

TEST_F(BatchDecimals, OtherWordsAreRefused) {
    EXPECT_EQ(Run("decimals on"), "line 1: decimals: no plot is open");
    EXPECT_EQ(Run("blank; decimals"), "line 1: decimals: '' is not one of off, on");
    EXPECT_EQ(Run("blank; decimals yes"), "line 1: decimals: 'yes' is not one of off, on");
    EXPECT_EQ(Run("blank; decimals on off"), "line 1: decimals: 'off' is one word too many");
}

TEST_F(BatchDecimals, ADumpHasMeasuredAnglesBesideWholeOnes) {
    const nlohmann::json rows = Dump(kOpen)["rows"];
    EXPECT_EQ(rows["gDataDip"], (std::vector<int>{47, 10, 30}));
    EXPECT_EQ(rows["gDataAz"], (std::vector<int>{219, 20, 360}));
    EXPECT_EQ(rows["measured"].dump(), "[[47.3,218.6],null,[30.25,359.7]]");
    EXPECT_FALSE(rows.contains("measured2"));
    EXPECT_FALSE(rows.contains("measuredLine"));
}

TEST_F(BatchDecimals, ADumpOfWholeDegreesHasNone) {
    const nlohmann::json rows = Dump("format delimiter=tab; open \"FOLDER/planes.txt\"")["rows"];
    EXPECT_FALSE(rows.contains("measured"));
    EXPECT_FALSE(rows.contains("measured2"));
    EXPECT_FALSE(rows.contains("measuredLine"));
}

TEST_F(BatchDecimals, ADumpHasThoseOfSecondaryData) {
    const nlohmann::json rows = Dump(kOpenFaults)["rows"];
    EXPECT_FALSE(rows.contains("measured"));
    EXPECT_EQ(rows["measured2"].dump(), "[[12.5,35.25],null]");
}

/// The model has the axis 14-052; the digits are those of the tutorial.
TEST_F(BatchDecimals, OfTheExampleShowTheAxisToATenth) {
    const std::string open = "format primary=plane delimiter=tab header=yes data=planes; "
                             "open \"" QUANDREL_SOURCE_DIR "/examples/outcrop_model.txt\"; ";
    const auto boxOf = [&](const char* decimals) {
        return Dump(open + decimals)["statsNormal"].get<std::string>();
    };
    EXPECT_NE(boxOf("decimals off").find("Calculated beta axis: 14-052"), std::string::npos);
    EXPECT_NE(boxOf("decimals on").find("Calculated beta axis: 14.0-051.9"), std::string::npos);
}

} // namespace
} // namespace quandrel

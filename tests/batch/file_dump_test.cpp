// SPDX-License-Identifier: MIT

#include "batch/file_dump.h"
#include "batch_fixture.h"
#include "persistence/binary_samples.h"
#include "persistence/extension_by_hand.h"

#include <nlohmann/json.hpp>

#include <cstring>
#include <limits>

namespace quandrel {
namespace {

using Json = nlohmann::ordered_json;

// The contents of the samples, listed again by hand from what their writer puts into them.

Json Item(const std::string& label) {
    return {true, label, 0.5, 0.25, 4, 1, nullptr};
}

/// Numbers that grow by a step, row by row.
Json Growing(std::size_t rows, std::size_t columns, double first, double step) {
    Json table = Json::array();
    for (std::size_t i = 0; i < rows; ++i) {
        Json row = Json::array();
        for (std::size_t j = 0; j < columns; ++j) {
            row.push_back(first + step * static_cast<double>(i * columns + j));
        }
        table.push_back(row);
    }
    return table;
}

void AddHead(Json& json, const OldVersion& version) {
    json["mark"] = "bin";
    json["version"] =
        std::to_string(version.tenths / 10) + "." + std::to_string(version.tenths % 10);
    json.update({{"NumValidData", 3}, {"NumData", 4}, {"NumLoadedData", 7}});
    json.update({{"PrimaryFormat", 2},
                 {"SecondaryFormat", 3},
                 {"ShowSecondary", 0},
                 {"SelectedOverlay", 0},
                 {"ShowAnnotations", -1},
                 {"HasAppendedLine", -1},
                 {"HasAppendedNumeric", -1},
                 {"HasAppendedText", -1}});
    json.update({{"AxesTitle", ""}, {"FabricText", "S1"}, {"DescriptionText", "two\r\nlines"}});
    json.update({{"PlotKind", 1}, {"DataKind", 1}, {"PlotSymbolMode", 1}, {"NumSymbolsInPlot", 0}});
}

void AddRows(Json& json, const OldVersion& version) {
    json["rows"] = {{"gDataDip", {30, 45, -9999, 80}},
                    {"gDataAz", {120, 270, 0, 5}},
                    {"gPointDensity", {3, 3, 3, 3}},
                    {"gDataOrder", {1, 2, 3, 4}},
                    {"gDataSymbol", {"000106", "000106", "000000", "030206"}},
                    {"gData2Dip", {20, -9999, 0, 11}},
                    {"gData2Az", {80, -9999, 0, 15}},
                    {"gAppLineDip", {10, -99, 0, 5}},
                    {"gAppLineAz", {90, 0, 0, 15}},
                    {"gAppNumeric", {1.5, -9999, 0, 300}}};
    json["rows"]["gAppText"] =
        version.tenths < 90 ? Json{12.5, 7, 0, -3} : Json{"12.5", "7", "0", "-3"};
    json["OverlayRows"] = {2, 1, 2};
    json["OverlayKind"] = {0, 1, 3};
    Json first = {{"gDataDip", {10}},  {"gDataAz", {20}},           {"gPointDensity", {3}},
                  {"gDataOrder", {5}}, {"gDataSymbol", {"010106"}}, {"gData2Dip", {1}},
                  {"gData2Az", {2}}};
    Json second = {{"gDataDip", {-20, 21}},
                   {"gDataAz", {30, 31}},
                   {"gPointDensity", {3, 3}},
                   {"gDataOrder", {6, 7}},
                   {"gDataSymbol", {"020106", "020106"}},
                   {"gData2Dip", {0, 0}},
                   {"gData2Az", {0, 0}}};
    json["overlays"] = Json::array({first, second});
    for (int row = 1; row <= 7; ++row) {
        json["cells"].push_back({std::to_string(row), "12", "-34", "0,5", "1.25"});
    }
}

void AddResults(Json& json) {
    json.update({{"PointDensityMax", 7.5}, {"GridDensityMax", 8.5}, {"DensityCount", 4}});
    json.update({{"GridSize", 10}, {"NumContours", 2}});
    for (int i = 0; i <= 10; ++i) {
        json["DensityGrid"].push_back(Growing(1, 11, 100.0 * i, 1)[0]);
    }
    json["ContourLevels"] = {1, 2, 4, 8, 16, 0, 0, 0, 0};
    json["FabricResults"] = Growing(3, 4, 0, 0.25);
    json.update({{"FabricValueF", 0.125}, {"FabricValueA", 0.75}, {"FabricValueB", 1.5}});
    json["AxisItems"] = Json::array();
    for (int item = 0; item <= 10; ++item) {
        json["AxisItems"].push_back(nullptr);
    }
    for (std::size_t item : {0U, 1U, 2U, 3U, 4U, 5U, 9U}) {
        json["AxisItems"][item] = Item("item " + std::to_string(item));
    }
    json["earlierRose"] = {{"RoseResultant", 0.5},  {"RoseType", 0},     {"RoseSectorSize", 15},
                           {"RoseStartAngle", 5},   {"RoseRangeA", 2.5}, {"RoseRangeB", 3.5},
                           {"RoseStatsRounded", 7}, {"RoseStats", 7.25}, {"RoseMeanDir", 0.5},
                           {"RoseVariance", 0.25},  {"RoseStdDev", 0.75}};
    json.update({{"RoseShape", 1},
                 {"RoseEqualArea", -1},
                 {"RoseDisplay6", -1},
                 {"RoseDisplay7", 0},
                 {"RoseDisplay8", -1},
                 {"RoseBiasMode", 0},
                 {"RoseSamplePlunge", 10},
                 {"RoseSampleTrend", 120},
                 {"RoseMinBiasAngle", 7}});
}

void AddLaterStatistics(Json& json) {
    json.update({{"FabricValueD", 2.25}, {"FabricValueE", 3.25}, {"FabricValueC", 4.125}});
    json["StatsBoxKind"] = -1;
    json["EigenResults"] = Growing(3, 4, 0, 0.5);
    json["AxisItems"][10] = Item("item 10");
}

void AddMarks(Json& json) {
    json["annotations"] = Json::array({{{"X", 10},
                                        {"Y", -20},
                                        {"SymbolType", 3},
                                        {"Colour", 4},
                                        {"Size", 5},
                                        {"lineStyle", 0},
                                        {"Tag", 7},
                                        {"LineNodes", Json::array()}},
                                       {{"X", 1},
                                        {"Y", 2},
                                        {"SymbolType", 0},
                                        {"Colour", 4},
                                        {"Size", 2},
                                        {"lineStyle", 1},
                                        {"Tag", 0},
                                        {"LineNodes", {{5, 6}, {-7, 8}}}}});
    for (int circle = 1; circle <= 4; ++circle) {
        json["smallCircles"].push_back({{"LineColour", circle},
                                        {"lineStyle", 0},
                                        {"LineWidth", 2},
                                        {"Visible", -1},
                                        {"LastPlotSects", 1},
                                        {"Angle", std::to_string(10 * circle)},
                                        {"AxisAz", "120"},
                                        {"AxisPl", "45"}});
    }
}

void AddRose(Json& json) {
    json["RoseType"] = 0;
    json.update(
        {{"AppNumName", "Thickness"}, {"AppNonNumName", "Rock"}, {"RoseScaleType", "circ5"}});
    json.update({{"RoseHistStyle", 1},
                 {"RoseSegShape", 1},
                 {"RoseSectorFraction", 80},
                 {"RoseZeroCircle", 10}});
    json.update({{"RoseMeanDev", 0.1 * 1},
                 {"RoseDispersion", 0.1 * 2},
                 {"RoseSkewness", 0.1 * 3},
                 {"RoseKurtosis", 0.1 * 4},
                 {"RoseKappa", 0.1 * 5},
                 {"RoseVariance", 0.1 * 6},
                 {"RoseStdDev", 0.1 * 7},
                 {"RoseSectorSize", 20},
                 {"RoseStartAngle", 30}});
    json["RoseResultant"] = {0.01 * 1, 0.01 * 2};
    json["RoseMoments"] = {0.01 * 3, 0.01 * 4};
    json["RoseRangeA"] = Growing(3, 2, 1, 1);
    json["RoseRangeB"] = Growing(3, 2, 7, 1);
    json["AppendedMin"] = {-1.5, -2.5};
    json["AppendedMax"] = {11.5, 12.5};
    json["RoseStats"] = Growing(7, 3, 100, 1);
    for (int i = 0; i < 11; ++i) {
        json["DistinctValues"].push_back({i / 2.0, "t" + std::to_string(i)});
    }
    for (int i = 0; i < 13; ++i) {
        json["ClassTable"].push_back({i, 13 + i, 26 + i});
    }
    json.update({{"ClassMode", 0}, {"NumClassified", 2}});
}

/// Everything that the sample of a version holds.
Json SampleAsJson(const OldVersion& version) {
    Json json;
    AddHead(json, version);
    AddRows(json, version);
    AddResults(json);
    if (version.tenths > 70) {
        json["window"] = {
            {"state", 0}, {"top", 150}, {"left", 300}, {"width", 9000}, {"height", 6000}};
    }
    if (version.tenths > 71) {
        AddLaterStatistics(json);
    }
    if (version.tenths >= 80) {
        AddMarks(json);
    }
    if (version.tenths >= 90) {
        AddRose(json);
    }
    if (version.tenths >= 91) {
        json["LayerVisible"] = {-1, 0, -1, 0, -1, 0};
    }
    if (version.tenths >= 92) {
        json.update({{"RoseMedian", 33.5},
                     {"NumClasses", 4},
                     {"ClassWidth", 2.5},
                     {"ClassLow", -7},
                     {"ClassHigh", 70}});
        json["RoseMeanDir"] = {77.5, 88.5};
    }
    if (version.tenths >= 94) {
        json["fullVersion"] = version.full;
        json["gGridCount"] = 0;
        json["gGridValues"] = {{"mean", Growing(153, 153, 0, 0)},
                               {"cumulative", Growing(153, 153, 0, 0)}};
        json["ClassStats"] = Growing(5, 2, 0.5, 1);
    }
    if (version.tenths >= 95 || version.full == "9.44 ") {
        json["HasFrequencyColumn"] = -1;
    }
    if (version.tenths >= 95) {
        for (std::size_t item : {6U, 7U, 8U}) {
            json["AxisItems"][item] = Item("item " + std::to_string(item));
        }
    }
    json["bytesBehind"] = 0;
    return json;
}

/// Compares two objects without regard to the order of their names.
void ExpectSame(const nlohmann::json& dumped, const nlohmann::json& expected,
                const std::string& what) {
    for (const auto& [name, value] : expected.items()) {
        ASSERT_TRUE(dumped.contains(name)) << what << ' ' << name;
        EXPECT_TRUE(dumped[name] == value)
            << what << ' ' << name << ": " << dumped[name].dump().substr(0, 500);
    }
    for (const auto& [name, value] : dumped.items()) {
        EXPECT_TRUE(expected.contains(name)) << what << ' ' << name << " is not in the file";
    }
}

/// What is written for a file, and the reason if nothing is.
std::pair<std::string, std::string> WrittenOf(std::string_view bytes) {
    std::string text;
    JsonWriter writer(
        [&text](std::string_view piece) {
            text += piece;
            return true;
        },
        JsonLayout::Lines);
    std::string problem = WriteBinaryFile(bytes, writer);
    EXPECT_TRUE(writer.Finish());
    return {text, problem};
}

Json ListedOf(const OldPlot& plot, const std::string& behind = {}) {
    const auto [text, problem] = WrittenOf(OldPlotWriter(plot).Bytes() + behind);
    EXPECT_EQ(problem, "");
    return Json::parse(text);
}

class FileDump : public BatchTest {};

TEST_F(FileDump, ShowsEveryFieldOfEachVersion) {
    for (const OldVersion& version : OldVersions()) {
        const std::string path = std::string(QUANDREL_TEST_DATA) + "/persistence/" + version.file;
        const nlohmann::json json = Dump("open \"" + path + "\"");
        ASSERT_TRUE(json.contains("file")) << version.file;
        ExpectSame(json["file"], SampleAsJson(version), version.file);
    }
}

TEST_F(FileDump, IsTheFileAndNotWhatWasWorkedOutFromIt) {
    const std::string path = std::string(QUANDREL_TEST_DATA) + "/persistence/version_9_5.qpx";
    const nlohmann::json json = Dump("open \"" + path + "\"; rotate op=3 axis=90,0 angle=90");
    EXPECT_EQ(json["file"]["rows"]["gDataAz"][0], 120);
    EXPECT_EQ(json["rows"]["gDataAz"][0], 210) << "turned about the vertical";
    EXPECT_EQ(json["file"]["AxisItems"][9][1], "item 9");
    EXPECT_NE(json["record"]["AxisItems"][9][1], "item 9") << "named with the statistics";
}

TEST_F(FileDump, APlotOfAnotherFileHasNone) {
    EXPECT_FALSE(Dump("open \"FOLDER/planes.txt\"").contains("file"));
    EXPECT_FALSE(Dump("blank").contains("file"));
}

TEST_F(FileDump, FollowsTheNameOfThePlot) {
    const nlohmann::json json =
        Dump("open \"FOLDER/planes.txt\"; save \"FOLDER/planes.qpx\"; close;"
             "open \"FOLDER/planes.qpx\"");
    EXPECT_EQ(json["file"]["version"], "9.5");
    EXPECT_EQ(json["file"]["fullVersion"], "9.51 ");
    EXPECT_EQ(json["file"]["rows"]["gDataAz"], (std::vector<int>{120, 270, 10}));
}

TEST(WriteBinaryFile, TellsValuesThatOpeningMends) {
    OldPlot plot = SampleOfVersion(OldVersions().back());
    plot.rows[0].azimuth = 725;
    plot.roseCode = 2;
    const Json json = ListedOf(plot);
    EXPECT_EQ(json["rows"]["gDataAz"][0], 725);
    EXPECT_EQ(json["earlierRose"]["RoseType"], 2);
}

TEST(WriteBinaryFile, GridsOfValuesAreLayersOfColumns) {
    OldPlot plot = SampleOfVersion(OldVersions().back());
    plot.gridCount = -1;
    const Json json = ListedOf(plot);
    EXPECT_EQ(json["gGridCount"], -1);
    EXPECT_EQ(json["gGridValues"]["mean"][7][150], 150007);
    EXPECT_EQ(json["gGridValues"]["cumulative"][152][3], -3152);
}

TEST(WriteBinaryFile, InfiniteNumbersAreTexts) {
    OldPlot plot = SampleOfVersion(OldVersions().back());
    plot.rows[0].number = std::numeric_limits<float>::infinity();
    plot.rows[1].number = -std::numeric_limits<float>::infinity();
    const Json json = ListedOf(plot);
    EXPECT_EQ(json["rows"]["gAppNumeric"][0], "inf");
    EXPECT_EQ(json["rows"]["gAppNumeric"][1], "-inf");
}

TEST(WriteBinaryFile, CountsWhatIsBehindTheLastField) {
    EXPECT_EQ(ListedOf(SampleOfVersion({92, "", ""}), "rest")["bytesBehind"], 4);
}

TEST(WriteBinaryFile, ListsTheBlocksOfAnExtension) {
    // Row 1 is 30/120, measured as 30.25/119.7; the sample has seven rows in all.
    std::string content = LongByHand(7);
    std::string whole;
    for (const auto& [dip, azimuth] : std::vector<std::pair<int, int>>{
             {30, 120}, {45, 270}, {-9999, 0}, {80, 5}, {10, 20}, {-20, 30}, {21, 31}}) {
        whole += LongByHand(dip) + LongByHand(azimuth);
    }
    const std::uint32_t checksum = CrcBitByBit(whole);
    content += LittleEndian(checksum, 4) + AngleByHand(30, 0.25F) + AngleByHand(120, -0.3F);
    for (int row = 2; row <= 7; ++row) {
        content += AngleByHand(-9999, 0) + AngleByHand(0, 0);
    }
    const std::string extension = ExtensionByHand(
        BlockByHand("UDEC", 1, LittleEndian(0xffff, 2)) + BlockByHand("FORM", 1, LittleEndian(2, 2))
        + BlockByHand("MPRI", 0, content) + BlockByHand("LATE", 1, "later"));
    const Json json = ListedOf(SampleOfVersion({92, "", ""}), extension + "rest");
    const nlohmann::json expected = {
        {{"tag", "UDEC"}, {"holdsForAnyRows", true}, {"bytes", 2}, {"UseDecimals", -1}},
        {{"tag", "FORM"}, {"holdsForAnyRows", true}, {"bytes", 2}, {"PlotFormulas", 2}},
        {{"tag", "MPRI"},
         {"holdsForAnyRows", false},
         {"bytes", 8 + 7 * 12},
         {"rows", 7},
         {"checksum", checksum},
         {"dip", {30.25, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr}},
         {"azimuth", {119.7, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr}}},
        {{"tag", "LATE"}, {"holdsForAnyRows", true}, {"bytes", 5}}};
    EXPECT_EQ(nlohmann::json(json["extension"]), expected);
    EXPECT_EQ(json["bytesBehind"], 4);
    EXPECT_FALSE(json.contains("leftOut"));
}

TEST(WriteBinaryFile, NamesTheDamageOfAnExtension) {
    const std::string extension = ExtensionByHand(BlockByHand("UDEC", 1, "odd"));
    const Json json = ListedOf(SampleOfVersion({92, "", ""}), extension);
    EXPECT_EQ(json["leftOut"], Json({"The choice to use decimals is damaged."}));
    EXPECT_FALSE(json["extension"][0].contains("UseDecimals"));
    const Json form = ListedOf(SampleOfVersion({92, "", ""}),
                               ExtensionByHand(BlockByHand("FORM", 1, LittleEndian(3, 2))));
    EXPECT_EQ(form["leftOut"], Json({"The choice of formulas is damaged."}));
    EXPECT_FALSE(form["extension"][0].contains("PlotFormulas"));
    const Json cut = ListedOf(SampleOfVersion({92, "", ""}), extension.substr(0, 20));
    EXPECT_EQ(cut["leftOut"], Json({"Its extension is cut off."}));
    EXPECT_FALSE(cut.contains("extension"));
    EXPECT_EQ(cut["bytesBehind"], 20);
}

TEST(WriteBinaryFile, LeavesOutWhatThePlotHasNot) {
    OldPlot plot;
    plot.version = 92;
    plot.rows = {{30, 120, 0, 0, 0, 0, 0, "", "000106"}};
    const Json json = ListedOf(plot);
    EXPECT_EQ(json["rows"].size(), 5U);
    EXPECT_TRUE(json["overlays"].empty());
    EXPECT_TRUE(json["annotations"].empty());
    EXPECT_FALSE(json.contains("DensityGrid"));
}

TEST(WriteBinaryFile, OfADamagedFileSaysWhyNot) {
    const std::string bytes = OldPlotWriter(SampleOfVersion({92, "", ""})).Bytes();
    const auto [text, problem] = WrittenOf(std::string_view(bytes).substr(0, 900));
    EXPECT_EQ(problem, "It ends too early.");
    EXPECT_EQ(text, "\n") << "nothing was written";
}

} // namespace
} // namespace quandrel

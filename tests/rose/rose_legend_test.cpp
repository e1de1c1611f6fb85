// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "rose/rose_legend.h"
#include "rose/rose_tables.h"
#include "rose/rose_wedges.h"
#include "support/test_platform.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace quandrel {

namespace {

using Texts = std::vector<std::string>;

Texts TextsOf(const std::vector<LegendLine>& lines) {
    Texts texts;
    for (const LegendLine& line : lines) {
        texts.push_back(line.text);
    }
    return texts;
}

} // namespace

TEST(RoseValueLabel, ShortensTheUsualNamesInAnyCase) {
    const std::array<std::pair<const char*, const char*>, 9> labels = {
        {{"weighting", "Wghted freq"},
         {"Weighting", "Wghted freq"},
         {"wind frequency", "Wind freq"},
         {"Mean Wind Frequency", "Wind freq"},
         {"RAW WIND SPEED", "Wind speed"},
         {"mean wind speed", "Wind speed"},
         {"Thickness", "Thickness"},
         {"Fracture aperture", "Fracture ape"},
         {"", ""}}};
    for (const auto& [name, label] : labels) {
        EXPECT_EQ(RoseValueLabel(name), label) << name;
    }
}

TEST(RoseValueLabel, CutsBetweenCharacters) {
    EXPECT_EQ(RoseValueLabel("Öffnungsweiten"), "Öffnungsweit");
    EXPECT_EQ(RoseValueLabel("éééééééééééééé"), "éééééééééééé");
}

class RoseLegendTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        BuildStyleTables();
        NewPlot();
        Record().AppNumName = "Length";
        Record().AppNonNumName = "Rock";
    }

    static PlotRecord& Record() { return ActiveRecord(); }

    static Texts Lines() { return TextsOf(RoseLegendLines(ActivePlot(), gSettings.styles)); }
};

TEST_F(RoseLegendTest, TellsTheKind) {
    const std::array<Texts, 9> titles = {
        Texts{"Data Frequency-Azimuth"},
        {"Length- Azimuth"},
        {"Mean Length - Azimuth", "[Length Means/sector]"},
        {"Length variance-Azimuth", "[standard deviation of Length/sector]"},
        {"Mean Wind Speed-Azimuth", "[sum of speeds/sector]"},
        {"Wind Energy Frequency", "[Mean Wind Speed^3 x Mean Frequency]"},
        {"Overlayed Wind Rose", "Wind Energy x mean freq [top]", "Mean Wind Speed [middle]",
         "[sum of speeds/sector]", "Mean Wind Frequency [base]"},
        {"Length", "overlayed on Data frequency"},
        {"Length", "overlayed on Mean Length"}};
    for (std::int16_t kind = 0; kind <= 8; ++kind) {
        Record().RoseType = kind;
        EXPECT_EQ(Lines(), titles[static_cast<std::size_t>(kind)]) << kind;
    }
}

TEST_F(RoseLegendTest, PutsBiasBeforeTheFrequencyColumn) {
    Record().HasFrequencyColumn = kTrue;
    EXPECT_EQ(Lines()[0], "Data Frequency-Azimuth (grouped)");
    Record().RoseBiasMode = 2;
    EXPECT_EQ(Lines()[0], "Weighted Frequency-Azimuth");
}

TEST_F(RoseLegendTest, TellsTheBiasCorrection) {
    PlotRecord& record = Record();
    record.RoseSamplePlunge = 5;
    record.RoseSampleTrend = 45;
    record.RoseMinBiasAngle = 10;
    const std::array<const char*, 3> angles = {"", "[3-D] angle with", "strike angle with"};
    for (std::int16_t mode = 1; mode <= 2; ++mode) {
        record.RoseBiasMode = mode;
        EXPECT_EQ(TextsOf(RoseBiasLines(record)),
                  (Texts{"Linear sample line", "bias-correction using",
                         angles[static_cast<std::size_t>(mode)], "sample line: 5-045",
                         " [Min.angle used = 10° ]"}));
    }
    record.RoseBiasMode = 3;
    EXPECT_EQ(Lines(), (Texts{"Data Frequency-Azimuth", "Dip only: no correction"}));
    record.RoseBiasMode = 2;
    record.RoseSamplePlunge = -9999;
    EXPECT_EQ(TextsOf(RoseBiasLines(record))[3], "sample line: appended line");
}

TEST_F(RoseLegendTest, IsSilentOnABiasThatPlaysNoPart) {
    Record().RoseBiasMode = 1;
    for (std::int16_t kind = 0; kind <= 8; ++kind) {
        Record().RoseType = kind;
        EXPECT_EQ(RoseBiasLines(Record()).empty(), kind > 2) << kind;
    }
    Record().RoseType = 0;
    Record().RoseBiasMode = 0;
    EXPECT_TRUE(RoseBiasLines(Record()).empty());
}

TEST_F(RoseLegendTest, ListsClassesByLength) {
    PlotRecord& record = Record();
    record.RoseType = 10;
    record.ClassTable[kBaseRow][kNumberClasses] = std::int16_t{2};
    record.ClassTable[kLowestRow][kNumberClasses] = 2.0;
    record.ClassTable[kLowestRow + 1][kNumberClasses] = 4.0;
    record.ClassTable[kTopRow][kNumberClasses] = 10.0;
    record.ClassTable[kFlagRow][kNumberClasses] = std::int16_t{0};
    EXPECT_EQ(Lines(), (Texts{"Data Frequency-Azimuth", "Classified by: Length", "2-4", "4-10"}));
    record.ClassTable[kFlagRow][kNumberClasses] = std::int16_t{3};
    EXPECT_EQ(TextsOf(RoseClassLines(ActivePlot(), gSettings.styles)),
              (Texts{"< 2", "2-4", "4-10", "> 10"}));
    const auto lines = RoseClassLines(ActivePlot(), gSettings.styles);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(lines[i].sample, LegendSample::Patch);
        EXPECT_EQ(CodeColour(lines[i].code), gSymbolTable[24 + i][kPlaceColour]);
        EXPECT_EQ(CodeSymbol(lines[i].code), gSymbolTable[24 + i][kPlaceSymbol]);
        EXPECT_EQ(CodeSize(lines[i].code), 0);
    }
}

TEST_F(RoseLegendTest, ListsNoClassThatCanHoldNoRow) {
    PlotRecord& record = Record();
    record.RoseType = 10;
    record.ClassTable[kBaseRow][kNumberClasses] = std::int16_t{4};
    record.ClassTable[kLowestRow][kNumberClasses] = 2.0;
    record.ClassTable[kLowestRow + 1][kNumberClasses] = 4.0;
    record.ClassTable[kLowestRow + 2][kNumberClasses] = 4.0;
    record.ClassTable[kLowestRow + 3][kNumberClasses] = 10.0;
    record.ClassTable[kTopRow][kNumberClasses] = 10.0;
    record.ClassTable[kFlagRow][kNumberClasses] = std::int16_t{0};
    EXPECT_EQ(TextsOf(RoseClassLines(ActivePlot(), gSettings.styles)), (Texts{"2-4", "4-10", "10"}))
        << "not 4-4";
}

TEST_F(RoseLegendTest, ListsClassesByName) {
    PlotRecord& record = Record();
    record.RoseType = 20;
    record.ClassTable[kBaseRow][kTextNumberClasses] = std::int16_t{2};
    record.ClassTable[kBaseRow][kNameClasses] = std::int16_t{0};
    record.ClassTable[kLowestRow][kNameClasses] = std::string("granite");
    record.ClassTable[kLowestRow + 1][kNameClasses] = std::string("gneiss");
    record.ClassTable[kFlagRow][kTextNumberClasses] = std::int16_t{1};
    const Texts lines = Lines();
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(lines[1], "Classified by: Rock");
    EXPECT_EQ(lines[2], "Other data");
    EXPECT_EQ(lines[3], "granite");
    EXPECT_EQ(lines[4], "gneiss");
}

TEST_F(RoseLegendTest, MakesPatchesAsWideAsSteppedClasses) {
    PlotRecord& record = Record();
    record.RoseType = 10;
    record.RoseSegShape = 1;
    record.ClassTable[kBaseRow][kNumberClasses] = std::int16_t{3};
    record.ClassTable[kFlagRow][kNumberClasses] = std::int16_t{1};
    record.ClassTable[kLowestRow + 1][kNumberClasses] = 3.0;
    record.ClassTable[kLowestRow + 2][kNumberClasses] = 6.0;
    record.ClassTable[kTopRow][kNumberClasses] = 10.0;
    const auto lines = RoseClassLines(ActivePlot(), gSettings.styles);
    ASSERT_EQ(lines.size(), 4U);
    // Sevenths of the whole: 1, 3, 5, 7.
    const std::array<int, 4> widths = {14, 42, 71, 0};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(CodeSize(lines[i].code), widths[i]);
    }
}

TEST_F(RoseLegendTest, HasNoClassesOfMeans) {
    Record().RoseType = 12;
    Record().ClassTable[kBaseRow][kNumberClasses] = std::int16_t{2};
    EXPECT_EQ(Lines(), (Texts{"Mean Length - Azimuth", "[Length Means/sector]"}));
}

TEST_F(RoseLegendTest, ShowsSamplesOfTheLayers) {
    Record().RoseType = 6;
    auto lines = RoseTitleLines(Record(), gSettings.styles);
    EXPECT_EQ(lines[0].sample, LegendSample::None);
    const std::array<std::size_t, 3> lineOfLayer = {1, 2, 4}; // the third says what the second is
    for (std::size_t layer = 0; layer < 3; ++layer) {
        const LegendLine& line = lines[lineOfLayer[layer]];
        EXPECT_EQ(line.sample, LegendSample::Patch);
        EXPECT_EQ(CodeColour(line.code),
                  FillOfRoseLayer(gSettings.styles, static_cast<int>(layer)).colour);
    }
    EXPECT_EQ(lines[3].sample, LegendSample::Indent);
    Record().RoseType = 16;
    lines = RoseTitleLines(Record(), gSettings.styles);
    EXPECT_EQ(lines[1].sample, LegendSample::Indent); // each class has its own fill
    EXPECT_EQ(lines[2].sample, LegendSample::Patch);
}

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Roses of random rows and settings: none of their fields is ever NaN or infinite.

#include "core/plot_record.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "orientation/angles.h"
#include "rose/bias_weights.h"
#include "rose/rose_plot.h"
#include "rose/rose_sectors.h"
#include "rose/rose_shown.h"
#include "rose/rose_tables.h"
#include "rose/rose_wedges.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"
#include "support/trial.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <functional>
#include <random>
#include <sstream>
#include <string>

namespace quandrel {
namespace {

constexpr unsigned kSeed = 2000;

/// True if a text has "nan" or "inf" as a word, as in "(nan)" or "-inf%", not as in "information".
bool HasNoNumber(std::string text) {
    const auto isLetter = [](char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; };
    std::replace_if(text.begin(), text.end(), std::not_fn(isLetter), ' ');
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        if (word == "nan" || word == "inf") {
            return true;
        }
    }
    return false;
}

/// Looks for NaN and infinity in fields of any type.
class FieldCheck {
public:
    void operator()(const char* name, double value) {
        if (!std::isfinite(value)) {
            bad_ += std::string(name) + " ";
        }
    }

    template <class T, std::size_t n>
    void operator()(const char* name, const std::array<T, n>& values) {
        for (const T& value : values) {
            (*this)(name, value);
        }
    }

    template <class T>
    void operator()(const char* /*name*/, const T& /*value*/) {}

    [[nodiscard]] const std::string& Bad() const { return bad_; }

private:
    std::string bad_;
};

class RandomRosesTrial : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        BuildStyleTables();
        gRoseOddAsked = false;
        gRoseClassWarned = true;
    }

    template <class T>
    T Pick(std::initializer_list<T> values) {
        return *(values.begin() + random_() % values.size());
    }

    int Below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }

    float AnyNumber() {
        switch (Below(8)) {
        case 0:
            return kInvalidNumber;
        case 1:
            return 0;
        case 2:
            return Pick({1e30F, -1e30F, 1e-30F, 3e38F, -2.5F});
        default:
            return static_cast<float>(Below(2000)) / 7;
        }
    }

    void AddRows() {
        PlotRecord& record = ActiveRecord();
        record.HasAppendedNumeric = record.HasAppendedText = record.HasAppendedLine = kTrue;
        const int rows = 1 + Below(12);
        const bool alike = Below(4) == 0; // values and places that repeat leave no spread
        const float number = AnyNumber();
        for (int row = 1; row <= rows; ++row) {
            AddRow(Below(20) == 0 ? kErrorRow : Below(91), alike ? 17 : Below(361));
            ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
            ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Text));
            ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Line));
            gAppNumeric.At(gActivePlot, row) = alike ? number : AnyNumber();
            gAppText.Set(gActivePlot, row, Pick({"3.7", "", "x", "0", "1e40", "-2", "12.25"}));
            gAppLineDip.At(gActivePlot, row) = Pick({0, 45, 90, kInvalidAppendedLine});
            gAppLineAz.At(gActivePlot, row) = Below(361);
        }
    }

    void ChooseSettings() {
        PlotRecord& record = ActiveRecord();
        record.DataKind = Pick({kPlanes, kLines, kPolarLines});
        record.RoseType = static_cast<std::int16_t>(Below(9) + 10 * Below(3));
        record.RoseSectorSize = Pick({1.0, 7.0, 10.0, 22.5, 40.0, 120.0, 200.0, 359.9, 360.0});
        record.RoseStartAngle = Below(361);
        record.RoseBiasMode = static_cast<std::int16_t>(Below(4));
        record.RoseSamplePlunge =
            Below(4) == 0 ? kOwnSampleLine : static_cast<std::int16_t>(Below(91));
        record.RoseSampleTrend = static_cast<std::int16_t>(Below(361));
        record.RoseMinBiasAngle = static_cast<std::int16_t>(1 + Below(20));
        record.RoseShape = static_cast<std::int16_t>(Below(5));
        record.RoseEqualArea = Pick<std::int16_t>({0, kTrue});
        record.RoseZeroCircle = static_cast<std::int16_t>(Below(91));
        record.RoseSectorFraction = static_cast<std::int16_t>(1 + Below(100));
        record.RoseSegShape = static_cast<std::int16_t>(Below(2));
        record.RoseScaleType = Pick({"tickauto", "circauto", "tick0", "circ5", "tick0.001"});
        record.RoseDisplay6 = record.RoseDisplay7 = record.RoseDisplay8 = kTrue;
        record.HasFrequencyColumn = Pick<std::int16_t>({0, kTrue});
        for (const std::size_t column : {0U, 1U}) {
            record.ClassTable[kBaseRow][column] = static_cast<std::int16_t>(Below(4));
            record.ClassTable[kLowestRow][column] = 1.0;
            record.ClassTable[kLowestRow + 1][column] = 20.0;
            record.ClassTable[kTopRow][column] = 100.0;
            record.ClassTable[kFlagRow][column] = static_cast<std::int16_t>(Below(4));
        }
        record.ClassTable[kBaseRow][kNameClasses] = static_cast<std::int16_t>(Below(2));
    }

    /// The names of fields that are not finite, and the texts that say so.
    static std::string Faults() {
        FieldCheck check;
        VisitPlotFields(ActiveRecord(), check);
        for (const std::array<double, 7>& row : *gRoseSectorStats) {
            check("stats", row);
        }
        check("trig sums", *gRoseTrigSums);
        for (int s = 0; s <= gRoseSectors->Sectors(); ++s) {
            for (int c = 0; c <= gRoseSectors->Classes(); ++c) {
                check("sectors", gRoseSectors(s, c, kRoseFrequencyLayer));
                check("sectors", gRoseSectors(s, c, kRoseValueLayer));
            }
        }
        for (int s = 0; s <= gRoseRadii->Sectors(); ++s) {
            for (int c = 0; c <= gRoseRadii->Classes(); ++c) {
                check("radii", gRoseRadii(s, c));
            }
        }
        for (const RoseWedge& wedge : ActiveRose().wedges) {
            check("wedges", std::array{wedge.start, wedge.end, wedge.radius});
        }
        std::string bad = check.Bad();
        for (const PlotBox box : {PlotBox::StatsNormal, PlotBox::StatsAdvanced}) {
            const std::string text = Form(gActivePlot).Told(box);
            if (HasNoNumber(text)) {
                bad += text;
            }
        }
        return bad;
    }

    std::mt19937 random_{kSeed};
};

TEST_F(RandomRosesTrial, HaveNoFieldThatIsNoNumber) {
    const int roses = TrialRounds(2000);
    ScriptedPrompts any(ScriptedPrompts::Mode::Batch);
    gPlatform.prompts = &any;
    for (int rose = 0; rose < roses; ++rose) {
        NewPlot();
        PlotRecord& record = ActiveRecord();
        record.PlotKind = kRose;
        record.PrimaryFormat = kPrimaryLine;
        AddRows();
        ChooseSettings();
        RosePlot();
        ASSERT_EQ(Faults(), "") << "rose " << rose << " of type " << record.RoseType;
        ForgetRose(ActivePlot());
        ReleasePlotSlot(gActivePlot);
    }
}

} // namespace
} // namespace quandrel

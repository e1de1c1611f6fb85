// SPDX-License-Identifier: MIT
//
// Plots are computed and drawn without any port and without a store: nothing is connected, and no
// slot exists, so that any use of them fails.

#include "classify/classification.h"
#include "drawing/draw_plot.h"
#include "platform/scripted/scripted_prompts.h"
#include "rose/rose_radii.h"
#include "rose/rose_tables.h"
#include "stereo/symbols.h"
#include "support/slotless_plots.h"
#include "support/test_platform.h"

#include <algorithm>
#include <array>
#include <functional>
#include <ostream>

namespace quandrel {
namespace {

constexpr int kGridSize = 20;
constexpr std::int16_t kLastClassGrid = 4; ///< NumClasses: symbols, grid, contours and both
constexpr int kShapes = 5;

/// A plot to draw, and what its drawing must contain.
struct Sample {
    std::string name;
    std::function<Plot()> make;
    std::string shows; ///< the start of an operation
};

struct Samples {
    std::string name;
    std::vector<Sample> plots;
};

void PrintTo(const Samples& samples, std::ostream* stream) {
    *stream << samples.name;
}

/// A plot of all kinds of marks whose rows have texts: names, or numbers.
Plot PlotWithTexts(std::int16_t kind, std::int16_t mode, bool areNumbers) {
    Plot plot = SlotlessPlot(kind, mode, 7);
    PlotRecord& record = plot.record;
    record.HasAppendedText = kTrue;
    record.AppNonNumName = "Rock";
    plot.rows.text.Grow(record.NumLoadedData);
    for (std::int32_t row = 1; row <= record.NumLoadedData; ++row) {
        plot.rows.text.Set(row, areNumbers ? std::to_string(row % 7)
                                           : (row % 2 == 0 ? "shale" : "sandstone"));
    }
    record.PlotSmallCircles =
        std::make_unique<std::remove_reference_t<decltype(*record.PlotSmallCircles)>>();
    SmallCircle& circle = (*record.PlotSmallCircles)[1];
    circle.AxisPl = "30";
    circle.AxisAz = "200";
    circle.Angle = "20";
    circle.Visible = kTrue;
    record.ShowConfidenceCone = true;
    record.LayerVisible.fill(kTrue);
    return plot;
}

void SetClasses(PlotRecord& record) {
    for (const ClassColumn column : {kNumberClasses, kTextNumberClasses}) {
        record.ClassTable[kBaseRow][column] = std::int16_t{2};
        record.ClassTable[kLowestRow][column] = 0.0;
        record.ClassTable[kLowestRow + 1][column] = 4.0;
        record.ClassTable[kTopRow][column] = 9.0;
    }
    record.ClassTable[kLowestRow][kNameClasses] = std::string("shale");
    record.ClassTable[kLowestRow + 1][kNameClasses] = std::string("5");
}

Plot ClassifiedPlot(std::int16_t kind, std::int16_t mode, std::int16_t classGrid) {
    Plot plot = PlotWithTexts(kind, kPointSymbols, mode == kClassesByTextNumber);
    SetClasses(plot.record);
    plot.record.ClassMode = mode;
    plot.record.NumClasses = classGrid;
    return plot;
}

/// Faults with their slip lines, as arrows on the poles.
Plot PlotOfFaults(std::int16_t kind) {
    Plot plot;
    PlotRecord& record = plot.record;
    record = NewPlotRecord();
    record.PlotKind = kind;
    record.PrimaryFormat = kPrimaryPlane;
    record.SecondaryFormat = kSecondaryLine;
    record.NumSymbolsInPlot = 1;
    for (std::int32_t row = 0; row < 20; ++row) {
        RowValues values;
        values.isData = values.hasSecondary = true;
        values.dip = 40 + row;
        values.azimuth = 15 * row;
        values.dip2 = 10 - row; // those below 0 state a sense
        values.azimuth2 = (15 * row + 300) % 360;
        values.code = CodeOfStyleRow(StartStyles(), kRowSymbol);
        values.place =
            PlottedOrientation(kind, IsPlottedAsPole(record, 0), 0, {values.dip, values.azimuth});
        EXPECT_TRUE(AppendRow(plot, 0, values));
    }
    return plot;
}

Plot RosePlot(std::int16_t type, std::int16_t shape) {
    Plot plot = PlotWithTexts(kRose, kPointSymbols, true); // speeds of winds are texts
    SetClasses(plot.record);
    plot.record.RoseType = type;
    plot.record.RoseShape = shape;
    plot.record.RoseSectorSize = 60; // so that each class of a sector has several rows
    plot.record.RoseDisplay6 = plot.record.RoseDisplay7 = plot.record.RoseDisplay8 = kTrue;
    return plot;
}

Samples SamplesOfNet(const std::string& net, std::int16_t kind) {
    constexpr std::array<const char*, kContoursAndGrid + 1> kShown = {
        "arc", "markers", "markers", "markers", "markers", "markers", "polyline", "polyline"};
    std::vector<Sample> samples;
    for (std::int16_t mode = kGreatCircles; mode <= kContoursAndGrid; ++mode) {
        samples.push_back({"mode " + std::to_string(mode),
                           [kind, mode] { return PlotWithTexts(kind, mode, false); },
                           kShown[static_cast<std::size_t>(mode)]});
    }
    for (const std::int16_t mode : {kClassesByNumber, kClassesByTextNumber, kClassesByName}) {
        for (std::int16_t grid = 0; grid <= kLastClassGrid; ++grid) {
            samples.push_back({"classes " + std::to_string(mode) + ", grid " + std::to_string(grid),
                               [=] { return ClassifiedPlot(kind, mode, grid); },
                               mode == kClassesByNumber && grid > 1 ? "polyline" : "markers"});
        }
    }
    samples.push_back({"slip arrows", [kind] { return PlotOfFaults(kind); }, "arrow"});
    return {net, samples};
}

Samples SamplesOfRoses() {
    std::vector<Sample> samples;
    for (std::int16_t kind = 0; IsRoseKind(kind); ++kind) {
        for (const int classes : {kRoseUnclassified, kRoseByLength, kRoseByType}) {
            const auto type = static_cast<std::int16_t>(kind + 10 * classes);
            samples.push_back(
                {"type " + std::to_string(type), [type] { return RosePlot(type, 0); }, "wedge"});
        }
    }
    for (std::int16_t shape = 1; shape < kShapes; ++shape) {
        samples.push_back({"shape " + std::to_string(shape),
                           [shape] { return RosePlot(kRoseFrequency, shape); }, "wedge"});
    }
    return {"Roses", samples};
}

/// What a plot draws on a medium: both surfaces, operation by operation.
std::string DrawnOn(const Plot& plot, DrawnFor medium) {
    RecordingSurface net(500, 500);
    RecordingSurface legend(160, 400);
    DrawPlot(plot, {net, legend, gSettings.styles, medium});
    std::string text;
    for (const RecordingSurface* surface : {&net, &legend}) {
        for (const DrawOperation& operation : surface->Operations()) {
            const bool isArrow = operation.kind == DrawOperation::Kind::Markers
                                 && operation.text.starts_with(std::to_string(kSlipArrowSymbol));
            text += (isArrow ? "arrow " : "") + OperationText(operation) + '\n';
        }
    }
    return text;
}

std::string DrawnOnAllMedia(const Plot& plot) {
    return DrawnOn(plot, DrawnFor::Window) + DrawnOn(plot, DrawnFor::Sample)
           + DrawnOn(plot, DrawnFor::Paper);
}

Plot WorkedOut(const Sample& sample) {
    Plot plot = sample.make();
    WorkOutPlot(plot, {ReplotCause::Rows, gSettings.styles, Formulas::Own, kGridSize});
    WorkOutUnseen(plot);
    return plot;
}

/// Fails the test when it is used.
class UntouchedStatusLine : public StatusLine {
public:
    void SetText(std::string_view text) override { ADD_FAILURE() << text; }

    void SetProgress(std::int64_t done, std::int64_t maximum) override {
        ADD_FAILURE() << done << " of " << maximum;
    }

    void SetBusy(bool busy) override { ADD_FAILURE() << busy; }

    [[nodiscard]] bool CancelRequested() override {
        ADD_FAILURE() << "Esc";
        return false;
    }
};

class PortlessDrawing : public ::testing::TestWithParam<Samples> {
protected:
    void SetUp() override {
        Disconnect();
        former_ = gSettings;
        gSettings = {};
        gSettings.styles = StartStyles();
    }

    void TearDown() override {
        Disconnect();
        MakeStoreTables();
        gSettings = former_;
    }

    /// Leaves no port, no slot and no plot in focus.
    static void Disconnect() {
        gPlatform = {};
        MakeStoreTables();
        PlotSlots::Resize(0);
        gActivePlot = 0;
    }

    /// Makes a plot with a window the one in focus.
    static const RecordingForm& FocusAnotherPlot() {
        gPlatform.makePlotForm = [](int) { return std::make_unique<RecordingForm>(); };
        MakeStoreTables();
        gActivePlot = FindFreePlotSlot();
        ResetPlotRecord(gActivePlot);
        ActivePlot() = SlotlessPlot(kEqualAngle, kGreatCircles, 90);
        return static_cast<const RecordingForm&>(FormOf(gActivePlot));
    }

private:
    Settings former_;
};

TEST_P(PortlessDrawing, NeedsNoPortAndNoSlot) {
    for (const Sample& sample : GetParam().plots) {
        const Plot plot = WorkedOut(sample);
        EXPECT_NE(("\n" + DrawnOnAllMedia(plot)).find("\n" + sample.shows), std::string::npos)
            << sample.name;
        EXPECT_EQ(gActivePlot, 0) << sample.name;
        EXPECT_EQ(PlotSlots::Count(), 0U) << sample.name;
    }
}

TEST_P(PortlessDrawing, IsTheSameWithPortsAndWithAnotherPlotInFocus) {
    for (const Sample& sample : GetParam().plots) {
        SCOPED_TRACE(sample.name);
        Disconnect();
        const std::string expected = DrawnOnAllMedia(WorkedOut(sample));
        ScriptedPrompts prompts{ScriptedPrompts::Mode::Strict};
        UntouchedStatusLine status;
        gPlatform.prompts = &prompts;
        gPlatform.status = &status;
        const RecordingForm& window = FocusAnotherPlot();
        EXPECT_EQ(DrawnOnAllMedia(WorkedOut(sample)), expected);
        EXPECT_EQ(prompts.Problems(), "");
        EXPECT_TRUE(window.Plot().Operations().empty());
        EXPECT_TRUE(window.Legend().Operations().empty());
    }
}

TEST_P(PortlessDrawing, NeedsNoneForAPlotThatHadNoWindow) {
    for (const Sample& sample : GetParam().plots) {
        Plot plot = sample.make();
        WorkOutUnseen(plot);
        const std::string drawn = DrawnOn(plot, DrawnFor::Paper);
        EXPECT_EQ(drawn.find("wedge") != std::string::npos, plot.record.PlotKind == kRose)
            << sample.name;
    }
}

INSTANTIATE_TEST_SUITE_P(Of, PortlessDrawing,
                         ::testing::Values(SamplesOfNet("EqualArea", kEqualArea),
                                           SamplesOfNet("EqualAngle", kEqualAngle),
                                           SamplesOfRoses()),
                         [](const auto& parameter) { return parameter.param.name; });

} // namespace
} // namespace quandrel

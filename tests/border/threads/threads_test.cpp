// SPDX-License-Identifier: MIT
//
// All public functions in two threads at once, with the results of one thread; and with settings of
// the program that must not matter.

#include "border/random_lines.h"
#include "core/formulas.h"
#include "core/plot_store.h"
#include "core/settings_value.h"
#include "quandrel/quandrel.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <functional>
#include <optional>
#include <string>
#include <thread>

namespace quandrel::api {
namespace {

/// Numbers and texts that functions gave, in order.
class Results {
public:
    void Add(double number) {
        // NaN is equal to NaN here.
        text_ += number == number ? std::to_string(std::bit_cast<std::uint64_t>(number)) : "NaN";
        text_ += ' ';
    }

    void Add(const std::optional<double>& number) { number ? Add(*number) : Add("nothing"); }

    void Add(std::string_view text) { text_ += std::string(text) + ' '; }

    void Add(const Line& line) {
        Add(line.plunge);
        Add(line.trend);
    }

    void Add(const Plane& plane) {
        Add(plane.dip);
        Add(plane.dipDirection);
    }

    void Add(std::span<const NetPoint> points) {
        for (const NetPoint& point : points) {
            Add(point.east);
            Add(point.north);
        }
    }

    [[nodiscard]] const std::string& Text() const { return text_; }

private:
    std::string text_;
};

void AddGeometry(Results& results, std::span<const Line> lines, std::span<const Plane> planes) {
    std::vector<Line> found(planes.size());
    PolesOf(planes, found);
    RotateLines(found, lines[0], 33, found);
    std::vector<Vector> vectors(lines.size());
    VectorsOf(lines, vectors);
    std::vector<Plane> turned(planes.size());
    RotatePlanes(planes, lines[1], 12, turned);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        results.Add(found[i]);
        results.Add(LineOf(vectors[i]));
        results.Add(PlaneOfPole(lines[i]));
        results.Add(turned[i]);
        results.Add(AngleBetween(lines[i], found[i]));
        results.Add(LineAtPitch(planes[i], 40));
        results.Add(LineAtTrend(planes[i], 40));
        results.Add(PlaneThrough(lines[i], found[i]).value_or(Plane{}));
        results.Add(UnfoldedLine(lines[i], planes[i], lines[2]));
        results.Add(RotationBetween(planes[i], planes[0]).angle);
        results.Add(KinematicAxesOf({planes[i], LineAtPitch(planes[i], 60)})->p);
        results.Add(TextOf(planes[i]) + TextOf(lines[i]));
        results.Add(AzimuthOfText(TextOf(Line{0, lines[i].trend}, {.isQuadrant = true})));
        results.Add(DipDirectionOf(planes[i].dipDirection, "NE"));
    }
    for (const Line& line : BetaIntersections(planes.first(30))) {
        results.Add(line);
    }
}

void AddStatistics(Results& results, std::span<const Line> lines, std::span<const double> values) {
    const Fabric fabric = FabricOf(lines, {}, Sense::kDirections).value_or(Fabric{});
    results.Add(fabric.axes[0]);
    results.Add(fabric.eigenvalues[2]);
    results.Add(fabric.coneAngle);
    results.Add(fabric.fisher->kappa);
    for (const Sense sense : {Sense::kAxes, Sense::kDirections}) {
        const auto circular = CircularStatisticsOf(values, sense);
        results.Add(circular->meanDirection);
        results.Add(circular->kappa);
        results.Add(circular->median.median);
        results.Add(circular->kuiper.probability);
        results.Add(BootstrapHalfWidthOf(values.first(15), sense));
        for (const RoseSector& sector :
             RoseOf(values, {.sense = sense, .measure = RoseMeasure::kMean}, values).sectors) {
            results.Add(sector.length);
            results.Add(sector.deviation);
        }
    }
    results.Add(NumberStatisticsOf(values)->standardDeviation);
    std::vector<int> classes(values.size());
    FindClasses(values, EqualRanges(0, 300, 7), classes);
    for (const int number : classes) {
        results.Add(number);
    }
    results.Add(ClassOf("Gneiss", Names{{"schist", "gneiss"}, false, false}));
}

void AddDrawings(Results& results, std::span<const Line> lines, std::span<const Plane> planes) {
    for (const Projection projection : {Projection::kEqualArea, Projection::kEqualAngle}) {
        std::vector<NetPoint> points(lines.size());
        ProjectLines(lines, projection, points);
        results.Add(points);
        results.Add(LineAtPoint(points[3], projection));
        results.Add(TraceOfPlane(planes[3], projection));
        results.Add(TraceOfCone(lines[3], 50, projection)[0]);
        const DensityField field = DensityFieldOf(lines, projection, 40);
        for (const Contour& contour : ContoursOf(field, UsualLevels(field))) {
            for (const NetLine& line : contour.lines) {
                results.Add(line);
            }
        }
        std::vector<std::int32_t> counts(lines.size());
        CountAbout(lines, lines, 20, counts);
        results.Add(counts[5]);
    }
}

void AddTable(Results& results, std::span<const Plane> planes) {
    std::string text = "/C1\n";
    for (const Plane& plane : planes) {
        text += TextOf(plane, {.separator = "\t"}) + "\t" + std::to_string(plane.dip) + "\n";
    }
    TableFormat format;
    format.hasNumber = true;
    format.columns.number = 2;
    const Table table = ReadTable(DecodedText(text), FormatOfText(text, format));
    for (std::size_t i = 0; i < table.planes.size(); ++i) {
        results.Add(table.planes[i]);
        results.Add(table.numbers[i]);
    }
}

void AddPlotFile(Results& results, std::span<const Line> lines, std::span<const Plane> planes) {
    Plot plot;
    plot.rows.planes.assign(planes.begin(), planes.end());
    plot.rows.numbers.assign(planes.size(), 2.5);
    plot.overlays = {{OverlayKind::kPolarLines, {}}};
    plot.overlays[0].rows.lines.assign(lines.begin(), lines.end());
    const Result<std::string> bytes = PlotBytes(plot);
    results.Add(*bytes);
    const Result<Plot> again = ReadPlot(*bytes);
    results.Add(again->rows.planes[7]);
    results.Add(again->overlays[0].rows.lines[7]);
    results.Add(ReadPlot(std::string_view(*bytes).substr(0, 200)).Error());
}

void AddSurface(Results& results, const Recording& recording) {
    results.Add(static_cast<double>(recording.Operations().size()));
    for (const Operation& operation : recording.Operations()) {
        results.Add(static_cast<double>(operation.kind));
        results.Add(operation.text);
        results.Add(operation.radius);
        results.Add(operation.pen.width);
        for (const Point& point : operation.points) {
            results.Add(point.x);
            results.Add(point.y);
        }
    }
}

void AddPictures(Results& results, std::span<const Plane> planes) {
    Plot plot;
    plot.rows.planes.assign(planes.begin(), planes.begin() + 60);
    for (const RowsAs rowsAs : {RowsAs::kGreatCircles, RowsAs::kPoints, RowsAs::kIntersections,
                                RowsAs::kContoursOnDensities}) {
        for (const PlotKind kind : {PlotKind::kEqualAngle, PlotKind::kRose}) {
            plot.rowsAs = rowsAs;
            plot.kind = kind;
            Recording net({500, 500});
            Recording legend({200, 400});
            DrawPlot(plot, {.plot = net, .legend = legend, .gridSize = 20});
            AddSurface(results, net);
            AddSurface(results, legend);
        }
    }
}

std::string AllResults(std::uint32_t seed) {
    RandomValues random(seed);
    const std::vector<Line> lines = random.Lines(200, -90);
    const std::vector<Plane> planes = random.Planes(200);
    std::vector<double> values(200);
    for (double& value : values) {
        value = random.Between(0, 360);
    }
    Results results;
    AddGeometry(results, lines, planes);
    AddStatistics(results, lines, values);
    AddDrawings(results, lines, planes);
    AddTable(results, planes);
    AddPlotFile(results, lines, planes);
    AddPictures(results, planes);
    return results.Text();
}

TEST(PublicThreads, TwoAtOnceHaveTheResultsOfOne) {
    // The threads run first, so that they meet everything that is created on first use.
    constexpr std::uint32_t kRounds = 5;
    std::array<std::vector<std::string>, 2> found;
    const auto fill = [](std::vector<std::string>& mine) {
        for (std::uint32_t round = 0; round < kRounds; ++round) {
            mine.push_back(AllResults(round));
        }
    };
    {
        const std::jthread first(fill, std::ref(found[0]));
        const std::jthread second(fill, std::ref(found[1]));
    }
    for (std::uint32_t round = 0; round < kRounds; ++round) {
        const std::string alone = AllResults(round);
        EXPECT_GT(alone.size(), 10000U);
        EXPECT_TRUE(found[0][round] == alone) << round;
        EXPECT_TRUE(found[1][round] == alone) << round;
    }
}

TEST(PublicThreads, SettingsOfTheProgramPlayNoPart) {
    const std::string before = AllResults(1);
    const Settings settings = gSettings;
    gSettings.notation.formulas = Formulas::Textbook;
    gDecimalIsComma = true;
    gConvertDecimals = true;
    FormatSettings odd = settings.format;
    odd.conventions = -13;
    odd.delimiter = ";";
    odd.planeSeparator = odd.lineSeparator = "~";
    odd.primary = kDirections;
    odd.secondary = kSecondaryPlane;
    odd.negativePlunge = NegativePlunge::Vector;
    odd.hasHeadings = true;
    gSettings.format = odd;
    gSettings.newPlots.rose.sectorSize = 40;
    gSettings.newPlots.statsBoxKind = 1;
    gSettings.styles.symbols[kRowSymbol] = {1, 2, 3};
    const std::string after = AllResults(1);
    gSettings = settings;
    EXPECT_TRUE(before == after);
}

} // namespace
} // namespace quandrel::api

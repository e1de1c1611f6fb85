// SPDX-License-Identifier: MIT
//
// The fields of the files of plots with decimals: they hold the results that the plot shows.

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "orientation/vectors.h"
#include "persistence/binary_plot_file.h"
#include "session/recalculate.h"
#include "support/measured_plots.h"
#include "support/test_platform.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <optional>

namespace quandrel {
namespace {

using testing::Radians;
using testing::Vector;

constexpr int kRows = 300;
constexpr std::string_view kExtensionMark = "\x8fQX\r\n\x1a";

/// What a plot shows.
struct View {
    const char* name;
    std::int16_t plotKind;
    std::int16_t mode;
};

constexpr View kViews[] = {{"points", kEqualArea, kPointSymbols},
                           {"circles", kEqualAngle, kGreatCircles},
                           {"intersections", kEqualArea, kBetaIntersections},
                           {"point density", kEqualArea, kPointDensitySymbols},
                           {"grid density", kEqualAngle, kGridDensitySymbols},
                           {"contours", kEqualArea, kContours},
                           {"rose", kRose, kPointSymbols}};

class DecimalsInFields : public EngineTest {
protected:
    int NewPlotOf(const std::vector<Attitude>& rows, const View& view, std::int16_t kind) {
        gPrimaryDataType = kind == kPlanes ? kPrimaryPlane : kPrimaryLine;
        gPlotDataKind = kind;
        NewPlot();
        ActiveRecord().PlotKind = view.plotKind;
        ActiveRecord().PlotSymbolMode = view.mode;
        AddMeasuredRows(rows);
        ReplotActivePlot(true);
        return gActivePlot;
    }

    static std::string Bytes(int slot) {
        const Result<std::string> bytes = BinaryPlotBytes(slot);
        EXPECT_TRUE(bytes) << bytes.Error();
        return bytes ? *bytes : std::string();
    }

    /// A file without its extension.
    static std::string FieldsOf(const std::string& bytes) {
        return bytes.substr(0, bytes.find(kExtensionMark));
    }

    /// The same plot in whole degrees alone.
    static std::string FieldsWithoutDecimals(int slot) {
        RemoveDecimals();
        ReplotActivePlot(true);
        const std::string bytes = Bytes(slot);
        EXPECT_EQ(bytes.find(kExtensionMark), std::string::npos);
        return bytes;
    }
};

/// A line in the row table of a file: the row, x, y, plunge and trend.
using Cells = std::array<double, 5>;

/// Reads five texts that are numbers; nothing if others are there.
std::optional<Cells> ReadCells(const std::string& bytes, std::size_t& at) {
    Cells cells{};
    for (double& cell : cells) {
        if (at + 2 > bytes.size() || bytes[at + 1] != 0) {
            return std::nullopt;
        }
        const std::string text = bytes.substr(at + 2, static_cast<unsigned char>(bytes[at]));
        char* end = nullptr;
        cell = std::strtod(text.c_str(), &end);
        if (text.empty() || end != text.c_str() + text.size()) {
            return std::nullopt;
        }
        at += 2 + text.size();
    }
    return cells;
}

/// The row table of a file, one line after another, in the order of the rows.
std::vector<Cells> TableIn(const std::string& bytes) {
    for (std::size_t start = 0; start < bytes.size(); ++start) {
        std::vector<Cells> lines;
        std::size_t at = start;
        for (auto cells = ReadCells(bytes, at); cells; cells = ReadCells(bytes, at)) {
            lines.push_back(*cells);
            if (lines.size() == kRows) {
                std::sort(lines.begin(), lines.end());
                return lines;
            }
        }
    }
    return {};
}

void ExpectPlaces(const std::string& bytes, const std::vector<Attitude>& lines) {
    const std::vector<Cells> table = TableIn(bytes);
    ASSERT_EQ(table.size(), lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const auto [row, x, y, plunge, trend] = table[i];
        const double wantedPlunge = Radians(lines[i].dip);
        const double wantedTrend = Radians(lines[i].azimuth);
        const double distance = 1000 * std::sqrt(1 - std::sin(wantedPlunge));
        constexpr double kHalfUnit = 0.5 + 1e-6; // rows are plotted at whole units
        ASSERT_EQ(row, static_cast<double>(i + 1));
        ASSERT_NEAR(x, distance * std::sin(wantedTrend), kHalfUnit) << row;
        ASSERT_NEAR(y, distance * std::cos(wantedTrend), kHalfUnit) << row;
        ASSERT_NEAR(plunge, wantedPlunge, 1e-9) << row;
        ASSERT_NEAR(std::remainder(trend - wantedTrend, 2 * std::numbers::pi), 0, 1e-9) << row;
    }
}

/// The determinant of the orientation tensor of lines less a multiple of the identity: 0 for an
/// eigenvalue.
double CharacteristicOf(const std::vector<Attitude>& lines, double value) {
    double t[3][3] = {};
    for (const Attitude& line : lines) {
        const Vector vector = testing::LineVector(Radians(line.dip), Radians(line.azimuth));
        const double parts[3] = {vector.north, vector.east, vector.down};
        for (int i = 0; i < 3; ++i) {
            for (int j = 0; j < 3; ++j) {
                t[i][j] += parts[i] * parts[j] / static_cast<double>(lines.size());
            }
        }
    }
    for (int i = 0; i < 3; ++i) {
        t[i][i] -= value;
    }
    return t[0][0] * (t[1][1] * t[2][2] - t[1][2] * t[2][1])
           - t[0][1] * (t[1][0] * t[2][2] - t[1][2] * t[2][0])
           + t[0][2] * (t[1][0] * t[2][1] - t[1][1] * t[2][0]);
}

TEST_F(DecimalsInFields, AreTheSameBytesAfterSwitchingThemOnAndOff) {
    for (const View& view : kViews) {
        for (const MeasuredSample& sample : MeasuredSamples(kRows)) {
            SCOPED_TRACE(std::string(view.name) + " of " + sample.name);
            const int slot = NewPlotOf(sample.rows, view, kPlanes);
            const std::string before = Bytes(slot);
            UseDecimals(slot, true);
            EXPECT_NE(Bytes(slot), before);
            UseDecimals(slot, false);
            EXPECT_TRUE(Bytes(slot) == before);
            ReleasePlotSlot(slot);
        }
    }
}

TEST_F(DecimalsInFields, OfAPlotThatDoesNotUseThemAreThoseWithoutThem) {
    for (const View& view : kViews) {
        for (const MeasuredSample& sample : MeasuredSamples(kRows)) {
            SCOPED_TRACE(std::string(view.name) + " of " + sample.name);
            const int slot = NewPlotOf(sample.rows, view, kLines);
            const std::string fields = FieldsOf(Bytes(slot));
            ASSERT_LT(fields.size(), Bytes(slot).size()) << "the rows have decimals";
            EXPECT_TRUE(FieldsWithoutDecimals(slot) == fields);
            ReleasePlotSlot(slot);
        }
    }
}

TEST_F(DecimalsInFields, HoldTheResultsThatThePlotShows) {
    for (const MeasuredSample& sample : MeasuredSamples(kRows)) {
        SCOPED_TRACE(sample.name);
        std::vector<Attitude> whole;
        for (const Attitude& row : sample.rows) {
            whole.push_back(RoundedAttitude(row, false));
        }
        const int slot = NewPlotOf(sample.rows, kViews[0], kLines);
        for (const bool isUsed : {false, true}) {
            UseDecimals(slot, isUsed);
            const std::vector<Attitude>& shown = isUsed ? sample.rows : whole;
            const std::string bytes = Bytes(slot);
            ExpectPlaces(FieldsOf(bytes), shown);
            const Result<BinaryPlot> read = ReadBinaryPlot(bytes);
            ASSERT_TRUE(read);
            double ofOthers = 0;
            for (std::size_t axis = 1; axis <= 3; ++axis) {
                const double value = read->record.FabricResults[axis][kEigenvalue];
                EXPECT_NEAR(CharacteristicOf(shown, value), 0, 5e-8);
                ofOthers += std::abs(CharacteristicOf(isUsed ? whole : sample.rows, value));
            }
            EXPECT_GT(ofOthers, 1e-6) << "they are not those of the other rows";
            for (std::size_t i = 0; i < whole.size(); ++i) {
                ASSERT_EQ(read->rows[i].dip, whole[i].dip) << "whole degrees in both";
                ASSERT_EQ(read->rows[i].azimuth, whole[i].azimuth);
            }
        }
        ReleasePlotSlot(slot);
    }
}

} // namespace
} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Plots with secondary data and appended lines, for tests of rotations.

#pragma once

#include "rotation/rotate_data.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"
#include "support/turning.h"

#include <functional>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace quandrel {

using Pair = std::pair<std::int32_t, std::int32_t>;

/// The pairs of a column in all rows of the active plot.
inline std::vector<Pair> PairsOf(const DataColumn<std::int32_t>& dips,
                                 const DataColumn<std::int32_t>& azimuths) {
    std::vector<Pair> pairs;
    for (std::int32_t row = 1; row <= ActiveRecord().NumLoadedData; ++row) {
        pairs.emplace_back(dips(gActivePlot, row), azimuths(gActivePlot, row));
    }
    return pairs;
}

inline std::vector<Pair> Primary() {
    return PairsOf(gDataDip, gDataAz);
}

inline std::vector<Pair> Secondary() {
    return PairsOf(gData2Dip, gData2Az);
}

inline std::vector<Pair> Appended() {
    return PairsOf(gAppLineDip, gAppLineAz);
}

// Half a degree in each of two values that are rounded, and some tolerance for the steep ones.
inline const double kRounding = testing::Radians(0.75);

using Turn = std::function<testing::Vector(const testing::Vector&)>;

inline testing::Vector LineOf(Pair row) {
    return testing::LineVector(testing::Radians(row.first), testing::Radians(row.second));
}

inline testing::Vector NormalOf(Pair row) {
    return testing::PlaneNormal(testing::Radians(std::abs(row.first)),
                                testing::Radians(row.second));
}

inline Turn About(double plunge, double trend, double angle) {
    return [=](const testing::Vector& vector) {
        return testing::TurnedAbout(
            vector, testing::LineVector(testing::Radians(plunge), testing::Radians(trend)),
            testing::Radians(angle));
    };
}

inline std::vector<Pair> RandomRows(int count, int least, unsigned int seed) {
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> inclination(least, 90);
    std::uniform_int_distribution<int> azimuth(0, 360);
    std::vector<Pair> rows;
    for (int i = 0; i < count; ++i) {
        const int first = inclination(random);
        rows.emplace_back(first, azimuth(random));
    }
    return rows;
}

class RotationTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlotKind = kEqualArea;
        gPrimaryDataType = kPrimaryPlane;
        gSecondaryDataType = kNoSecondary;
        ForgetRotation();
    }

    void TearDown() override {
        ForgetRotation();
        EngineTest::TearDown();
    }

    /// A plot of rows of one format, plotted as what they are.
    void PlotOf(std::int16_t primary, std::int16_t dataKind, const std::vector<Pair>& rows) {
        NewPlot();
        ActiveRecord().PlotKind = kEqualArea;
        ActiveRecord().PrimaryFormat = primary;
        ActiveRecord().DataKind = dataKind;
        for (const Pair& row : rows) {
            AddRow(row.first, row.second);
        }
    }

    void PlanesWith(std::int16_t secondaryFormat, const std::vector<Pair>& planes,
                    const std::vector<Pair>& others) {
        PlotOf(kPrimaryPlane, kPlanes, planes);
        AddSecondary(secondaryFormat, others);
    }

    static void AddSecondary(std::int16_t format, const std::vector<Pair>& rows) {
        PlotRecord& record = ActiveRecord();
        record.SecondaryFormat = format;
        int secondary = 1;
        GrowDataColumns(secondary, record.NumLoadedData);
        Store(rows, gData2Dip, gData2Az);
    }

    static void AddAppended(const std::vector<Pair>& rows) {
        ActiveRecord().HasAppendedLine = kTrue;
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Line));
        Store(rows, gAppLineDip, gAppLineAz);
    }

    static void Store(const std::vector<Pair>& rows, const DataColumn<std::int32_t>& dips,
                      const DataColumn<std::int32_t>& azimuths) {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            dips.At(gActivePlot, static_cast<std::int32_t>(i) + 1) = rows[i].first;
            azimuths.At(gActivePlot, static_cast<std::int32_t>(i) + 1) = rows[i].second;
        }
    }

    static RotationSettings AboutAxis(double plunge, double trend, double angle) {
        RotationSettings settings;
        settings.operation = kRotateAboutAxis;
        settings.inclination = plunge;
        settings.azimuth = trend;
        settings.angle = angle;
        return settings;
    }

    static RotationSettings Unfolding(double plunge, double trend, bool force = false) {
        RotationSettings settings;
        settings.operation = kUnfoldAboutSelected;
        settings.inclination = plunge;
        settings.azimuth = trend;
        settings.forceIntoBeds = force;
        return settings;
    }

    static RotationSettings UnfoldingOwn(bool force = false) {
        RotationSettings settings;
        settings.operation = kUnfoldAboutAppended;
        settings.forceIntoBeds = force;
        return settings;
    }

    static RotationSettings LineUp(double plunge, double trend) {
        RotationSettings settings;
        settings.operation = kLineToVertical;
        settings.inclination = plunge;
        settings.azimuth = trend;
        return settings;
    }

    static RotationSettings PlaneUp(double dip, double dipDir, double strike, double pitch,
                                    const std::string& sense) {
        RotationSettings settings;
        settings.operation = kPlaneToVertical;
        settings.inclination = dip;
        settings.azimuth = dipDir;
        settings.angle = strike;
        settings.pitch = pitch;
        settings.sense = sense;
        return settings;
    }

    /// Rotates the active plot; the rotation must not be refused.
    static RotationReport Rotate(const RotationSettings& settings) {
        RotationReport report;
        const std::optional<RotationRefusal> refusal = ApplyRotation(settings, report);
        EXPECT_FALSE(refusal) << refusal->reason;
        return report;
    }
};

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// A plot of faults for tests, put straight into the store.

#pragma once

#include "core/plot_store.h"
#include "derive/slip_arrows.h"
#include "orientation/angles.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <vector>

namespace quandrel {

/// A row: plane and line, whole degrees.
struct FaultRow {
    std::int32_t dip = 0;
    std::int32_t dipDirection = 0;
    std::int32_t plunge = 0;
    std::int32_t trend = 0;
};

class FaultTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPrimaryDataType = kPrimaryPlane;
        gPlotDataKind = kPlanes;
    }

    /// Writes the secondary orientation of a row.
    static void SetSecondary(int slot, std::int32_t row, std::int32_t dip, std::int32_t azimuth) {
        gData2Dip.At(slot, row) = dip;
        gData2Az.At(slot, row) = azimuth;
    }

    /// A plot of planes, each with a secondary orientation, as the active plot. Returns its slot.
    int NewFaultPlot(const std::vector<FaultRow>& rows,
                     std::int16_t secondaryFormat = kSecondaryLine) {
        const int slot = NewPlot();
        ActiveRecord().PlotTitle = "faults.txt: " + std::to_string(slot);
        ActiveRecord().SecondaryFormat = secondaryFormat;
        for (const FaultRow& row : rows) {
            AddRow(row.dip, row.dipDirection);
            const std::int32_t index = ActiveRecord().NumData;
            int secondary = 1;
            GrowDataColumns(secondary, index);
            SetSecondary(slot, index, row.plunge, row.trend);
        }
        return slot;
    }

    /// The columns of a row as text: "75/090".
    static std::string Line(int slot, std::int32_t row) {
        return std::to_string(gDataDip(slot, row)) + "/"
               + RadToAzimuthText(DegToRad(gDataAz(slot, row)));
    }

    /// Main rows in their order.
    static std::vector<std::string> Lines(int slot) {
        std::vector<std::string> lines;
        for (std::int32_t row = 1; row <= RecordOf(slot).NumData; ++row) {
            lines.push_back(Line(slot, row));
        }
        return lines;
    }
};

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// The rose dialog on a small plot of veins, with an engine of its own for each test.

#pragma once

#include "core/plot_store.h"
#include "core/settings.h"
#include "rose/rose_legend.h"
#include "rose/rose_plot.h"
#include "rose/rose_sectors.h"
#include "shell/rose/frm_rose_diag.h"
#include "support/plot_rows.h"
#include "support/shell_test.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QPushButton>

#include <memory>
#include <string>

namespace quandrel {

inline constexpr const char* kPressGo = "Press GO to replot Rose with new settings";

struct Vein {
    std::int32_t azimuth;
    float width;
    const char* rock;
};

inline constexpr Vein kVeins[] = {{12, 1, "marl"},  {15, 2, "chalk"},  {33, 3, "marl"},
                                  {35, 4, "chalk"}, {38, 5, "sandst"}, {120, 6, "marl"}};

class RoseDialogTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gRoseClassWarned = true;
        gPlotKind = kRose;
        AddPlot("veins");
        dialog = std::make_unique<frmRoseDiag>(nullptr);
        dialog->show();
    }

    void TearDown() override {
        dialog.reset();
        gRoseClassWarned = false;
        gPlotKind = kEqualArea;
        EngineTest::TearDown();
    }

    /// A rose of lines with widths and names of rocks.
    int AddPlot(const std::string& title) {
        const int slot = NewPlot();
        PlotRecord& record = ActiveRecord();
        record.PlotTitle = title;
        record.DataKind = kLines;
        record.PrimaryFormat = kPrimaryLine;
        record.HasAppendedNumeric = kTrue;
        record.HasAppendedText = kTrue;
        for (const Vein& vein : kVeins) {
            AddRow(10, vein.azimuth);
            EXPECT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
            EXPECT_TRUE(GrowAppendedColumn(AppendedColumn::Text));
            gAppNumeric.At(slot, record.NumData) = vein.width;
            gAppText.Set(slot, record.NumData, vein.rock);
        }
        return slot;
    }

    static PlotRecord& Record() { return ActiveRecord(); }

    template <class Control>
    Control& Of(const std::string& name) {
        return ControlOf<Control>(*dialog, name);
    }

    void Check(const std::string& name) { Of<QAbstractButton>(name).setChecked(true); }

    void Type(const std::string& name, const char* text) { Of<QLineEdit>(name).setText(text); }

    std::string Text(const std::string& name) { return Of<QLineEdit>(name).text().toStdString(); }

    void Go() { Of<QPushButton>("cmdRoseGo").click(); }

    [[nodiscard]] bool IsOpen(const std::string& name) { return Of<QWidget>(name).isEnabled(); }

    std::unique_ptr<frmRoseDiag> dialog;
};

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "drawing/plot_driver.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "drawing/draw_plot.h"
#include "drawing/plot_state.h"
#include "drawing/plot_status.h"
#include "drawing/work_out.h"
#include "edit/marks/small_circle_pick.h"
#include "orientation/number_text.h"
#include "platform/platform.h"
#include "rose/rose_sectors.h"
#include "statistics/statistics_texts.h"
#include "stereo/plot_title.h"
#include "stereo/window_drawing.h"

#include <algorithm>
#include <array>

namespace quandrel {

namespace {

/// The Drawing for the window of a slot.
Drawing DrawingOfWindow(int slot) {
    Drawing drawing = WindowDrawing(slot);
    drawing.circleAbove = CircleAbovePicture(slot);
    return drawing;
}

constexpr std::int16_t kFirstClassedRose = 10; ///< RoseType; smaller ones do not have classes

/// The total of the petals of a rose without classes: observations, or the sum of its values.
double TotalOfRose(const PlotRecord& record) {
    constexpr std::array<std::size_t, 10> kMeasureOfKind = {0, 1, 2, 3, 4, 5, 5, 1, 1, 0};
    return record
        .RoseStats[kMeasureOfKind[static_cast<std::size_t>(std::clamp<int>(record.RoseType, 0, 9))]]
                  [kRawTotal];
}

/// Draws the picture of gActivePlot.
void DrawPicture(const WorkingOut& how) {
    const Drawing drawing = DrawingOfWindow(gActivePlot);
    WorkOutPlot(ActivePlot(), how);
    DrawPlot(ActivePlot(), drawing);
}

/// Draws the active plot and everything else in its window.
void DrawActivePlot(const WorkingOut& how) {
    const BusyPointer busy(*gPlatform.status);
    DrawPicture(how);
    PlotForm& form = FormOf(gActivePlot);
    form.SetBoxText(PlotBox::NumberOfData, NumberBoxText());
    WriteStatisticsBoxes();
    UpdateTitle();
    form.Show();
    gPlatform.status->SetText(StatusOfPlot(ActiveRecord()));
}

} // namespace

std::string StatusOfPlot(const PlotRecord& record) {
    if (record.NumValidData == 0) {
        return gHintText;
    }
    return std::to_string(record.NumValidData) + " data in " + record.PlotTitle;
}

void ConnectDrawing() {
    ConnectPlotDrawer(DrawForCause);
}

void DrawForCause(int slot, ReplotCause cause) {
    if (cause == ReplotCause::File && slot == gActivePlot) {
        FollowGridOfPlot();
    }
    const WorkingOut how = WorkingOutOf(slot, cause);
    const PlotInWork work(slot);
    if (cause == ReplotCause::Picture || cause == ReplotCause::Repaint) {
        DrawPicture(how);
        FormOf(slot).Show();
        return;
    }
    if (cause == ReplotCause::File && ActiveRecord().PlotKind == kRose) {
        AcceptSectorSize(ActivePlot());
    }
    DrawActivePlot(how);
}

void DrawStereoPlot(bool recalculate) {
    WorkOutPlot(ActivePlot(),
                WorkingOutOf(gActivePlot, recalculate ? ReplotCause::Rows : ReplotCause::Settings));
    DrawStereoPlot(ActivePlot(), DrawingOfWindow(gActivePlot));
}

void DrawGirdle(int item) {
    DrawGirdle(ActiveRecord(), WindowDrawing(gActivePlot), item);
}

void DrawAxisItemSymbol(int item) {
    DrawAxisItemSymbol(ActiveRecord(), WindowDrawing(gActivePlot), item);
}

std::string NumberBoxText() {
    const PlotRecord& record = ActiveRecord();
    const bool isRose = record.PlotKind == kRose;
    const std::string rows = std::to_string(record.NumValidData);
    if (isRose ? record.RoseType >= kFirstClassedRose : record.ClassMode > 0) {
        return std::to_string(record.NumClassified) + " (/" + rows + ")";
    }
    const std::string total = isRose ? FormatNumber(TotalOfRose(record), "0.##") : rows;
    return total == rows ? rows : total + " (" + rows + ")";
}

} // namespace quandrel

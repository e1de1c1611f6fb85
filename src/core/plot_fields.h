// SPDX-License-Identifier: MIT
//
// The fields of a plot record by their names, for scripts and dumps.

#pragma once

#include "core/plot_record.h"

namespace quandrel {

/// Calls `visit(name, field)` for each field that is a value, a text or a table of them, in the
/// record's order. The reference fields (annotations, small circles, the density grid) are left
/// out. `Record` is PlotRecord, const or not.
template <class Record, class Visitor>
void VisitPlotFields(Record& record, Visitor&& visit) {
#define QUANDREL_FIELD(name) visit(#name, record.name)
    QUANDREL_FIELD(NumValidData);
    QUANDREL_FIELD(NumData);
    QUANDREL_FIELD(NumLoadedData);
    QUANDREL_FIELD(PrimaryFormat);
    QUANDREL_FIELD(SecondaryFormat);
    QUANDREL_FIELD(SelectedOverlay);
    QUANDREL_FIELD(ShowAnnotations);
    QUANDREL_FIELD(HasAppendedLine);
    QUANDREL_FIELD(HasAppendedNumeric);
    QUANDREL_FIELD(HasAppendedText);
    QUANDREL_FIELD(AppNumName);
    QUANDREL_FIELD(AppNonNumName);
    QUANDREL_FIELD(HasFrequencyColumn);
    QUANDREL_FIELD(DistinctValues);
    QUANDREL_FIELD(AppendedMin);
    QUANDREL_FIELD(AppendedMax);
    QUANDREL_FIELD(ClassStats);
    QUANDREL_FIELD(ClassLow);
    QUANDREL_FIELD(ClassHigh);
    QUANDREL_FIELD(NumClassified);
    QUANDREL_FIELD(ClassMode);
    QUANDREL_FIELD(NumClasses);
    QUANDREL_FIELD(ClassWidth);
    QUANDREL_FIELD(ClassTable);
    QUANDREL_FIELD(AxesTitle);
    QUANDREL_FIELD(FabricText);
    QUANDREL_FIELD(DescriptionText);
    QUANDREL_FIELD(OverlayRows);
    QUANDREL_FIELD(OverlayKind);
    QUANDREL_FIELD(PlotKind);
    QUANDREL_FIELD(DataKind);
    QUANDREL_FIELD(ShowSecondary);
    QUANDREL_FIELD(PlotSymbolMode);
    QUANDREL_FIELD(NumSymbolsInPlot);
    QUANDREL_FIELD(PointDensityMax);
    QUANDREL_FIELD(GridDensityMax);
    QUANDREL_FIELD(GridSize);
    QUANDREL_FIELD(ContourLevels);
    QUANDREL_FIELD(NumContours);
    QUANDREL_FIELD(EigenResults);
    QUANDREL_FIELD(FabricResults);
    QUANDREL_FIELD(FabricValueA);
    QUANDREL_FIELD(FabricValueB);
    QUANDREL_FIELD(FabricValueC);
    QUANDREL_FIELD(FabricValueD);
    QUANDREL_FIELD(FabricValueE);
    QUANDREL_FIELD(FabricValueF);
    QUANDREL_FIELD(StatsBoxKind);
    QUANDREL_FIELD(AxisItems);
    QUANDREL_FIELD(LayerVisible);
    QUANDREL_FIELD(RoseShape);
    QUANDREL_FIELD(RoseType);
    QUANDREL_FIELD(RoseEqualArea);
    QUANDREL_FIELD(RoseDisplay6);
    QUANDREL_FIELD(RoseDisplay7);
    QUANDREL_FIELD(RoseDisplay8);
    QUANDREL_FIELD(RoseOddSectorSize);
    QUANDREL_FIELD(RoseSectorSize);
    QUANDREL_FIELD(RoseStartAngle);
    QUANDREL_FIELD(RoseRangeA);
    QUANDREL_FIELD(RoseRangeB);
    QUANDREL_FIELD(RoseStats);
    QUANDREL_FIELD(RoseScaleType);
    QUANDREL_FIELD(RoseHistStyle);
    QUANDREL_FIELD(RoseSegShape);
    QUANDREL_FIELD(RoseSectorFraction);
    QUANDREL_FIELD(RoseZeroCircle);
    QUANDREL_FIELD(RoseMedian);
    QUANDREL_FIELD(RoseMeanDev);
    QUANDREL_FIELD(RoseDispersion);
    QUANDREL_FIELD(RoseMoments);
    QUANDREL_FIELD(RoseResultant);
    QUANDREL_FIELD(RoseKappa);
    QUANDREL_FIELD(RoseSkewness);
    QUANDREL_FIELD(RoseKurtosis);
    QUANDREL_FIELD(RoseBiasMode);
    QUANDREL_FIELD(RoseSamplePlunge);
    QUANDREL_FIELD(RoseSampleTrend);
    QUANDREL_FIELD(RoseMinBiasAngle);
    QUANDREL_FIELD(RoseMeanDir);
    QUANDREL_FIELD(RoseVariance);
    QUANDREL_FIELD(RoseStdDev);
    QUANDREL_FIELD(PlotTitle);
    QUANDREL_FIELD(SaveFileName);
    QUANDREL_FIELD(FileTitle);
    QUANDREL_FIELD(FileHeadLine);
    QUANDREL_FIELD(NumFiles);
    QUANDREL_FIELD(FileNames);
    QUANDREL_FIELD(KinematicBlock);
    QUANDREL_FIELD(KinematicState);
    QUANDREL_FIELD(MapInfoLinked);
    QUANDREL_FIELD(IntersectionState);
    QUANDREL_FIELD(DataFull);
    QUANDREL_FIELD(PlotDirty);
    QUANDREL_FIELD(RowsChanged);
    QUANDREL_FIELD(DensityCount);
    QUANDREL_FIELD(DensityInvalid);
    QUANDREL_FIELD(RotationState);
    QUANDREL_FIELD(ClassifyCheckPending);
    QUANDREL_FIELD(SlotFree);
    QUANDREL_FIELD(Modified);
#undef QUANDREL_FIELD
}

} // namespace quandrel

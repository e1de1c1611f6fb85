// SPDX-License-Identifier: MIT
//
// The record of a plot: all its settings and results, but not its rows.
//
// Its fields are in parts, each in a header of its subject. Whole-degree orientations are in the
// data columns (plot_store.h); angles in a record are radians unless a field says degrees. Truth
// values have 16 bits, 0 or -1, as in files.

#pragma once

#include "core/record_density_view.h"
#include "core/record_fields.h"
#include "core/record_figure.h"
#include "core/record_marks.h"
#include "core/record_places.h"
#include "core/record_results.h"
#include "core/record_rows.h"
#include "core/record_view.h"

namespace quandrel {

/// The parts, in the order of dumps.
struct PlotRecord
    : JoinedRecord<RecordRows, RecordAnnotations, RecordColumns, RecordRanges, RecordClasses,
                   RecordTexts, RecordOverlays, RecordView, RecordDensities, RecordDensityView,
                   RecordRegions, RecordFigure, RecordFabric, RecordGirdles, RecordLayers,
                   RecordRose, RecordFiles, RecordLinks, RecordState> {};

/// Calls `visit(const char* name, field)` for each field that is a value, a text or a table of
/// them. VisitFurtherPlotFields visits the others that files keep.
/// `Record` is PlotRecord, const or not.
template <class Record, class Visitor>
void VisitPlotFields(Record& record, Visitor&& visit) {
    PlotRecord::Visit(record, visit);
}

/// Calls `visit(field)` for the annotations, the small circles and the paths of files. The density
/// grid is left out.
template <class Visitor>
void VisitFurtherPlotFields(const PlotRecord& record, Visitor&& visit) {
    PlotRecord::VisitFurther(record, visit);
}

} // namespace quandrel

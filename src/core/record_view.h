// SPDX-License-Identifier: MIT
//
// How a plot is shown, what it is linked to, and which of its results are out of date.

#pragma once

#include "core/record_fields.h"
#include "core/tagged_value.h"

#include <array>
#include <cstdint>
#include <string>

namespace quandrel {

/// Drawing modes of the rows. 2 does not have a button and draws as kPointSymbols.
enum PlotSymbolModeCode : std::int16_t {
    kGreatCircles = 0,
    kPointSymbols = 1,
    kPointSymbolsToo = 2,
    kBetaIntersections = 3,
    kPointDensitySymbols = 4,
    kGridDensitySymbols = 5,
    kContours = 6,
    kContoursAndGrid = 7,
};

/// The formulas that a plot chooses for its results; see FormulasInForce.
enum PlotFormulasCode : std::int16_t {
    kFormulasOfPreferences = 0,
    kOwnFormulas = 1,
    kTextbookFormulas = 2,
};

/// Titles and descriptions.
struct RecordTexts {
    std::string AxesTitle;
    std::string FabricText;
    std::string DescriptionText;

    QUANDREL_FIELDS(AxesTitle, FabricText, DescriptionText);
};

/// Kind and mode of the drawing.
struct RecordView {
    std::int16_t PlotKind = 1; ///< PlotKindCode
    std::int16_t DataKind = 1; ///< DataKindCode
    std::int16_t ShowSecondary = 0;
    std::int16_t UseDecimals = 0; ///< results and drawings use measured angles where rows have them
    std::int16_t PlotFormulas = 0;   ///< PlotFormulasCode
    std::int16_t PlotSymbolMode = 1; ///< PlotSymbolModeCode
    std::int16_t NumSymbolsInPlot = 0;
    std::int64_t BetaCount = 0; ///< intersections in the last drawing of a beta plot

    QUANDREL_FIELDS(PlotKind, DataKind, ShowSecondary, UseDecimals, PlotFormulas, PlotSymbolMode,
                    NumSymbolsInPlot);
};

/// Links to parents, children and map tables.
struct RecordLinks {
    std::array<TaggedValue, 10> KinematicBlock;
    std::int16_t KinematicState = 0;
    std::int16_t MapInfoLinked = 0;
    std::int16_t IntersectionState = 0;

    QUANDREL_FIELDS(KinematicBlock, KinematicState, MapInfoLinked, IntersectionState);
};

/// What is out of date, unsaved or free.
struct RecordState {
    std::int16_t DataFull = 0;
    std::int16_t PlotDirty = 0;
    std::int16_t RowsChanged = 0;
    std::int32_t DensityCount = 0;
    std::int16_t DensityInvalid = 0;
    std::int16_t RotationState = 0;
    std::int16_t ClassifyCheckPending = 0;
    std::int16_t SlotFree = 0;
    std::int16_t Modified = 0;

    QUANDREL_FIELDS(DataFull, PlotDirty, RowsChanged, DensityCount, DensityInvalid, RotationState,
                    ClassifyCheckPending, SlotFree, Modified);
};

} // namespace quandrel

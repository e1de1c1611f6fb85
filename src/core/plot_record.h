// SPDX-License-Identifier: MIT
//
// The record of a plot: all its settings and results, but not its rows.
//
// Whole-degree orientations stand in the data columns (plot_store.h); angles in a record are
// radians unless a field says degrees. Truth values are 16 bits, 0 or -1, as files keep them.

#pragma once

#include "core/record_places.h"
#include "core/tagged_value.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quandrel {

inline constexpr int kMaxFiles = 20;
inline constexpr int kMaxOverlays = 20;
inline constexpr int kGridNodes = 153;
inline constexpr int kAxisItems = 11;
inline constexpr int kAxisValues = 7;
inline constexpr int kDistinctValues = 11;
inline constexpr int kClassRows = 13;
inline constexpr double kUnsetValue = -999999999999999.0; ///< of class widths and grid sums
inline constexpr float kInvalidNumber = -9999.0F;         ///< in gAppNumeric; no valid number is it
inline constexpr std::int32_t kInvalidAppendedLine = -99; ///< in gAppLineDip

/// A vertex of an annotation, plot units.
struct LineNode {
    std::int16_t X = 0;
    std::int16_t Y = 0;
};

/// A mark on the net that is not data: a point, or a polyline when it has nodes. Plot units.
struct Annotation {
    std::int16_t X = 0;
    std::int16_t Y = 0;
    std::int16_t SymbolType = 0;
    std::int16_t Colour = 0;
    std::int16_t Size = 0;
    std::int16_t lineStyle = 0;
    std::string Tag;
    std::vector<LineNode> LineNodes;
};

using Annotations = std::vector<Annotation>;

/// A cone about an axis. The three orientations are texts, in degrees, as their boxes show them.
struct SmallCircle {
    std::int16_t LineColour = 0; ///< index of gColourTable
    std::int16_t lineStyle = 0;
    std::int16_t LineWidth = 1;
    std::int16_t Visible = 0;
    std::int16_t LastPlotSects = 0;
    std::string Angle;
    std::string AxisAz;
    std::string AxisPl;
};

/// Numbers 1 to 4 are the user's; number 0 is the standing one of the plot.
using SmallCircles = std::array<SmallCircle, 5>;

template <class T, std::size_t Rows, std::size_t Columns>
using Table = std::array<std::array<T, Columns>, Rows>;

struct PlotRecord {
    std::int32_t NumValidData = 0;    ///< main rows that are no error rows
    std::int32_t NumData = 0;         ///< main rows, error rows included
    std::int32_t NumLoadedData = 0;   ///< main and overlay rows; the next row goes behind them
    std::int16_t PrimaryFormat = 0;   ///< PrimaryFormatCode
    std::int16_t SecondaryFormat = 0; ///< SecondaryFormatCode
    std::int16_t SelectedOverlay = 0; ///< the overlay that holds the secondary data, or 0
    std::int16_t ShowAnnotations = 0;
    std::unique_ptr<Annotations> PlotAnnotations;
    std::int16_t HasAppendedLine = 0;
    std::int16_t HasAppendedNumeric = 0;
    std::int16_t HasAppendedText = 0;
    std::string AppNumName;
    std::string AppNonNumName;
    std::int16_t HasFrequencyColumn = 0;
    Table<TaggedValue, kDistinctValues, 2> DistinctValues; ///< columns: AppendedRangeColumn
    std::array<double, 2> AppendedMin{};
    std::array<double, 2> AppendedMax{};
    Table<double, 5, 2> ClassStats{};
    double ClassLow = 0;
    double ClassHigh = 0;
    std::int32_t NumClassified = 0;
    std::int16_t ClassMode = 0;
    std::int16_t NumClasses = 0;
    double ClassWidth = kUnsetValue;
    Table<TaggedValue, kClassRows, 3> ClassTable;
    std::string AxesTitle;
    std::string FabricText;
    std::string DescriptionText;
    std::array<std::int32_t, kMaxOverlays + 1> OverlayRows{}; ///< [0] how many, [k] rows of k
    std::array<std::int16_t, kMaxOverlays + 1> OverlayKind{}; ///< [k] an OverlayKindCode
    std::int16_t PlotKind = 1;                                ///< PlotKindCode
    std::int16_t DataKind = 1;                                ///< DataKindCode
    std::int16_t ShowSecondary = 0;
    std::int16_t PlotSymbolMode = 1; ///< PlotSymbolModeCode
    std::int16_t NumSymbolsInPlot = 0;
    float PointDensityMax = 0;
    float GridDensityMax = 0;
    std::int16_t GridSize = 0;
    std::unique_ptr<Table<std::int32_t, kGridNodes, kGridNodes>> DensityGrid; ///< made on first use
    bool DensityGridFromFile = false; ///< it was not counted here; files do not keep this
    std::array<std::int16_t, 9> ContourLevels{};
    std::int16_t NumContours = 0;
    Table<float, 4, 4> EigenResults{};
    Table<float, 4, 4> FabricResults{};
    float FabricValueA = 0;
    float FabricValueB = 0;
    double FabricValueC = 0;
    float FabricValueD = 0;
    float FabricValueE = 0;
    float FabricValueF = 0;
    std::int16_t StatsBoxKind = 0; ///< 0 normal, other advanced
    Table<TaggedValue, kAxisItems, kAxisValues> AxisItems;
    std::unique_ptr<SmallCircles> PlotSmallCircles;
    std::array<std::int16_t, 6> LayerVisible{};
    std::int16_t RoseShape = 0;
    std::int16_t RoseType = 0;
    std::int16_t RoseEqualArea = 0;
    std::int16_t RoseDisplay6 = 0;
    std::int16_t RoseDisplay7 = 0;
    std::int16_t RoseDisplay8 = 0;
    double RoseOddSectorSize = 0; ///< degrees
    double RoseSectorSize = 10;   ///< degrees
    double RoseStartAngle = 0;    ///< degrees
    Table<double, 3, 2> RoseRangeA{};
    Table<double, 3, 2> RoseRangeB{};
    Table<double, 7, 3> RoseStats{};
    std::string RoseScaleType;
    std::int16_t RoseHistStyle = 0;
    std::int16_t RoseSegShape = 0;
    std::int16_t RoseSectorFraction = 0; ///< per cent
    std::int16_t RoseZeroCircle = 0;     ///< per cent
    double RoseMedian = 0;
    double RoseMeanDev = 0;
    double RoseDispersion = 0;
    std::array<double, 2> RoseMoments{};
    std::array<double, 2> RoseResultant{};
    double RoseKappa = 0;
    double RoseSkewness = 0;
    double RoseKurtosis = 0;
    std::int16_t RoseBiasMode = 0;
    std::int16_t RoseSamplePlunge = 0; ///< degrees
    std::int16_t RoseSampleTrend = 0;  ///< degrees
    std::int16_t RoseMinBiasAngle = 0; ///< degrees
    std::array<double, 2> RoseMeanDir{};
    double RoseVariance = 0;
    double RoseStdDev = 0;
    std::string PlotTitle;
    std::string SaveFileName;
    std::string FileTitle;
    std::string FileHeadLine;
    std::int16_t NumFiles = 0;
    std::array<std::string, kMaxFiles + 1> FileNames; ///< [1] is the first
    std::vector<std::string> MainFiles; ///< paths of the files of the main rows, in their order
    std::array<std::vector<std::string>, kMaxOverlays + 1> OverlayFiles; ///< [k] paths of overlay k
    bool ShowConfidenceCone = false; ///< of the principal axis; files do not keep it
    std::int64_t BetaCount = 0;      ///< intersections in the last drawing of a beta plot
    std::array<TaggedValue, 10> KinematicBlock;
    std::int16_t KinematicState = 0;
    std::int16_t MapInfoLinked = 0;
    std::int16_t IntersectionState = 0;
    std::int16_t DataFull = 0;
    std::int16_t PlotDirty = 0;
    std::int16_t RowsChanged = 0;
    std::int32_t DensityCount = 0;
    std::int16_t DensityInvalid = 0;
    std::int16_t RotationState = 0;
    std::int16_t ClassifyCheckPending = 0;
    std::int16_t SlotFree = 0;
    std::int16_t Modified = 0;
};

/// Places of LayerVisible: what stands about the net.
enum PlotLayer : std::size_t {
    kGirdleLayer = 0,
    kFabricLayer = 1,
    kDescriptionLayer = 2,
    kLegendLayer = 3,
    kNumberLayer = 4,
    kStatisticsLayer = 5,
};

/// Kinds of an overlay.
enum OverlayKindCode : std::int16_t {
    kOverlayGreatCircles = 0,
    kOverlayPoles = 1,
    kOverlayLines = 2,
    kOverlayPolarLines = 3,
};

/// Drawing modes of the rows. 2 has no button of its own and draws as kPointSymbols.
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

/// A 16-bit truth as files keep it.
inline constexpr std::int16_t kTrue = -1;

} // namespace quandrel

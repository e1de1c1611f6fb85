// SPDX-License-Identifier: MIT
//
// The making of a figure's legend, for figure_legend.cpp (results), figure_legend_rows.cpp (rows)
// and figure_legend_densities.cpp alone, and the words of all entries.

#pragma once

#include "density/density_look.h"
#include "density/plot_density.h"
#include "drawing/figure_legend.h"
#include "drawing/layer_rows.h"
#include "stereo/legend_line.h"

#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quandrel {

inline constexpr const char* kPolesText = "Poles to planes";
inline constexpr const char* kPolesToText = "Poles to "; // with the name of the fabric
inline constexpr const char* kPlanesText = "Planes";
inline constexpr const char* kNormalPlanesText = "Planes normal to lines";
inline constexpr const char* kLinesText = "Lines";
inline constexpr const char* kPolarLinesText = "Polar lines";
inline constexpr const char* kDownText = ", downward";
inline constexpr const char* kUpText = ", upward";
inline constexpr const char* kCountText = ", n = ";
inline constexpr const char* kShorteningText = "P axes (shortening)";
inline constexpr const char* kExtensionText = "T axes (extension)";
inline constexpr const char* kIntersectionsText = "Intersections of planes";
inline constexpr const char* kIntersectionsOfText = "Intersections of ";
inline constexpr const char* kPlanesNormalToText = "Planes normal to ";
inline constexpr const char* kSlipText = "Slip directions";
inline constexpr const char* kSlipLinesText = "Slip lines";
inline constexpr const char* kMeanText = "Mean direction";
inline constexpr const char* kUserGirdleText = "Girdle";
inline constexpr const char* kBestGirdleText = "Best girdle";
inline constexpr const char* kMeanPlaneText = "Mean plane";
inline constexpr const char* kPlaneOfAxisText = "Plane normal to the principal axis";
inline constexpr const char* kPrincipalAxisText = "Principal axis";
inline constexpr const char* kFoldAxisText = "Fold axis";
inline constexpr const char* kGirdleAxisText = "Axis of the best girdle";
inline constexpr const char* kSmallCircleText = "Small circle";
inline constexpr const char* kConeText = "95% confidence cone";
inline constexpr const char* kEnvelopeText = "5% envelope of significance";
inline constexpr const char* kContoursText = "Contours";
inline constexpr const char* kMaximaText = ", max ";
inline constexpr const char* kRegionText = "% region";

/// "Multiples of uniform" in the middle of a sentence.
[[nodiscard]] std::string WithSmallFirst(std::string text);

/// Collects the entries of a plot's layers.
class LegendMaker {
public:
    LegendMaker(const Plot& plot, const Drawing& drawing)
        : plot_(plot)
        , record_(plot.record)
        , drawing_(drawing) {}

    [[nodiscard]] FigureLegend Made() &&;

private:
    void AddLayer();
    void AddRowLayer();
    void AddMainRows();
    void AddOtherRows();
    void AddRows(const std::string& noun);
    void AddCircles(const std::string& noun);
    void AddSlipArrows();
    void AddIntersections();
    void AddKinematicAxes();
    void AddClasses();
    void AddDensities();
    void AddFieldLevels(const PlotDensity& density, bool hasTitle);
    void AddContourLine(const PlotDensity& density, const DensityLook& look, LineLook line);
    void AddCountLevels();
    void AddBar(const PlotDensity& density);
    [[nodiscard]] std::string TitleOfDensity(DensityUnit unit, double most, bool isBar) const;
    void AddDensityMarks();
    void AddResults();
    void AddGirdles(int first, int last);
    void AddAxes();
    void AddSmallCircles();
    void AddRegions();

    void Add(FigureEntry entry) {
        entry.layer = *layer_;
        entries_.push_back(std::move(entry));
    }

    void AddSymbol(const DrawnRows& rows, const std::string& text,
                   FigureSign sign = FigureSign::Rows) {
        FigureEntry entry;
        entry.sign = sign;
        entry.code = rows.code;
        entry.rows = rows.count;
        entry.text = text;
        Add(std::move(entry));
    }

    void AddLine(LineLook look, const std::string& text) {
        FigureEntry entry;
        entry.sign = FigureSign::Line;
        entry.line = std::move(look);
        entry.text = text;
        Add(std::move(entry));
    }

    void AddTableLine(const LegendLine& line);

    /// The words before the numbers of an entry: those of the layer, or others.
    [[nodiscard]] std::string Named(const std::string& otherwise) const {
        return layer_->LayerName.empty() ? otherwise : layer_->LayerName;
    }

    const Plot& plot_;
    const PlotRecord& record_;
    Drawing drawing_; ///< of the layer
    const FigureLayer* layer_ = nullptr;
    LayerRows rows_; ///< of the layer, if it is one of rows
    std::vector<FigureEntry> entries_;
    std::vector<FigureBar> bars_;
    std::set<std::pair<std::int16_t, std::int16_t>> titled_; ///< data whose densities have a title
    bool hasCounts_ = false;
    bool hasClasses_ = false;
};

} // namespace quandrel

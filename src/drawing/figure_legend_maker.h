// SPDX-License-Identifier: MIT
//
// The making of a figure's legend, for figure_legend.cpp (densities and results) and
// figure_legend_rows.cpp (rows) alone, and the words of all entries.

#pragma once

#include "density/plot_density.h"
#include "drawing/figure_legend.h"
#include "stereo/legend_line.h"

#include <cstdint>
#include <optional>
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
inline constexpr const char* kMeanText = "Mean direction";
inline constexpr const char* kUserGirdleText = "Girdle";
inline constexpr const char* kBestGirdleText = "Best girdle";
inline constexpr const char* kMeanPlaneText = "Mean plane";
inline constexpr const char* kPlaneOfAxisText = "Plane normal to the principal axis";
inline constexpr const char* kPrincipalAxisText = "Principal axis";
inline constexpr const char* kFoldAxisText = "Fold axis";
inline constexpr const char* kGirdleAxisText = "Axis of the best girdle";
inline constexpr const char* kSmallCircleText = "Small circle";
inline constexpr const char* kEnvelopeText = "5% envelope of significance";
inline constexpr const char* kMaximaText = ", max ";
inline constexpr const char* kRegionText = "% region";

/// The visible rows of one kind, with the style of the first of them.
struct RowsOfSign {
    SymbolCode code = 0;
    std::int64_t count = 0;

    void Add(SymbolCode added) { code = count++ == 0 ? added : code; }
};

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
    void AddMainRows(LayerShowCode show);
    void AddOverlay();
    void AddRows(std::int32_t first, std::int32_t last, const std::string& noun);
    void AddCircles(std::int32_t first, std::int32_t last, const std::string& noun);
    void AddKinematicAxes();
    void AddClasses();
    void AddDensities();
    void AddBar(const PlotDensity& density);
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

    void AddSymbol(const RowsOfSign& rows, const std::string& text) {
        FigureEntry entry;
        entry.sign = FigureSign::Rows;
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
    const Drawing& drawing_;
    const FigureLayer* layer_ = nullptr;
    std::vector<FigureEntry> entries_;
    std::optional<FigureBar> bar_;
    bool hasDensities_ = false;
    bool hasClasses_ = false;
};

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Figures: plots with a style, layers, densities and confidence regions, on a page in millimetres
// with the legend of a figure, as the program exports them.
//
// Example: filled contours and the poles of beds on a page one column wide.
//
//     namespace qd = quandrel::api;
//     qd::Plot plot;
//     plot.rows.planes = {{40, 120}, {38, 118}, {41, 125}, {70, 300}};
//     qd::Figure figure(plot);
//     figure.SetDensities({.choice = {.halfWidth = 15}});
//     figure.SetLayers(std::vector<qd::FigureLayer>{
//         {.data = "net", .shown = "net"}, {.data = "main", .shown = "bands"},
//         {.data = "main", .shown = "symbols"}});
//     const qd::Result<std::string> svg = figure.Svg({.width = 84});
//     std::cout << svg->substr(0, 4) << '\n'; // -> <svg

#pragma once

#include "quandrel/plot_file.h"
#include "quandrel/region.h"
#include "quandrel/result.h"
#include "quandrel/smooth_density.h"
#include "quandrel/surface.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel::api {

/// Some data shown in some way. What is not set is as the style has it.
struct FigureLayer {
    /// "main", "secondary", "overlay1" to "overlay20", "class1" and so on, "selection", "results",
    /// "net".
    std::string data = "main";

    /// Of rows: "symbols", "greatcircles", "poles", "intersections", "sliparrows", "gridsymbols",
    /// "bands", "contours". Of results and the net: "axes", "regions", "girdles" and others.
    std::string shown = "symbols";

    bool isHidden = false;
    std::string name = {}; ///< in the legend; empty for the name of the data
    std::optional<Colour> colour = {};
    std::optional<double> opacity = {}; ///< 0 to 1
    std::optional<int> symbol = {};     ///< code of the table of symbols
    std::optional<double> size = {};    ///< millimetres across
    std::optional<double> width = {};   ///< of lines, points
    std::optional<Dash> line = {};
    std::optional<int> palette = {}; ///< of bands: 0 the levels' colours, 1 warm, 2 cool, 3
                                     ///< diverging, 4 grey
    std::optional<int> steps = {};   ///< of densities: even steps up to the maximum, 1 to 24
    std::optional<bool> hasLabels = {};

    friend bool operator==(const FigureLayer&, const FigureLayer&) = default;
};

/// The densities of a figure.
struct FigureDensities {
    DensityChoice choice;
    std::vector<double> levels = {}; ///< ascending, at most 24; empty for doubled ones
    bool showsEnvelope = false;
    bool showsMaxima = false;
};

/// The confidence regions of a figure.
struct FigureRegions {
    std::vector<RegionAbout> about; ///< empty for none
    RegionMethod method = RegionMethod::kAutomatic;
    int level = 95;            ///< per cent, 50 to 99
    bool ofOverlays = false;   ///< besides the main rows
    bool showsRefused = false; ///< also where the data do not tell the axis apart
};

/// The sectors of a rose.
struct FigureRose {
    double sectorSize = 10; ///< degrees, above 0 to 360
    double start = 0;       ///< azimuth of a limit of sectors
    bool hasEqualArea = true;
};

/// What remains to be said of the page. Lengths are millimetres.
struct FigurePage {
    enum class Legend {
        kUsual, ///< beside the net on pages of 120 mm and wider, else below it
        kRight,
        kBelow,
        kNone,
    };
    double width = 84;      ///< 20 to 1000; 0 for what the net and its legend need
    double netDiameter = 0; ///< 20 to 1000; 0 for what the width leaves
    double height = 0;      ///< 0 for what is on the page
    Legend legend = Legend::kUsual;
    bool isTransparent = false; ///< an SVG without a white ground
};

/// A plot as a document: its rows with all that a plot file keeps of them.
class Figure {
public:
    /// A figure of rows as PlotBytes takes them, in the style Journal, with the layers of its mode.
    explicit Figure(const Plot& plot);
    Figure(Figure&&) noexcept;
    Figure& operator=(Figure&&) noexcept;
    Figure(const Figure&) = delete;
    Figure& operator=(const Figure&) = delete;
    ~Figure();

    /// A plot file with all that it says. Failures are those of ReadPlot.
    [[nodiscard]] static Result<Figure> Read(std::string_view bytes);

    /// The same as bytes again.
    [[nodiscard]] Result<std::string> Bytes() const;

    /// The rows, as ReadPlot gives them.
    [[nodiscard]] Result<Plot> Rows() const;

    /// Appends a set of rows, and a layer of it to a list of layers. Second orientations and
    /// appended columns are not kept.
    void AddOverlay(const PlotOverlay& overlay);

    /// Another kind of plot of the same rows.
    void SetKind(PlotKind kind);

    /// "Classic", "Screen", "Journal", "Grey", or the text of a style file.
    void SetStyle(std::string_view style);
    [[nodiscard]] std::string Style() const;

    /// The layers that are drawn, lowest first. A rose has none.
    [[nodiscard]] std::vector<FigureLayer> Layers() const;

    /// Other layers; none for those of the mode. Throws std::invalid_argument for one that the plot
    /// cannot show.
    void SetLayers(std::span<const FigureLayer> layers);

    void SetDensities(const FigureDensities& densities);
    void SetRegions(const FigureRegions& regions);
    void SetRose(const FigureRose& rose);

    /// The page as an SVG document. A failure for a page without room for the net or its legend.
    [[nodiscard]] Result<std::string> Svg(const FigurePage& page) const;

    /// The page as operations, in pixels of 1/96 inch from its top left corner, and its size. Texts
    /// are taken to be in Liberation Sans, or Arial.
    struct Picture {
        Extent size;
        std::vector<Operation> operations;
    };

    [[nodiscard]] Result<Picture> Operations(const FigurePage& page) const;

private:
    struct Document;
    explicit Figure(std::unique_ptr<Document> document);
    std::unique_ptr<Document> document_;
};

} // namespace quandrel::api

// SPDX-License-Identifier: MIT
//
// Figure sheets: several plots, fabric plots and texts as the panels of one figure, with letters, a
// shared legend and a caption.
//
// This folder holds the sheet as a value, its file (sheet_text.h), the plots of its panels
// (sheet_content.h), the division of its page (sheet_layout.h), its drawing and its caption. It is
// above `drawing` and `fabric` because panels show both.
// Input: the file of a sheet, those of its plots, styles. Output: the drawing of a page on
// surfaces, and the text of the caption. Lengths are millimetres; places are from the top left
// corner of the page, +y down.

#pragma once

#include "core/figure_style.h"
#include "drawing/figure_layout.h"

#include <cstddef>
#include <string>
#include <vector>

namespace quandrel {

enum class PanelKind {
    Plot,       ///< a net or a rose
    Fabric,     ///< the fabrics of a plot, its overlays and its classes, in the diagram of log
                ///< ratios
    Statistics, ///< the statistics of a plot as text
    Text,
};

/// The letters of the panels: "a", "A", "(a)".
enum class SheetLetters { Small, Capital, Brackets, None };

/// A panel. Its plot is in a binary plot file, or in the sheet itself.
struct SheetPanel {
    PanelKind kind = PanelKind::Plot;
    std::string file;  ///< absolute path of the plot file; empty for a plot in the sheet, and texts
    std::string data;  ///< the plot file by TextOfPlotFile; empty with `file`, and for texts
    std::string name;  ///< of the plot in captions; empty for the name of the file
    std::string title; ///< beside the letter; empty for none
    std::string text;  ///< of a text; the statistics as they were when they were added
    int columns = 1;   ///< how many columns and rows of the sheet it takes
    int rows = 1;

    friend bool operator==(const SheetPanel&, const SheetPanel&) = default;
};

/// The template of a caption with a sentence on each panel.
inline constexpr const char* kUsualCaption = "{panels}";

struct FigureSheet {
    double width = kPageWidth; ///< of the page
    double height = 0;         ///< of the page; 0 for what is on it
    int columns = 3;
    double gapAcross = 4; ///< between panels
    double gapDown = 4;
    SheetLetters letters = SheetLetters::Brackets;
    LegendPlace legend = LegendPlace::Below; ///< of the legend that all panels share
    std::string style{kJournalStyle};        ///< of a standard style, or absolute path of a file
    std::string caption = kUsualCaption;     ///< a template (sheet_caption.h)
    std::vector<SheetPanel> panels;          ///< row by row from the left

    friend bool operator==(const FigureSheet&, const FigureSheet&) = default;
};

/// Limits of the values of a sheet.
inline constexpr double kLeastSheetSide = 20;
inline constexpr double kMostSheetSide = 1000;
inline constexpr double kMostSheetGap = 50;
inline constexpr int kMostSheetColumns = 10;
inline constexpr std::size_t kMostPanels = 50;
inline constexpr std::size_t kLongestSheetText = 10'000; ///< bytes, of each of its texts

/// What is wrong with a sheet, as a text for the user; empty when all values are within their
/// limits.
[[nodiscard]] std::string FaultOf(const FigureSheet& sheet);

/// Moves a panel to the place of another one, both counted from 0; those between make room.
void MovePanel(FigureSheet& sheet, std::size_t from, std::size_t to);

/// The letter of a panel, counted from 0: "(a)" to "(z)", then "(aa)"; empty without letters.
[[nodiscard]] std::string LetterOf(const FigureSheet& sheet, std::size_t panel);

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Printing: draws the plots of a layout on a page by the procedures that draw them on the screen.
//
// This folder holds positions on a page, texts beside a plot, and the layout of a picture file.
// Input: open plots with the positions and sizes that the user chooses, in millimetres.
// Output: pages that are drawn plot by plot through the printer port, and layouts as values; the
// plots on the screen do not change.

#pragma once

#include "platform/printer_port.h"
#include "print/print_layout.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace quandrel {

/// The state of printing.
struct PrintState {
    int printing = 0;                  ///< non-zero while plots are being printed
    std::vector<std::string> printers; ///< as last listed; empty if there are none

    static PrintState now;
};

// Given names.
inline constinit auto& gPrinting = PrintState::now.printing;
inline constinit auto& gPrinters = PrintState::now.printers;

/// Lists the printers of the platform in gPrinters.
void ListPrinters();

inline constexpr const char* kLegendNote =
    "Note that plot area images shown do NOT include legends, etc.";
inline constexpr const char* kPrintAnotherText =
    "Print another selection or <Close> to return to main plot";

/// Width, height and unprintable margin of the page, in millimetres, the unit of all printers.
void GetPagePrintArea(double& width, double& height, double& margin);

/// Shows the platform's printer dialog and lists the printers in gPrinters. False on Cancel.
bool PrinterSetup();

/// Whether plots can be printed: there is a printer, or a file to print to. Shows a message if
/// there is neither, and if no printer is the default one: the user must then choose a printer
/// first.
[[nodiscard]] bool CanPrint();

/// The printer's name, " on ", its port; without a port only the name.
[[nodiscard]] std::string PrinterText(const PrinterChoice& printer);

/// "Portrait" or "Landscape".
[[nodiscard]] std::string PaperText(const Sheet& paper);

enum class PrintOutcome {
    Printed,
    Stopped,   ///< by the user; nothing is printed
    Cancelled, ///< the user chose no file
    Failed,    ///< the user has seen a message; nothing is printed
};

/// A page that is drawn plot by plot, so that the caller can stop in between. The destructor always
/// restores gPrinting, gActivePlot, the fonts and the state of the plots on the screen.
class PrintRun {
public:
    /// Opens a page of the platform's printer; asks for a path if the page goes to a file.
    explicit PrintRun(std::vector<PlotOnPage> items);

    /// Opens a page of a printer.
    ///
    /// @param path  of the file that receives the page
    PrintRun(std::vector<PlotOnPage> items, PrinterPort& printer, const std::string& path);
    ~PrintRun();
    PrintRun(const PrintRun&) = delete;
    PrintRun& operator=(const PrintRun&) = delete;

    /// True while there are plots to draw.
    [[nodiscard]] bool HasMore() const;

    void PrintNext();

    /// Stops drawing, and discards the page.
    void Stop();

    /// Ends the document. Call it once, when no plots are left.
    PrintOutcome End();

    /// Same as above, and reports a failure to the user.
    PrintOutcome Finish();

private:
    void TakePage(PrinterPort& printer, const std::string& path);
    void DrawItem(const PlotOnPage& item);
    void GiveUp(PrintOutcome outcome);

    std::vector<PlotOnPage> items_;
    std::unique_ptr<PrintedPage> page_;
    std::size_t next_ = 0;
    PrintOutcome outcome_ = PrintOutcome::Printed;
};

/// Prints plots on one page. Esc is checked between plots.
PrintOutcome PrintSelectedPlots(const std::vector<PlotOnPage>& items);

} // namespace quandrel

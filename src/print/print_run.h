// SPDX-License-Identifier: MIT
//
// Printing: plots of a layout are drawn on a page by the procedures that draw them on the screen.
//
// Inside the folder: places on a page, texts beside a plot, the layout of a picture file.
// Enters: open plots with the places and sizes that the user gives them, in millimetres.
// Leaves: pages that are drawn plot by plot through the printer port, and layouts as values; the
// screen's plots stay as they are.

#pragma once

#include "platform/printer_port.h"
#include "print/print_layout.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace quandrel {

/// What printing is at.
struct PrintState {
    int printing = 0;                  ///< non-zero while plots are being printed
    std::vector<std::string> printers; ///< as they were last listed; empty when there are none

    static PrintState now;
};

inline constinit auto& gPrinting = PrintState::now.printing;
inline constinit auto& gPrinters = PrintState::now.printers;

/// Lists the printers of the platform in gPrinters.
void ListPrinters();

inline constexpr const char* kLegendNote =
    "Note that plot area images shown do NOT include legends, etc.";
inline constexpr const char* kPrintAnotherText =
    "Print another selection or <Close> to return to main plot";

/// Width, height and blank rim of the page, in millimetres, the unit of all printers.
void GetPagePrintArea(double& width, double& height, double& margin);

/// Shows the platform's printer dialog and lists the printers in gPrinters. False on Cancel.
bool PrinterSetup();

/// Whether plots can be printed: there is a printer, or a file to print to. Tells the user when
/// there is nothing, and when none of the printers is the default one: a printer then has to be
/// chosen first.
[[nodiscard]] bool CanPrint();

/// The printer's name, " on ", its port; without a port the name alone.
[[nodiscard]] std::string PrinterText(const PrinterChoice& printer);

/// "Portrait" or "Landscape".
[[nodiscard]] std::string PaperText(const Sheet& paper);

enum class PrintOutcome {
    Printed,
    Stopped,   ///< by the user; nothing is printed
    Cancelled, ///< the user named no file
    Failed,    ///< and the user has been told; nothing is printed
};

/// A page that is drawn plot by plot, so that whoever drives it can stop it in between. Whatever
/// happens, gPrinting, gActivePlot, the fonts and the state of the screen's plots are as before
/// when it is gone.
class PrintRun {
public:
    /// Takes a page of the platform's printer; asks for a path when the page goes to a file.
    explicit PrintRun(std::vector<PlotOnPage> items);

    /// Takes a page of a printer.
    ///
    /// @param path  of the file that the page goes to
    PrintRun(std::vector<PlotOnPage> items, PrinterPort& printer, const std::string& path);
    ~PrintRun();
    PrintRun(const PrintRun&) = delete;
    PrintRun& operator=(const PrintRun&) = delete;

    /// True while there are plots to draw.
    [[nodiscard]] bool HasMore() const;

    /// Draws the next plot.
    void PrintNext();

    /// Draws no more, and drops the page.
    void Stop();

    /// Ends the document. Called once, when there are no more plots.
    PrintOutcome End();

    /// The same, and tells the user of a failure.
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

/// Prints plots on one page. Esc is heard between them.
PrintOutcome PrintSelectedPlots(const std::vector<PlotOnPage>& items);

} // namespace quandrel

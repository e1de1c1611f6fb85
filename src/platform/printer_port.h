// SPDX-License-Identifier: MIT
//
// The printers of the machine, and a page that is drawn and printed. Lengths are millimetres, the
// unit of every printer here. Positions on a page are measured from the top left corner of the
// paper, whatever margin the printer leaves blank.

#pragma once

#include "platform/surface.h"

#include <memory>
#include <string>
#include <vector>

namespace quandrel {

/// A rectangle of a page, millimetres from the top left corner of the paper.
struct PageRect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] double Right() const { return left + width; }

    [[nodiscard]] double Bottom() const { return top + height; }

    friend bool operator==(const PageRect&, const PageRect&) = default;
};

/// The paper in its orientation: a landscape sheet is wider than it is high.
struct Sheet {
    double width = 210; ///< millimetres, above 0
    double height = 297;
    double margin = 0; ///< the widest margin that the printer leaves blank

    [[nodiscard]] bool IsLandscape() const { return width > height; }

    friend bool operator==(const Sheet&, const Sheet&) = default;
};

/// The destination of a page.
struct PrinterChoice {
    std::string name; ///< empty when there is no printer
    std::string port; ///< its location
    bool isFile = false;
};

/// A page being drawn. A page that is not sent is discarded.
class PrintedPage {
public:
    virtual ~PrintedPage() = default;

    /// A surface for a rectangle of the page, valid as long as the page.
    [[nodiscard]] virtual Surface& SurfaceIn(const PageRect& rect) = 0;

    /// Prints the page. False when the printer did not accept it.
    [[nodiscard]] virtual bool Send() = 0;
};

class PrinterPort {
public:
    virtual ~PrinterPort() = default;

    /// Names of all printers; empty when the machine has none.
    [[nodiscard]] virtual std::vector<std::string> Printers() const = 0;

    /// Name of the default printer, or an empty text.
    [[nodiscard]] virtual std::string DefaultPrinter() const = 0;

    /// The printer for the next page: the default one, or the user's choice since. A file when
    /// there is no printer.
    [[nodiscard]] virtual PrinterChoice Chosen() const = 0;

    /// The paper in that printer.
    [[nodiscard]] virtual Sheet Paper() const = 0;

    /// Lets the user choose printer, paper and orientation. False on Cancel, or when there is
    /// nothing to choose.
    virtual bool SetUp() = 0;

    /// Starts a new page.
    ///
    /// @param title  of the document
    /// @param path   of the file to write when the choice is a file
    /// @return null when the printer is not available
    [[nodiscard]] virtual std::unique_ptr<PrintedPage> StartPage(const std::string& title,
                                                                 const std::string& path) = 0;
};

} // namespace quandrel

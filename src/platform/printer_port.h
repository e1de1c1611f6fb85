// SPDX-License-Identifier: MIT
//
// The printers of the machine, and a page that is drawn and printed. Lengths are millimetres, the
// unit of every printer here; places on a page run from the top left corner of the paper, whatever
// the printer leaves blank.

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

/// The paper as it lies: a landscape sheet is wider than high.
struct Sheet {
    double width = 210; ///< millimetres, above 0
    double height = 297;
    double margin = 0; ///< the widest rim that the printer leaves blank

    [[nodiscard]] bool IsLandscape() const { return width > height; }

    friend bool operator==(const Sheet&, const Sheet&) = default;
};

/// Where a page goes.
struct PrinterChoice {
    std::string name; ///< empty when there is nothing to print on
    std::string port; ///< where it stands
    bool isFile = false;
};

/// A page under way. One that is not sent is dropped.
class PrintedPage {
public:
    virtual ~PrintedPage() = default;

    /// Something to draw on in a rectangle of the page. It lives as long as the page.
    [[nodiscard]] virtual Surface& SurfaceIn(const PageRect& rect) = 0;

    /// Prints the page. False when the printer did not take it.
    [[nodiscard]] virtual bool Send() = 0;
};

class PrinterPort {
public:
    virtual ~PrinterPort() = default;

    /// Names of all printers; empty when the machine has none.
    [[nodiscard]] virtual std::vector<std::string> Printers() const = 0;

    /// Name of the default printer, or an empty text.
    [[nodiscard]] virtual std::string DefaultPrinter() const = 0;

    /// The printer that the next page goes to: the default one, or what the user chose since. A
    /// file where there is no printer at all.
    [[nodiscard]] virtual PrinterChoice Chosen() const = 0;

    /// The paper in it.
    [[nodiscard]] virtual Sheet Paper() const = 0;

    /// Lets the user choose printer, paper and orientation. False on Cancel, or when there is
    /// nothing to choose.
    virtual bool SetUp() = 0;

    /// Takes a new page.
    ///
    /// @param title  of the document
    /// @param path   of the file to write when the choice is a file
    /// @return null when the printer is not to be had
    [[nodiscard]] virtual std::unique_ptr<PrintedPage> StartPage(const std::string& title,
                                                                 const std::string& path) = 0;
};

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// The printers of the desktop, with the desktop's own dialogs. A machine without printers prints to
// PDF files, on the usual paper size.

#pragma once

#include "platform/printer_port.h"

#include <memory>

class QPrinter;

namespace quandrel {

class WidgetPrinters : public PrinterPort {
public:
    WidgetPrinters();
    ~WidgetPrinters() override;

    WidgetPrinters(const WidgetPrinters&) = delete;
    WidgetPrinters& operator=(const WidgetPrinters&) = delete;

    [[nodiscard]] std::vector<std::string> Printers() const override;
    [[nodiscard]] std::string DefaultPrinter() const override;
    [[nodiscard]] PrinterChoice Chosen() const override;
    [[nodiscard]] Sheet Paper() const override;

    /// The printer dialog; without a printer, the dialog for paper and orientation.
    bool SetUp() override;

    [[nodiscard]] std::unique_ptr<PrintedPage> StartPage(const std::string& title,
                                                         const std::string& path) override;

private:
    /// The choice of printer and paper. It is created when first needed, because that is slow.
    [[nodiscard]] QPrinter& Printer() const;

    mutable std::unique_ptr<QPrinter> printer_;
    bool isChosen_ = false; ///< by the user
};

} // namespace quandrel

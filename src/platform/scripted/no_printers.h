// SPDX-License-Identifier: MIT
//
// A machine without printers, and without files to print to.

#pragma once

#include "platform/printer_port.h"

namespace quandrel {

class NoPrinters : public PrinterPort {
public:
    [[nodiscard]] std::vector<std::string> Printers() const override { return {}; }

    [[nodiscard]] std::string DefaultPrinter() const override { return {}; }

    [[nodiscard]] PrinterChoice Chosen() const override { return {}; }

    [[nodiscard]] Sheet Paper() const override { return {}; }

    bool SetUp() override { return false; }

    [[nodiscard]] std::unique_ptr<PrintedPage> StartPage(const std::string&,
                                                         const std::string&) override {
        return nullptr;
    }
};

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// A machine without printers.

#pragma once

#include "platform/printer_port.h"

namespace quandrel {

class NoPrinters : public PrinterPort {
public:
    [[nodiscard]] std::vector<std::string> Printers() const override { return {}; }

    [[nodiscard]] std::string DefaultPrinter() const override { return {}; }
};

} // namespace quandrel

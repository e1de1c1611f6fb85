// SPDX-License-Identifier: MIT
//
// The printers of the machine.

#pragma once

#include <string>
#include <vector>

namespace quandrel {

class PrinterPort {
public:
    virtual ~PrinterPort() = default;

    /// Names of all printers; empty when the machine has none.
    [[nodiscard]] virtual std::vector<std::string> Printers() const = 0;

    /// Name of the default printer, or an empty text.
    [[nodiscard]] virtual std::string DefaultPrinter() const = 0;
};

} // namespace quandrel

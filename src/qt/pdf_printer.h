// SPDX-License-Identifier: MIT
//
// Pages as PDF files: the printer of a machine without printers.

#pragma once

#include "platform/printer_port.h"

#include <QPageLayout>

#include <memory>
#include <string>

namespace quandrel {

/// The name shown for printing to a file.
inline constexpr const char* kPdfPrinterName = "PDF file";

/// Paper of a size, without margins.
[[nodiscard]] QPageLayout PdfPaper(QPageSize::PageSizeId size,
                                   QPageLayout::Orientation orientation);

/// A page that is written to a PDF file when it is sent, completely or not at all. The same drawing
/// gives the same bytes. Needs a QGuiApplication.
///
/// @param failure  receives the reason when the file cannot be written; must outlive the page
[[nodiscard]] std::unique_ptr<PrintedPage> StartPdfPage(const std::string& path,
                                                        const std::string& title,
                                                        const QPageLayout& layout,
                                                        std::string* failure = nullptr);

/// Prints every page to a file, on paper set at construction.
class PdfPrinter : public PrinterPort {
public:
    explicit PdfPrinter(const QPageLayout& layout)
        : layout_(layout) {}

    [[nodiscard]] std::vector<std::string> Printers() const override { return {}; }

    [[nodiscard]] std::string DefaultPrinter() const override { return {}; }

    [[nodiscard]] PrinterChoice Chosen() const override { return {kPdfPrinterName, "", true}; }

    [[nodiscard]] Sheet Paper() const override;

    bool SetUp() override { return false; }

    [[nodiscard]] std::unique_ptr<PrintedPage> StartPage(const std::string& title,
                                                         const std::string& path) override {
        failure_.clear();
        return StartPdfPage(path, title, layout_, &failure_);
    }

    /// The reason why the file of the last page could not be written; empty when it was written, or
    /// when drawing it had failed before.
    [[nodiscard]] const std::string& Failure() const { return failure_; }

private:
    QPageLayout layout_;
    std::string failure_;
};

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Pages as PDF files: the printer of a machine that has none.

#pragma once

#include "platform/printer_port.h"

#include <QPageLayout>

#include <memory>
#include <string>

namespace quandrel {

/// What a file to print to calls itself.
inline constexpr const char* kPdfPrinterName = "PDF file";

/// Paper of a size, without a rim that stays blank.
[[nodiscard]] QPageLayout PdfPaper(QPageSize::PageSizeId size,
                                   QPageLayout::Orientation orientation);

/// A page that is written to a PDF file when it is sent, whole or not at all. The same drawing
/// gives the same bytes. Needs a QGuiApplication.
///
/// @param failure  takes the reason when the file cannot be written; outlives the page
[[nodiscard]] std::unique_ptr<PrintedPage> StartPdfPage(const std::string& path,
                                                        const std::string& title,
                                                        const QPageLayout& layout,
                                                        std::string* failure = nullptr);

/// Prints every page to a file, on paper that is given once.
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

    /// Why the file of the last page could not be written; empty where it could, or where drawing
    /// it failed before.
    [[nodiscard]] const std::string& Failure() const { return failure_; }

private:
    QPageLayout layout_;
    std::string failure_;
};

} // namespace quandrel

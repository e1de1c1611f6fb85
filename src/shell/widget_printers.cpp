// SPDX-License-Identifier: MIT

#include "shell/widget_printers.h"

#include "platform/qt/painter_page.h"
#include "platform/qt/pdf_printer.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLocale>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>

namespace quandrel {

namespace {

/// A page of a printer of the desktop.
class DesktopPage : public PrintedPage {
public:
    DesktopPage(QPrinter& printer, const std::string& title)
        : printer_(printer) {
        printer_.setFullPage(true);
        printer_.setDocName(QString::fromStdString(title));
        printer_.setCreator(QStringLiteral("Quandrel"));
        surfaces_ = std::make_unique<PageSurfaces>(printer_);
    }

    ~DesktopPage() override {
        if (surfaces_ != nullptr && surfaces_->IsGood()) {
            printer_.abort();
        }
    }

    DesktopPage(const DesktopPage&) = delete;
    DesktopPage& operator=(const DesktopPage&) = delete;

    [[nodiscard]] bool IsGood() const { return surfaces_->IsGood(); }

    [[nodiscard]] Surface& SurfaceIn(const PageRect& rect) override { return surfaces_->In(rect); }

    [[nodiscard]] bool Send() override {
        const bool isDone = surfaces_->End();
        surfaces_.reset();
        return isDone && printer_.printerState() != QPrinter::Error;
    }

private:
    QPrinter& printer_;
    std::unique_ptr<PageSurfaces> surfaces_;
};

bool GoesToFile(const QPrinter& printer) {
    return printer.outputFormat() == QPrinter::PdfFormat;
}

} // namespace

WidgetPrinters::WidgetPrinters() = default;

WidgetPrinters::~WidgetPrinters() = default;

QPrinter& WidgetPrinters::Printer() const {
    if (printer_ == nullptr) {
        printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
        if (GoesToFile(*printer_)) {
            const bool usesLetter =
                QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
            printer_->setPageSize(QPageSize(usesLetter ? QPageSize::Letter : QPageSize::A4));
        }
    }
    return *printer_;
}

std::vector<std::string> WidgetPrinters::Printers() const {
    std::vector<std::string> names;
    for (const QString& name : QPrinterInfo::availablePrinterNames()) {
        names.push_back(name.toStdString());
    }
    return names;
}

std::string WidgetPrinters::DefaultPrinter() const {
    return QPrinterInfo::defaultPrinterName().toStdString();
}

PrinterChoice WidgetPrinters::Chosen() const {
    const QPrinter& printer = Printer();
    if (!isChosen_ && DefaultPrinter().empty() && !Printers().empty()) {
        return {};
    }
    if (GoesToFile(printer)) {
        return {kPdfPrinterName, "", true};
    }
    const QPrinterInfo info(printer);
    const QString port = info.location().isEmpty()
                             ? QString(info.isRemote() ? "the network" : "this machine")
                             : info.location();
    return {printer.printerName().toStdString(), port.toStdString(), false};
}

Sheet WidgetPrinters::Paper() const {
    return SheetOf(Printer().pageLayout());
}

bool WidgetPrinters::SetUp() {
    QPrinter& printer = Printer();
    QWidget* parent = QApplication::activeWindow();
    if (Printers().empty()) {
        QPageSetupDialog dialog(&printer, parent);
        dialog.setWindowTitle("Printer Setup");
        return dialog.exec() == QDialog::Accepted;
    }
    QPrintDialog dialog(&printer, parent);
    dialog.setWindowTitle("Printer Setup");
    dialog.setOptions({});
    // Nothing is printed from here.
    if (auto* buttons = dialog.findChild<QDialogButtonBox*>()) {
        if (QPushButton* button = buttons->button(QDialogButtonBox::Ok)) {
            button->setText("OK");
        }
    }
    const bool isTaken = dialog.exec() == QDialog::Accepted;
    isChosen_ = isChosen_ || isTaken;
    return isTaken;
}

std::unique_ptr<PrintedPage> WidgetPrinters::StartPage(const std::string& title,
                                                       const std::string& path) {
    QPrinter& printer = Printer();
    if (GoesToFile(printer)) {
        return StartPdfPage(path, title, printer.pageLayout());
    }
    auto page = std::make_unique<DesktopPage>(printer, title);
    if (!page->IsGood()) {
        return nullptr;
    }
    return page;
}

} // namespace quandrel

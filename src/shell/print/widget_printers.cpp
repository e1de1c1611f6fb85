// SPDX-License-Identifier: MIT

#include "shell/print/widget_printers.h"

#include "qt/painter_page.h"
#include "qt/pdf_printer.h"
#include "shell/controls/control_kit.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLocale>
#include <QPageLayout>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>

#include <array>

namespace quandrel {

namespace {

/// A page of one of the desktop's printers.
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

/// Asks for the paper size of pages printed to a file.
class PaperDialog : public QDialog {
public:
    PaperDialog(const QPageLayout& layout, QWidget* parent)
        : QDialog(parent)
        , layout_(layout) {
        setObjectName("frmPrinterSetup");
        setWindowTitle("Printer Setup");
        auto* form = new QFormLayout(this);
        form->addRow("&Paper", MakePapers());
        constexpr std::array<const char*, 2> kOrientations = {"P&ortrait", "&Landscape"};
        for (std::size_t i = 0; i < optOrientation_.size(); ++i) {
            optOrientation_[i] = new QRadioButton(kOrientations[i]);
            optOrientation_[i]->setObjectName(Numbered("optOrientation", i));
            form->addRow(i == 0 ? "Orientation" : "", optOrientation_[i]);
        }
        optOrientation_[layout.orientation() == QPageLayout::Landscape ? 1 : 0]->setChecked(true);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        form->addRow(buttons);
    }

    [[nodiscard]] QPageLayout Layout() const {
        QPageLayout chosen = layout_;
        const int size = cboPaper_->currentData().toInt();
        if (size != layout_.pageSize().id()) {
            chosen.setPageSize(QPageSize(static_cast<QPageSize::PageSizeId>(size)));
        }
        chosen.setOrientation(optOrientation_[1]->isChecked() ? QPageLayout::Landscape
                                                              : QPageLayout::Portrait);
        return chosen;
    }

private:
    [[nodiscard]] QComboBox* MakePapers() {
        constexpr std::array kSizes = {QPageSize::A0,     QPageSize::A1,    QPageSize::A2,
                                       QPageSize::A3,     QPageSize::A4,    QPageSize::A5,
                                       QPageSize::A6,     QPageSize::B4,    QPageSize::B5,
                                       QPageSize::Letter, QPageSize::Legal, QPageSize::Tabloid};
        cboPaper_ = new QComboBox;
        cboPaper_->setObjectName("cboPaper");
        for (const QPageSize::PageSizeId size : kSizes) {
            cboPaper_->addItem(QPageSize::name(size), size);
        }
        const QPageSize now = layout_.pageSize();
        if (cboPaper_->findData(now.id()) < 0) {
            cboPaper_->addItem(now.name(), now.id());
        }
        cboPaper_->setCurrentIndex(cboPaper_->findData(now.id()));
        return cboPaper_;
    }

    QPageLayout layout_;
    QComboBox* cboPaper_ = nullptr;
    std::array<QRadioButton*, 2> optOrientation_{};
};

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
        PaperDialog dialog(printer.pageLayout(), parent);
        return dialog.exec() == QDialog::Accepted && printer.setPageLayout(dialog.Layout());
    }
    QPrintDialog dialog(&printer, parent);
    dialog.setWindowTitle("Printer Setup");
    dialog.setOptions({});
    // The dialog prints nothing, so its button must not say Print.
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

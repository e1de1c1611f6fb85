// SPDX-License-Identifier: MIT

#include "qt/painter_page.h"
#include "shell/print/widget_printers.h"
#include "support/pdf_shapes.h"
#include "support/shell_test.h"

#include <QComboBox>
#include <QDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRadioButton>
#include <QTimer>

#include <functional>

namespace quandrel {
namespace {

using WidgetPrintersTest = EngineTest;

TEST_F(WidgetPrintersTest, PagesOfAPrinterHaveTrueSizesFromThePapersCorner) {
    for (const int resolution : {300, 600, 1200}) {
        const std::string path = (folder / "printer.pdf").string();
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(path));
        printer.setResolution(resolution);
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setPageMargins(QMarginsF(12, 15, 12, 15), QPageLayout::Millimeter);
        printer.setFullPage(true);
        PageSurfaces surfaces(printer);
        ASSERT_TRUE(surfaces.IsGood());
        Surface& surface = surfaces.In({30, 40, 132, 132});
        surface.SetUserScale(kPlotScale);
        surface.Circle({0, 0}, 1000, kBlack);
        ASSERT_TRUE(surfaces.End());
        const std::vector<PdfShape> circles = CirclesOf(PdfReader::Read(path), 20);
        ASSERT_EQ(circles.size(), 1U) << resolution;
        EXPECT_NEAR(circles[0].right - circles[0].left, 120, 0.05) << resolution;
        EXPECT_NEAR((circles[0].left + circles[0].right) / 2, 96, 0.05) << resolution;
        EXPECT_NEAR((circles[0].top + circles[0].bottom) / 2, 106, 0.05) << resolution;
    }
}

TEST_F(WidgetPrintersTest, PaperLiesAsItsLayoutTells) {
    const QPageLayout lying(QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF(0, 0, 0, 0),
                            QPageLayout::Point, QMarginsF(18, 36, 18, 72));
    const Sheet sheet = SheetOf(lying);
    EXPECT_NEAR(sheet.width, 297, 0.01);
    EXPECT_NEAR(sheet.height, 210, 0.01);
    EXPECT_NEAR(sheet.margin, 25.4, 0.2) << "the widest rim is an inch";
    EXPECT_TRUE(sheet.IsLandscape());
}

TEST_F(WidgetPrintersTest, ChooseAPrinterOfTheListOrAFile) {
    const WidgetPrinters printers;
    const PrinterChoice chosen = printers.Chosen();
    const std::vector<std::string> names = printers.Printers();
    if (names.empty()) {
        EXPECT_TRUE(chosen.isFile);
        EXPECT_EQ(chosen.name, "PDF file");
    } else {
        EXPECT_TRUE(chosen.name == printers.DefaultPrinter() || chosen.name.empty());
    }
    EXPECT_GT(printers.Paper().width, 100);
    EXPECT_LT(printers.Paper().width, printers.Paper().height);
}

/// Does something with the next dialog that is shown.
void WhenAsked(const std::function<void(QDialog&)>& answer) {
    QTimer::singleShot(0, [answer] {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        answer(*dialog);
    });
}

TEST_F(WidgetPrintersTest, TakeThePaperOfFilesFromTheSetup) {
    if (!QPrinterInfo::availablePrinterNames().empty()) {
        return; // the desktop's own dialog asks
    }
    WidgetPrinters printers;
    const Sheet former = printers.Paper();
    WhenAsked([](QDialog& dialog) {
        EXPECT_EQ(dialog.objectName(), "frmPrinterSetup");
        EXPECT_TRUE(ControlOf<QRadioButton>(dialog, "optOrientation_0").isChecked());
        ControlOf<QRadioButton>(dialog, "optOrientation_1").setChecked(true);
        auto& papers = ControlOf<QComboBox>(dialog, "cboPaper");
        papers.setCurrentIndex(papers.findText("A3"));
        dialog.reject();
    });
    EXPECT_FALSE(printers.SetUp());
    EXPECT_EQ(printers.Paper(), former) << "Cancel";
    WhenAsked([](QDialog& dialog) {
        ControlOf<QRadioButton>(dialog, "optOrientation_1").setChecked(true);
        auto& papers = ControlOf<QComboBox>(dialog, "cboPaper");
        papers.setCurrentIndex(papers.findText("A3"));
        dialog.accept();
    });
    EXPECT_TRUE(printers.SetUp());
    EXPECT_NEAR(printers.Paper().width, 420, 0.5);
    EXPECT_NEAR(printers.Paper().height, 297, 0.5);
    WhenAsked([](QDialog& dialog) {
        EXPECT_TRUE(ControlOf<QRadioButton>(dialog, "optOrientation_1").isChecked());
        EXPECT_EQ(ControlOf<QComboBox>(dialog, "cboPaper").currentText(), "A3");
        dialog.accept();
    });
    EXPECT_TRUE(printers.SetUp());
    EXPECT_NEAR(printers.Paper().width, 420, 0.5);
}

} // namespace
} // namespace quandrel

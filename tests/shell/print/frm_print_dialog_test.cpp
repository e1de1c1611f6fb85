// SPDX-License-Identifier: MIT

#include "platform/scripted/no_printers.h"
#include "platform/scripted/recording_printer.h"
#include "shell/print/frm_print_dialog.h"
#include "shell/print/widget_printers.h"
#include "support/plot_rows.h"
#include "support/shell_test.h"

#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <map>
#include <memory>
#include <set>

namespace quandrel {
namespace {

/// What was last written on the status line.
class ToldStatus : public QuietStatusLine {
public:
    void SetText(std::string_view text) override { told = text; }

    std::string told;
};

class PrintDialogTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlatform.printers = &printer;
        gPlatform.status = &told;
        MakePlot("Plot 1: limbs.txt");
        MakePlot("Plot 2: hinges.txt");
        MakePlot("Plot 3: joints.txt");
        gActivePlot = 2;
    }

    void TearDown() override {
        dialog.reset();
        EngineTest::TearDown();
    }

    void MakePlot(const std::string& title) {
        NewPlot();
        AddRow(30, 120);
        AddRow(45, 270);
        ActiveRecord().PlotTitle = title;
        ActiveRecord().LayerVisible.fill(kTrue);
    }

    void Open() {
        dialog = std::make_unique<frmPrintDialog>(nullptr);
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
    }

    [[nodiscard]] const PlotOnPage& Plot(std::size_t index) const {
        return dialog->Layout().plots.at(index);
    }

    /// Replaces the contents of a box by typing a text.
    static void Type(QLineEdit& box, const char* text) {
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, text);
    }

    void Choose(const char* title) const {
        dialog->cboPlotName->setCurrentIndex(dialog->cboPlotName->findText(title));
    }

    static void Click(QPushButton* button) { QTest::mouseClick(button, Qt::LeftButton); }

    RecordingPrinter printer;
    ToldStatus told;
    std::unique_ptr<frmPrintDialog> dialog;
};

TEST_F(PrintDialogTest, OpensWithTheActivePlotFittedInTheMiddle) {
    Open();
    EXPECT_EQ(dialog->windowTitle(), "Print Page Setup");
    EXPECT_EQ(dialog->cboPlotName->count(), 3);
    EXPECT_EQ(dialog->cboPlotName->currentText(), "Plot 2: hinges.txt");
    ASSERT_EQ(dialog->Layout().plots.size(), 1U);
    EXPECT_EQ(Plot(0).slot, 2);
    EXPECT_TRUE(dialog->optScale[0]->isChecked());
    EXPECT_EQ(dialog->txtScale->text(), "8.6");
    EXPECT_EQ(dialog->txtCentre[0]->text(), "10.5");
    EXPECT_EQ(dialog->txtCentre[1]->text(), "14.9");
    EXPECT_EQ(dialog->lblPrinterName->text(), "Office on room 3");
    EXPECT_EQ(dialog->lblOrientation->text(), "Portrait");
    EXPECT_EQ(told.told, kLegendNote);
}

TEST_F(PrintDialogTest, HasTheTextsOfItsControls) {
    Open();
    const std::map<std::string, QString> texts = {{"lblDefaultPrinter", "Default Printer:"},
                                                  {"lblCentre", "from top left "},
                                                  {"lblLocation", "Location of Centre"},
                                                  {"lblScale", "Size (radius)"},
                                                  {"lblScaleUnits", "units"},
                                                  {"lblXY_0", "Horiz."},
                                                  {"lblXY_1", "Vert."}};
    for (const auto& [name, text] : texts) {
        EXPECT_EQ(ControlOf<QLabel>(*dialog, name).text().remove('&'), text) << name;
    }
    EXPECT_EQ(dialog->frmSelection->title(), "Selection");
    EXPECT_EQ(dialog->frmScaleBox->title(), "Scale");
    EXPECT_EQ(dialog->fraDestination->title(), "Destination");
    EXPECT_EQ(dialog->optScale[0]->text().remove('&'), "Fit to Page");
    EXPECT_EQ(dialog->optScale[1]->text().remove('&'), "Manual Fit");
    EXPECT_EQ(dialog->cmdSelect[1]->text().remove('&'), "Remove");
    EXPECT_EQ(dialog->cmdPrinterSetup->text().remove('&'), "Printer Setup...");
    EXPECT_EQ(dialog->cmdOK[0]->text().remove('&'), "Print");
    EXPECT_EQ(dialog->cmdOK[1]->text().remove('&'), "Close");
    EXPECT_EQ(dialog->cboScaleUnits->itemText(0), "cms");
    EXPECT_EQ(dialog->cboScaleUnits->itemText(1), "inches");
}

TEST_F(PrintDialogTest, HasNoMnemonicTwice) {
    Open();
    std::set<QChar> letters;
    const auto take = [&letters](const QString& text) {
        const auto at = text.indexOf('&');
        if (at >= 0) {
            EXPECT_TRUE(letters.insert(text[at + 1].toLower()).second) << text.toStdString();
        }
    };
    for (const auto* button : dialog->findChildren<QAbstractButton*>()) {
        take(button->text());
    }
    for (const auto* label : dialog->findChildren<QLabel*>()) {
        take(label->text());
    }
    EXPECT_GE(letters.size(), 10U);
}

TEST_F(PrintDialogTest, PutsPlotsOnThePageAndTakesThemOff) {
    Open();
    EXPECT_FALSE(dialog->cmdSelect[0]->isEnabled());
    Choose("Plot 3: joints.txt");
    EXPECT_TRUE(dialog->cmdSelect[0]->isEnabled());
    EXPECT_FALSE(dialog->cmdSelect[1]->isEnabled());
    EXPECT_FALSE(dialog->txtScale->isEnabled());
    EXPECT_EQ(dialog->txtScale->text(), "");
    Click(dialog->cmdSelect[0]);
    ASSERT_EQ(dialog->Layout().plots.size(), 2U);
    EXPECT_EQ(Plot(1).slot, 3);
    EXPECT_TRUE(dialog->txtScale->isEnabled());
    EXPECT_TRUE(dialog->picPlotCircle[1]->isVisible());
    EXPECT_EQ(dialog->PlotNo[0]->text(), "2") << "the numbers of the plots";
    EXPECT_EQ(dialog->PlotNo[1]->text(), "3");
    Choose("Plot 2: hinges.txt");
    Click(dialog->cmdSelect[1]);
    ASSERT_EQ(dialog->Layout().plots.size(), 1U);
    EXPECT_EQ(Plot(0).slot, 3);
    EXPECT_EQ(dialog->PlotNo[0]->text(), "3");
    EXPECT_EQ(dialog->picPlotCircle[0]->accessibleName(), "Plot 3 on the page");
    EXPECT_FALSE(dialog->picPlotCircle[1]->isVisible());
}

TEST_F(PrintDialogTest, TellsOfANetThatIsPushedOverTheEdge) {
    Open();
    EXPECT_EQ(dialog->lblOverEdge->text(), "");
    dialog->SldCentre[0]->setValue(dialog->SldCentre[0]->maximum());
    EXPECT_EQ(dialog->lblOverEdge->text(), "Plot 2 reaches over the edge of the paper");
    dialog->optScale[0]->click();
    EXPECT_EQ(dialog->lblOverEdge->text(), "");
}

TEST_F(PrintDialogTest, ConvertsWhatItShowsAndKeepsFullPrecision) {
    Open();
    const PlotOnPage former = Plot(0);
    dialog->cboScaleUnits->setCurrentIndex(1);
    EXPECT_EQ(dialog->txtScale->text(), "3.4");
    EXPECT_EQ(dialog->txtCentre[0]->text(), "4.1");
    EXPECT_EQ(dialog->txtCentre[1]->text(), "5.8");
    Type(*dialog->txtScale, "3.4");
    QTest::keyClick(dialog->txtScale, Qt::Key_Tab);
    dialog->cboScaleUnits->setCurrentIndex(0);
    EXPECT_EQ(dialog->txtScale->text(), "8.6");
    EXPECT_EQ(Plot(0).centreX, former.centreX);
}

TEST_F(PrintDialogTest, TakesSizeAndPlaceFromTheBoxes) {
    Open();
    Type(*dialog->txtScale, "10");
    EXPECT_DOUBLE_EQ(Plot(0).radius, 100);
    EXPECT_EQ(dialog->sldScale->value(), 1000);
    EXPECT_TRUE(dialog->optScale[1]->isChecked());
    Type(*dialog->txtCentre[0], "10.2");
    Type(*dialog->txtCentre[1], "12,25");
    EXPECT_DOUBLE_EQ(Plot(0).centreX, 102);
    EXPECT_DOUBLE_EQ(Plot(0).centreY, 122.5);
    EXPECT_EQ(dialog->SldCentre[1]->value(), 1225);
    QTest::keyClick(dialog->txtCentre[1], Qt::Key_Return);
    EXPECT_EQ(dialog->txtCentre[1]->text(), "12.3");
    EXPECT_DOUBLE_EQ(Plot(0).centreY, 122.5);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(printer.pages.empty()) << "Enter in a box prints nothing";
}

TEST_F(PrintDialogTest, TakesSizeAndPlaceFromTheSliders) {
    Open();
    dialog->sldScale->setValue(455);
    EXPECT_DOUBLE_EQ(Plot(0).radius, 45.5);
    EXPECT_EQ(dialog->txtScale->text(), "4.6");
    dialog->SldCentre[0]->setValue(600);
    dialog->SldCentre[1]->setValue(710);
    EXPECT_DOUBLE_EQ(Plot(0).centreX, 60);
    EXPECT_DOUBLE_EQ(Plot(0).centreY, 71);
    EXPECT_EQ(dialog->txtCentre[0]->text(), "6.0");
    EXPECT_EQ(dialog->txtCentre[1]->text(), "7.1");
    QTest::mouseClick(dialog->optScale[0], Qt::LeftButton);
    EXPECT_EQ(dialog->txtScale->text(), "8.6");
    EXPECT_EQ(dialog->txtCentre[0]->text(), "10.5");
}

TEST_F(PrintDialogTest, MovesThePlotThatIsDragged) {
    Open();
    Choose("Plot 1: limbs.txt");
    Click(dialog->cmdSelect[0]);
    told.told.clear();
    QLabel& circle = *dialog->picPlotCircle[0];
    const double scale = dialog->picPage->width() / 210.0;
    const double radius = Plot(0).radius;
    const PlotOnPage former = Plot(0);
    const QPoint grip = circle.rect().center() + QPoint(5, -7);
    QTest::mousePress(&circle, Qt::LeftButton, {}, grip);
    EXPECT_EQ(told.told, kLegendNote);
    EXPECT_EQ(dialog->cboPlotName->currentText(), "Plot 2: hinges.txt");
    QTest::mouseMove(&circle, grip + QPoint(20, 30));
    QTest::mouseRelease(&circle, Qt::LeftButton, {}, grip + QPoint(20, 30));
    EXPECT_NEAR(Plot(0).centreX, former.centreX + 20 / scale, 1.0 / scale);
    EXPECT_NEAR(Plot(0).centreY, former.centreY + 30 / scale, 1.0 / scale);
    EXPECT_EQ(Plot(0).radius, radius);
    EXPECT_TRUE(dialog->optScale[1]->isChecked());
    EXPECT_EQ(dialog->txtCentre[0]->text().toStdString(),
              LengthText(Plot(0).centreX, PageUnits::Centimetres, kPlaceFormat));
}

TEST_F(PrintDialogTest, TakesThePaperOfThePrinterThatIsChosen) {
    Open();
    printer.onSetUp = [this] {
        printer.chosen = {"Plotter", "", false};
        printer.paper = {297, 210, 5};
        return true;
    };
    Click(dialog->cmdPrinterSetup);
    EXPECT_EQ(printer.timesSetUp, 1);
    EXPECT_EQ(dialog->lblPrinterName->text(), "Plotter");
    EXPECT_EQ(dialog->lblOrientation->text(), "Landscape");
    EXPECT_EQ(dialog->txtCentre[0]->text(), "14.9");
    EXPECT_GT(dialog->picPage->width(), dialog->picPage->height());
}

TEST_F(PrintDialogTest, WaitsForAPrinterToBeChosen) {
    printer.chosen = {};
    Open();
    EXPECT_EQ(dialog->lblPrinterName->text(), "none");
    EXPECT_FALSE(dialog->cmdOK[0]->isEnabled());
    printer.onSetUp = [this] {
        printer.chosen = {"Plotter", "", false};
        return true;
    };
    Click(dialog->cmdPrinterSetup);
    EXPECT_TRUE(dialog->cmdOK[0]->isEnabled());
}

TEST_F(PrintDialogTest, PrintsAllPlotsOfThePage) {
    Open();
    Choose("Plot 3: joints.txt");
    Click(dialog->cmdSelect[0]);
    const PrintLayout layout = dialog->Layout();
    Click(dialog->cmdOK[0]);
    EXPECT_TRUE(dialog->IsPrinting());
    EXPECT_EQ(dialog->cmdOK[0]->text().remove('&'), "Stop printing");
    EXPECT_FALSE(dialog->frmScaleBox->isEnabled());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !dialog->IsPrinting(); }));
    EXPECT_EQ(dialog->cmdOK[0]->text().remove('&'), "Print");
    EXPECT_EQ(told.told, kPrintAnotherText);
    ASSERT_EQ(printer.pages.size(), 1U);
    EXPECT_TRUE(printer.pages[0].isSent);
    for (const PlotOnPage& plot : layout.plots) {
        EXPECT_TRUE(std::ranges::any_of(printer.pages[0].parts, [&](const RecordedPart& part) {
            return part.rect == NetSquare(plot);
        }));
    }
    EXPECT_EQ(gActivePlot, 2);
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(PrintDialogTest, HearsStopPrintingBetweenPlots) {
    Open();
    Choose("Plot 3: joints.txt");
    Click(dialog->cmdSelect[0]);
    int parts = 0;
    printer.onSurface = [&] {
        if (++parts == 1) {
            // The press comes while the first plot is being drawn.
            QMetaObject::invokeMethod(
                dialog.get(), [this] { Click(dialog->cmdOK[0]); }, Qt::QueuedConnection);
        }
    };
    Click(dialog->cmdOK[0]);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !dialog->IsPrinting(); }));
    EXPECT_EQ(std::ranges::count_if(
                  printer.pages.at(0).parts,
                  [](const RecordedPart& part) { return part.surface.Scale() == kPlotScale; }),
              1);
    EXPECT_FALSE(printer.pages.at(0).isSent);
    EXPECT_EQ(gPrinting, 0);
    EXPECT_EQ(told.told, kPrintAnotherText);
}

TEST_F(PrintDialogTest, EndsAPrintRunWhenItIsClosed) {
    Open();
    Choose("Plot 3: joints.txt");
    Click(dialog->cmdSelect[0]);
    Click(dialog->cmdOK[0]);
    ASSERT_TRUE(dialog->IsPrinting());
    Click(dialog->cmdOK[1]);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_FALSE(dialog->IsPrinting());
    EXPECT_EQ(gPrinting, 0);
    EXPECT_FALSE(printer.pages.at(0).isSent);
}

TEST_F(PrintDialogTest, IsNotShownWithoutAnythingToPrintOn) {
    NoPrinters none;
    gPlatform.printers = &none;
    Expect("The Print Page setup window is not available");
    ShowPrintDialog(nullptr);
}

TEST_F(PrintDialogTest, IsShownUntilItIsClosed) {
    QString shown;
    QTimer::singleShot(0, [&shown] {
        shown = QApplication::activeModalWidget()->objectName();
        static_cast<QDialog*>(QApplication::activeModalWidget())->reject();
    });
    ShowPrintDialog(nullptr);
    EXPECT_EQ(shown, "frmPrintDialog");
}

TEST_F(PrintDialogTest, PrintsToAFileOnAMachineWithoutPrinters) {
    WidgetPrinters printers;
    if (!printers.Printers().empty()) {
        EXPECT_FALSE(printers.Printers().front().empty());
        return; // nothing is printed on the printers of whoever runs the tests
    }
    gPlatform.printers = &printers;
    EXPECT_EQ(printers.DefaultPrinter(), "");
    EXPECT_TRUE(CanPrint());
    Open();
    EXPECT_EQ(dialog->lblPrinterName->text(), "PDF file");
    const std::string path = (folder / "page.pdf").string();
    prompts.QueueSavePath(path);
    Click(dialog->cmdOK[0]);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !dialog->IsPrinting(); }));
    std::ifstream stream(path, std::ios::binary);
    std::string head(5, ' ');
    stream.read(head.data(), 5);
    EXPECT_EQ(head, "%PDF-");
}

} // namespace
} // namespace quandrel

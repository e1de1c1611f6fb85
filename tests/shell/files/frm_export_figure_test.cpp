// SPDX-License-Identifier: MIT
//
// The export of a plot: what its controls mean, and the preview.

#include "core/plot_style.h"
#include "persistence/open_plot.h"
#include "shell/files/frm_export_figure.h"
#include "support/main_window_test.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimer>

namespace quandrel {
namespace {

class ExportFigureDialog : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        OpenFile("a.txt");
        dialog = std::make_unique<frmExportFigure>(main.get(), ActivePlot());
        dialog->show();
        Wait();
    }

    void TearDown() override {
        dialog.reset();
        MainWindowTest::TearDown();
    }

    /// Until the preview shows what was chosen.
    static void Wait() { QTest::qWait(150); }

    [[nodiscard]] QSizeF PreviewSize() const {
        return dialog->lblPreview->pixmap(Qt::ReturnByValue).size();
    }

    void ChooseStyle(const QString& name) {
        QComboBox& box = *dialog->cboStyle;
        box.setCurrentIndex(box.findText(name));
        Q_EMIT box.activated(box.currentIndex());
    }

    std::unique_ptr<frmExportFigure> dialog;
};

TEST_F(ExportFigureDialog, BeginsWithAColumnInJournal) {
    const PictureOptions options = dialog->Options();
    ASSERT_TRUE(options.figure);
    EXPECT_EQ(options.figure->size.width, 84);
    EXPECT_EQ(options.figure->size.netDiameter, 0);
    EXPECT_EQ(options.figure->size.legend, LegendPlace::Below);
    EXPECT_EQ(options.figure->style->name, "Journal");
    EXPECT_EQ(options.figure->dotsPerInch, 300);
    EXPECT_FALSE(options.figure->isTransparent);
    EXPECT_FALSE(options.hasData);
    EXPECT_EQ(dialog->Style().name, "Journal");
}

TEST_F(ExportFigureDialog, HasTheWidthsOfJournalsASlideAndTwoFreeOnes) {
    const auto sizeOf = [this](int index) {
        dialog->cboWidth->setCurrentIndex(index);
        return *dialog->Options().figure;
    };
    EXPECT_EQ(sizeOf(1).size.width, 120);
    EXPECT_EQ(sizeOf(1).size.legend, LegendPlace::Right);
    EXPECT_EQ(sizeOf(2).size.width, 174);
    EXPECT_FALSE(dialog->spnWidth->isEnabled());
    EXPECT_EQ(sizeOf(3).size.width, kSlideWidth);
    EXPECT_EQ(sizeOf(3).height, kSlideHeight);
    EXPECT_EQ(sizeOf(4).height, 0);
    EXPECT_TRUE(dialog->spnWidth->isEnabled());
    dialog->spnWidth->setValue(95.5);
    EXPECT_EQ(sizeOf(4).size.width, 95.5);
    EXPECT_EQ(sizeOf(5).size.width, 0);
    EXPECT_EQ(sizeOf(5).size.netDiameter, 95.5);
}

TEST_F(ExportFigureDialog, ShowsWhatItWillSave) {
    ASSERT_FALSE(dialog->lblPreview->pixmap(Qt::ReturnByValue).isNull());
    EXPECT_TRUE(dialog->lblNote->text().startsWith("84 by "))
        << dialog->lblNote->text().toStdString();
    EXPECT_TRUE(dialog->lblNote->text().contains("992 by ")) << "84 mm at 300 dpi";
    const QSizeF below = PreviewSize();
    dialog->cboLegend->setCurrentIndex(static_cast<int>(LegendPlace::None));
    Wait();
    const QSizeF none = PreviewSize();
    EXPECT_GT(below.height() / below.width(), none.height() / none.width());
    dialog->chkTransparent->setChecked(true);
    Wait();
    const QImage image = dialog->lblPreview->pixmap(Qt::ReturnByValue).toImage();
    EXPECT_EQ(image.pixelColor(1, 1).alpha(), 0);
}

TEST_F(ExportFigureDialog, SaysWhyThereIsNoPicture) {
    dialog->cboWidth->setCurrentIndex(static_cast<int>(FigureWidth::Free));
    dialog->spnWidth->setValue(20);
    dialog->cboLegend->setCurrentIndex(static_cast<int>(LegendPlace::Right));
    Wait();
    EXPECT_FALSE(dialog->cmdOK->isEnabled());
    EXPECT_TRUE(dialog->lblNote->text().contains("too narrow"))
        << dialog->lblNote->text().toStdString();
    dialog->spnWidth->setValue(100);
    Wait();
    EXPECT_TRUE(dialog->cmdOK->isEnabled());
}

TEST_F(ExportFigureDialog, TakesStylesByNameAndFromFiles) {
    ChooseStyle("Grey");
    EXPECT_EQ(dialog->Style().name, "Grey");
    EXPECT_EQ(dialog->Options().figure->style->name, "Grey");
    prompts.QueueOpenPath(WriteFile("thesis.json", R"({"name": "Thesis", "text": {"size": 9}})"));
    ChooseStyle("From a File...");
    EXPECT_EQ(dialog->cboStyle->currentText(), "Thesis");
    EXPECT_EQ(dialog->Options().figure->style->text.size, 9);
    ChooseStyle("From a File..."); // cancelled
    EXPECT_EQ(dialog->cboStyle->currentText(), "Thesis");
    prompts.QueueOpenPath(WriteFile("bad.json", "[]"));
    Expect("it is not a JSON object");
    ChooseStyle("From a File...");
    EXPECT_EQ(dialog->Style().name, "Thesis");
}

TEST_F(ExportFigureDialog, ExportsWhatTheWindowShowsToo) {
    dialog->optPart[1]->click();
    dialog->spnSize->setValue(300);
    dialog->chkData->setChecked(true);
    const PictureOptions options = dialog->Options();
    EXPECT_FALSE(options.figure);
    EXPECT_EQ(options.part, PicturePart::NetAlone);
    EXPECT_EQ(options.size, 300);
    EXPECT_TRUE(options.hasData);
    EXPECT_FALSE(dialog->cboStyle->isEnabled());
    EXPECT_TRUE(dialog->spnSize->isEnabled());
}

TEST_F(ExportFigureDialog, KeepsTheStyleForLaterExports) {
    dialog.reset();
    prompts.QueueSavePath((folder / "figure.svg").string());
    QTimer::singleShot(0, [] {
        auto& open = static_cast<frmExportFigure&>(*QApplication::activeModalWidget());
        open.cboStyle->setCurrentIndex(open.cboStyle->findText("Grey"));
        Q_EMIT open.cboStyle->activated(open.cboStyle->currentIndex());
        open.chkData->setChecked(true);
        open.cmdOK->click();
    });
    Press("mnuFileExport");
    EXPECT_EQ(gSettings.files.exportStyle.name, "Grey");
    EXPECT_TRUE(std::filesystem::exists(folder / "figure.svg"));
    EXPECT_EQ(ActiveRecord().StyleName, "") << "the plot keeps its own";
}

TEST_F(ExportFigureDialog, CopiesTheFigureAsADrawingAndAsAnImage) {
    dialog->spnDots->setValue(600);
    Wait();
    QTest::mouseClick(dialog->cmdCopy, Qt::LeftButton);
    const QMimeData& copied = *QGuiApplication::clipboard()->mimeData();
    EXPECT_TRUE(copied.data("image/svg+xml").contains(" width=\"84mm\""));
    EXPECT_EQ(qvariant_cast<QImage>(copied.imageData()).width(), 1984) << "84 / 25.4 * 600";
    EXPECT_FALSE(copied.hasUrls()) << "its file is removed with the dialog";
    EXPECT_EQ(dialog->lblNote->text(), "The figure is on the clipboard");
    dialog->optPart[1]->setChecked(true);
    Wait();
    EXPECT_FALSE(dialog->cmdCopy->isEnabled()) << "what the window shows is copied by its command";
}

} // namespace
} // namespace quandrel

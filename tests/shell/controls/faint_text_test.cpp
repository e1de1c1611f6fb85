// SPDX-License-Identifier: MIT

#include "platform/scripted/no_printers.h"
#include "shell/classes/frm_data_classification.h"
#include "shell/controls/faint_text.h"
#include "shell/controls/note_label.h"
#include "shell/dialogs/frm_confidence_regions.h"
#include "shell/dialogs/frm_densities.h"
#include "shell/dialogs/frm_fabric_plots.h"
#include "shell/dialogs/frm_rotation_menu.h"
#include "shell/dialogs/frm_small_circle.h"
#include "shell/dialogs/frm_statistical_tests.h"
#include "shell/dialogs/frm_text_window.h"
#include "shell/files/frm_directory_dialog.h"
#include "shell/files/frm_export_figure.h"
#include "shell/files/frm_export_image.h"
#include "shell/files/frm_figure_sheet.h"
#include "shell/files/frm_save_plots_dialog.h"
#include "shell/format/frm_file_format.h"
#include "shell/grids/frm_data_display.h"
#include "shell/help/frm_about.h"
#include "shell/main/frm_intro.h"
#include "shell/map/frm_layer_control.h"
#include "shell/map/frm_mi_table_dialog.h"
#include "shell/preferences/frm_preferences.h"
#include "shell/print/frm_print_dialog.h"
#include "shell/rose/frm_rose_diag.h"
#include "shell/styles/frm_symbol_select.h"
#include "stereo/colour_names.h"
#include "support/main_window_test.h"

#include <QLineEdit>
#include <QPlainTextEdit>

#include <algorithm>

namespace quandrel {
namespace {

Colour Blended(const QColor& ink, const QColor& paper) {
    const auto mix = [&](int a, int b) {
        const double share = static_cast<double>(ink.alphaF());
        return static_cast<std::uint8_t>(a * share + b * (1 - share) + 0.5);
    };
    return {mix(ink.red(), paper.red()), mix(ink.green(), paper.green()),
            mix(ink.blue(), paper.blue())};
}

double ContrastOn(const QColor& ink, const QColor& paper) {
    return ContrastOf(Blended(ink, paper), Blended(paper, paper));
}

QPalette ThemeOf(const QColor& text, const QColor& base, const QColor& window) {
    QPalette palette;
    for (const QPalette::ColorRole role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, QColor(0xa8, 0xa8, 0xa8));
    }
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::Button, window);
    return palette;
}

/// Themes of today's desktops, and one of little contrast.
std::vector<QPalette> Themes() {
    return {ThemeOf(Qt::black, Qt::white, QColor(0xef, 0xef, 0xef)),
            ThemeOf(QColor(0x23, 0x26, 0x29), Qt::white, QColor(0xef, 0xf0, 0xf1)),
            ThemeOf(Qt::white, QColor(0x23, 0x23, 0x23), QColor(0x32, 0x32, 0x32)),
            ThemeOf(QColor(0xfc, 0xfc, 0xfc), QColor(0x1b, 0x1e, 0x20), QColor(0x2a, 0x2e, 0x32)),
            ThemeOf(QColor(0x30, 0x30, 0x30), QColor(0xd8, 0xd8, 0xd8), QColor(0xc8, 0xc8, 0xc8))};
}

class FaintTexts : public MainWindowTest {
protected:
    void TearDown() override {
        QApplication::setPalette(former_);
        MainWindowTest::TearDown();
    }

    QPalette former_ = QApplication::palette();
};

constexpr double kLegible = 4.5; // Web Content Accessibility Guidelines 2.1, 1.4.3

TEST_F(FaintTexts, AreReadableOnBoxesAndWindowsOfEachTheme) {
    for (const QPalette& theme : Themes()) {
        const QColor faint = MutedText(theme);
        EXPECT_GE(ContrastOn(faint, theme.color(QPalette::Base)), kLegible);
        EXPECT_GE(ContrastOn(faint, theme.color(QPalette::Window)), kLegible);
        EXPECT_LT(ContrastOn(faint, theme.color(QPalette::Base)),
                  ContrastOn(theme.color(QPalette::Text), theme.color(QPalette::Base)))
            << "they are fainter than other texts";
    }
}

TEST_F(FaintTexts, OfEmptyBoxesFollowTheTheme) {
    for (const QPalette& theme : Themes()) {
        QApplication::setPalette(theme);
        QCoreApplication::processEvents();
        const QLineEdit box;
        const QColor hint = box.palette().color(QPalette::PlaceholderText);
        EXPECT_GE(ContrastOn(hint, box.palette().color(QPalette::Base)), kLegible)
            << hint.name(QColor::HexArgb).toStdString();
        EXPECT_EQ(box.palette().color(QPalette::Base), theme.color(QPalette::Base));
    }
}

TEST_F(FaintTexts, OfThePlotWindowAreReadableOnItsPaper) {
    OpenFile("a.txt");
    const frmPlotForms& form = FormOfSlot(gActivePlot);
    const QList<const QWidget*> boxes = {form.txtDescBox, form.txtFabricBox};
    for (const QWidget* box : boxes) {
        EXPECT_GE(ContrastOn(box->palette().color(QPalette::PlaceholderText),
                             box->palette().color(QPalette::Base)),
                  kLegible);
    }
}

/// Texts of windows that say something without being the caption of a control.
class FaintNotes : public FaintTexts {
protected:
    void SetUp() override {
        FaintTexts::SetUp();
        gPlatform.printers = &printers_;
    }

    void TearDown() override {
        gPlatform.printers = nullptr;
        FaintTexts::TearDown();
    }

    /// The caption of a control that cannot be used now is grey as the control is.
    static bool IsCaption(const QLabel& label) {
        if (label.buddy() != nullptr) {
            return true;
        }
        const auto siblings =
            label.parentWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
        return std::any_of(siblings.begin(), siblings.end(), [](const QWidget* sibling) {
            return !sibling->isEnabled() && sibling->focusPolicy() != Qt::NoFocus;
        });
    }

    static bool IsGreyNote(const QLabel& label) {
        return !label.text().isEmpty() && !label.isEnabled() && !IsCaption(label);
    }

    static bool IsNote(const QLabel& label) {
        return IsGreyNote(label) || dynamic_cast<const NoteLabel*>(&label) != nullptr;
    }

    /// Returns the number of notes that were seen.
    static int Check(QWidget& window) {
        window.show();
        QCoreApplication::processEvents();
        int notes = 0;
        for (const auto* label : window.findChildren<QLabel*>()) {
            if (IsNote(*label)) {
                const QPalette colours = label->palette();
                EXPECT_GE(ContrastOn(colours.color(QPalette::WindowText),
                                     colours.color(QPalette::Window)),
                          kLegible)
                    << window.objectName().toStdString() << ": " << label->text().toStdString();
                ++notes;
            }
        }
        return notes;
    }

    /// The windows that do not need a particular kind of plot.
    static void CheckWindows() {
        FormatQuestion question;
        question.command = "New";
        StyleQuestion styles;
        styles.title = "Rows";
        styles.up = SymbolRow{5, 3, 2};
        frmAbout about(nullptr);
        frmDataClassification classification(nullptr);
        frmDataDisplay raw(DataDisplayMode::Raw, nullptr);
        frmDataDisplay processed(DataDisplayMode::Processed, nullptr);
        frmDirectoryDialog start({}, nullptr);
        frmExportImage picture(nullptr);
        frmExportFigure figure(nullptr, ActivePlot());
        frmFileFormat format(question, nullptr);
        frmLayerControl layers({{"Roads", true, true}}, nullptr);
        frmMITableDialog tables({"Roads"}, "Roads", nullptr);
        frmPreferences preferences(nullptr, 0);
        frmPrintDialog print(nullptr);
        frmRotationMenu rotation(nullptr);
        frmSavePlotsDialog save("Quandrel", "Save it?", nullptr);
        frmSmallCircle circles(nullptr);
        frmDensities densities(nullptr);
        frmConfidenceRegions regions(nullptr);
        frmFabricPlots fabric(nullptr);
        frmFigureSheet sheet(nullptr);
        frmStatisticalTests tests(nullptr);
        frmSymbolSelect symbols(styles, nullptr);
        frmTextWindow text("Lines", "text", nullptr);
        for (QWidget* window : std::initializer_list<QWidget*>{
                 &sheet,    &about,   &classification, &raw,       &processed,   &start,
                 &picture,  &format,  &layers,         &tables,    &preferences, &print,
                 &rotation, &save,    &circles,        &densities, &regions,     &fabric,
                 &tests,    &symbols, &text,           &figure}) {
            EXPECT_EQ(Check(*window), window == &picture || window == &figure ? 1 : 0);
        }
    }

private:
    NoPrinters printers_;
};

TEST_F(FaintNotes, OfTheStartAreReadableInEachTheme) {
    auto* intro = main->findChild<frmIntro*>();
    ASSERT_NE(intro, nullptr);
    for (const QPalette& theme : Themes()) {
        QApplication::setPalette(theme);
        EXPECT_EQ(Check(*intro), 1);
    }
}

TEST_F(FaintNotes, OfTheDialogsAreReadable) {
    OpenFile("a.txt");
    CheckWindows();
    Press("mnuPlotType_2");
    frmRoseDiag rose(nullptr);
    EXPECT_EQ(Check(rose), 0);
}

} // namespace
} // namespace quandrel

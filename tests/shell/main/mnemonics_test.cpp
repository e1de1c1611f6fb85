// SPDX-License-Identifier: MIT
//
// The keys that are underlined in menus and windows: each triggers one command.

#include "mapsession/session_state.h"
#include "platform/scripted/no_printers.h"
#include "shell/classes/frm_data_classification.h"
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
#include "shell/map/frm_layer_control.h"
#include "shell/map/frm_mi_table_dialog.h"
#include "shell/preferences/frm_preferences.h"
#include "shell/print/frm_print_dialog.h"
#include "shell/rose/frm_rose_diag.h"
#include "shell/styles/frm_symbol_select.h"
#include "support/main_window_test.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QMenuBar>
#include <QTabWidget>

#include <functional>
#include <map>
#include <set>

namespace quandrel {
namespace {

using Captions = std::map<QString, QStringList>; ///< by their underlined key

/// Captions that are fixed, and share a key in one menu: Qt alternates between them.
const std::set<QString> kGiven = {"Open Wor&kspace...", "Lin&k to Mapinfo..."};

class Mnemonics : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        gPlatform.printers = &printers_;
    }

    void TearDown() override {
        gPlatform.printers = nullptr;
        MainWindowTest::TearDown();
    }

    static void Add(Captions& captions, const QString& caption) {
        const QKeySequence key = QKeySequence::mnemonic(caption);
        if (!key.isEmpty()) {
            captions[key.toString()] << caption;
        }
    }

    static void ExpectOneEach(const Captions& captions, const std::string& where) {
        for (const auto& [key, list] : captions) {
            QStringList ours = list;
            ours.erase(std::remove_if(ours.begin(), ours.end(),
                                      [](const QString& text) { return kGiven.contains(text); }),
                       ours.end());
            const bool isAlone = list.size() == 1 || ours.isEmpty();
            EXPECT_TRUE(isAlone) << where << ": " << key.toStdString() << " of "
                                 << list.join(" | ").toStdString();
        }
    }

    /// Dialogs over a window have keys of their own.
    static bool IsSeenIn(const QWidget& window, const QWidget& widget) {
        return widget.isVisible() && widget.window() == window.window();
    }

    static void AddWidgets(Captions& captions, const QWidget& window) {
        for (const auto* button : window.findChildren<QAbstractButton*>()) {
            if (IsSeenIn(window, *button)) {
                Add(captions, button->text());
            }
        }
        for (const auto* label : window.findChildren<QLabel*>()) {
            if (IsSeenIn(window, *label) && label->buddy() != nullptr) {
                Add(captions, label->text());
            }
        }
        for (const auto* box : window.findChildren<QGroupBox*>()) {
            if (IsSeenIn(window, *box)) {
                Add(captions, box->title());
            }
        }
        for (const auto* tabs : window.findChildren<QTabBar*>()) {
            for (int tab = 0; IsSeenIn(window, *tabs) && tab < tabs->count(); ++tab) {
                Add(captions, tabs->tabText(tab));
            }
        }
    }

    /// Looks at a window, page by page.
    static void Check(QWidget& window) {
        window.show();
        const std::string name = window.objectName().toStdString();
        auto* pages = window.findChild<QTabWidget*>();
        const int count = pages != nullptr ? pages->count() : 1;
        for (int page = 0; page < count; ++page) {
            if (pages != nullptr) {
                pages->setCurrentIndex(page);
            }
            Captions captions;
            AddWidgets(captions, window);
            ExpectOneEach(captions, name + ", page " + std::to_string(page));
        }
    }

    static void CheckMenu(const QMenu& menu) {
        Captions captions;
        for (const QAction* action : menu.actions()) {
            if (action->isVisible()) {
                Add(captions, action->text());
            }
            if (action->menu() != nullptr) {
                CheckMenu(*action->menu());
            }
        }
        ExpectOneEach(captions, menu.objectName().toStdString());
    }

    void CheckMainWindow() {
        Captions captions;
        for (const QAction* action : main->menuBar()->actions()) {
            Add(captions, action->text());
            CheckMenu(*action->menu());
        }
        AddWidgets(captions, *main);
        ExpectOneEach(captions, "the main window");
    }

private:
    NoPrinters printers_;
};

TEST_F(Mnemonics, OfTheMenusLeadToOneCommandEach) {
    CheckMainWindow();
    OpenFile("a.txt");
    Press("mnuViewLegends_0"); // the girdle panel is in the main window
    CheckMainWindow();
    Press("mnuPlotType_2");
    CheckMainWindow();
}

TEST_F(Mnemonics, OfEachWindowLeadToOneControlEach) {
    OpenFile("a.txt");
    FormatQuestion question;
    question.command = "New";
    question.path = WriteFile("b.txt", "30\t120\n");
    StyleQuestion styles;
    styles.title = "Rows";
    styles.up = SymbolRow{5, 3, 2};
    frmAbout about(nullptr);
    Check(about);
    frmDataClassification classification(nullptr);
    Check(classification);
    frmDataDisplay raw(DataDisplayMode::Raw, nullptr);
    Check(raw);
    frmDataDisplay processed(DataDisplayMode::Processed, nullptr);
    Check(processed);
    frmDirectoryDialog start({}, nullptr);
    Check(start);
    frmExportImage picture(nullptr);
    Check(picture);
    frmExportFigure figure(nullptr, ActivePlot());
    Check(figure);
    frmFileFormat format(question, nullptr);
    Check(format);
    frmLayerControl layers({{"Roads", true, true}}, nullptr);
    Check(layers);
    frmMITableDialog tables({"Roads"}, "Roads", nullptr);
    Check(tables);
    frmPreferences preferences(nullptr, 0);
    Check(preferences);
    frmPrintDialog print(nullptr);
    Check(print);
    frmRotationMenu rotation(nullptr);
    Check(rotation);
    frmSavePlotsDialog save("Quandrel", "Save it?", nullptr);
    Check(save);
    frmSmallCircle circles(nullptr);
    Check(circles);
    frmDensities densities(nullptr);
    Check(densities);
    frmConfidenceRegions regions(nullptr);
    Check(regions);
    frmFabricPlots fabric(nullptr);
    Check(fabric);
    frmFigureSheet sheet(nullptr);
    Check(sheet);
    frmStatisticalTests tests(nullptr);
    Check(tests);
    frmSymbolSelect symbols(styles, nullptr);
    Check(symbols);
    frmTextWindow text("Lines", "text", nullptr);
    Check(text);
    Press("mnuPlotType_2");
    frmRoseDiag rose(nullptr);
    Check(rose);
}

TEST_F(Mnemonics, GivenCaptionsAreAsTheyAreGiven) {
    EXPECT_EQ(Action("mnuPlotType_0").text(), "E&qual area  projection");
    EXPECT_EQ(Action("mnuPlotType_1").text(), "Eq&ual a&ngle projection");
    EXPECT_EQ(Action("mnuFileSave_2").text(), "Save &All");
    EXPECT_EQ(Action("mnuFileMILink").text(), "Lin&k to Mapinfo...");
    EXPECT_EQ(Action("mnuMapinfo_0").text(), "Lin&k to Mapinfo...");
    EXPECT_EQ(Action("mnuFileLoad_4").text(), "Open Wor&kspace...");
    // Of two marks the first one is the key.
    EXPECT_EQ(QKeySequence::mnemonic(Action("mnuPlotType_1").text()), QKeySequence("Alt+U"));
}

TEST_F(Mnemonics, RedoHasBothUsualKeys) {
    const QList<QKeySequence> keys = Action("mnuEditRedo").shortcuts();
    EXPECT_TRUE(keys.contains(QKeySequence("Ctrl+Shift+Z")));
    EXPECT_TRUE(keys.contains(QKeySequence("Ctrl+Y")));
    std::map<QString, QString> owners;
    for (const QAction* action : main->AllCommands().findChildren<QAction*>()) {
        for (const QKeySequence& key : action->shortcuts()) {
            const auto [owner, isNew] = owners.try_emplace(key.toString(), action->objectName());
            EXPECT_TRUE(isNew) << key.toString().toStdString() << " of "
                               << owner->second.toStdString();
        }
    }
}

} // namespace
} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// Every dialog, panel and box by keyboard alone: Return and Space press the button that has the
// focus and no other, Esc presses none.

#include "mapsession/session_state.h"
#include "platform/scripted/no_printers.h"
#include "session/start.h"
#include "shell/classes/frm_data_classification.h"
#include "shell/controls/button_keys.h"
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
#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include <map>

namespace quandrel {
namespace {

using MakeDialog = std::function<std::unique_ptr<QDialog>(QWidget*)>;

struct NamedDialog {
    const char* name;
    MakeDialog make;
};

template <class Dialog, class... Arguments>
NamedDialog Named(const char* name, Arguments... arguments) {
    return {name, [arguments...](QWidget* parent) {
                return std::make_unique<Dialog>(arguments..., parent);
            }};
}

std::vector<NamedDialog> AllDialogs() {
    FormatQuestion question;
    question.command = "None";
    return {
        Named<frmAbout>("frmAbout"),
        Named<frmTextWindow>("frmTextWindow", QString("Lines"), QString("one\ntwo")),
        Named<frmLayerControl>("frmLayerControl", std::vector<SessionLayer>(2)),
        Named<frmMITableDialog>("frmMITableDialog", QStringList{"beds", "faults"}, QString("beds")),
        Named<frmDirectoryDialog>("frmDirectoryDialog", QString("/tmp")),
        Named<frmExportImage>("frmExportImage"),
        {"frmExportFigure",
         [](QWidget* parent) { return std::make_unique<frmExportFigure>(parent, ActivePlot()); }},
        Named<frmFileFormat>("frmFileFormat", question),
        Named<frmSavePlotsDialog>("frmSavePlotsDialog", QString("Quandrel"), QString("Save it?")),
        Named<frmSymbolSelect>("frmSymbolSelect", StyleQuestion{}),
        Named<frmPrintDialog>("frmPrintDialog"),
        Named<frmSmallCircle>("frmSmallCircle"),
        {"frmConfidenceRegions",
         [](QWidget* parent) { return std::make_unique<frmConfidenceRegions>(parent); }},
        Named<frmStatisticalTests>("frmStatisticalTests"),
        {"frmDensities", [](QWidget* parent) { return std::make_unique<frmDensities>(parent); }},
        {"frmFabricPlots",
         [](QWidget* parent) { return std::make_unique<frmFabricPlots>(parent); }},
        {"frmFigureSheet",
         [](QWidget* parent) { return std::make_unique<frmFigureSheet>(parent); }},
        {"frmPreferences",
         [](QWidget* parent) {
             auto dialog = std::make_unique<frmPreferences>(parent, 0);
             dialog->askColour = [](Colour, const QString&) { return std::nullopt; };
             dialog->askFont = [](const QFont&) { return std::nullopt; };
             dialog->askFolder = [](const QString&) { return std::nullopt; };
             return dialog;
         }},
        {"frmRoseDiag", [](QWidget* parent) { return std::make_unique<frmRoseDiag>(parent); }},
        {"frmRotationMenu",
         [](QWidget* parent) { return std::make_unique<frmRotationMenu>(parent); }},
        {"frmDataClassification",
         [](QWidget* parent) { return std::make_unique<frmDataClassification>(parent); }},
        {"frmDataDisplay",
         [](QWidget* parent) {
             return std::make_unique<frmDataDisplay>(DataDisplayMode::Processed, parent);
         }},
    };
}

/// Controls that a user recognises as buttons: one that is chosen like a radio button does not
/// count.
bool IsButton(const QAbstractButton& button) {
    return (qobject_cast<const QPushButton*>(&button) != nullptr
            || qobject_cast<const QToolButton*>(&button) != nullptr || !button.isCheckable())
           && (button.focusPolicy() & Qt::TabFocus) != 0;
}

std::vector<QAbstractButton*> ButtonsIn(const QWidget& window) {
    std::vector<QAbstractButton*> buttons;
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        if (IsButton(*button)) {
            buttons.push_back(button);
        }
    }
    return buttons;
}

/// Turns to the page of a tabbed dialog that a control is on.
void TurnTo(QWidget& control) {
    for (QWidget* at = &control; at->parentWidget() != nullptr; at = at->parentWidget()) {
        auto* tabs = qobject_cast<QTabWidget*>(at->parentWidget()->parentWidget());
        if (tabs != nullptr && tabs->indexOf(at) >= 0) {
            tabs->setCurrentWidget(at);
        }
    }
}

class ButtonsByKey : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        gPlatform.printers = &printers_;
        gPlatform.prompts = &batch_;
        prompts.QueueOpenPath(WriteFile("a.txt", "30\t120\n45\t270\n60\t15\n"));
        gPlatform.prompts = &prompts;
        Press("mnuFileLoad_0");
        gPlatform.prompts = &batch_;
        // Whatever a button opens is closed at once.
        QObject::connect(&closer_, &QTimer::timeout, [this] {
            QWidget* modal = QApplication::activeModalWidget();
            if (modal != nullptr && modal != dialog_) {
                modal->close();
            }
        });
        closer_.start(0);
    }

    /// What a press of a key does: the buttons clicked, and whether and how the dialog was closed.
    struct Outcome {
        std::vector<int> clicked;
        bool isOpen = true;
        int result = 0;

        bool operator==(const Outcome&) const = default;
    };

    [[nodiscard]] std::size_t CountOf(const NamedDialog& named) const {
        const std::unique_ptr<QDialog> dialog = named.make(main.get());
        dialog->show();
        return ButtonsIn(*dialog).size();
    }

    /// @param act  what is done to the button once it has the focus
    /// @return nothing for a button that is grey or not shown
    std::optional<Outcome> OutcomeOf(const NamedDialog& named, std::size_t which,
                                     const std::function<void(QAbstractButton&)>& act) {
        const std::unique_ptr<QDialog> dialog = named.make(main.get());
        dialog_ = dialog.get();
        dialog->show();
        const std::vector<QAbstractButton*> buttons = ButtonsIn(*dialog);
        if (which < buttons.size()) {
            TurnTo(*buttons[which]);
        }
        if (which >= buttons.size() || !buttons[which]->isEnabled()
            || !buttons[which]->isVisible()) {
            dialog_ = nullptr;
            return std::nullopt;
        }
        Outcome outcome;
        for (std::size_t i = 0; i < buttons.size(); ++i) {
            QObject::connect(buttons[i], &QAbstractButton::clicked, dialog.get(),
                             [&outcome, i] { outcome.clicked.push_back(static_cast<int>(i)); });
        }
        QAbstractButton& button = *buttons[which];
        button.setFocus();
        act(button);
        outcome.isOpen = dialog->isVisible();
        outcome.result = dialog->result();
        dialog_ = nullptr;
        return outcome;
    }

    static std::function<void(QAbstractButton&)> Key(Qt::Key key) {
        return [key](QAbstractButton& button) { QTest::keyClick(&button, key); };
    }

    NoPrinters printers_;
    ScriptedPrompts batch_{ScriptedPrompts::Mode::Batch};
    QTimer closer_;
    QDialog* dialog_ = nullptr;
};

TEST_F(ButtonsByKey, ReturnAndSpaceDoInEveryDialogWhatAClickOnTheFocusedButtonDoes) {
    for (const NamedDialog& named : AllDialogs()) {
        const std::size_t count = CountOf(named);
        int pressedInDialog = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const auto clicked =
                OutcomeOf(named, i, [](QAbstractButton& button) { button.click(); });
            if (!clicked) {
                continue;
            }
            EXPECT_EQ(clicked->clicked, std::vector{static_cast<int>(i)}) << named.name << " " << i;
            for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
                if (const auto pressed = OutcomeOf(named, i, Key(key))) {
                    EXPECT_EQ(pressed, clicked) << named.name << " " << i << " key " << key;
                    ++pressedInDialog;
                }
            }
        }
        EXPECT_GE(pressedInDialog, 3) << named.name;
    }
}

TEST_F(ButtonsByKey, EscapeLeavesEveryDialogAndPressesNothing) {
    for (const NamedDialog& named : AllDialogs()) {
        const std::size_t count = CountOf(named);
        for (std::size_t i = 0; i < count; ++i) {
            if (const auto left = OutcomeOf(named, i, Key(Qt::Key_Escape))) {
                EXPECT_EQ(*left, (Outcome{{}, false, QDialog::Rejected})) << named.name << " " << i;
            }
        }
    }
}

TEST_F(ButtonsByKey, ReturnElsewhereTakesTheDefaultOfTheDialog) {
    const std::map<std::string, std::string> defaults = {
        {"frmLayerControl", "cmdOK"},          {"frmMITableDialog", "cmdOK"},
        {"frmFileFormat", "cmdButtons_0"},     {"frmSavePlotsDialog", "cmdAnswer_1"},
        {"frmPrintDialog", "cmdOK_0"},         {"frmPreferences", "cmdOK_0"},
        {"frmRoseDiag", "cmdRoseGo"},          {"frmRotationMenu", "cmdRotGo_0"},
        {"frmDataClassification", "OKButton"}, {"frmDataDisplay", "cmdOK"},
    };
    std::size_t checked = 0;
    for (const NamedDialog& named : AllDialogs()) {
        const auto expected = defaults.find(named.name);
        if (expected == defaults.end()) {
            continue;
        }
        ++checked;
        const std::unique_ptr<QDialog> dialog = named.make(main.get());
        dialog->show();
        QLineEdit elsewhere(dialog.get());
        elsewhere.show();
        elsewhere.setFocus();
        QStringList found;
        for (const QPushButton* button : dialog->findChildren<QPushButton*>()) {
            if (button->isDefault()) {
                found << button->objectName();
            }
        }
        EXPECT_EQ(found, QStringList{expected->second.c_str()}) << named.name;
    }
    EXPECT_EQ(checked, defaults.size());
}

TEST_F(ButtonsByKey, CancelInTheDialogsOfSettingsTakesNothing) {
    gFileDelimiter = ";";
    FormatQuestion question;
    question.command = "None";
    frmFileFormat format(question, main.get());
    dialog_ = &format;
    format.show();
    format.optPrimary[kPrimaryLine]->setChecked(true);
    const std::int16_t former = gPrimaryDataType;
    format.cmdButtons[1]->setFocus();
    QTest::keyClick(format.cmdButtons[1], Qt::Key_Return);
    EXPECT_EQ(format.result(), QDialog::Rejected);
    EXPECT_EQ(gPrimaryDataType, former);
    frmSavePlotsDialog save("Quandrel", "Save it?", main.get());
    dialog_ = &save;
    save.show();
    auto& skipAll = ControlOf<QPushButton>(save, "cmdAnswer_5");
    skipAll.setFocus();
    QTest::keyClick(&skipAll, Qt::Key_Return);
    EXPECT_EQ(save.Answer(), SaveAnswer::SkipAll);
    dialog_ = nullptr;
}

TEST_F(ButtonsByKey, ReturnInABoxOfNumbersLeavesTheSmallCirclesOpen) {
    frmSmallCircle dialog(main.get());
    dialog_ = &dialog;
    dialog.show();
    dialog.txtSmallCircle[0]->setFocus();
    QTest::keyClick(dialog.txtSmallCircle[0], Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    dialog_ = nullptr;
}

TEST_F(ButtonsByKey, EveryBoxAnswersWithTheFocusedButton) {
    closer_.stop();
    WidgetPrompts boxes(*main);
    for (const Buttons set : {Buttons::Ok, Buttons::OkCancel, Buttons::YesNo, Buttons::YesNoCancel,
                              Buttons::AbortRetryIgnore}) {
        for (const Button button : ButtonsOf(set)) {
            for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) {
                QTimer::singleShot(0, [button, key] {
                    QWidget* box = QApplication::activeModalWidget();
                    ASSERT_NE(box, nullptr);
                    auto& control = ControlOf<QPushButton>(*box, "cmd" + ButtonName(button));
                    control.setFocus();
                    QTest::keyClick(&control, key);
                });
                EXPECT_EQ(boxes.Ask({gCaption, "?", Icon::Question, set}), button);
            }
        }
    }
}

TEST_F(ButtonsByKey, ReturnPressesTheButtonsOfPanelsAndBars) {
    closer_.stop();
    int pressed = 0;
    QWidget panel(main.get());
    QPushButton push("Help...", &panel);
    QToolButton tool(&panel);
    QCheckBox tick("Shown", &panel);
    for (QAbstractButton* button : std::initializer_list<QAbstractButton*>{&push, &tool, &tick}) {
        QObject::connect(button, &QAbstractButton::clicked, [&pressed] { ++pressed; });
    }
    panel.show();
    QTest::keyClick(&push, Qt::Key_Return);
    EXPECT_EQ(pressed, 1);
    QTest::keyClick(&tool, Qt::Key_Enter);
    EXPECT_EQ(pressed, 2);
    QTest::keyClick(&tool, Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClick(&tick, Qt::Key_Return);
    EXPECT_EQ(pressed, 2) << "a tick is set by Space";
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QApplication::sendEvent(&push, &held);
    EXPECT_EQ(pressed, 2) << "a key that is held presses once";
}

} // namespace
} // namespace quandrel

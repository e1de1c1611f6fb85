// SPDX-License-Identifier: MIT
//
// A main window over an engine of its own for each test, answered by scripted prompts.

#pragma once

#include "input/file_loading.h"
#include "persistence/open_plot.h"
#include "shell/dialogs/widget_prompts.h"
#include "shell/main/commands.h"
#include "shell/main/geol_plot_main.h"
#include "shell/plot/frm_plot_forms.h"
#include "support/shell_test.h"

#include <QAction>
#include <QLabel>
#include <QMdiArea>
#include <QTest>
#include <QToolButton>

#include <memory>
#include <string>

namespace quandrel {

class MainWindowTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlotKind = kEqualArea;
        main = std::make_unique<GeolPlotMain>();
        gPlatform.prompts = &prompts;
        prompts.OnBox([](const ShownBox& box) {
            EXPECT_FALSE(IsPainting()) << "asked by a paint event: " << box.message.text;
        });
        main->resize(1200, 760);
        main->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(main.get()));
        AcceptFormat({}, 1000);
    }

    void TearDown() override {
        main.reset();
        EngineTest::TearDown();
    }

    /// Opens a file with these lines as the File menu does; returns its slot.
    int OpenFile(const std::string& name, const std::string& text = "30\t120\n45\t270\n60\t15\n") {
        prompts.QueueOpenPath(WriteFile(name, text));
        Press("mnuFileLoad_0");
        return gActivePlot;
    }

    int OpenChanged(const std::string& name) {
        const int slot = OpenFile(name);
        RecordOf(slot).Modified = kTrue;
        return slot;
    }

    [[nodiscard]] QAction& Action(const std::string& name) const {
        return main->AllCommands().Of(QString::fromStdString(name));
    }

    /// Chooses a menu item, which must be enabled.
    void Press(const std::string& name) {
        EXPECT_TRUE(Action(name).isEnabled()) << name;
        Action(name).trigger();
    }

    [[nodiscard]] static frmPlotForms& FormOfSlot(int slot) {
        return static_cast<frmPlotForms&>(FormOf(slot));
    }

    /// The information line.
    [[nodiscard]] QString Info() const { return main->panInfoLine->text(); }

    /// The hint line beside it.
    [[nodiscard]] QString Hint() const { return main->panHintLine->text(); }

    [[nodiscard]] QToolButton& ToolButton(const std::string& name) const {
        return ControlOf<QToolButton>(*main, name);
    }

    [[nodiscard]] QMdiArea& Room() const { return ControlOf<QMdiArea>(*main, "mdiPlots"); }

    std::unique_ptr<GeolPlotMain> main;
};

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// A user who knows nothing: random presses, moves, keys and commands over several plots.

#include "core/data_format.h"
#include "core/plot_life.h"
#include "edit/history/undo.h"
#include "edit/marks/annotations.h"
#include "edit/marks/girdle_pull.h"
#include "edit/marks/girdles.h"
#include "edit/marks/small_circle_pick.h"
#include "edit/selection/marquee.h"
#include "session/start.h"
#include "shell/controls/picture_box.h"
#include "support/main_window_test.h"
#include "support/trial.h"

#include <QLineEdit>
#include <QTabBar>

#include <random>
#include <set>

namespace quandrel {
namespace {

constexpr int kEvents = 20000;
constexpr std::int32_t kManyRows = 300;
constexpr int kManyPlots = 6;

/// Commands that wait for somebody in a dialog of their own, or end the session.
const std::set<QString> kLeftAlone = {
    "mnuFileQuit",        "mnuFileExport",      "mnuFileDirectory",   "mnuFilePrint_0",
    "mnuFilePrint_1",     "mnuFileMILink",      "mnuMapinfo_0",       "mnuHelpQuandrel_0",
    "mnuHelpQuandrel_1",  "mnuEditPreferences", "mnuViewPreferences", "mnuViewUnplotted",
    "mnuEditSelection_6", "mnuHelpAbout",       "mnuHelpCommands"};

class MonkeyTrial : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        gPlatform.prompts = &answers_;
        ClearSelection();
        ForgetUndo();
        gActiveGirdle = 0;
        for (QAction* action : main->findChildren<QAction*>()) {
            if (action->objectName().startsWith("mnu") && !kLeftAlone.contains(action->objectName())
                && action->parent() == &main->AllCommands()) {
                commands_.push_back(action);
            }
        }
        ASSERT_GT(commands_.size(), 60U);
        files_ = {WriteFile("planes.txt", Rows(20, 7)), WriteFile("more.txt", Rows(12, 11))};
    }

    void TearDown() override {
        ClearSelection();
        ForgetUndo();
        gActiveGirdle = 0;
        gPlatform.prompts = &prompts;
        MainWindowTest::TearDown();
    }

    static std::string Rows(int count, int step) {
        std::string text;
        for (int i = 0; i < count; ++i) {
            text += std::to_string(i * step % 91) + "\t" + std::to_string(i * 37 % 360) + "\n";
        }
        return text;
    }

    int Any(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }

    [[nodiscard]] std::vector<int> OpenSlots() const {
        std::vector<int> slots;
        for (int slot = 1; slot <= HighestSlot(); ++slot) {
            if (IsOpenSlot(slot)) {
                slots.push_back(slot);
            }
        }
        return slots;
    }

    PictureBox* AnyNet() {
        const std::vector<int> slots = OpenSlots();
        if (slots.empty()) {
            return nullptr;
        }
        // Mostly the active plot, where something happens.
        const int slot = IsOpenSlot(gActivePlot) && Any(8) != 0
                             ? gActivePlot
                             : slots[static_cast<std::size_t>(Any(static_cast<int>(slots.size())))];
        return FormOfSlot(slot).picStereoArea;
    }

    Qt::KeyboardModifiers AnyKeys() {
        static const Qt::KeyboardModifiers keys[] = {{},
                                                     {},
                                                     {},
                                                     {},
                                                     Qt::ShiftModifier,
                                                     Qt::AltModifier,
                                                     Qt::ShiftModifier | Qt::ControlModifier,
                                                     Qt::ControlModifier};
        return keys[Any(8)];
    }

    void Mouse(QEvent::Type type) {
        PictureBox* net = AnyNet();
        if (net == nullptr) {
            return;
        }
        const QPointF at(Any(std::max(net->width(), 2)), Any(std::max(net->height(), 2)));
        const Qt::MouseButton button = Any(5) == 0 ? Qt::RightButton : Qt::LeftButton;
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(type, at, net->mapToGlobal(at), isMove ? Qt::NoButton : button,
                          isMove ? Qt::MouseButtons(button) : Qt::MouseButtons(), AnyKeys());
        QCoreApplication::sendEvent(net, &event);
        if (QWidget* popup = QApplication::activePopupWidget()) {
            popup->close();
        }
    }

    void Key() {
        static const Qt::Key keys[] = {Qt::Key_Left, Qt::Key_Right,  Qt::Key_Up,
                                       Qt::Key_Down, Qt::Key_Escape, Qt::Key_L};
        if (PictureBox* net = AnyNet()) {
            QKeyEvent event(Any(2) == 0 ? QEvent::KeyPress : QEvent::KeyRelease, keys[Any(6)], {});
            QCoreApplication::sendEvent(net, &event);
        }
    }

    void Command() {
        QAction& action =
            *commands_[static_cast<std::size_t>(Any(static_cast<int>(commands_.size())))];
        if (!action.isEnabled()) {
            return;
        }
        last_ = action.objectName().toStdString();
        if (static_cast<int>(OpenSlots().size()) < kManyPlots) {
            answers_.QueueOpenPath(files_[static_cast<std::size_t>(Any(2))]);
        }
        action.trigger();
    }

    void Girdle() {
        const QString number = QString::number(Any(11));
        if (auto* box = main->findChild<QLineEdit*>("txtGirdle_" + number)) {
            static const char* const texts[] = {"45/120", "", "90-10", "x", "95/10", "12,400"};
            FocusGirdle(number.toInt());
            box->setText(texts[Any(6)]);
            box->setModified(true);
            Q_EMIT box->editingFinished();
        }
    }

    void Layer() {
        if (IsOpenSlot(gActivePlot)) {
            FormOfSlot(gActivePlot).tabLayers->setCurrentIndex(Any(3) == 0 ? 0 : 1);
        }
    }

    void Paste() {
        static const char* const texts[] = {"", "12\t34\n56\t78\n", ";Quandrel", "\n\n", "a\tb\n"};
        if (Any(20) == 0) {
            gPlatform.clipboard->SetText(texts[Any(5)]);
        }
    }

    void Step() {
        switch (Any(16)) {
        case 0:
        case 1:
        case 2:
            Mouse(QEvent::MouseButtonPress);
            break;
        case 3:
        case 4:
        case 5:
        case 6:
        case 7:
            Mouse(QEvent::MouseMove);
            break;
        case 8:
        case 9:
            Mouse(QEvent::MouseButtonRelease);
            break;
        case 10:
            Key();
            break;
        case 11:
            Girdle();
            break;
        case 12:
            Layer();
            break;
        case 13:
            Paste();
            break;
        default:
            Command();
            break;
        }
    }

    /// Keeps the session small: pasting doubles rows.
    void Tidy() {
        for (const int slot : OpenSlots()) {
            if (RecordOf(slot).NumLoadedData > kManyRows) {
                ClosePlot(slot);
                ClearSelectionOf(slot);
                ForgetUndo(slot);
            }
        }
        main->UpdatePlotState();
    }

    ::testing::AssertionResult HoldsTogether() const {
        for (const int slot : OpenSlots()) {
            const PlotRecord& record = RecordOf(slot);
            std::int32_t rows = record.NumData;
            for (int overlay = 1; overlay <= record.OverlayRows[kOverlayCount]; ++overlay) {
                rows += record.OverlayRows[static_cast<std::size_t>(overlay)];
            }
            if (rows != record.NumLoadedData) {
                return ::testing::AssertionFailure()
                       << "plot " << slot << " counts " << rows << " rows, and has loaded "
                       << record.NumLoadedData;
            }
            if (record.NumValidData > record.NumData || record.NumValidData < 0) {
                return ::testing::AssertionFailure() << record.NumValidData << " valid rows of "
                                                     << record.NumData << " in plot " << slot;
            }
            std::set<std::string> tags;
            for (const Annotation& annotation : AnnotationsOf(slot)) {
                if (!tags.insert(annotation.Tag).second) {
                    return ::testing::AssertionFailure() << "two annotations " << annotation.Tag;
                }
            }
        }
        for (const std::int32_t row : gSelectionRows) {
            if (!IsOpenSlot(Selection::now.slot) || row < 1
                || row > RecordOf(Selection::now.slot).NumLoadedData) {
                return ::testing::AssertionFailure() << "row " << row << " is selected";
            }
        }
        if (gBusy || (gActivePlot != 0 && !IsOpenSlot(gActivePlot))) {
            return ::testing::AssertionFailure() << "plot " << gActivePlot << " is the active one";
        }
        return ::testing::AssertionSuccess();
    }

    ScriptedPrompts answers_{ScriptedPrompts::Mode::Batch};
    std::mt19937 random_{20261121};
    std::vector<QAction*> commands_;
    std::vector<std::string> files_;
    std::string last_;
};

TEST_F(MonkeyTrial, TwentyThousandEventsLeaveTheStoreWhole) {
    std::set<std::string> used;
    const int events = TrialRounds(kEvents);
    for (int step = 0; step < events; ++step) {
        Step();
        used.insert(last_);
        ASSERT_TRUE(HoldsTogether()) << "event " << step << ", last command " << last_;
        if (step % 100 == 0) {
            Tidy();
            QApplication::processEvents();
            main->grab();
        }
    }
    EXPECT_GT(used.size(), AreTrialsWhole() ? 50U : 40U) << "most commands were pressed";
}

} // namespace
} // namespace quandrel

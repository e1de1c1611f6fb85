// SPDX-License-Identifier: MIT

#include "shell/main/main_status_line.h"

#include "core/plot_store.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>

#include <utility>

namespace quandrel {

namespace {

constexpr int kNoPlot = 0;

/// The last text about a plot, stored with the plot.
struct ToldLast {
    QString text;
    std::function<bool()> holds; ///< empty for a text that stays until the next one
};

ToldLast& ToldOf(int slot) {
    return PlotOf(slot).attachments.Of<ToldLast>();
}

constexpr int kBarSteps = 1000;

/// Intercepts all user input during its lifetime, and records Esc.
class EscapeWatch : public QObject {
public:
    EscapeWatch() { qApp->installEventFilter(this); }

    [[nodiscard]] bool Pressed() const { return pressed_; }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::ShortcutOverride:
            pressed_ = pressed_ || static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
            return true;
        case QEvent::Close:
            event->ignore();
            return true;
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
            return true;
        default:
            return false;
        }
    }

private:
    bool pressed_ = false;
};

} // namespace

MainStatusLine::MainStatusLine(QLabel& text, QLabel& hint, QProgressBar& bar)
    : label_(text)
    , hintLabel_(hint)
    , bar_(bar) {
    bar_.setMaximum(kBarSteps);
    bar_.hide();
}

void MainStatusLine::SetText(std::string_view text) {
    const QString told = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    ToldOf(gActivePlot) = {told, {}};
    Show(told);
    ShowHints();
    if (gBusy) {
        // The event loop does not run during a step.
        label_.repaint();
    }
}

void MainStatusLine::SetTextWhile(std::string_view text, std::function<bool()> holds) {
    SetText(text);
    ToldOf(gActivePlot).holds = std::move(holds);
}

void MainStatusLine::ShowHint(const QString& hint) {
    hint_ = hint;
    ShowHints();
}

void MainStatusLine::FollowPlot(int slot, const QString& standingHint) {
    standingHint_ = standingHint;
    if (slot != slot_) {
        slot_ = slot;
        hint_.clear();
        Show(ToldOf(slot).text);
    }
    DropWhatHoldsNoLonger(slot);
    ToldOf(kNoPlot) = {};
    ShowHints();
}

void MainStatusLine::Show(const QString& text) {
    text_ = text;
    label_.setText(text);
}

void MainStatusLine::DropWhatHoldsNoLonger(int slot) {
    ToldLast& told = ToldOf(slot);
    if (!told.holds || told.holds()) {
        return;
    }
    if (text_ == told.text) {
        Show({});
    }
    told = {};
}

void MainStatusLine::ShowHints() {
    const QString hint = hint_.isEmpty() ? standingHint_ : hint_;
    hintLabel_.setText(hint == text_ ? QString() : hint);
}

void MainStatusLine::SetProgress(std::int64_t done, std::int64_t maximum) {
    if (maximum <= 0) {
        bar_.hide();
        return;
    }
    bar_.setValue(static_cast<int>(done * kBarSteps / maximum));
    bar_.show();
    bar_.repaint();
}

void MainStatusLine::SetBusy(bool busy) {
    if (busy) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

bool MainStatusLine::CancelRequested() {
    // The only place that processes events within a step: there is no other way to detect a key.
    const EscapeWatch watch;
    QCoreApplication::processEvents();
    return watch.Pressed();
}

} // namespace quandrel

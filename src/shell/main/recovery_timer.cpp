// SPDX-License-Identifier: MIT

#include "shell/main/recovery_timer.h"

#include "core/plot_store.h"
#include "platform/platform.h"
#include "session/closing.h"
#include "shell/controls/ending_text.h"
#include "shell/main/geol_plot_main.h"
#include "shell/plot/frm_plot_forms.h"

#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QPointer>

#include <utility>

namespace quandrel {

namespace {

/// Events that can start an action of the user.
bool StartsWork(QEvent::Type type) {
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::Shortcut:
    case QEvent::Drop:
    case QEvent::MetaCall: // an action that was postponed to the end of an event
        return true;
    default:
        return false;
    }
}

/// False in the middle of a step, when plots may be half changed, and while the user drags.
bool IsAtRest() {
    return !gBusy && QApplication::activeModalWidget() == nullptr
           && QApplication::overrideCursor() == nullptr
           && QApplication::mouseButtons() == Qt::NoButton;
}

} // namespace

std::filesystem::path RecoveryFolder() {
    // A relative path in the variable is invalid, and is ignored.
    const QString named = qEnvironmentVariable("XDG_STATE_HOME");
    const QString states = QDir::isAbsolutePath(named) ? named : QDir::homePath() + "/.local/state";
    return std::filesystem::path(states.toStdU16String()) / "quandrel" / "recovery";
}

RecoveryTimer::RecoveryTimer(GeolPlotMain& window, std::filesystem::path root, RecoveryPace pace)
    : window_(window)
    , session_(std::move(root))
    , pace_(pace) {
    idle_.setSingleShot(true);
    idle_.setInterval(0);
    connect(&idle_, &QTimer::timeout, this, [this] { OnIdle(); });
    connect(&period_, &QTimer::timeout, this, [this] {
        roundDue_ = true;
        idle_.start();
    });
    period_.start(pace_.interval);
    QCoreApplication::instance()->installEventFilter(this);
}

void RecoveryTimer::Offer() {
    for (const int slot : OfferRecovery(session_)) {
        static_cast<frmPlotForms&>(FormOf(slot))
            .AddLayerTab(QString::fromStdString(RecordOf(slot).FileTitle), "Binary");
    }
    window_.UpdatePlotState();
}

bool RecoveryTimer::eventFilter(QObject* object, QEvent* event) {
    if (StartsWork(event->type()) && !idle_.isActive()) {
        work_.start();
        idle_.start();
    }
    return QObject::eventFilter(object, event);
}

void RecoveryTimer::OnIdle() {
    if (work_.isValid() && work_.elapsed() >= pace_.longWork.count()) {
        roundDue_ = true;
    }
    work_.invalidate();
    // A due round waits until the end of a later event, outside of steps and drags.
    if (!IsAtRest()) {
        return;
    }
    session_.DropSettled();
    if (std::exchange(roundDue_, false)) {
        toWrite_ = session_.PlotsToWrite();
    }
    WriteNext();
}

/// Writes one plot at a time, so that events in between are handled first.
void RecoveryTimer::WriteNext() {
    if (toWrite_.empty()) {
        return;
    }
    const int slot = toWrite_.back();
    toWrite_.pop_back();
    if (IsOpenSlot(slot) && HoldsUnsavedData(slot)) {
        (void)session_.Write(slot); // failures are reported at the end of the round
    }
    if (!toWrite_.empty()) {
        idle_.start();
        return;
    }
    if (const std::string failures = session_.FailuresToTell(); !failures.empty()) {
        TellWhile(failures, [timer = QPointer(this)] {
            return timer != nullptr && timer->session_.LacksCopies();
        });
    }
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "shell/main/start_work.h"

#include "shell/main/geol_plot_main.h"
#include "shell/main/recovery_timer.h"

#include <QEvent>
#include <QWindow>

namespace quandrel {

namespace {

/// Waits until a window is exposed for the first time.
class ExposeWatch : public QObject {
public:
    ExposeWatch(QWidget& window, std::function<void()> work)
        : QObject(&window)
        , work_(std::move(work)) {
        handle_ = window.windowHandle();
        handle_->installEventFilter(this);
        Look();
    }

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Expose) {
            // The window receives the event after this filter.
            QMetaObject::invokeMethod(
                this, [this] { Look(); }, Qt::QueuedConnection);
        }
        return QObject::eventFilter(object, event);
    }

private:
    void Look() {
        if (work_ && handle_->isExposed()) {
            handle_->removeEventFilter(this);
            QMetaObject::invokeMethod(parent(), std::exchange(work_, {}), Qt::QueuedConnection);
            deleteLater();
        }
    }

    QWindow* handle_ = nullptr;
    std::function<void()> work_;
};

} // namespace

void RunOnceExposed(QWidget& window, std::function<void()> work) {
    window.winId(); // a window that was never shown has a handle from here on
    new ExposeWatch(window, std::move(work));
}

void StartWork(GeolPlotMain& window, RecoveryTimer& recovery, const QStringList& files) {
    recovery.Offer();
    if (!files.isEmpty()) {
        window.OpenFiles(files);
    }
}

} // namespace quandrel

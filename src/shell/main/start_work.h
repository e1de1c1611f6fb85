// SPDX-License-Identifier: MIT
//
// What the program does once its window has come up.

#pragma once

#include <QStringList>

#include <functional>

class QWidget;

namespace quandrel {

class GeolPlotMain;
class RecoveryTimer;

/// Does a work once a window is seen on the screen, so that its questions stand over the window.
/// At once means after the events that wait.
void RunOnceExposed(QWidget& window, std::function<void()> work);

/// Offers what a session left that was not closed properly, and after the answer opens files.
void StartWork(GeolPlotMain& window, RecoveryTimer& recovery, const QStringList& files);

} // namespace quandrel

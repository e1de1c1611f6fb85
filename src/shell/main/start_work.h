// SPDX-License-Identifier: MIT
//
// What the program does after its window has appeared.

#pragma once

#include <QStringList>

#include <functional>

class QWidget;

namespace quandrel {

class GeolPlotMain;
class RecoveryTimer;

/// Calls a function as soon as a window is visible, so that its questions appear above the window.
/// If the window is visible already, the call follows the pending events.
void RunOnceExposed(QWidget& window, std::function<void()> work);

/// Offers to recover a session that was not closed properly, then opens files.
void StartWork(GeolPlotMain& window, RecoveryTimer& recovery, const QStringList& files);

} // namespace quandrel

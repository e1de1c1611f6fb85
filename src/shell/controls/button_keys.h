// SPDX-License-Identifier: MIT
//
// Return presses the button that has the focus: in dialogs and message boxes, where Qt sees to it
// for push buttons that may become the default, and in panels, bars and drawn buttons as well.

#pragma once

#include <QObject>

namespace quandrel {

class ButtonKeys : public QObject {
public:
    /// Watches the keys of the whole application while it lives.
    explicit ButtonKeys(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace quandrel

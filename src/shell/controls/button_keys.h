// SPDX-License-Identifier: MIT
//
// Return presses the button that has the focus. Qt does this only for push buttons that can become
// the default button in dialogs and message boxes. This class adds panels, bars and custom buttons.

#pragma once

#include <QObject>

namespace quandrel {

class ButtonKeys : public QObject {
public:
    /// Watches the keys of the whole application during its lifetime.
    explicit ButtonKeys(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace quandrel

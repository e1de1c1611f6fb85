// SPDX-License-Identifier: MIT
//
// The desktop's clipboard.

#pragma once

#include "platform/clipboard.h"

namespace quandrel {

/// Needs a QGuiApplication.
class QtClipboard : public Clipboard {
public:
    [[nodiscard]] std::optional<std::string> Text() const override;
    void SetText(const std::string& utf8) override;
};

} // namespace quandrel

// SPDX-License-Identifier: MIT
//
// A private clipboard in memory: for tests, and for scripts.

#pragma once

#include "platform/clipboard.h"

namespace quandrel {

class MemoryClipboard : public Clipboard {
public:
    [[nodiscard]] std::optional<std::string> Text() const override { return text_; }

    void SetText(const std::string& utf8) override { text_ = utf8; }

private:
    std::optional<std::string> text_;
};

} // namespace quandrel

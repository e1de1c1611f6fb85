// SPDX-License-Identifier: MIT
//
// The clipboard's text.

#pragma once

#include <optional>
#include <string>

namespace quandrel {

class Clipboard {
public:
    virtual ~Clipboard() = default;

    /// The text on the clipboard, UTF-8, or nothing when it holds no text.
    [[nodiscard]] virtual std::optional<std::string> Text() const = 0;

    virtual void SetText(const std::string& utf8) = 0;
};

} // namespace quandrel

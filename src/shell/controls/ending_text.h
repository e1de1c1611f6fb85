// SPDX-License-Identifier: MIT
//
// Texts of the status line that disappear when they no longer apply.

#pragma once

#include <functional>
#include <string_view>

namespace quandrel {

/// An additional interface of a status line that can remove its texts.
class EndingTexts {
public:
    virtual ~EndingTexts() = default;

    /// Shows a text about gActivePlot as long as it applies.
    ///
    /// @param holds  called after each command while that plot is in front; false removes the text
    virtual void SetTextWhile(std::string_view text, std::function<bool()> holds) = 0;
};

/// Shows a text on the status line as long as it applies. If the line cannot remove its texts, the
/// text stays until the next one.
void TellWhile(std::string_view text, std::function<bool()> holds);

} // namespace quandrel

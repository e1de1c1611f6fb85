// SPDX-License-Identifier: MIT
//
// Texts of the status line that end by themselves, with what they told of.

#pragma once

#include <functional>
#include <string_view>

namespace quandrel {

/// What a status line is, too, that can end its texts.
class EndingTexts {
public:
    virtual ~EndingTexts() = default;

    /// Tells something of gActivePlot until it is no longer so.
    ///
    /// @param holds  asked after each command while that plot is in front; false ends the text
    virtual void SetTextWhile(std::string_view text, std::function<bool()> holds) = 0;
};

/// Tells something on the status line until it is no longer so; on a line that cannot end its
/// texts, until the next one.
void TellWhile(std::string_view text, std::function<bool()> holds);

} // namespace quandrel

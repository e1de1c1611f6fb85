// SPDX-License-Identifier: MIT

#include "shell/controls/ending_text.h"

#include "platform/platform.h"

#include <utility>

namespace quandrel {

void TellWhile(std::string_view text, std::function<bool()> holds) {
    if (auto* line = dynamic_cast<EndingTexts*>(gPlatform.status)) {
        line->SetTextWhile(text, std::move(holds));
    } else {
        gPlatform.status->SetText(text);
    }
}

} // namespace quandrel

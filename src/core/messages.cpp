// SPDX-License-Identifier: MIT

#include "core/messages.h"

#include "core/plot_store.h"
#include "platform/platform.h"

namespace quandrel {

void Tell(const std::string& text, Icon icon) {
    (void)gPlatform.prompts->Ask({gCaption, text, icon, Buttons::Ok});
}

bool AskToGoOn(const std::string& text, AtStake stake) {
    Message question{gCaption, text, Icon::Question, Buttons::OkCancel};
    if (stake == AtStake::Work) {
        question.safe = Button::Cancel;
    }
    return gPlatform.prompts->Ask(question) == Button::Ok;
}

bool AskYes(const std::string& text, AtStake stake) {
    Message question{gCaption, text, Icon::Question, Buttons::YesNo};
    if (stake == AtStake::Work) {
        question.safe = Button::No;
    }
    return gPlatform.prompts->Ask(question) == Button::Yes;
}

} // namespace quandrel

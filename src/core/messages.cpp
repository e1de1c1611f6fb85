// SPDX-License-Identifier: MIT

#include "core/messages.h"

#include "core/settings.h"
#include "platform/platform.h"

#include <algorithm>

namespace quandrel {

namespace {

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

void Tell(const std::string& text, Icon icon) {
    (void)gPlatform.prompts->Ask({gCaption, text, icon, Buttons::Ok});
}

bool AskToGoOn(const std::string& text) {
    return gPlatform.prompts->Ask({gCaption, text, Icon::Question, Buttons::OkCancel})
           == Button::Ok;
}

std::string FileTitleOf(const std::string& path) {
    const std::size_t slash = path.find_last_of("/\\");
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string LowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), Lower);
    return text;
}

bool EqualWithoutCase(std::string_view a, std::string_view b) {
    // Most texts that are compared are alike to the letter.
    return a == b || std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
               return Lower(x) == Lower(y);
           });
}

bool HasEnding(const std::string& path, std::string_view ending) {
    return path.size() >= ending.size()
           && EqualWithoutCase(std::string_view(path).substr(path.size() - ending.size()), ending);
}

} // namespace quandrel

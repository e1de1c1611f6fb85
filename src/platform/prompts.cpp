// SPDX-License-Identifier: MIT

#include "platform/prompts.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace quandrel {

namespace {

constexpr std::array<std::pair<Button, const char*>, 7> kNames = {{
    {Button::Ok, "OK"},
    {Button::Cancel, "Cancel"},
    {Button::Yes, "Yes"},
    {Button::No, "No"},
    {Button::Abort, "Abort"},
    {Button::Retry, "Retry"},
    {Button::Ignore, "Ignore"},
}};

bool EqualWithoutCase(const std::string& a, const std::string& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
        return std::tolower(x) == std::tolower(y);
    });
}

} // namespace

std::vector<Button> ButtonsOf(Buttons set) {
    switch (set) {
    case Buttons::OkCancel:
        return {Button::Ok, Button::Cancel};
    case Buttons::YesNo:
        return {Button::Yes, Button::No};
    case Buttons::YesNoCancel:
        return {Button::Yes, Button::No, Button::Cancel};
    case Buttons::AbortRetryIgnore:
        return {Button::Abort, Button::Retry, Button::Ignore};
    case Buttons::Ok:
        break;
    }
    return {Button::Ok};
}

Button DefaultButton(Buttons set) {
    switch (set) {
    case Buttons::YesNo:
    case Buttons::YesNoCancel:
        return Button::Yes;
    case Buttons::AbortRetryIgnore:
        return Button::Ignore;
    case Buttons::Ok:
    case Buttons::OkCancel:
        break;
    }
    return Button::Ok;
}

std::string ButtonName(Button button) {
    const auto found = std::find_if(kNames.begin(), kNames.end(),
                                    [button](const auto& name) { return name.first == button; });
    return found->second;
}

std::optional<Button> ButtonFromName(const std::string& name) {
    const auto found = std::find_if(kNames.begin(), kNames.end(), [&name](const auto& known) {
        return EqualWithoutCase(known.second, name);
    });
    return found == kNames.end() ? std::nullopt : std::optional(found->first);
}

} // namespace quandrel

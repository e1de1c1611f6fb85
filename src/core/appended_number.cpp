// SPDX-License-Identifier: MIT

#include "core/appended_number.h"

#include "core/plot_store.h"
#include "orientation/number_text.h"

namespace quandrel {

std::optional<double> ParseAppendedNumber(std::string_view text) {
    const char foreign = gDecimalIsComma ? '.' : ',';
    if (text.find(foreign) != std::string_view::npos) {
        return std::nullopt;
    }
    return ReadNumber(text);
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "core/data_format.h"

namespace quandrel {

std::int16_t DataKindOfSet(bool holdsPlanes, std::int16_t formerKind) {
    if (holdsPlanes) {
        return kPlanes;
    }
    return formerKind == kPolarLines ? kPolarLines : kLines;
}

void FormatBefore::PutBack() const {
    gSettings.format = format;
    gSettings.styles.symbols = symbols;
}

} // namespace quandrel

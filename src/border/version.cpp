// SPDX-License-Identifier: MIT

#include "quandrel/version.h"

namespace quandrel::api {

int ApiVersion() {
    return QUANDREL_API_VERSION;
}

} // namespace quandrel::api

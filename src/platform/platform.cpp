// SPDX-License-Identifier: MIT

#include "platform/platform.h"

#include <algorithm>
#include <thread>

namespace quandrel {

Platform gPlatform;

unsigned ThreadsToUse() {
    const unsigned wanted =
        gPlatform.threads != 0 ? gPlatform.threads : std::thread::hardware_concurrency();
    return std::max(wanted, 1U);
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "platform/platform.h"

namespace quandrel {

Platform gPlatform;

} // namespace quandrel

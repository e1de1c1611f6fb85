// SPDX-License-Identifier: MIT

#include "platform/link_window.h"

namespace quandrel {

MapLinkPort gMapLinkPort;

} // namespace quandrel

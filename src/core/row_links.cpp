// SPDX-License-Identifier: MIT

#include "core/row_links.h"

namespace quandrel {

RowFollower gRowFollower;

} // namespace quandrel

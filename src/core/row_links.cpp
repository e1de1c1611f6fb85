// SPDX-License-Identifier: MIT

#include "core/row_links.h"

namespace quandrel {

RowFollower gRowFollower;
std::function<std::string(int slot)> gLinkedTable;

} // namespace quandrel

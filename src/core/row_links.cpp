// SPDX-License-Identifier: MIT

#include "core/row_links.h"

#include <utility>

namespace quandrel {

namespace {

RowFollower rowFollower;
std::function<void(int slot)> whenClosing;

} // namespace

void ConnectRowFollower(RowFollower follower) {
    rowFollower = std::move(follower);
}

const RowFollower& FollowerOfRows() {
    return rowFollower;
}

void ConnectClosing(std::function<void(int slot)> closing) {
    whenClosing = std::move(closing);
}

void TellOfClosing(int slot) {
    if (whenClosing) {
        whenClosing(slot);
    }
}

} // namespace quandrel

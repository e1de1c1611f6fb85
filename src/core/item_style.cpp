// SPDX-License-Identifier: MIT

#include "core/item_style.h"

namespace quandrel {

std::size_t StyleRowOfItem(int item) {
    if (item == kMeanItem) {
        return kMeanGirdleStyle;
    }
    return item <= kLastUserGirdle ? kUserGirdleStyle : kCalculatedGirdleStyle;
}

void SetStyleOfItem(AxisItem& item, const AxisStyle& style) {
    item[kItemColour] = style[kStyleColour];
    item[kItemDrawStyle] = style[kStyleLine];
    item[kItemDrawWidth] = style[kStyleWidth];
}

bool HasStyleOfItem(const AxisItem& item, const AxisStyle& style) {
    return NumberOf(item[kItemColour]) == style[kStyleColour]
           && NumberOf(item[kItemDrawStyle]) == style[kStyleLine]
           && NumberOf(item[kItemDrawWidth]) == style[kStyleWidth];
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "shell/controls/flow_layout.h"

#include <algorithm>

namespace quandrel {

FlowLayout::FlowLayout(QWidget* parent, int gap)
    : QLayout(parent)
    , gap_(gap) {
    setContentsMargins(0, 0, 0, 0);
}

void FlowLayout::addItem(QLayoutItem* item) {
    items_.emplace_back(item);
}

int FlowLayout::count() const {
    return static_cast<int>(items_.size());
}

QLayoutItem* FlowLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
    if (itemAt(index) == nullptr) {
        return nullptr;
    }
    QLayoutItem* const item = items_[static_cast<std::size_t>(index)].release();
    items_.erase(items_.begin() + index);
    return item;
}

int FlowLayout::heightForWidth(int width) const {
    return Arrange({0, 0, width, 0}, false);
}

QSize FlowLayout::minimumSize() const {
    QSize size;
    for (const auto& item : items_) {
        size = size.expandedTo(item->minimumSize());
    }
    return size;
}

QSize FlowLayout::sizeHint() const {
    QSize size;
    for (const auto& item : items_) {
        if (!item->isEmpty()) {
            const QSize own = item->sizeHint();
            size = {size.width() + own.width() + gap_, std::max(size.height(), own.height())};
        }
    }
    return size;
}

void FlowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    (void)Arrange(rect, true);
}

/// The height of all rows; places the items if `moves`.
int FlowLayout::Arrange(const QRect& rect, bool moves) const {
    int top = rect.top();
    for (std::size_t first = 0; first < items_.size();) {
        int width = 0;
        int height = 0;
        std::size_t last = first;
        for (; last < items_.size(); ++last) {
            const QSize size = items_[last]->isEmpty() ? QSize(0, 0) : items_[last]->sizeHint();
            if (last > first && width + size.width() > rect.width()) {
                break;
            }
            width += size.width() + (size.isEmpty() ? 0 : gap_);
            height = std::max(height, size.height());
        }
        int left = rect.left();
        for (std::size_t i = first; moves && i < last; ++i) {
            if (!items_[i]->isEmpty()) {
                const QSize size = items_[i]->sizeHint();
                items_[i]->setGeometry({QPoint(left, top + (height - size.height()) / 2), size});
                left += size.width() + gap_;
            }
        }
        top += height + (last < items_.size() ? gap_ : 0);
        first = last;
    }
    return top - rect.top();
}

} // namespace quandrel

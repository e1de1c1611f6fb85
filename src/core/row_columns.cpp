// SPDX-License-Identifier: MIT

#include "core/row_columns.h"

#include <algorithm>
#include <limits>
#include <new>

namespace quandrel {

std::string_view RowTexts::operator()(std::int32_t row) const {
    const Place place = places_(row);
    if (place.length == 0) {
        return {};
    }
    return {texts_.data() + place.offset, place.length};
}

void RowTexts::Set(std::int32_t row, std::string_view text) {
    Place& place = places_.At(row);
    unused_ += place.length;
    place = {};
    if (unused_ > texts_.size() / 2 && unused_ > 4096) {
        Compact();
    }
    RequireRoom(text.size());
    const auto offset = static_cast<std::uint32_t>(texts_.size());
    texts_.insert(texts_.end(), text.begin(), text.end());
    place = {offset, static_cast<std::uint32_t>(text.size())};
}

void RowTexts::TakeRows(const RowTexts& from, std::int32_t count, std::int32_t last) {
    RequireRoom(from.texts_.size());
    const auto start = static_cast<std::uint32_t>(texts_.size());
    texts_.insert(texts_.end(), from.texts_.begin(), from.texts_.end());
    unused_ += from.unused_;
    for (std::int32_t row = 1; row <= count; ++row) {
        Place& place = places_.At(last + row);
        unused_ += place.length;
        place = from.places_(row);
        place.offset += start;
    }
}

void RowTexts::Clear() {
    std::fill(places_.Rows().begin(), places_.Rows().end(), Place{});
    texts_.clear();
    unused_ = 0;
}

void RowTexts::Release() {
    places_.Release();
    std::vector<char>().swap(texts_);
    unused_ = 0;
}

void RowTexts::RequireRoom(std::size_t bytes) const {
    if (bytes > std::numeric_limits<std::uint32_t>::max() - texts_.size()) {
        throw std::bad_alloc();
    }
}

void RowTexts::Compact() {
    std::vector<char> kept;
    kept.reserve(texts_.size() - unused_);
    for (Place& place : places_.Rows()) {
        const auto offset = static_cast<std::uint32_t>(kept.size());
        const char* text = texts_.data() + place.offset;
        kept.insert(kept.end(), text, text + place.length);
        place.offset = offset;
    }
    texts_ = std::move(kept);
    unused_ = 0;
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "core/data_columns.h"

#include <limits>
#include <new>

namespace quandrel {

std::string_view TextColumn::operator()(int slot, std::int32_t row) const {
    const Place place = places_(slot, row);
    if (place.length == 0) {
        return {};
    }
    return {texts_[static_cast<std::size_t>(slot)].data() + place.offset, place.length};
}

void TextColumn::Set(int slot, std::int32_t row, std::string_view text) {
    const auto s = static_cast<std::size_t>(slot);
    if (s >= texts_.size()) {
        texts_.resize(s + 1);
        unused_.resize(s + 1);
    }
    Place& place = places_.At(slot, row);
    unused_[s] += place.length;
    place = {};
    if (unused_[s] > texts_[s].size() / 2 && unused_[s] > 4096) {
        Compact(slot);
    }
    std::vector<char>& buffer = texts_[s];
    if (text.size() > std::numeric_limits<std::uint32_t>::max() - buffer.size()) {
        throw std::bad_alloc();
    }
    const auto offset = static_cast<std::uint32_t>(buffer.size());
    buffer.insert(buffer.end(), text.begin(), text.end());
    place = {offset, static_cast<std::uint32_t>(text.size())};
}

void TextColumn::Release(int slot) {
    const auto s = static_cast<std::size_t>(slot);
    places_.Release(slot);
    if (s < texts_.size()) {
        decltype(texts_)::value_type().swap(texts_[s]);
        unused_[s] = 0;
    }
}

void TextColumn::Reset() {
    places_.Reset();
    texts_.clear();
    unused_.clear();
}

void TextColumn::Compact(int slot) {
    const auto s = static_cast<std::size_t>(slot);
    std::vector<char> kept;
    kept.reserve(texts_[s].size() - unused_[s]);
    const auto rows = static_cast<std::int32_t>(places_.Rows(slot).size());
    for (std::int32_t row = 0; row < rows; ++row) {
        Place& place = places_.At(slot, row);
        const auto offset = static_cast<std::uint32_t>(kept.size());
        const char* text = texts_[s].data() + place.offset;
        kept.insert(kept.end(), text, text + place.length);
        place.offset = offset;
    }
    texts_[s] = std::move(kept);
    unused_[s] = 0;
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "density/axis_list.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace quandrel {

namespace {

/// As many axes as a list copies at once; those after the end of a run are overwritten later.
constexpr std::size_t kCopied = AxisCells::kBeyond;

} // namespace

void AxisList::Clear(std::size_t room) {
    count_ = 0;
    runs_.clear();
    if (norths_.size() < room + kCopied) {
        norths_.resize(room + kCopied);
        easts_.resize(room + kCopied);
        downs_.resize(room + kCopied);
    }
}

void AxisList::Append(const AxisRun& run) {
    if (run.first == run.end) {
        return;
    }
    runs_.push_back({run, count_});
    const auto first = static_cast<std::size_t>(run.first);
    const auto length = static_cast<std::size_t>(run.end) - first;
    const AxisColumns from = axes_->Columns().From(first);
    for (std::size_t i = 0; i < length; i += kCopied) {
        std::memcpy(&norths_[count_ + i], from.norths + i, kCopied * sizeof(float));
        std::memcpy(&easts_[count_ + i], from.easts + i, kCopied * sizeof(float));
        std::memcpy(&downs_[count_ + i], from.downs + i, kCopied * sizeof(float));
    }
    count_ += length;
}

std::int32_t AxisList::CountWithin(const Direction& centre, double cosine) const {
    constexpr std::size_t kMany = 256;
    constexpr std::size_t kFew = 16;
    const RoughCone cone(centre, cosine, cosine);
    std::int32_t count = 0;
    for (std::size_t first = 0; first < count_; first += kMany) {
        const std::size_t end = std::min(first + kMany, count_);
        const CountBounds many = CountRoughly(Columns().From(first), end - first, cone);
        count += many.least;
        // The narrower the search for the axes in doubt, the sooner they are found.
        for (std::size_t i = first; i < end && !many.AreEqual(); i += kFew) {
            const std::size_t last = std::min(i + kFew, end);
            if (!CountRoughly(Columns().From(i), last - i, cone).AreEqual()) {
                count += CountDoubtful(i, last, cone, centre, cosine);
            }
        }
    }
    return count;
}

/// How many of the axes that lie near the bound of a cone lie within it.
std::int32_t AxisList::CountDoubtful(std::size_t first, std::size_t end, const RoughCone& cone,
                                     const Direction& centre, double cosine) const {
    std::int32_t count = 0;
    for (std::size_t i = first; i < end; ++i) {
        const float rough = cone.CosineTo(Columns(), i);
        if (rough >= cone.outerCosine && rough < cone.innerCosine) {
            count += AreWithin(axes_->AxisAt(PlaceOf(i)), centre, cosine) ? 1 : 0;
        }
    }
    return count;
}

std::int32_t AxisList::PlaceOf(std::size_t i) const {
    const auto after =
        std::upper_bound(runs_.begin(), runs_.end(), i,
                         [](std::size_t place, const ListedRun& run) { return place < run.at; });
    const ListedRun& listed = *std::prev(after);
    return listed.run.first + static_cast<std::int32_t>(i - listed.at);
}

AxisList AxisList::Between(const RoughCone& cones, std::int32_t& inside) const {
    constexpr std::int32_t kShort = 32;
    AxisList list(*axes_);
    list.Clear(count_);
    for (const ListedRun& listed : runs_) {
        const AxisRun& whole = listed.run;
        for (std::int32_t first = whole.first; first < whole.end; first += kShort) {
            const AxisRun run{first, std::min(first + kShort, whole.end)};
            const std::size_t at = listed.at + static_cast<std::size_t>(first - whole.first);
            const CountBounds bounds = CountRoughly(
                Columns().From(at), static_cast<std::size_t>(run.end - run.first), cones);
            if (bounds.AreEqual()) {
                inside += bounds.least;
            } else {
                list.Append(run);
            }
        }
    }
    return list;
}

} // namespace quandrel

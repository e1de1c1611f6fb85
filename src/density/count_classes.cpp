// SPDX-License-Identifier: MIT

#include "density/count_classes.h"

#include "density/axis_list.h"
#include "density/cell_bounds.h"
#include "density/shared_work.h"
#include "orientation/direction_vectors.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <iterator>
#include <numeric>
#include <span>

namespace quandrel {

namespace {

using ClassOf = std::function<std::int32_t(std::int32_t)>;

/// A cell whose counts its bounds do not settle.
struct OpenCell {
    int ring = 0;
    int cell = 0;
    CountBounds bounds;
};

double Component(const Direction& axis, int component) {
    return component == 0 ? axis.l : component == 1 ? axis.m : axis.n;
}

/// Some axes that are close together, with a cone that holds them all.
struct AxisGroup {
    Direction middle;
    double radius = 0; ///< radians
    int widest = 0;    ///< the component that differs most
    bool areEqual = true;

    AxisGroup(const AxisCells& axes, std::span<const std::int32_t> places);
};

AxisGroup::AxisGroup(const AxisCells& axes, std::span<const std::int32_t> places) {
    Direction low = axes.AxisAt(places.front());
    Direction high = low;
    for (const std::int32_t place : places) {
        const Direction axis = axes.AxisAt(place);
        low = {std::min(low.l, axis.l), std::min(low.m, axis.m), std::min(low.n, axis.n)};
        high = {std::max(high.l, axis.l), std::max(high.m, axis.m), std::max(high.n, axis.n)};
    }
    const Direction size{high.l - low.l, high.m - low.m, high.n - low.n};
    for (int component = 1; component < 3; ++component) {
        widest = Component(size, component) > Component(size, widest) ? component : widest;
    }
    areEqual = Component(size, widest) == 0;
    const Direction sum{high.l + low.l, high.m + low.m, high.n + low.n};
    middle = Normalised(sum);
    double chord = 0;
    for (const std::int32_t place : places) {
        const Direction axis = axes.AxisAt(place);
        chord =
            std::max(chord, LengthOf({axis.l - middle.l, axis.m - middle.m, axis.n - middle.n}));
    }
    radius = 2 * std::asin(chord / 2);
}

/// Finds the classes cell by cell. Threads share it.
class ClassFinder {
public:
    ClassFinder(const AxisCells& axes, double halfAngle, const ClassOf& classOf, unsigned threads)
        : axes_(axes)
        , halfAngle_(halfAngle)
        , cosine_(std::cos(halfAngle))
        , classOf_(classOf)
        , threads_(threads)
        , cones_(static_cast<std::size_t>(axes.Rings().Rings())) {
        classes_.ofAxis.resize(static_cast<std::size_t>(axes.Count()));
    }

    [[nodiscard]] CountClasses Find() {
        const std::vector<OpenCell> open = SettleByBounds();
        std::vector<AxisList> borders(threads_, AxisList(axes_));
        ShareWork(static_cast<std::int64_t>(open.size()), kCellsAtOnce, threads_,
                  [&](unsigned thread, std::int64_t first, std::int64_t end) {
                      for (std::int64_t i = first; i < end; ++i) {
                          SettleCell(open[static_cast<std::size_t>(i)], borders[thread]);
                      }
                  });
        classes_.greatest = greatest_;
        return std::move(classes_);
    }

private:
    static constexpr std::int64_t kCellsAtOnce = 4;
    static constexpr std::size_t kFewAxes = 3;    ///< fewer are counted each by itself
    static constexpr std::size_t kSomeAxes = 16;  ///< more are always halved
    static constexpr std::size_t kManyAxes = 256; ///< so many are worth a shorter border

    /// Settles the cells that need no counts and returns the others.
    std::vector<OpenCell> SettleByBounds() {
        const RingTotals totals(axes_, threads_);
        std::vector<std::vector<OpenCell>> ofRings(cones_.size());
        ShareWork(axes_.Rings().Rings(), 1, threads_,
                  [&](unsigned, std::int64_t ring, std::int64_t) {
                      ofRings[static_cast<std::size_t>(ring)] =
                          SettleRing(totals, static_cast<int>(ring));
                  });
        std::vector<OpenCell> open;
        for (const std::vector<OpenCell>& ofRing : ofRings) {
            std::copy_if(ofRing.begin(), ofRing.end(), std::back_inserter(open),
                         [this](const OpenCell& cell) { return !IsSettled(cell.bounds); });
        }
        PutDensestFirst(open);
        return open;
    }

    /// The greatest count is then known early, and few other cells have to be counted for it.
    static void PutDensestFirst(std::vector<OpenCell>& open) {
        constexpr std::ptrdiff_t kFirst = 64;
        const auto end = open.begin() + std::min(kFirst, std::ssize(open));
        std::partial_sort(open.begin(), end, open.end(), [](const OpenCell& a, const OpenCell& b) {
            return a.bounds.most > b.bounds.most;
        });
    }

    std::vector<OpenCell> SettleRing(const RingTotals& totals, int ring) {
        std::vector<OpenCell> open;
        const int turn = axes_.Rings().Trends();
        const AxisRun all = axes_.RunOf(ring, 0, turn);
        if (all.first == all.end) {
            return open;
        }
        auto& cones = cones_[static_cast<std::size_t>(ring)];
        cones = ConesAbout(axes_.Rings(), ring, halfAngle_);
        const std::vector<CountBounds> bounds = BoundsOfRing(totals, cones, turn);
        for (int cell = 0; cell < turn; ++cell) {
            const CountBounds& own = bounds[static_cast<std::size_t>(cell)];
            const AxisRun run = axes_.RunOf(ring, cell, cell + 1);
            if (run.first == run.end) {
                continue;
            }
            Raise(own.least);
            const std::int32_t lowest = classOf_(own.least);
            if (lowest == classOf_(own.most)) {
                for (std::int32_t place = run.first; place < run.end; ++place) {
                    Store(place, lowest);
                }
            }
            if (!IsSettled(own)) {
                open.push_back({ring, cell, own});
            }
        }
        return open;
    }

    void SettleCell(const OpenCell& open, AxisList& border) {
        if (IsSettled(open.bounds)) {
            return; // a greater count has been found
        }
        border.Clear(static_cast<std::size_t>(open.bounds.most - open.bounds.least));
        for (const auto& [ring, arcs] : cones_[static_cast<std::size_t>(open.ring)]) {
            const auto append = [&border](const AxisRun& run) { border.Append(run); };
            axes_.VisitArc(ring, open.cell + arcs.first, open.cell + arcs.firstInside, append);
            axes_.VisitArc(ring, open.cell + arcs.endInside, open.cell + arcs.end, append);
        }
        const AxisRun own = axes_.RunOf(open.ring, open.cell, open.cell + 1);
        std::vector<std::int32_t> places(static_cast<std::size_t>(own.end - own.first));
        std::iota(places.begin(), places.end(), own.first);
        SettleGroup(places, border, open.bounds.least);
    }

    /// Settles some axes of a cell, by their common bounds or else each half by itself.
    ///
    /// @param border  the axes that may lie within cones about them
    /// @param inside  how many other axes lie within each cone
    void SettleGroup(std::span<std::int32_t> places, const AxisList& border, std::int32_t inside) {
        if (places.size() < kFewAxes) {
            CountEach(places, border, inside);
            return;
        }
        const AxisGroup group(axes_, places);
        if (group.areEqual) {
            StoreCount(places, inside + border.CountWithin(axes_.AxisAt(places.front()), cosine_));
            return;
        }
        const double inner = group.radius < halfAngle_ ? std::cos(halfAngle_ - group.radius) : 2;
        const RoughCone cones(group.middle, inner, std::cos(halfAngle_ + group.radius));
        CountBounds bounds = border.Count(cones);
        bounds.least += inside;
        bounds.most += inside;
        if (IsSettled(bounds)) {
            StoreAll(places, classOf_(bounds.least));
        } else if (places.size() <= kSomeAxes && !AreHalvesPromising(bounds)) {
            CountEach(places, border, inside);
        } else if (places.size() < kManyAxes) {
            SettleHalves(places, group.widest, border, inside);
        } else {
            const AxisList shorter = border.Between(cones, inside);
            SettleHalves(places, group.widest, shorter, inside);
        }
    }

    /// Bounds of half a group are closer, but seldom settle it if much closer ones would not.
    [[nodiscard]] bool AreHalvesPromising(const CountBounds& bounds) const {
        const std::int32_t third = (bounds.most - bounds.least) / 3;
        return IsSettled({bounds.least + third, bounds.most - third});
    }

    void SettleHalves(std::span<std::int32_t> places, int component, const AxisList& border,
                      std::int32_t inside) {
        const auto half = places.begin() + std::ssize(places) / 2;
        std::nth_element(places.begin(), half, places.end(), [&](std::int32_t a, std::int32_t b) {
            return Component(axes_.AxisAt(a), component) < Component(axes_.AxisAt(b), component);
        });
        SettleGroup({places.begin(), half}, border, inside);
        SettleGroup({half, places.end()}, border, inside);
    }

    void CountEach(std::span<const std::int32_t> places, const AxisList& border,
                   std::int32_t inside) {
        for (const std::int32_t& place : places) {
            StoreCount({&place, 1}, inside + border.CountWithin(axes_.AxisAt(place), cosine_));
        }
    }

    void StoreCount(std::span<const std::int32_t> places, std::int32_t count) {
        Raise(count);
        StoreAll(places, classOf_(count));
    }

    void StoreAll(std::span<const std::int32_t> places, std::int32_t ofAxes) {
        for (const std::int32_t place : places) {
            Store(place, ofAxes);
        }
    }

    void Store(std::int32_t place, std::int32_t ofAxis) {
        classes_.ofAxis[static_cast<std::size_t>(axes_.NumberAt(place))] = ofAxis;
    }

    /// Whether all counts between bounds have one class and none is greater than one found.
    [[nodiscard]] bool IsSettled(const CountBounds& bounds) const {
        return bounds.most <= greatest_.load(std::memory_order_relaxed)
               && classOf_(bounds.least) == classOf_(bounds.most);
    }

    void Raise(std::int32_t count) {
        std::int32_t former = greatest_.load();
        while (former < count && !greatest_.compare_exchange_weak(former, count)) {
        }
    }

    const AxisCells& axes_;
    double halfAngle_;
    double cosine_;
    const ClassOf& classOf_;
    unsigned threads_;
    std::vector<std::vector<ArcsOfRing>> cones_; ///< of the rings that have axes
    std::atomic<std::int32_t> greatest_ = 0;
    CountClasses classes_;
};

} // namespace

CountClasses ClassesOfCounts(const AxisCells& axes, double halfAngle, const ClassOf& classOf,
                             unsigned threads) {
    return ClassFinder(axes, halfAngle, classOf, threads).Find();
}

} // namespace quandrel

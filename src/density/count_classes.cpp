// SPDX-License-Identifier: MIT

#include "density/count_classes.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <thread>

namespace quandrel {

namespace {

using ClassOf = std::function<std::int32_t(std::int32_t)>;

/// Running totals along each ring, over one turn below and two turns above the first cell.
class RingTotals {
public:
    explicit RingTotals(const AxisCells& axes)
        : turn_(axes.Rings().Trends())
        , totals_(static_cast<std::size_t>(axes.Rings().Rings()) * Width()) {
        for (int ring = 0; ring < axes.Rings().Rings(); ++ring) {
            std::int32_t* const totals = &totals_[static_cast<std::size_t>(ring) * Width()];
            const std::int32_t first = axes.RunOf(ring, 0, 0).first;
            const std::int32_t all = axes.RunOf(ring, 0, turn_).end - first;
            for (int cell = 0; cell <= turn_; ++cell) {
                const std::int32_t total = axes.RunOf(ring, cell, cell).first - first;
                for (int turns = 0; turns < kTurns; ++turns) {
                    totals[turns * turn_ + cell] = total + turns * all;
                }
            }
        }
    }

    /// The total before a cell, -Trends to 2 Trends. Totals of consecutive cells follow one
    /// another.
    [[nodiscard]] const std::int32_t* Before(int ring, int cell) const {
        return &totals_[static_cast<std::size_t>(ring) * Width()
                        + static_cast<std::size_t>(cell + turn_)];
    }

    [[nodiscard]] int Turn() const { return turn_; }

private:
    static constexpr int kTurns = 3;

    [[nodiscard]] std::size_t Width() const { return static_cast<std::size_t>(kTurns * turn_) + 1; }

    int turn_;
    std::vector<std::int32_t> totals_;
};

/// An arc of a ring relative to a cell: cells from `first` to before `end` on.
struct RelativeArc {
    int ring = 0;
    int first = 0;
    int end = 0;
};

/// The arcs of a cone about any point of a cell, the same for all cells of a ring.
struct ConesOfRing {
    std::vector<RelativeArc> inside; ///< in every such cone
    std::vector<RelativeArc> border; ///< in some of them, or in part

    void Add(const CellRings& rings, const ConeReach& narrow, const ConeReach& wide, double place);
};

/// @param narrow,wide  the reaches of the cones less and more the radius of a cell
/// @param place        of the middle of the arcs in cells, relative to the cell
void ConesOfRing::Add(const CellRings& rings, const ConeReach& narrow, const ConeReach& wide,
                      double place) {
    int ring = wide.first;
    for (const Reach& outer : wide.rings) {
        const int inNarrow = ring - narrow.first;
        const bool isInNarrow = inNarrow >= 0 && inNarrow < static_cast<int>(narrow.rings.size());
        const double inner =
            isInNarrow ? narrow.rings[static_cast<std::size_t>(inNarrow)].inner : -1;
        const CellArcs arcs = ArcsOf({inner, outer.outer}, place, rings);
        inside.push_back({ring, arcs.firstInside, arcs.endInside});
        border.push_back({ring, arcs.first, arcs.firstInside});
        border.push_back({ring, arcs.endInside, arcs.end});
        ++ring;
    }
    const auto isEmpty = [](const RelativeArc& arc) { return arc.first >= arc.end; };
    std::erase_if(inside, isEmpty);
    std::erase_if(border, isEmpty);
}

ConesOfRing ConesAbout(const CellRings& rings, int ring, double halfAngle) {
    const double plunge = rings.MiddleOf(ring);
    const double radius = rings.RadiusOfCell(ring);
    ConesOfRing cones;
    ConeReach narrow;
    ConeReach wide;
    rings.FindNear(plunge, halfAngle + radius, wide);
    if (halfAngle > radius) {
        rings.FindNear(plunge, halfAngle - radius, narrow);
    }
    cones.Add(rings, narrow, wide, 0.5);
    rings.FindFar(plunge, halfAngle + radius, wide);
    narrow = {};
    if (halfAngle > radius) {
        rings.FindFar(plunge, halfAngle - radius, narrow);
    }
    cones.Add(rings, narrow, wide, 0.5 + rings.Trends() / 2.0);
    return cones;
}

/// Adds the axes of arcs about each cell of a ring.
void AddArcs(const RingTotals& totals, const std::vector<RelativeArc>& arcs,
             std::vector<std::int32_t>& sums) {
    for (const RelativeArc& arc : arcs) {
        const std::int32_t* const upper = totals.Before(arc.ring, arc.end);
        const std::int32_t* const lower = totals.Before(arc.ring, arc.first);
        for (std::size_t cell = 0; cell < sums.size(); ++cell) {
            sums[cell] += upper[cell] - lower[cell];
        }
    }
}

/// Finds the classes ring by ring. Threads share it.
class ClassFinder {
public:
    ClassFinder(const AxisCells& axes, double halfAngle, const ClassOf& classOf)
        : axes_(axes)
        , halfAngle_(halfAngle)
        , cosine_(std::cos(halfAngle))
        , classOf_(classOf)
        , totals_(axes)
        , rings_(static_cast<std::size_t>(axes.Rings().Rings())) {
        classes_.ofAxis.resize(static_cast<std::size_t>(axes.Count()));
    }

    [[nodiscard]] CountClasses Find(unsigned threads) {
        Share(threads, [this](int ring) { FindBounds(ring); });
        CountDensestCell();
        Share(threads, [this](int ring) { SettleRing(ring); });
        classes_.greatest = greatest_;
        return std::move(classes_);
    }

private:
    /// The bounds of the counts about the axes of each cell of a ring.
    struct RingBounds {
        std::vector<std::int32_t> least;
        std::vector<std::int32_t> beyond; ///< how many the border may add
    };

    template <class Work>
    void Share(unsigned threads, const Work& work) {
        std::atomic<int> next = 0;
        const auto takeRings = [&] {
            for (int ring = next++; ring < axes_.Rings().Rings(); ring = next++) {
                work(ring);
            }
        };
        std::vector<std::jthread> others; // their destructors wait for them
        for (unsigned thread = 1; thread < threads; ++thread) {
            others.emplace_back(takeRings);
        }
        takeRings();
    }

    void FindBounds(int ring) {
        const AxisRun all = axes_.RunOf(ring, 0, totals_.Turn());
        if (all.first == all.end) {
            return;
        }
        RingBounds& bounds = rings_[static_cast<std::size_t>(ring)];
        bounds.least.resize(static_cast<std::size_t>(totals_.Turn()));
        bounds.beyond.resize(static_cast<std::size_t>(totals_.Turn()));
        const ConesOfRing cones = ConesAbout(axes_.Rings(), ring, halfAngle_);
        AddArcs(totals_, cones.inside, bounds.least);
        AddArcs(totals_, cones.border, bounds.beyond);
    }

    /// Counts about the axes of the cell that promises most, for a first bound of the greatest.
    void CountDensestCell() {
        int densest = -1;
        int cellOfDensest = 0;
        std::int32_t most = -1;
        for (int ring = 0; ring < axes_.Rings().Rings(); ++ring) {
            const RingBounds& bounds = rings_[static_cast<std::size_t>(ring)];
            for (std::size_t cell = 0; cell < bounds.least.size(); ++cell) {
                const int place = static_cast<int>(cell);
                const AxisRun run = axes_.RunOf(ring, place, place + 1);
                const std::int32_t sum = 2 * bounds.least[cell] + bounds.beyond[cell];
                if (run.first < run.end && sum > most) {
                    densest = ring;
                    cellOfDensest = place;
                    most = sum;
                }
            }
        }
        if (densest >= 0) {
            CountCell(ConesAbout(axes_.Rings(), densest, halfAngle_), densest, cellOfDensest);
        }
    }

    void SettleRing(int ring) {
        const RingBounds& bounds = rings_[static_cast<std::size_t>(ring)];
        if (bounds.least.empty()) {
            return;
        }
        const ConesOfRing cones = ConesAbout(axes_.Rings(), ring, halfAngle_);
        for (int cell = 0; cell < totals_.Turn(); ++cell) {
            const AxisRun run = axes_.RunOf(ring, cell, cell + 1);
            if (run.first == run.end) {
                continue;
            }
            const std::int32_t least = bounds.least[static_cast<std::size_t>(cell)];
            const std::int32_t most = least + bounds.beyond[static_cast<std::size_t>(cell)];
            const std::int32_t lowest = classOf_(least);
            if (most > greatest_.load() || lowest != classOf_(most)) {
                CountCell(cones, ring, cell);
            } else {
                for (std::int32_t place = run.first; place < run.end; ++place) {
                    classes_.ofAxis[static_cast<std::size_t>(axes_.NumberAt(place))] = lowest;
                }
            }
        }
    }

    /// Counts about each axis of a cell.
    void CountCell(const ConesOfRing& cones, int ring, int cell) {
        const std::int32_t inside =
            rings_[static_cast<std::size_t>(ring)].least[static_cast<std::size_t>(cell)];
        std::vector<AxisRun> border;
        for (const RelativeArc& arc : cones.border) {
            axes_.VisitArc(arc.ring, cell + arc.first, cell + arc.end,
                           [&border](const AxisRun& run) { border.push_back(run); });
        }
        const AxisRun own = axes_.RunOf(ring, cell, cell + 1);
        for (std::int32_t place = own.first; place < own.end; ++place) {
            const Direction axis = axes_.AxisAt(place);
            std::int32_t count = inside;
            for (const AxisRun& run : border) {
                count += axes_.CountInRun(run, axis, cosine_);
            }
            Raise(count);
            classes_.ofAxis[static_cast<std::size_t>(axes_.NumberAt(place))] = classOf_(count);
        }
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
    RingTotals totals_;
    std::vector<RingBounds> rings_;
    std::atomic<std::int32_t> greatest_ = 0;
    CountClasses classes_;
};

} // namespace

CountClasses ClassesOfCounts(const AxisCells& axes, double halfAngle, const ClassOf& classOf,
                             unsigned threads) {
    return ClassFinder(axes, halfAngle, classOf).Find(threads);
}

} // namespace quandrel

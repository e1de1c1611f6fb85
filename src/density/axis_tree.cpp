// SPDX-License-Identifier: MIT

#include "density/axis_tree.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <numeric>
#include <thread>
#include <tuple>

namespace quandrel {

namespace {

constexpr int kLevels = 15;            ///< a cell of the last is 10 seconds of arc wide
constexpr std::int32_t kFewLeaves = 8; ///< a cell of so few is not divided
constexpr double kMargin = 1e-12;      ///< sums of products are good to a thousandth of it
constexpr std::int32_t kSamples = 256; ///< cones that give a first bound of the greatest count
constexpr std::size_t kCellsForThreads = 256;

double Product(const Direction& a, const Direction& b) {
    return a.l * b.l + a.m * b.m + a.n * b.n;
}

bool ComesBefore(const Direction& a, const Direction& b) {
    return std::tie(a.l, a.m, a.n) < std::tie(b.l, b.m, b.n);
}

bool AreEqual(const Direction& a, const Direction& b) {
    return a.l == b.l && a.m == b.m && a.n == b.n;
}

/// The axis in the sense in which its largest component is positive.
Direction Folded(const Direction& axis, int face) {
    const double largest = face == 0 ? axis.l : face == 1 ? axis.m : axis.n;
    return largest < 0 ? Direction{-axis.l, -axis.m, -axis.n} : axis;
}

int FaceOf(const Direction& axis) {
    const double l = std::abs(axis.l);
    const double m = std::abs(axis.m);
    const double n = std::abs(axis.n);
    if (n >= l && n >= m) {
        return 2;
    }
    return l >= m ? 0 : 1;
}

/// The bits of a number at the even places of another.
std::uint32_t Spread(std::uint32_t bits) {
    bits = (bits | bits << 8) & 0x00ff00ffU;
    bits = (bits | bits << 4) & 0x0f0f0f0fU;
    bits = (bits | bits << 2) & 0x33333333U;
    return (bits | bits << 1) & 0x55555555U;
}

/// The place of a coordinate from -1 to 1 among the cells of the last level.
std::uint32_t PlaceOf(double coordinate) {
    constexpr double kHalf = 1 << (kLevels - 1);
    constexpr double kLast = (1 << kLevels) - 1;
    return static_cast<std::uint32_t>(std::clamp((coordinate + 1) * kHalf, 0.0, kLast));
}

/// The cell of the last level that an axis falls in: three faces of a cube about the sphere, for
/// the opposite ones are the same axes; on each the places across and up, bit by bit in turn, so
/// that cells of all levels are runs of codes.
std::uint32_t CodeOf(const Direction& folded, int face) {
    const std::array<double, 3> xyz = {folded.l, folded.m, folded.n};
    const auto f = static_cast<std::size_t>(face);
    const double across = xyz[(f + 1) % 3] / xyz[f];
    const double up = xyz[(f + 2) % 3] / xyz[f];
    return static_cast<std::uint32_t>(face) << (2 * kLevels) | Spread(PlaceOf(across)) << 1
           | Spread(PlaceOf(up));
}

/// An axis of the constructor's on its way into the tree.
struct Coded {
    std::uint32_t code = 0;
    std::int32_t index = 0;
};

/// Sorts by codes; equal ones stay in their order.
void SortByCode(std::vector<Coded>& coded) {
    constexpr int kBits = 11;
    constexpr std::uint32_t kMask = (1U << kBits) - 1;
    std::vector<Coded> sorted(coded.size());
    for (int shift = 0; shift < 32; shift += kBits) {
        std::array<std::size_t, kMask + 1> places{};
        for (const Coded& item : coded) {
            ++places[item.code >> shift & kMask];
        }
        std::exclusive_scan(places.begin(), places.end(), places.begin(), std::size_t{0});
        for (const Coded& item : coded) {
            sorted[places[item.code >> shift & kMask]++] = item;
        }
        coded.swap(sorted);
    }
}

/// A cone, as cosine and sine of its half-angle less or more the radius of a cell.
struct Bound {
    double cosine = 1;
    double sine = 0;
};

Bound Narrower(const Bound& bound, double cosRadius, double sinRadius) {
    return {bound.cosine * cosRadius + bound.sine * sinRadius,
            bound.sine * cosRadius - bound.cosine * sinRadius};
}

Bound Wider(const Bound& bound, double cosRadius, double sinRadius) {
    return {bound.cosine * cosRadius - bound.sine * sinRadius,
            bound.sine * cosRadius + bound.cosine * sinRadius};
}

} // namespace

class AxisTreeBuilder {
public:
    AxisTreeBuilder(AxisTree& tree, std::span<const Direction> axes)
        : tree_(tree)
        , axes_(axes) {}

    void Build() {
        tree_.count_ = static_cast<std::int32_t>(axes_.size());
        MakeLeaves();
        constexpr std::uint32_t kFaces = 3;
        const auto leaves = static_cast<std::int32_t>(tree_.leaves_.size());
        std::vector<AxisTree::Cell> roots;
        for (std::uint32_t face = 0; face < kFaces; ++face) {
            const AxisTree::Cell root =
                CellOfCodes(0, leaves, face << (2 * kLevels), (face + 1) << (2 * kLevels));
            if (root.leaves > 0) {
                roots.push_back(root);
            }
        }
        tree_.roots_ = static_cast<std::int32_t>(roots.size());
        tree_.cells_ = std::move(roots);
        for (std::int32_t root = 0; root < tree_.roots_; ++root) {
            Divide(root, kLevels - 1);
        }
    }

private:
    /// Sorts the axes into leaves, equal ones into one.
    void MakeLeaves() {
        std::vector<Coded> coded(axes_.size());
        for (std::size_t i = 0; i < axes_.size(); ++i) {
            const int face = FaceOf(axes_[i]);
            coded[i] = {CodeOf(Folded(axes_[i], face), face), static_cast<std::int32_t>(i)};
        }
        SortByCode(coded);
        tree_.leafOf_.resize(axes_.size());
        for (auto first = coded.begin(); first != coded.end();) {
            const auto end = std::find_if(first, coded.end(), [first](const Coded& item) {
                return item.code != first->code;
            });
            AddLeavesOfCode({first, end});
            first = end;
        }
    }

    [[nodiscard]] Direction AxisOf(const Coded& item) const {
        const Direction& axis = axes_[static_cast<std::size_t>(item.index)];
        return Folded(axis, FaceOf(axis));
    }

    void AddLeavesOfCode(std::span<Coded> items) {
        std::sort(items.begin(), items.end(), [this](const Coded& a, const Coded& b) {
            return ComesBefore(AxisOf(a), AxisOf(b));
        });
        bool isFirst = true;
        for (const Coded& item : items) {
            const Direction axis = AxisOf(item);
            if (isFirst || !AreEqual(tree_.leaves_.back().axis, axis)) {
                tree_.leaves_.push_back({axis, 0});
                codes_.push_back(item.code);
                isFirst = false;
            }
            ++tree_.leaves_.back().axes;
            tree_.leafOf_[static_cast<std::size_t>(item.index)] =
                static_cast<std::int32_t>(tree_.leaves_.size()) - 1;
        }
    }

    /// The cell of the leaves from `first` on, before `last`, whose codes lie in a range.
    [[nodiscard]] AxisTree::Cell CellOfCodes(std::int32_t first, std::int32_t last,
                                             std::uint32_t from, std::uint32_t before) const {
        const auto begin = codes_.begin();
        const auto low = std::lower_bound(begin + first, begin + last, from);
        const auto high = std::lower_bound(low, begin + last, before);
        AxisTree::Cell cell;
        cell.firstLeaf = static_cast<std::int32_t>(low - begin);
        cell.leaves = static_cast<std::int32_t>(high - low);
        return cell;
    }

    /// Divides a cell into those of the next level, down to the last, and finds what it holds.
    void Divide(std::int32_t number, int level) {
        const AxisTree::Cell cell = tree_.cells_[static_cast<std::size_t>(number)];
        if (cell.leaves <= kFewLeaves || level < 0) {
            MeasureByLeaves(number);
            return;
        }
        const std::uint32_t step = 1U << (2 * level);
        const std::uint32_t base =
            codes_[static_cast<std::size_t>(cell.firstLeaf)] & ~(4 * step - 1);
        const auto firstChild = static_cast<std::int32_t>(tree_.cells_.size());
        for (std::uint32_t part = 0; part < 4; ++part) {
            const AxisTree::Cell child = CellOfCodes(cell.firstLeaf, cell.firstLeaf + cell.leaves,
                                                     base + part * step, base + (part + 1) * step);
            if (child.leaves > 0) {
                tree_.cells_.push_back(child);
            }
        }
        const auto children = static_cast<std::int32_t>(tree_.cells_.size()) - firstChild;
        for (std::int32_t child = 0; child < children; ++child) {
            Divide(firstChild + child, level - 1);
        }
        tree_.cells_[static_cast<std::size_t>(number)].firstChild = firstChild;
        tree_.cells_[static_cast<std::size_t>(number)].children = children;
        MeasureByChildren(number);
    }

    /// Gives a cell the middle of some directions of one sense as its centre.
    static void Centre(AxisTree::Cell& cell, const Direction& sum) {
        const double length = std::sqrt(Product(sum, sum));
        cell.centre = {sum.l / length, sum.m / length, sum.n / length};
    }

    static void SetRadius(AxisTree::Cell& cell, double radius) {
        cell.cosRadius = std::cos(radius);
        cell.sinRadius = std::sin(radius);
    }

    void MeasureByLeaves(std::int32_t number) {
        AxisTree::Cell& cell = tree_.cells_[static_cast<std::size_t>(number)];
        const std::span leaves = std::span(tree_.leaves_)
                                     .subspan(static_cast<std::size_t>(cell.firstLeaf),
                                              static_cast<std::size_t>(cell.leaves));
        Direction sum;
        for (const AxisTree::Leaf& leaf : leaves) {
            sum = {sum.l + leaf.axis.l, sum.m + leaf.axis.m, sum.n + leaf.axis.n};
            cell.axes += leaf.axes;
        }
        Centre(cell, sum);
        double least = 1;
        for (const AxisTree::Leaf& leaf : leaves) {
            least = std::min(least, Product(cell.centre, leaf.axis));
        }
        SetRadius(cell, std::acos(std::max(least - kMargin, -1.0)));
    }

    void MeasureByChildren(std::int32_t number) {
        AxisTree::Cell& cell = tree_.cells_[static_cast<std::size_t>(number)];
        const std::span children = std::span(tree_.cells_)
                                       .subspan(static_cast<std::size_t>(cell.firstChild),
                                                static_cast<std::size_t>(cell.children));
        Direction sum;
        for (const AxisTree::Cell& child : children) {
            sum = {sum.l + child.centre.l, sum.m + child.centre.m, sum.n + child.centre.n};
            cell.axes += child.axes;
        }
        Centre(cell, sum);
        double radius = 0;
        for (const AxisTree::Cell& child : children) {
            const double product = std::clamp(Product(cell.centre, child.centre), -1.0, 1.0);
            radius =
                std::max(radius, std::acos(product) + std::atan2(child.sinRadius, child.cosRadius));
        }
        SetRadius(cell, std::min(radius, kPi / 2));
    }

    AxisTree& tree_;
    std::span<const Direction> axes_;
    std::vector<std::uint32_t> codes_; ///< of the leaves
};

AxisTree::AxisTree(std::span<const Direction> axes) {
    AxisTreeBuilder(*this, axes).Build();
}

/// Counts within cones of one half-angle.
class ConeCounter {
public:
    ConeCounter(const AxisTree& tree, double halfAngle)
        : tree_(tree)
        , cone_{std::cos(halfAngle), std::sin(halfAngle)} {}

    [[nodiscard]] std::int32_t Count(const Direction& centre) const {
        std::int32_t count = 0;
        for (std::int32_t root = 0; root < tree_.roots_; ++root) {
            count += CountIn(CellAt(root), centre);
        }
        return count;
    }

    /// Axes of a cell that lie within the cone about an axis.
    [[nodiscard]] std::int32_t CountIn(const AxisTree::Cell& cell, const Direction& centre) const {
        const Side side = SideOf(cell, centre, cone_, cone_);
        if (side != Side::Border) {
            return side == Side::Inside ? cell.axes : 0;
        }
        std::int32_t count = 0;
        for (std::int32_t child = 0; child < cell.children; ++child) {
            count += CountIn(CellAt(cell.firstChild + child), centre);
        }
        if (cell.children == 0) {
            for (const AxisTree::Leaf& leaf : LeavesOf(cell)) {
                count += AreWithin(leaf.axis, centre, cone_.cosine) ? leaf.axes : 0;
            }
        }
        return count;
    }

    enum class Side { Inside, Outside, Border };

    /// Where a cell is.
    ///
    /// @param inner,outer  the cone less and more the radius of a cell about `centre`, all cones of
    ///                     whose axes are meant; an inner one with a sine below 0 is empty
    [[nodiscard]] static Side SideOf(const AxisTree::Cell& cell, const Direction& centre,
                                     const Bound& inner, const Bound& outer) {
        const double product = std::abs(Product(cell.centre, centre));
        const Bound whole = Narrower(inner, cell.cosRadius, cell.sinRadius);
        if (product >= whole.cosine + kMargin && whole.sine >= 0 && inner.sine >= 0) {
            return Side::Inside;
        }
        const Bound any = Wider(outer, cell.cosRadius, cell.sinRadius);
        return product < any.cosine - kMargin ? Side::Outside : Side::Border;
    }

    [[nodiscard]] const Bound& Cone() const { return cone_; }

    [[nodiscard]] const AxisTree::Cell& CellAt(std::int32_t number) const {
        return tree_.cells_[static_cast<std::size_t>(number)];
    }

    [[nodiscard]] std::span<const AxisTree::Leaf> LeavesOf(const AxisTree::Cell& cell) const {
        return std::span(tree_.leaves_)
            .subspan(static_cast<std::size_t>(cell.firstLeaf),
                     static_cast<std::size_t>(cell.leaves));
    }

private:
    const AxisTree& tree_;
    Bound cone_;
};

/// Finds the classes of the axes cell by cell. One for each thread; all share what they find.
class ClassFinder {
public:
    /// What the threads share.
    struct Shared {
        const std::function<std::int32_t(std::int32_t)>& classOf;
        std::vector<std::int32_t> ofLeaf;
        std::atomic<std::int32_t> greatest = 0;
    };

    ClassFinder(const ConeCounter& counter, Shared& shared)
        : counter_(counter)
        , shared_(shared) {}

    /// Settles a cell.
    ///
    /// @param inside  axes that lie within the cones about all axes of the cell
    /// @param border  cells that lie within some of these cones or in part; with those and their
    ///                children all axes that count are told
    void Settle(const AxisTree::Cell& cell, std::int32_t inside,
                std::span<const std::int32_t> border) {
        const std::size_t begin = border_.size();
        std::int32_t most = 0;
        Refine(cell, border, inside, most);
        most += inside;
        Raise(inside);
        const std::int32_t least = shared_.classOf(inside);
        if (least == shared_.classOf(most) && most <= shared_.greatest.load()) {
            std::fill_n(shared_.ofLeaf.begin() + cell.firstLeaf, cell.leaves, least);
        } else if (cell.children == 0) {
            SettleLeaves(cell, inside, begin);
        } else {
            // The list may move while children add to it.
            const std::vector<std::int32_t> mine(
                border_.begin() + static_cast<std::ptrdiff_t>(begin), border_.end());
            for (std::int32_t child = 0; child < cell.children; ++child) {
                Settle(counter_.CellAt(cell.firstChild + child), inside, mine);
            }
        }
        border_.resize(begin);
    }

    /// Keeps a count that an axis has, or that an axis exceeds.
    void Raise(std::int32_t count) {
        std::int32_t former = shared_.greatest.load();
        while (former < count && !shared_.greatest.compare_exchange_weak(former, count)) {
        }
    }

private:
    /// Puts what stays at the border of a cell's cones onto the list, as cells that are hardly
    /// larger than it.
    ///
    /// @param[in,out] inside  grows by what lies within all cones
    /// @param[out] most       axes of the cells on the list
    void Refine(const AxisTree::Cell& cell, std::span<const std::int32_t> border,
                std::int32_t& inside, std::int32_t& most) {
        const Bound inner = Narrower(counter_.Cone(), cell.cosRadius, cell.sinRadius);
        const Bound outer = Wider(counter_.Cone(), cell.cosRadius, cell.sinRadius);
        open_.assign(border.begin(), border.end());
        while (!open_.empty()) {
            const std::int32_t number = open_.back();
            open_.pop_back();
            const AxisTree::Cell& other = counter_.CellAt(number);
            const auto side = ConeCounter::SideOf(other, cell.centre, inner, outer);
            if (side == ConeCounter::Side::Inside) {
                inside += other.axes;
            } else if (side == ConeCounter::Side::Border) {
                if (other.children > 0 && other.sinRadius > cell.sinRadius) {
                    for (std::int32_t child = 0; child < other.children; ++child) {
                        open_.push_back(other.firstChild + child);
                    }
                } else {
                    border_.push_back(number);
                    most += other.axes;
                }
            }
        }
    }

    /// Counts for each leaf of a cell by itself.
    void SettleLeaves(const AxisTree::Cell& cell, std::int32_t inside, std::size_t begin) {
        std::size_t place = static_cast<std::size_t>(cell.firstLeaf);
        for (const AxisTree::Leaf& leaf : counter_.LeavesOf(cell)) {
            std::int32_t count = inside;
            for (std::size_t i = begin; i < border_.size(); ++i) {
                count += counter_.CountIn(counter_.CellAt(border_[i]), leaf.axis);
            }
            Raise(count);
            shared_.ofLeaf[place++] = shared_.classOf(count);
        }
    }

    const ConeCounter& counter_;
    Shared& shared_;
    std::vector<std::int32_t> border_; ///< lists of the cells that are being settled, one by one
    std::vector<std::int32_t> open_;
};

std::int32_t AxisTree::CountWithin(const Direction& centre, double halfAngle) const {
    return ConeCounter(*this, halfAngle).Count(centre);
}

std::vector<std::int32_t> AxisTree::CellsForThreads() const {
    std::vector<std::int32_t> cells(static_cast<std::size_t>(roots_));
    std::iota(cells.begin(), cells.end(), 0);
    for (std::size_t i = 0; i < cells.size() && cells.size() < kCellsForThreads;) {
        const Cell& cell = cells_[static_cast<std::size_t>(cells[i])];
        if (cell.children == 0) {
            ++i;
            continue;
        }
        cells[i] = cell.firstChild;
        for (std::int32_t child = 1; child < cell.children; ++child) {
            cells.push_back(cell.firstChild + child);
        }
    }
    return cells;
}

AxisTree::Classes
AxisTree::ClassesOfCounts(double halfAngle,
                          const std::function<std::int32_t(std::int32_t)>& classOf,
                          unsigned threads) const {
    const ConeCounter counter(*this, halfAngle);
    ClassFinder::Shared shared{classOf, std::vector<std::int32_t>(leaves_.size())};
    std::vector<std::int32_t> roots(static_cast<std::size_t>(roots_));
    std::iota(roots.begin(), roots.end(), 0);
    const std::vector<std::int32_t> parts = CellsForThreads();
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        ClassFinder finder(counter, shared);
        for (std::size_t part = next++; part < parts.size(); part = next++) {
            finder.Settle(cells_[static_cast<std::size_t>(parts[part])], 0, roots);
        }
    };
    const std::size_t step = std::max<std::size_t>(leaves_.size() / kSamples, 1);
    for (std::size_t leaf = 0; leaf < leaves_.size(); leaf += step) {
        ClassFinder(counter, shared).Raise(counter.Count(leaves_[leaf].axis));
    }
    {
        std::vector<std::jthread> others;
        for (unsigned thread = 1; thread < threads; ++thread) {
            others.emplace_back(work);
        }
        work();
    }
    Classes classes;
    classes.greatest = shared.greatest;
    classes.ofAxis.reserve(leafOf_.size());
    for (const std::int32_t leaf : leafOf_) {
        classes.ofAxis.push_back(shared.ofLeaf[static_cast<std::size_t>(leaf)]);
    }
    return classes;
}

} // namespace quandrel

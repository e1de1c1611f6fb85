// SPDX-License-Identifier: MIT
//
// A change of a plot that can be taken back and made again: a value of plain data that holds what
// the plot does not, which is the former state while the change stands, and the new one while it is
// taken back.
//
// Rows are kept as differences (rows/row_change.h). Any other part of a plot is kept whole, by a
// PropertyChange: to make a further part undoable, write its property (Of, Give, FingerprintOf,
// BytesOf) and let its edits make an EditStep of it (edit_step.h).

#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace quandrel {

/// What of a plot a change is about. Changes of different parts leave each other alone.
enum class PlotPart { Rows, Marks, Girdles };

/// Made of a plot before the change; then Complete, then Revert and Apply in turn.
class PlotChange {
public:
    PlotChange() = default;
    virtual ~PlotChange() = default;
    PlotChange(const PlotChange&) = delete;
    PlotChange& operator=(const PlotChange&) = delete;

    [[nodiscard]] virtual PlotPart Part() const = 0;

    /// The change has been made: from now on what it left as it was is kept no longer. Throws
    /// std::bad_alloc.
    virtual void Complete(int /*slot*/) {}

    /// Puts the part of a plot back as it was before the change, which the plot must be just after.
    /// Does not draw. Throws std::bad_alloc, after which the plot may be neither.
    virtual void Revert(int slot) = 0;

    /// The inverse of Revert.
    virtual void Apply(int slot) = 0;

    /// Takes in the change of the same part that came next, which is empty then, so that both are
    /// one.
    /// @return false when they cannot be one: nothing has changed
    [[nodiscard]] virtual bool Join(PlotChange& next) = 0;

    /// The rows that the change is about, ascending, by the numbers that they have now: those that
    /// are there and were changed, or came. Empty for other parts.
    [[nodiscard]] virtual std::vector<std::int32_t> RowsConcerned() const { return {}; }

    /// A hash of the part of a plot as it is now. O(size of the part).
    [[nodiscard]] virtual std::uint64_t FingerprintOf(int slot) const = 0;

    /// The memory that the change takes.
    [[nodiscard]] virtual std::size_t Bytes() const = 0;
};

/// A change of a part that is kept whole.
///
/// @tparam Property  has a type Value, a constant kPart, and static functions
///     Value Of(int slot)                      the part as it is now
///     void Give(int slot, const Value&)       gives it to the plot; does not draw
///     std::uint64_t FingerprintOf(int slot)   a hash of the part
///     std::size_t BytesOf(const Value&)       the memory that it takes
template <class Property>
class PropertyChange final : public PlotChange {
public:
    explicit PropertyChange(int slot)
        : other_(Property::Of(slot)) {}

    [[nodiscard]] PlotPart Part() const override { return Property::kPart; }

    void Revert(int slot) override { Exchange(slot); }

    void Apply(int slot) override { Exchange(slot); }

    [[nodiscard]] bool Join(PlotChange& /*next*/) override {
        return true; // what was there before both is kept already
    }

    [[nodiscard]] std::uint64_t FingerprintOf(int slot) const override {
        return Property::FingerprintOf(slot);
    }

    [[nodiscard]] std::size_t Bytes() const override { return Property::BytesOf(other_); }

private:
    void Exchange(int slot) {
        typename Property::Value now = Property::Of(slot);
        Property::Give(slot, other_);
        other_ = std::move(now);
    }

    typename Property::Value other_; ///< the value that the plot does not have
};

} // namespace quandrel

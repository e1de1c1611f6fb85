// SPDX-License-Identifier: MIT
//
// A change of a plot that can be undone and redone: a value of plain data that holds the state
// which the plot does not have. This is the former state while the change is in effect, and the new
// one while it is undone.
//
// Rows are kept as differences (rows/row_change.h). Any other part of a plot is kept whole, by a
// PropertyChange: to make another part undoable, write its property (Of, Give, FingerprintOf,
// BytesOf) and let its edits make an EditStep of it (edit_step.h).

#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace quandrel {

/// The part of a plot that a change affects. Changes of different parts are independent.
enum class PlotPart { Rows, Marks, Girdles, Densities, Regions, Figure };

/// Created before a plot is changed; then Complete, then Revert and Apply in turn.
class PlotChange {
public:
    PlotChange() = default;
    virtual ~PlotChange() = default;
    PlotChange(const PlotChange&) = delete;
    PlotChange& operator=(const PlotChange&) = delete;

    [[nodiscard]] virtual PlotPart Part() const = 0;

    /// Call it after the change: drops what the change has left unchanged. Throws std::bad_alloc.
    virtual void Complete(int /*slot*/) {}

    /// Restores the part of a plot to its state before the change; the plot must be in the state
    /// just after it. Does not draw. Throws std::bad_alloc, which may leave the plot in neither
    /// state.
    virtual void Revert(int slot) = 0;

    /// The inverse of Revert.
    virtual void Apply(int slot) = 0;

    /// Merges the next change of the same part into this one; the next one is then empty.
    /// @return false, with nothing changed, when they cannot be merged
    [[nodiscard]] virtual bool Join(PlotChange& next) = 0;

    /// The rows that the change affects, ascending, by their present numbers: existing rows that
    /// were changed or added. Empty for other parts.
    [[nodiscard]] virtual std::vector<std::int32_t> RowsConcerned() const { return {}; }

    /// A hash of the present state of the part. O(size of the part).
    [[nodiscard]] virtual std::uint64_t FingerprintOf(int slot) const = 0;

    /// The memory used by the change.
    [[nodiscard]] virtual std::size_t Bytes() const = 0;
};

/// A change of a part that is kept whole.
///
/// @tparam Property  has a type Value, a constant kPart, and static functions
///     Value Of(int slot)                      the part as it is now
///     void Give(int slot, const Value&)       gives it to the plot; does not draw
///     std::uint64_t FingerprintOf(int slot)   a hash of the part
///     std::size_t BytesOf(const Value&)       the memory that it uses
template <class Property>
class PropertyChange final : public PlotChange {
public:
    explicit PropertyChange(int slot)
        : other_(Property::Of(slot)) {}

    [[nodiscard]] PlotPart Part() const override { return Property::kPart; }

    void Revert(int slot) override { Exchange(slot); }

    void Apply(int slot) override { Exchange(slot); }

    [[nodiscard]] bool Join(PlotChange& /*next*/) override {
        return true; // the value before both is kept already
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

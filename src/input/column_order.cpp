// SPDX-License-Identifier: MIT

#include "input/column_order.h"

#include "input/format_model.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <utility>

namespace quandrel {

namespace {

// Assigns columns in order.
class ColumnDealer {
public:
    explicit ColumnDealer(ColumnSettings& slots)
        : slots_(slots) {}

    void Give(std::initializer_list<ColumnSlot> slotsInOrder) {
        for (const ColumnSlot slot : slotsInOrder) {
            slots_[static_cast<std::size_t>(slot)] = next_++;
        }
    }

    void GivePlane(int convention, ColumnSlot dip, ColumnSlot direction, ColumnSlot sense) {
        switch (convention) {
        case kDipDirectionDip:
        case kStrikeDipRightHand:
            return Give({direction, dip});
        case kStrikeDipSense:
            return Give({direction, dip, sense});
        case kDipSenseStrike:
            return Give({dip, sense, direction});
        default:
            return Give({dip, direction});
        }
    }

    void GiveLine(bool isTrendFirst, ColumnSlot plunge, ColumnSlot trend) {
        if (isTrendFirst) {
            std::swap(plunge, trend);
        }
        Give({plunge, trend});
    }

    [[nodiscard]] std::int32_t Next() const { return next_; }

private:
    ColumnSettings& slots_;
    std::int32_t next_ = 0;
};

void GivePrimary(const FormatSettings& settings, int convention, bool isTrendFirst,
                 ColumnDealer& dealer) {
    if (settings.primary == kPrimaryPlane) {
        dealer.GivePlane(convention, kSlotDip, kSlotDirection, kSlotSense);
    } else if (settings.primary == kPrimaryLine) {
        dealer.GiveLine(isTrendFirst, kSlotDip, kSlotDirection);
    } else {
        dealer.Give({kSlotDirection});
    }
}

void GiveSecondary(const FormatSettings& settings, int convention, bool isTrendFirst,
                   ColumnDealer& dealer) {
    switch (settings.secondary) {
    case kPitchInPlane:
        return dealer.Give({kSlotSecondaryDirection, kSlotSecondarySense});
    case kTrendInPlane:
    case kHadeInPlane:
        return dealer.Give({kSlotSecondaryDirection});
    case kSecondaryLine:
        return dealer.GiveLine(isTrendFirst, kSlotSecondaryDip, kSlotSecondaryDirection);
    case kSecondaryPlane:
        return dealer.GivePlane(convention, kSlotSecondaryDip, kSlotSecondaryDirection,
                                kSlotSecondarySense);
    default:
        return;
    }
}

} // namespace

ColumnSettings ColumnsInOrder(const FormatSettings& settings) {
    std::int16_t convention = 0;
    bool isTrendFirst = false;
    bool isQuadrant = false;
    DecodeConventions(settings.conventions, convention, isTrendFirst, isQuadrant);
    constexpr std::int32_t kNotGiven = -1;
    ColumnSettings slots;
    slots.fill(kNotGiven);
    ColumnDealer dealer(slots);
    GivePrimary(settings, convention, isTrendFirst, dealer);
    GiveSecondary(settings, convention, isTrendFirst, dealer);
    if (settings.lineAppended) {
        dealer.GiveLine(isTrendFirst, kSlotAppendedPlunge, kSlotAppendedTrend);
    }
    if (settings.numericAppended) {
        dealer.Give({kSlotNumber});
    }
    if (settings.nonNumericAppended) {
        dealer.Give({kSlotText});
    }
    std::replace(slots.begin(), slots.end(), kNotGiven, dealer.Next());
    return slots;
}

} // namespace quandrel

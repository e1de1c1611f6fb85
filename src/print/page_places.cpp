// SPDX-License-Identifier: MIT

#include "print/page_places.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quandrel {

namespace {

constexpr double kGap = 4;              ///< between things on a page, millimetres
constexpr double kLeastTextWidth = 55;  ///< for texts beside a net, millimetres
constexpr double kLeastTextHeight = 40; ///< for texts below a net, millimetres
constexpr double kMostTextShare = 0.4;  ///< of a cell, for texts
constexpr double kAmpleTexts = 4500;    ///< square millimetres; enough for all texts of most plots
constexpr double kLeastStrip = 25; ///< millimetres; for texts below a plot with the width of a page
constexpr double kMostTextSide = 90;   ///< of texts around a plot that the user has placed
constexpr double kRoundingRoom = 1e-9; ///< for lengths that differ only by rounding

PlotPlaces BesideNet(const PageRect& cell) {
    const double wanted = std::min(kLeastTextWidth, kMostTextShare * cell.width);
    const double side = std::min(cell.height, cell.width - wanted - kGap);
    const double top = cell.top + (cell.height - side) / 2;
    const double left = cell.left + side + kGap;
    return {{cell.left, top, side, side}, {left, top, cell.Right() - left, side}};
}

PlotPlaces BelowNet(const PageRect& cell) {
    const double wanted = std::min(kLeastTextHeight, kMostTextShare * cell.height);
    const double side = std::min(cell.width, cell.height - wanted - kGap);
    const double top = cell.top + side + kGap;
    return {{cell.left + (cell.width - side) / 2, cell.top, side, side},
            {cell.left, top, cell.width, cell.Bottom() - top}};
}

/// The largest net of a cell. Texts are beside it if that does not make it smaller.
PlotPlaces PlacesInCell(const PageRect& cell) {
    const PlotPlaces beside = BesideNet(cell);
    const PlotPlaces below = BelowNet(cell);
    return beside.net.width >= below.net.width - kRoundingRoom ? beside : below;
}

PageRect Cell(const PageRect& area, std::size_t columns, std::size_t rows, std::size_t index) {
    const auto across = static_cast<double>(columns);
    const auto down = static_cast<double>(rows);
    const double width = (area.width - 2 * kGap * (across - 1)) / across;
    const double height = (area.height - 2 * kGap * (down - 1)) / down;
    const std::size_t column = index % columns;
    const std::size_t row = index / columns;
    return {area.left + static_cast<double>(column) * (width + 2 * kGap),
            area.top + static_cast<double>(row) * (height + 2 * kGap), width, height};
}

std::size_t RowsFor(std::size_t count, std::size_t columns) {
    return (count + columns - 1) / columns;
}

/// The score of an arrangement: large nets count most, and enough space for texts a little.
double Merit(const PlotPlaces& places) {
    const double share = places.texts.width * places.texts.height / kAmpleTexts;
    return places.net.width * std::pow(std::min(share, 1.0), 0.25);
}

/// The number of columns with the best score; the smaller number if scores are equal.
std::size_t BestColumns(const PageRect& area, std::size_t count) {
    std::size_t best = 1;
    double most = 0;
    for (std::size_t columns = 1; columns <= count; ++columns) {
        const double merit = Merit(PlacesInCell(Cell(area, columns, RowsFor(count, columns), 0)));
        if (merit > most + kRoundingRoom) {
            most = merit;
            best = columns;
        }
    }
    return best;
}

/// One plot in the middle, with its texts in the remaining space on the right or below.
PlotPlaces MiddleOf(const PageRect& area) {
    const double side = std::min(area.width, area.height);
    const PageRect net{area.left + (area.width - side) / 2, area.top + (area.height - side) / 2,
                       side, side};
    if (area.width > area.height) {
        const double left = net.Right() + kGap;
        return {net, {left, area.top, area.Right() - left, area.height}};
    }
    const double top = net.Bottom() + kGap;
    return {net, {area.left, top, area.width, area.Bottom() - top}};
}

/// The rest of a strip along x or y after other rectangles are cut off its far end.
void CutAway(PageRect& room, const PageRect& other, const PageRect& square) {
    if (!DoOverlap(room, other)) {
        return;
    }
    if (room.left >= square.Right()) {
        room.width = other.left - kGap - room.left;
    } else if (room.Right() <= square.left) {
        const double right = room.Right();
        room.left = other.Right() + kGap;
        room.width = right - room.left;
    } else if (room.top >= square.Bottom()) {
        room.height = other.top - kGap - room.top;
    } else {
        const double bottom = room.Bottom();
        room.top = other.Bottom() + kGap;
        room.height = bottom - room.top;
    }
}

PageRect Between(double left, double top, double right, double bottom) {
    return {left, top, std::max(right - left, 0.0), std::max(bottom - top, 0.0)};
}

double Worth(const PageRect& room) {
    return room.width > 0 && room.height > 0 ? std::min(room.width / kLeastTextWidth, 1.0)
                                                   * std::min(room.height / kLeastTextHeight, 1.0)
                                             : 0;
}

} // namespace

bool DoOverlap(const PageRect& a, const PageRect& b) {
    return a.left < b.Right() - kRoundingRoom && b.left < a.Right() - kRoundingRoom
           && a.top < b.Bottom() - kRoundingRoom && b.top < a.Bottom() - kRoundingRoom;
}

std::vector<PlotPlaces> FittedPlaces(const PageRect& area, std::size_t count) {
    const double strip =
        (std::max(area.width, area.height) - std::min(area.width, area.height)) / 2 - kGap;
    if (count == 1 && strip >= kLeastStrip) {
        return {MiddleOf(area)};
    }
    const std::size_t columns = BestColumns(area, count);
    std::vector<PlotPlaces> places;
    for (std::size_t i = 0; i < count; ++i) {
        places.push_back(PlacesInCell(Cell(area, columns, RowsFor(count, columns), i)));
    }
    return places;
}

PageRect RoomBeside(const PageRect& square, const PageRect& area,
                    std::span<const PageRect> others) {
    const double top = std::max(square.top, area.top);
    const double left = std::max(square.left, area.left);
    // Texts can be higher than a small net beside them, and wider than one above them.
    const double bottom =
        std::min(std::max(square.Bottom(), top + kLeastTextHeight), area.Bottom());
    const double right = std::min(std::max(square.Right(), left + kLeastTextWidth), area.Right());
    const double below = std::max(square.Bottom() + kGap, area.top);
    const double beside = std::max(square.Right() + kGap, area.left);
    std::array<PageRect, 4> rooms = {
        Between(beside, top, std::min(beside + kMostTextSide, area.Right()), bottom),
        Between(left, below, right, std::min(below + kMostTextSide, area.Bottom())),
        Between(std::max(square.left - kGap - kMostTextSide, area.left), top, square.left - kGap,
                bottom),
        Between(left, std::max(square.top - kGap - kMostTextSide, area.top), right,
                square.top - kGap),
    };
    PageRect best;
    for (PageRect& room : rooms) {
        for (const PageRect& other : others) {
            CutAway(room, other, square);
        }
        if (Worth(room) > Worth(best) + kRoundingRoom) {
            best = room;
        }
    }
    return best;
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "batch/annotate_commands.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "edit/grids/data_grid.h"
#include "edit/marks/annotations.h"
#include "edit/rows/add_point.h"
#include "orientation/number_text.h"
#include "orientation/projection.h"
#include "stereo/row_positions.h"

#include <optional>

namespace quandrel {

namespace {

std::string LackOfNet() {
    return ActiveRecord().PlotKind == kRose ? "nothing can be placed on a rose" : "";
}

/// A bare word, or nothing.
std::optional<std::string> WordAt(const std::vector<Argument>& arguments, std::size_t place) {
    if (place >= arguments.size() || !arguments[place].name.empty()) {
        return std::nullopt;
    }
    return arguments[place].value;
}

std::optional<double> NumberAt(const std::vector<Argument>& arguments, std::size_t place) {
    const std::optional<std::string> word = WordAt(arguments, place);
    return word ? ReadNumber(*word) : std::nullopt;
}

} // namespace

std::string ApplyAnnotateArguments(const std::vector<Argument>& arguments) {
    const std::optional<double> x = NumberAt(arguments, 0);
    const std::optional<double> y = NumberAt(arguments, 1);
    const std::string button = WordAt(arguments, 2).value_or(arguments.size() > 2 ? "" : "left");
    if (!x || !y || arguments.size() > 3) {
        return "expects a place in plot units, such as 300 -250, optionally followed by left or "
               "right";
    }
    if (button != "left" && button != "right") {
        return "the button must be left or right";
    }
    if (*x * *x + *y * *y > kNetRadius * kNetRadius) {
        return "the place is not on the net, whose radius is 1000";
    }
    if (std::string error = LackOfNet(); !error.empty()) {
        return error;
    }
    const bool isRight = button == "right";
    return AddAnnotation(isRight ? kRightMouseButton : kLeftMouseButton, *x, *y)
               ? ""
               : "no annotation was added: see the message";
}

std::string ApplyAddPointArguments(const std::vector<Argument>& arguments) {
    const std::optional<std::string> dip = WordAt(arguments, 0);
    const std::optional<std::string> azimuth = WordAt(arguments, 1);
    if (!dip || !azimuth || arguments.size() != 2) {
        return "expects dip and dip direction, or plunge and trend, such as 45 120";
    }
    if (std::string error = LackOfNet(); !error.empty()) {
        return error;
    }
    const PlotRecord& record = ActiveRecord();
    const bool isPlane = record.OverlayRows[kOverlayCount] == 0 && ShowsPlaneData(record);
    const std::optional<KeptAttitude> row = ReadGridPair(*dip, *azimuth, isPlane);
    if (!row) {
        return "'" + *dip + " " + *azimuth + "' is not an orientation";
    }
    const Attitude measured = row->Measured();
    return AddRowByHand({measured.dip, measured.azimuth, isPlane})
               ? ""
               : "no row was added: see the message";
}

} // namespace quandrel

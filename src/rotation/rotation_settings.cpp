// SPDX-License-Identifier: MIT

#include "rotation/rotation_settings.h"

#include "core/appended_number.h"
#include "core/plot_store.h"
#include "orientation/angles.h"
#include "orientation/notation.h"
#include "orientation/number_text.h"

#include <cmath>

namespace quandrel {

namespace {

constexpr const char* kHelpOnOwnAxes =
    "This option tracks the rotation your Secondary data as the Primary planes are unfolded around "
    "the Appended fold axis line in each data row.\nThe algorithm first rotates the axis to "
    "horizontal then unfolds the Primary plane to horizontal.";
constexpr const char* kHelpOnOneAxis =
    "This option tracks the rotation your Secondary data as the Primary planes are unfolded around "
    "the indicated fold axis.\nThe algorithm first rotates the axis to horizontal then unfolds the "
    "Primary plane to horizontal.";

constexpr std::array<RotationOption, kRotationOptions> kOptions = {{
    {"Unfold about Appended fold axis", "", "", "", "", "", "", kHelpOnOwnAxes},
    {"Unfold about selected fold axis", "Fold Axis", "Plunge", "Azimuth", "", "", "",
     kHelpOnOneAxis},
    {"Rotate about a given rot'n axis", "Rotation Axis", "Plunge", "Azimuth", "Rotation Angle",
     "degrees", "",
     "\nRotation angles looking downplunge:\n+ve clockwise   -ve anticlockwise.\n"
     "Data can be chosen from the projection using the mouse."},
    {" Rotate a given plane to vertical", "Plane to Rotate", "Dip", "azimuth", "New Strike", "",
     "Horizontal line",
     "Enter plane to be rotated to vertical plus the new azimuth of this plane plus the pitch of "
     "the line in the plane that is to become horizontal."},
    {"Rotate a given line to vertical", "Line to Rotate", "Plunge", "azimuth", "", "", "",
     "Enter plunge and azimuth of line to rotate to the vertical."},
}};

// Cosines of angles given in degrees miss zero by rounding; below this size they count as zero.
constexpr double kRounding = 1e-9;

constexpr const char* kNoPlanes =
    "The data in this plot are not linked to any planes which can be unfolded.\n"
    "(Each line of data must include a plane as Primary data plus an associated Secondary "
    "orientation.\nThis dataline description must then be registered in the File Format dialog).";
constexpr const char* kOtherPlot =
    "Although your dataset contains both Primary planes and Secondary orientation\n"
    "data, you are currently not focussed on a plot containing the Secondary data.\n"
    "You must first focus on a plot containing this data before it can be unfolded with the "
    "Primary planes.";
constexpr const char* kOtherFormat =
    "The data  format you have indicated in the Data Format dialog is not compatible with this "
    "type of \nunfolding rotation.\n"
    "(Each line of data must include a plane as Primary data plus an associated Secondary "
    "orientation.\nThis dataline description must then be registered in the Data Format dialog).";

bool IsOperation(int operation) {
    return operation >= kUnfoldAboutAppended && operation <= kLineToVertical;
}

/// A box that must hold a number between two values.
struct Bounds {
    RotationField field;
    const std::optional<double>& value;
    double least;
    double most;
    bool inUse;
    const char* reason;
};

/// How close the end of the strike in use is to the sense: positive for that end, negative for the
/// other one, 0 at right angles. The sense must be valid.
double NearnessOfSense(const RotationSettings& settings) {
    const double strike = NearerStrike(*settings.azimuth, *settings.angle);
    const double nearness = std::cos(DegToRad(*CompassDegrees(settings.sense) - strike));
    return std::abs(nearness) < kRounding ? 0 : nearness;
}

bool HasPitchedLine(const RotationSettings& settings) {
    return settings.operation == kPlaneToVertical && *settings.pitch != 0;
}

std::optional<RotationRefusal> CheckSense(const RotationSettings& settings) {
    if (!HasPitchedLine(settings)) {
        return std::nullopt;
    }
    if (!IsValidSense(settings.sense)) {
        return RotationRefusal{RotationField::Sense,
                               "The sense of the pitch must be a compass direction such as NE."};
    }
    if (NearnessOfSense(settings) == 0) {
        return RotationRefusal{RotationField::Sense,
                               "The sense of the pitch must name an end of the plane's strike."};
    }
    return std::nullopt;
}

} // namespace

const RotationOption& OptionOfRotation(int operation) {
    return kOptions[static_cast<std::size_t>(IsOperation(operation) ? operation - 1
                                                                    : kRotateAboutAxis - 1)];
}

RotationSettings SettingsOfRotationBoxes(int operation, const RotationBoxes& boxes,
                                         bool forceIntoBeds) {
    RotationSettings settings;
    settings.operation = operation;
    settings.inclination = ParseAppendedNumber(boxes.angles[0]);
    settings.azimuth = ParseAppendedNumber(boxes.angles[1]);
    settings.angle = ParseAppendedNumber(boxes.angles[2]);
    settings.pitch = ParseAppendedNumber(boxes.angles[3]);
    settings.sense = WithoutBlanks(boxes.sense);
    settings.forceIntoBeds = forceIntoBeds;
    return settings;
}

std::int16_t RotationStateOf(const RotationSettings& settings) {
    const bool forced = settings.forceIntoBeds && IsUnfolding(settings.operation);
    return static_cast<std::int16_t>(forced ? -settings.operation : settings.operation);
}

double NearerStrike(double dipDirection, double newStrike) {
    double strikes[2] = {dipDirection - 90, dipDirection + 90};
    double distances[2] = {0, 0};
    for (int end = 0; end < 2; ++end) {
        WrapDegrees(strikes[end]);
        const double distance = std::abs(strikes[end] - newStrike);
        distances[end] = distance > 180 ? 360 - distance : distance;
    }
    return distances[1] < distances[0] ? strikes[1] : strikes[0];
}

double PitchFromStrike(const RotationSettings& settings) {
    return HasPitchedLine(settings) && NearnessOfSense(settings) < 0 ? -*settings.pitch
                                                                     : *settings.pitch;
}

std::optional<RotationRefusal> CheckRotationBoxes(const RotationSettings& settings) {
    const int operation = settings.operation;
    if (!IsOperation(operation)) {
        return RotationRefusal{RotationField::Operation, "There is no such rotation."};
    }
    const bool hasOrientation = operation != kUnfoldAboutAppended;
    const Bounds bounds[] = {
        {RotationField::Inclination, settings.inclination, 0, 90, hasOrientation,
         operation == kPlaneToVertical ? "The dip must be a number between 0 and 90 degrees."
                                       : "The plunge must be a number between 0 and 90 degrees."},
        {RotationField::Azimuth, settings.azimuth, 0, 360, hasOrientation,
         "The azimuth must be a number between 0 and 360 degrees."},
        {RotationField::Angle, settings.angle, -360, 360, operation == kRotateAboutAxis,
         "The rotation angle must be a number between -360 and 360 degrees."},
        {RotationField::Angle, settings.angle, 0, 360, operation == kPlaneToVertical,
         "The new strike must be a number between 0 and 360 degrees."},
        {RotationField::Pitch, settings.pitch, 0, 90, operation == kPlaneToVertical,
         "The pitch must be a number between 0 and 90 degrees."},
    };
    for (const Bounds& bound : bounds) {
        const bool isWithin =
            bound.value && *bound.value >= bound.least && *bound.value <= bound.most;
        if (bound.inUse && !isWithin) {
            return RotationRefusal{bound.field, bound.reason};
        }
    }
    return CheckSense(settings);
}

std::optional<std::string> RefusalToUnfold() {
    const PlotRecord& record = ActiveRecord();
    const bool hasPlanes = record.PrimaryFormat == kPrimaryPlane;
    if (hasPlanes && record.SecondaryFormat != kNoSecondary) {
        return std::nullopt;
    }
    if (record.SecondaryFormat != kNoSecondary) {
        return kOtherFormat;
    }
    const bool formatHasBoth =
        gPrimaryDataType == kPrimaryPlane && gSecondaryDataType != kNoSecondary;
    return formatHasBoth ? kOtherPlot : kNoPlanes;
}

bool IsRotationOffered(int operation) {
    return operation != kUnfoldAboutAppended || ActiveRecord().HasAppendedLine != 0;
}

std::optional<RotationRefusal> CheckRotation(const RotationSettings& settings) {
    if (std::optional<RotationRefusal> refusal = CheckRotationBoxes(settings)) {
        return refusal;
    }
    if (ActiveRecord().NumLoadedData == 0) {
        return RotationRefusal{RotationField::Plot, "There are no data to rotate."};
    }
    if (IsUnfolding(settings.operation)) {
        if (std::optional<std::string> reason = RefusalToUnfold()) {
            return RotationRefusal{RotationField::Plot, *reason};
        }
    }
    if (!IsRotationOffered(settings.operation)) {
        return RotationRefusal{RotationField::Plot,
                               "These data have no appended lines to unfold about."};
    }
    return std::nullopt;
}

std::string RotationCaption() {
    return "Rotate: " + ActiveRecord().PlotTitle;
}

} // namespace quandrel

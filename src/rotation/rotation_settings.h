// SPDX-License-Identifier: MIT
//
// The rotation dialog without its window: its options and their texts, the valid values of its
// boxes, and which options a plot can use.
//
// Numbers in boxes are degrees.

#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace quandrel {

/// The operation on the rows: |RotationState| of a plot. One more than the option's index.
enum RotationOperation : std::int16_t {
    kUnfoldAboutAppended = 1, ///< each row about its own appended line
    kUnfoldAboutSelected = 2, ///< all rows about one fold axis
    kRotateAboutAxis = 3,
    kPlaneToVertical = 4,
    kLineToVertical = 5,
};

inline constexpr int kRotationOptions = 5;

/// True for the operations that unfold.
[[nodiscard]] constexpr bool IsUnfolding(int operation) {
    return operation == kUnfoldAboutAppended || operation == kUnfoldAboutSelected;
}

/// The texts of an option. A frame without heading is not shown.
struct RotationOption {
    const char* caption;
    const char* heading;      ///< of the frame with the orientation
    const char* firstLabel;   ///< of txtRotAngle(0)
    const char* secondLabel;  ///< of txtRotAngle(1)
    const char* angleHeading; ///< of the frame with txtRotAngle(2)
    const char* angleLabel;   ///< after it
    const char* pitchHeading; ///< of the frame with txtRotAngle(3) and txtRotAngleSense
    const char* help;
};

/// The texts of an operation. An invalid operation gets those of kRotateAboutAxis.
[[nodiscard]] const RotationOption& OptionOfRotation(int operation);

/// The contents of the boxes of the dialog: txtRotAngle and txtRotAngleSense.
struct RotationBoxes {
    std::array<std::string, 4> angles;
    std::string sense;
};

/// A rotation as the user wants it. Numbers that the operation does not use may have any value.
struct RotationSettings {
    int operation = kRotateAboutAxis;  ///< RotationOperation
    std::optional<double> inclination; ///< plunge of the axis or line, dip of the plane: 0 to 90
    std::optional<double> azimuth;     ///< their trend or dip direction: 0 to 360
    std::optional<double> angle;       ///< of the rotation, -360 to 360; or new strike, 0 to 360
    std::optional<double> pitch;       ///< 0 to 90
    std::string sense;                 ///< compass name of the strike's end that it plunges to
    bool forceIntoBeds = false;        ///< of operations that unfold: lines come to plunge 0
};

/// The settings of boxes that are filled in with the regional decimal delimiter. A box without a
/// number gives no value.
[[nodiscard]] RotationSettings SettingsOfRotationBoxes(int operation, const RotationBoxes& boxes,
                                                       bool forceIntoBeds);

/// RotationState of settings: the operation, negative for one that forces lines into the beds.
[[nodiscard]] std::int16_t RotationStateOf(const RotationSettings& settings);

/// The end of a plane's strike that is nearer to an azimuth, degrees 0 to 360; at equal distances
/// the end with the dip to its right.
[[nodiscard]] double NearerStrike(double dipDirection, double newStrike);

/// The pitch of checked settings, degrees from NearerStrike: negative when the line plunges to the
/// other end. Only for kPlaneToVertical.
[[nodiscard]] double PitchFromStrike(const RotationSettings& settings);

/// The subject of a refusal.
enum class RotationField {
    Operation,
    Inclination,
    Azimuth,
    Angle,
    Pitch,
    Sense,
    Plot, ///< the plot, not a box
};

struct RotationRefusal {
    RotationField field = RotationField::Operation;
    std::string reason; ///< a sentence
};

/// The first used box whose value is invalid. Independent of any plot.
[[nodiscard]] std::optional<RotationRefusal> CheckRotationBoxes(const RotationSettings& settings);

/// Why the rows of gActivePlot cannot be unfolded, as the dialog reports when one of the first two
/// options is chosen; nothing when they can.
[[nodiscard]] std::optional<std::string> RefusalToUnfold();

/// True when an option can be used with gActivePlot: unfolding about appended axes needs appended
/// lines.
[[nodiscard]] bool IsRotationOffered(int operation);

/// CheckRotationBoxes, followed by the conditions of gActivePlot.
[[nodiscard]] std::optional<RotationRefusal> CheckRotation(const RotationSettings& settings);

/// The caption of the dialog for gActivePlot.
[[nodiscard]] std::string RotationCaption();

} // namespace quandrel

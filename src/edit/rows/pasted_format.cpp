// SPDX-License-Identifier: MIT

#include "edit/rows/pasted_format.h"

#include "stereo/row_positions.h"

namespace quandrel {

namespace {

const char* NameOfKind(std::int16_t dataKind) {
    return dataKind == kPolarLines ? "polar lines" : dataKind == kLines ? "lines" : "planes";
}

/// True when the primary orientations of a text are planes, or lines that are plotted as planes.
bool HoldsPlanes(const PastedFormat& format) {
    return format.settings.primary == kPrimaryPlane
           || (format.settings.primary == kPrimaryLine && !format.showsSecondary
               && format.dataKind == kPlanes);
}

/// True when the primary columns of the main rows hold planes.
bool MainRowsArePlanes(const PlotRecord& record) {
    return record.ShowSecondary != 0 ? record.PrimaryFormat == kPrimaryPlane
                                     : IsPlottedAsPole(record, 0);
}

} // namespace

PastedFormat FormatOfPastedText(const FormatSettings& settings, const ParameterItems& items,
                                bool isOwn) {
    PastedFormat format;
    format.settings = WithNewPlotItems(WithFormatItems(settings, items), items);
    if (isOwn) {
        // A text does not hold what it does not name.
        format.settings.lineAppended = items.A.value_or(false);
        format.settings.numericAppended = items.L.value_or(false);
        format.settings.nonNumericAppended = items.W.value_or(false);
        format.settings.hasHeadings = false;
    }
    format.isOwn = isOwn;
    format.showsSecondary = items.S.value_or(false);
    format.namesSet = items.S.has_value() && format.settings.secondary != kNoSecondary;
    format.dataKind = format.settings.plotDataKind;
    if (isOwn && !items.T) {
        format.dataKind = format.settings.primary == kPrimaryPlane ? kPlanes : kLines;
    }
    return format;
}

bool TellsItsFormat(const ParameterItems& items) {
    return items.one.has_value() || items.I.has_value();
}

std::optional<std::string> QuestionBeforePaste(const PlotRecord& record,
                                               const PastedFormat& format) {
    if (record.NumLoadedData == 0 || record.DataKind == format.dataKind) {
        return std::nullopt;
    }
    const char* set = !format.namesSet ? "" : format.showsSecondary ? "Secondary " : "Primary ";
    std::string text = std::string("You are trying to paste ") + set + NameOfKind(format.dataKind)
                       + " into a plot containing " + NameOfKind(record.DataKind)
                       + ".\nThe pasted data will be transformed into the new format.";
    if (record.SecondaryFormat > kNoSecondary) {
        text += "\n(This may have unwanted side effects if you try to use the data in this new "
                "data set)";
    }
    return text + "\nContinue pasting?";
}

bool GoesIntoOverlay(const PlotRecord& record, const PastedFormat& format) {
    return record.OverlayRows[kOverlayCount] > 0
           || (record.ShowSecondary != 0 && format.settings.secondary == kNoSecondary);
}

RowTarget TargetOfPaste(const PlotRecord& record, const PastedFormat& format, int overlay) {
    RowTarget target;
    target.overlay = overlay;
    const bool hasSecondary = format.settings.secondary != kNoSecondary;
    const bool secondaryIsPlane = format.settings.secondary == kSecondaryPlane;
    // If the plot has a second set but the text does not, it is stored as missing.
    target.secondaryFormat = record.SecondaryFormat;
    if (overlay == 0) {
        target.turnToPole = HoldsPlanes(format) != MainRowsArePlanes(record);
        target.turnSecondary =
            hasSecondary && secondaryIsPlane != (record.SecondaryFormat == kSecondaryPlane);
        return target;
    }
    const bool showsSecondary = record.ShowSecondary != 0;
    if (showsSecondary && hasSecondary) {
        // An overlay holds the set that is shown as its primary one.
        target.turnSecondary = secondaryIsPlane != IsPlottedAsPole(record, overlay);
        target.turnToPole = HoldsPlanes(format) != (record.PrimaryFormat == kPrimaryPlane);
        return target;
    }
    target.turnToPole = HoldsPlanes(format) != IsPlottedAsPole(record, overlay);
    if (showsSecondary) {
        target.secondaryFormat = kNoSecondary;
    } else {
        target.turnSecondary =
            hasSecondary && secondaryIsPlane != (record.SecondaryFormat == kSecondaryPlane);
    }
    return target;
}

} // namespace quandrel

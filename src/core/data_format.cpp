// SPDX-License-Identifier: MIT

#include "core/data_format.h"

namespace quandrel {

std::int16_t gConventions = 1;
std::string gFileDelimiter = "\t";
std::string gPlaneSeparator = "/";
std::string gLineSeparator = "-";
std::int16_t gPrimaryDataType = kPrimaryPlane;
std::int16_t gSecondaryDataType = kNoSecondary;
bool gFileLineAppended = false;
bool gFileNumericAppended = false;
bool gFileNonNumericAppended = false;
std::string gFileAppNumName = "value";
std::string gFileAppNonNumName = "type";
ColumnSettings gFileColumnSettings = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
std::int16_t gPlotDataKind = kPlanes;
std::int16_t gPlotKind = kEqualArea;
bool gConvertDecimals = false;
NegativePlunge gNegativePlunge = NegativePlunge::LowerEnd;
bool gFileHasHeadings = false;

std::int16_t DataKindOfSet(bool holdsPlanes, std::int16_t formerKind) {
    if (holdsPlanes) {
        return kPlanes;
    }
    return formerKind == kPolarLines ? kPolarLines : kLines;
}

FormatSettings CurrentFormat() {
    return {gConventions,
            gFileDelimiter,
            gPlaneSeparator,
            gLineSeparator,
            gPrimaryDataType,
            gSecondaryDataType,
            gFileLineAppended,
            gFileNumericAppended,
            gFileNonNumericAppended,
            gFileAppNumName,
            gFileAppNonNumName,
            gFileColumnSettings,
            gPlotDataKind,
            gPlotKind,
            gFileHasHeadings,
            gNegativePlunge,
            gSymbolTable};
}

void RestoreFormat(const FormatSettings& settings) {
    gConventions = settings.conventions;
    gFileDelimiter = settings.delimiter;
    gPlaneSeparator = settings.planeSeparator;
    gLineSeparator = settings.lineSeparator;
    gPrimaryDataType = settings.primary;
    gSecondaryDataType = settings.secondary;
    gFileLineAppended = settings.lineAppended;
    gFileNumericAppended = settings.numericAppended;
    gFileNonNumericAppended = settings.nonNumericAppended;
    gFileAppNumName = settings.numericName;
    gFileAppNonNumName = settings.nonNumericName;
    gFileColumnSettings = settings.columns;
    gPlotDataKind = settings.plotDataKind;
    gPlotKind = settings.plotKind;
    gFileHasHeadings = settings.hasHeadings;
    gNegativePlunge = settings.negativePlunge;
    gSymbolTable = settings.symbols;
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "core/new_record.h"
#include "persistence/binary_plot_fields.h"
#include "persistence/plot_blocks.h"

#include <cmath>
#include <new>

namespace quandrel {

namespace {

constexpr const char* kNoBinaryPlot = "It is not a binary plot file.";
constexpr double kFirstVersion = 7.0;
constexpr double kVersionsEnd = 100;

/// Reads the head before the fields.
void ReadHeading(BinaryReader& reader, BinaryPlot& plot, std::string& error) {
    std::string mark;
    reader.Fixed(mark, std::char_traits<char>::length(kBinaryMark));
    reader.Fixed(plot.versionText, kShortVersion);
    const std::optional<double> version = ReadNumber(plot.versionText);
    if (mark != kBinaryMark || !version || *version >= kVersionsEnd) {
        error = kNoBinaryPlot;
    } else if (*version < kFirstVersion) {
        error = "It was saved by version " + plot.versionText
                + "; files from version 7.0 on can be read.";
    } else {
        plot.version = static_cast<int>(std::lround(10 * *version));
    }
}

[[nodiscard]] bool IsLaterThanThis(const BinaryPlot& plot) {
    constexpr int kThisVersion = 95;
    return plot.version > kThisVersion || ParseNumber(plot.fullVersion) > ParseNumber(kVersionText);
}

/// Why a file cannot be read, for the user.
std::string Reason(const BinaryPlot& plot, const std::string& error) {
    return plot.isLater ? "It was saved by version " + VersionToTell(plot)
                              + ", which is later than this one. " + error
                        : error;
}

/// Names and values that files before versions 9.0 and 7.2 do not have.
void TakeEarlierValues(BinaryPlot& plot) {
    PlotRecord& record = plot.record;
    if (plot.version <= 71) {
        record.FabricValueD = record.FabricValueA;
        record.FabricValueE = record.FabricValueB;
        record.FabricValueC = static_cast<double>(record.FabricValueA);
    }
    if (plot.version < 90) {
        record.AppNumName = "Length";
        record.AppNonNumName = "Type";
    }
}

/// What a file does not say is that of a new plot in Classic, so that it looks as it always did.
PlotRecord RecordOfFile() {
    Settings settings = gSettings;
    settings.newPlots.style = {};
    return NewPlotRecord(settings);
}

Result<BinaryPlot> Read(std::string_view bytes) {
    BinaryPlot plot;
    plot.record = RecordOfFile();
    BinaryReader reader(bytes);
    std::string error;
    ReadHeading(reader, plot, error);
    if (!error.empty()) {
        return Failure{error};
    }
    BinaryPlotFields(reader, plot).VisitAll();
    RequirePossibleSettings(reader, plot.record);
    plot.isLater = IsLaterThanThis(plot);
    if (reader.HasFailed()) {
        return Failure{Reason(plot, reader.Error())};
    }
    plot.record.DensityGridFromFile = plot.record.DensityGrid != nullptr;
    plot.record.NumLoadedData = static_cast<std::int32_t>(plot.rows.size());
    ReadBlocks(bytes.substr(bytes.size() - reader.Left()), plot);
    TakeEarlierValues(plot);
    return plot;
}

} // namespace

std::string VersionToTell(const BinaryPlot& plot) {
    const bool isInFull = ParseNumber(plot.fullVersion) >= ParseNumber(plot.versionText);
    return isInFull ? plot.fullVersion : plot.versionText;
}

Result<BinaryPlot> ReadBinaryPlot(std::string_view bytes) {
    try {
        return Read(bytes);
    } catch (const std::bad_alloc&) {
        return Failure{kNoMemoryForPlot};
    }
}

} // namespace quandrel

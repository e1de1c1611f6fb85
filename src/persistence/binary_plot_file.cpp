// SPDX-License-Identifier: MIT

#include "persistence/binary_plot_file.h"

#include "core/atomic_file.h"
#include "core/messages.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "input/file_loading.h"
#include "input/text_file.h"
#include "persistence/plot_of_file.h"
#include "stereo/axis_rows.h"

#include <new>
#include <optional>
#include <utility>

namespace quandrel {

namespace {

constexpr const char* kLeftOut =
    "Part of this .qpx file was left out, such as decimals of its angles. It is lost if the plot "
    "is saved under the same name.";

void NamePlot(PlotRecord& record, const std::string& path, int slot) {
    record.SaveFileName = path;
    record.FileNames[kFirstFile] = path;
    record.NumFiles = 1;
    record.MainFiles = {path};
    record.FileTitle = FileTitleOf(path);
    record.PlotTitle = record.FileTitle + ": " + std::to_string(slot);
}

} // namespace

std::string SaveBinaryPlot(const std::string& path, int slot) {
    const Result<std::string> bytes = BinaryPlotBytes(slot);
    return bytes ? WriteFileAtomically(path, *bytes) : bytes.Error();
}

Result<BinaryPlot> ReadBinaryPlotFile(const std::string& path) {
    const Result<std::string> bytes = FirstBytes(path, kLargestTextFile);
    if (!bytes) {
        return Failure{bytes.Error()};
    }
    return ReadBinaryPlot(*bytes);
}

bool StoreBinaryPlot(BinaryPlot plot, const std::string& path, int slot) {
    try {
        const std::optional<WindowPlace> place = plot.place;
        if (!TakeBinaryPlot(std::move(plot), PlotOf(slot))) {
            return false;
        }
        NamePlot(RecordOf(slot), path, slot);
        if (place) {
            FormOf(slot).SetPlace(*place);
        }
        return true;
    } catch (const std::bad_alloc&) {
        SetNewFVariables(slot);
        return false;
    }
}

void LoadBinaryPlot(const std::string& path, int slot, std::string& version) {
    version = kLoadError;
    Result<BinaryPlot> plot = ReadBinaryPlotFile(path);
    if (!plot) {
        return;
    }
    const BinaryPlotRemarks remarks = RemarksOn(*plot);
    std::string read = plot->versionText;
    if (StoreBinaryPlot(std::move(*plot), path, slot)) {
        version = std::move(read);
        TellRemarks(remarks);
    }
}

BinaryPlotRemarks RemarksOn(const BinaryPlot& plot) {
    return {plot.hasWeightedRose, plot.isLater ? VersionToTell(plot) : std::string(),
            MixesAxes(plot.record, plot.record.PlotSymbolMode),
            MixesAxesAsRose(plot.record, plot.record.PlotKind), plot.leftOut};
}

void TellRemarks(const BinaryPlotRemarks& remarks) {
    if (!remarks.laterVersion.empty()) {
        Tell("This .qpx file was saved by a later version of Quandrel, " + remarks.laterVersion
                 + ".\nWhat only that version knows was left out, and is lost if the plot is saved "
                   "under the same name.",
             Icon::Exclamation);
    }
    if (remarks.hasWeightedRose) {
        Tell("This .qpx file was saved in a previous version of Quandrel.\n"
             "To repeat the weighting used on the original plot you will have to replot the "
             "diagram.",
             Icon::Information);
    }
    if (!remarks.leftOut.empty()) {
        std::string text = kLeftOut;
        for (const std::string& fault : remarks.leftOut) {
            text += "\n" + fault;
        }
        Tell(text, Icon::Exclamation);
    }
    if (remarks.mixesAxes) {
        Tell(std::string(kOpensAsPoints) + kMixedAxesRefusal, Icon::Information);
    }
    if (remarks.mixesAxesAsRose) {
        Tell(std::string(kOpensAsNet) + kMixedRoseRefusal, Icon::Information);
    }
}

} // namespace quandrel

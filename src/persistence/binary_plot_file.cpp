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
#include <string>
#include <utility>
#include <vector>

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

std::vector<std::string> PathsIn(const std::string& picture,
                                 const std::vector<std::string>& names) {
    std::vector<std::string> paths;
    for (const std::string& name : names) {
        paths.push_back(picture + "/" + FileTitleOf(name));
    }
    return paths;
}

void NamePlotOfPicture(PlotRecord& record, const PictureView& view, const std::string& picture,
                       int slot) {
    record.FileTitle = view.title;
    record.MainFiles = PathsIn(picture, view.main);
    for (std::size_t k = 0; k < view.overlays.size(); ++k) {
        record.OverlayFiles[k] = PathsIn(picture, view.overlays[k]);
    }
    record.ShowConfidenceCone = view.showsCone;
    record.PlotTitle = FileTitleOf(picture) + ": " + std::to_string(slot);
}

/// Puts a plot into an empty slot, which `name` then names.
template <class Name>
bool Store(BinaryPlot plot, int slot, const Name& name) {
    try {
        if (!TakeBinaryPlot(std::move(plot), PlotOf(slot))) {
            return false;
        }
        name(RecordOf(slot));
        return true;
    } catch (const std::bad_alloc&) {
        SetNewFVariables(slot);
        return false;
    }
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
    const std::optional<WindowPlace> place = plot.place;
    return Store(std::move(plot), slot, [&](PlotRecord& record) {
        NamePlot(record, path, slot);
        if (place) {
            FormOf(slot).SetPlace(*place);
        }
    });
}

bool StorePlotOfPicture(BinaryPlot plot, const std::string& picture, int slot) {
    const PictureView view =
        plot.pictureView.value_or(PictureView{FileTitleOf(picture), {}, {}, false});
    return Store(std::move(plot), slot,
                 [&](PlotRecord& record) { NamePlotOfPicture(record, view, picture, slot); });
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

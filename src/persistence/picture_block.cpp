// SPDX-License-Identifier: MIT

#include "persistence/picture_block.h"

#include "core/path_names.h"

#include <cstdint>

namespace quandrel {

namespace {

std::vector<std::string> WithoutPaths(const std::vector<std::string>& paths) {
    std::vector<std::string> names;
    for (const std::string& path : paths) {
        names.push_back(FileTitleOf(path));
    }
    return names;
}

void WriteList(const std::vector<std::string>& names, BinaryWriter& writer) {
    writer.Short(static_cast<std::int32_t>(names.size()));
    for (const std::string& name : names) {
        writer.Text(name);
    }
}

std::vector<std::string> ReadList(BinaryReader& reader) {
    std::int16_t count = 0;
    reader.Short(count);
    reader.RequireRoom(count, sizeof(std::int16_t));
    std::vector<std::string> names;
    for (std::int16_t i = 0; i < count && !reader.HasFailed(); ++i) {
        reader.Text(names.emplace_back());
    }
    return names;
}

} // namespace

PictureView PictureViewOf(const PlotRecord& record) {
    PictureView view;
    view.title = FileTitleOf(record.FileTitle.empty() ? record.PlotTitle : record.FileTitle);
    view.main = WithoutPaths(record.MainFiles);
    for (std::size_t k = 0; k < view.overlays.size(); ++k) {
        view.overlays[k] = WithoutPaths(record.OverlayFiles[k]);
    }
    view.showsCone = record.ShowConfidenceCone;
    return view;
}

void WritePictureView(const PictureView& view, BinaryWriter& writer) {
    writer.Text(view.title);
    WriteList(view.main, writer);
    for (const std::vector<std::string>& overlay : view.overlays) {
        WriteList(overlay, writer);
    }
    writer.Short(view.showsCone ? kTrue : std::int16_t{0});
}

std::optional<PictureView> PictureViewOfBlock(std::string_view bytes) {
    BinaryReader reader(bytes);
    PictureView view;
    reader.Text(view.title);
    view.main = ReadList(reader);
    for (std::vector<std::string>& overlay : view.overlays) {
        overlay = ReadList(reader);
    }
    std::int16_t showsCone = 0;
    reader.Short(showsCone);
    view.showsCone = showsCone != 0;
    return reader.HasFailed() || view.title.empty() ? std::nullopt : std::optional(view);
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "recovery/copy_names.h"

#include "persistence/binary_plot_file.h"

#include <algorithm>
#include <charconv>
#include <span>
#include <tuple>
#include <utility>

namespace quandrel {

namespace {

constexpr std::string_view kCopyBegin = "plot_";

// The names follow the plot: texts that each end with a zero byte, then their length in bytes as
// kLengthDigits digits, then the mark.
constexpr std::string_view kNamesMark = "QuandrelRecovery";
constexpr std::size_t kLengthDigits = 10;

constexpr std::size_t kOverlayLists = std::tuple_size_v<decltype(PlotRecord::OverlayFiles)>;

void AddText(std::string& block, std::string_view text) {
    block += text.substr(0, text.find('\0'));
    block += '\0';
}

void AddList(std::string& block, const std::vector<std::string>& list) {
    AddText(block, std::to_string(list.size()));
    for (const std::string& text : list) {
        AddText(block, text);
    }
}

/// The texts at the end of a copy; empty when there are none.
std::string_view TextsOfCopy(std::string_view file) {
    const std::size_t tail = kLengthDigits + kNamesMark.size();
    if (file.size() < tail || !file.ends_with(kNamesMark)) {
        return {};
    }
    file.remove_suffix(kNamesMark.size());
    std::size_t length = 0;
    const char* const end = file.data() + file.size();
    const auto [rest, error] = std::from_chars(end - kLengthDigits, end, length);
    file.remove_suffix(kLengthDigits);
    const bool isLength = error == std::errc() && rest == end && length <= file.size();
    return isLength ? file.substr(file.size() - length) : std::string_view();
}

/// Takes texts one after another; empty ones after the end.
class TextReader {
public:
    explicit TextReader(std::string_view texts)
        : left_(texts) {}

    std::string Text() {
        const std::string_view text = left_.substr(0, left_.find('\0'));
        left_.remove_prefix(std::min(text.size() + 1, left_.size()));
        return std::string(text);
    }

    std::vector<std::string> List() {
        const std::string digits = Text();
        std::size_t count = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), count);
        std::vector<std::string> list;
        for (std::size_t i = 0; i < count && !left_.empty(); ++i) {
            list.push_back(Text());
        }
        return list;
    }

private:
    std::string_view left_;
};

} // namespace

bool IsSessionName(std::string_view name) {
    return name.find_first_not_of("0123456789-") == std::string_view::npos
           && std::ranges::count(name, '-') == 1;
}

std::string CopyName(int slot) {
    return std::string(kCopyBegin) + std::to_string(slot) + kBinaryEnding;
}

std::optional<int> SlotOfCopyName(std::string_view name) {
    if (!name.starts_with(kCopyBegin)) {
        return std::nullopt;
    }
    const char* const end = name.data() + name.size();
    int slot = 0;
    const auto [rest, error] = std::from_chars(name.data() + kCopyBegin.size(), end, slot);
    return error == std::errc() && std::string_view(rest, end) == kBinaryEnding
               ? std::optional(slot)
               : std::nullopt;
}

CopyNames NamesOf(const PlotRecord& record) {
    const auto count = std::clamp<int>(record.NumFiles, 0, kMaxFiles);
    const auto first = record.FileNames.begin() + kFirstFile;
    return {record.PlotTitle,
            record.SaveFileName,
            record.FileTitle,
            record.FileHeadLine,
            {first, first + count},
            record.MainFiles,
            {record.OverlayFiles.begin(), record.OverlayFiles.end()}};
}

std::string NamesBlock(const CopyNames& names) {
    std::string block;
    for (const std::string& text : {names.title, names.saveFile, names.fileTitle, names.headLine}) {
        AddText(block, text);
    }
    AddList(block, names.files);
    AddList(block, names.mainFiles);
    for (const std::vector<std::string>& overlay : names.overlayFiles) {
        AddList(block, overlay);
    }
    const std::string length = std::to_string(block.size());
    return block + std::string(kLengthDigits - length.size(), '0') + length
           + std::string(kNamesMark);
}

std::optional<CopyNames> NamesOfCopy(std::string_view file) {
    const std::string_view texts = TextsOfCopy(file);
    if (texts.empty()) {
        return std::nullopt;
    }
    TextReader reader(texts);
    CopyNames names;
    names.title = reader.Text();
    names.saveFile = reader.Text();
    names.fileTitle = reader.Text();
    names.headLine = reader.Text();
    names.files = reader.List();
    names.mainFiles = reader.List();
    for (std::size_t i = 0; i < kOverlayLists; ++i) {
        names.overlayFiles.push_back(reader.List());
    }
    return names;
}

void RestoreNames(PlotRecord& record, CopyNames names) {
    record.PlotTitle = std::move(names.title);
    record.SaveFileName = std::move(names.saveFile);
    record.FileTitle = std::move(names.fileTitle);
    record.FileHeadLine = std::move(names.headLine);
    const std::size_t count = std::min(names.files.size(), std::size_t{kMaxFiles});
    record.NumFiles = static_cast<std::int16_t>(count);
    record.FileNames = {};
    std::copy_n(names.files.begin(), count, record.FileNames.begin() + kFirstFile);
    record.MainFiles = std::move(names.mainFiles);
    names.overlayFiles.resize(kOverlayLists);
    std::ranges::move(names.overlayFiles, record.OverlayFiles.begin());
}

} // namespace quandrel

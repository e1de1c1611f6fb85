// SPDX-License-Identifier: MIT

#include "batch/standard_streams.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace quandrel {

namespace {

constexpr std::size_t kReadStep = 65536;

Failure LastFailure() {
    return Failure{std::string("standard input cannot be read: ") + std::strerror(errno)};
}

} // namespace

InputCopy::InputCopy(std::string folder)
    : folder_(std::move(folder))
    , path_(folder_ + "/" + kStandardInputName) {}

InputCopy::~InputCopy() {
    std::error_code failed;
    std::filesystem::remove_all(folder_, failed);
}

Result<std::unique_ptr<InputCopy>> InputCopy::Make(int descriptor) {
    std::error_code failed;
    std::string folder =
        (std::filesystem::temp_directory_path(failed) / "quandrel-XXXXXX").string();
    if (failed || ::mkdtemp(folder.data()) == nullptr) {
        return LastFailure();
    }
    std::unique_ptr<InputCopy> copy(new InputCopy(folder));
    std::ofstream file(copy->path_, std::ios::binary);
    std::array<char, kReadStep> bytes{};
    for (;;) {
        const ssize_t got = ::read(descriptor, bytes.data(), bytes.size());
        if (got < 0 && errno != EINTR) {
            return LastFailure();
        }
        if (got == 0) {
            break;
        }
        file.write(bytes.data(), std::max<ssize_t>(got, 0));
    }
    if (!file.flush()) {
        return LastFailure();
    }
    return copy;
}

std::string InputCopy::Named(std::string text) const {
    for (std::size_t at = 0; (at = text.find(path_, at)) != std::string::npos;) {
        text.replace(at, path_.size(), kStandardInputName);
    }
    return text;
}

void InputCopy::NameIn(PlotRecord& record) const {
    const auto name = [this](std::string& path) {
        if (path == path_) {
            path = kStandardInputName;
        }
    };
    std::for_each(record.FileNames.begin(), record.FileNames.end(), name);
    std::for_each(record.MainFiles.begin(), record.MainFiles.end(), name);
    for (std::vector<std::string>& files : record.OverlayFiles) {
        std::for_each(files.begin(), files.end(), name);
    }
    if (record.SaveFileName == path_) {
        record.SaveFileName.clear(); // the plot cannot be saved to its source
    }
}

} // namespace quandrel

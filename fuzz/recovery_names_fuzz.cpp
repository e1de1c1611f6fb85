// SPDX-License-Identifier: MIT
//
// Arbitrary bytes as names in recovery: of a folder, of a copy, and as the names at the end of a
// copy. Names that can be read are written and read again, and must be the same.

#include "recovery/copy_names.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

namespace {

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void CheckNames(std::string_view bytes) {
    std::string copy(bytes);
    // The end of the block is hard to guess: half of the inputs get it.
    if (!copy.empty() && copy.back() % 2 == 0) {
        const std::string length = std::to_string(copy.size());
        copy += std::string(10 - length.size(), '0') + length + "QuandrelRecovery";
    }
    const auto names = quandrel::NamesOfCopy(copy);
    if (!names) {
        return;
    }
    Require(quandrel::NamesOfCopy(quandrel::NamesBlock(*names)) == names);
    quandrel::PlotRecord record;
    quandrel::RestoreNames(record, *names);
    Require(record.NumFiles >= 0 && record.NumFiles <= quandrel::kMaxFiles);
    Require(quandrel::NamesOf(record).files.size() <= names->files.size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (quandrel::IsSessionName(bytes)) {
        Require(bytes.find_first_of("./\\") == std::string_view::npos);
    }
    if (const auto slot = quandrel::SlotOfCopyName(bytes)) {
        Require(bytes.find('/') == std::string_view::npos);
        Require(quandrel::SlotOfCopyName(quandrel::CopyName(*slot)) == slot);
    }
    CheckNames(bytes);
    return 0;
}

// SPDX-License-Identifier: MIT
//
// Arbitrary bytes as a summary. Its checksum is set right, so that what follows it is reached; a
// summary that is read gives the same bytes again, and doubles when it is merged with itself.

#include "summary/summary_file.h"
#include "summary/summary_results.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

/// FNV-1a over all but the last eight bytes, which receive it.
void SetChecksum(std::string& bytes) {
    const std::size_t end = bytes.size() - 8;
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (std::size_t i = 0; i < end; ++i) {
        hash = (hash ^ static_cast<unsigned char>(bytes[i])) * 0x100000001b3U;
    }
    for (std::size_t i = 0; i < 8; ++i) {
        bytes[end + i] = static_cast<char>(hash >> (8 * i) & 0xffU);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string bytes(reinterpret_cast<const char*>(data), size);
    if (bytes.size() >= 28) {
        SetChecksum(bytes);
    }
    quandrel::Result<quandrel::RowSummary> summary = quandrel::SummaryOfBytes(bytes);
    if (!summary) {
        return 0;
    }
    static_cast<void>(quandrel::FabricOf(*summary));
    static_cast<void>(quandrel::CircularOf(*summary, true));
    const std::uint64_t rows = summary->Rows();
    quandrel::RowSummary twice = *summary;
    if (quandrel::SummaryBytes(*summary) != bytes || !twice.Merge(*summary).empty()
        || twice.Rows() != 2 * rows) {
        std::abort();
    }
    return 0;
}

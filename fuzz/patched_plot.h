// SPDX-License-Identifier: MIT
//
// Short inputs for whole plot files: a base file and the changes to it.
//
// Files from version 9.4 on hold a table of 375 kB, which keeps a fuzzer from reaching the fields
// after it. An input that begins with 'P' names a base by its second byte; the rest are patches,
// each a field, an offset in it and the bytes to put there:
//
//     field, low and high byte of the offset, count, the bytes
//
// Fields are counted from 0 in the order of the file and taken modulo their number, offsets modulo
// the length of the field. In a field longer than 64 kB the offsets are spread out, so that they
// reach its end. A count of 0 cuts the file there.
//
// An input that begins with 'E' is the blocks of an extension after the fields of a short file, for
// each
//
//     four characters of the tag, flag, low and high byte of the count, the bytes
//
// with the checksums that belong to them, which no mutation would find. Any other input is the file
// itself.

#pragma once

#include "persistence/binary_samples.h"
#include "persistence/plot_extension.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

struct BasePlotFile {
    std::string bytes;
    std::vector<std::size_t> fields; ///< starts; the last element is the end
};

/// Files of versions 9.2, 9.4, 9.44 and 9.5, with both grids of values where the version has them.
inline const std::vector<BasePlotFile>& BasePlotFiles() {
    static const std::vector<BasePlotFile> bases = [] {
        std::vector<BasePlotFile> all;
        for (const OldVersion& version : OldVersions()) {
            if (version.tenths >= 92) {
                OldPlot plot = SampleOfVersion(version);
                plot.gridCount = -1;
                const OldPlotWriter writer(plot);
                all.push_back({writer.Bytes(), writer.Fields()});
                all.back().fields.push_back(all.back().bytes.size());
            }
        }
        return all;
    }();
    return bases;
}

/// The position in the file that a patch names.
inline std::size_t PlaceOfPatch(const BasePlotFile& base, std::size_t field, std::size_t place) {
    constexpr std::size_t kPlaces = 65536;
    const std::size_t index = field % (base.fields.size() - 1);
    const std::size_t begin = base.fields[index];
    const std::size_t length = base.fields[index + 1] - begin;
    return begin + place * (length / kPlaces + 1) % std::max<std::size_t>(length, 1);
}

inline std::size_t ByteOfInput(char c) {
    return std::size_t{static_cast<unsigned char>(c)};
}

/// A file with an extension of blocks.
inline std::string ExtendedFile(std::string_view blocks) {
    constexpr std::size_t kBlockHead = 4 + 1 + 2;
    std::string file = BasePlotFiles().front().bytes;
    ExtensionWriter extension(file);
    while (blocks.size() >= kBlockHead) {
        BlockHead head;
        std::copy_n(blocks.begin(), head.tag.size(), head.tag.begin());
        head.holdsForAnyRows = blocks[4] % 2 != 0;
        const std::size_t count = ByteOfInput(blocks[5]) + 256 * ByteOfInput(blocks[6]);
        blocks.remove_prefix(kBlockHead);
        const std::string_view bytes = blocks.substr(0, count);
        extension.Block(head, [&] { file += bytes; });
        blocks.remove_prefix(bytes.size());
    }
    extension.Finish();
    return file;
}

/// The file described by an input.
inline std::string PlotFileOfInput(std::string_view input) {
    constexpr std::size_t kPatchHead = 4;
    if (input.starts_with('E')) {
        return ExtendedFile(input.substr(1));
    }
    if (input.size() < 2 || input.front() != 'P') {
        return std::string(input);
    }
    const auto byte = ByteOfInput;
    const BasePlotFile& base = BasePlotFiles()[byte(input[1]) % BasePlotFiles().size()];
    std::string file = base.bytes;
    for (input.remove_prefix(2); input.size() >= kPatchHead;) {
        const std::size_t at =
            PlaceOfPatch(base, byte(input[0]), byte(input[1]) + 256 * byte(input[2]));
        const std::size_t count = byte(input[3]);
        input.remove_prefix(kPatchHead);
        if (count == 0) {
            file.resize(std::min(at, file.size()));
            break;
        }
        const std::string_view bytes = input.substr(0, count);
        if (at + bytes.size() <= file.size()) {
            file.replace(at, bytes.size(), bytes);
        }
        input.remove_prefix(bytes.size());
    }
    return file;
}

} // namespace quandrel

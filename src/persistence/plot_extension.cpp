// SPDX-License-Identifier: MIT

#include "persistence/plot_extension.h"

#include <zlib.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <type_traits>
#include <utility>

namespace quandrel {

namespace {

/// The mark holds a byte that no text has and line ends, so that a file that was copied as a text
/// is found out. Its last two characters are the version of the extension's form.
constexpr std::string_view kMark = "\x8fQX\r\n\x1a"
                                   "01";
constexpr std::size_t kMarkWithoutVersion = 6;
constexpr BlockTag kEndTag = {'E', 'N', 'D', ' '};
constexpr std::uint32_t kForAnyRows = 1; ///< the one flag that there is
constexpr std::size_t kHeadBytes = 4 + 4 + 8;

constexpr const char* kCutOff = "Its extension is cut off.";
constexpr const char* kDamaged = "Its extension is damaged.";
constexpr const char* kNoExtension = "What follows its last field is not an extension.";
constexpr const char* kOtherVersion = "Its extension is of a later form.";

template <class T>
void AppendNumber(std::string& bytes, T number) {
    static_assert(std::is_unsigned_v<T>);
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        bytes.push_back(static_cast<char>(number >> (8 * i) & 0xffU));
    }
}

template <class T>
T NumberAt(std::string_view bytes, std::size_t place) {
    T number = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        number |= static_cast<T>(static_cast<unsigned char>(bytes[place + i])) << (8 * i);
    }
    return number;
}

std::uint32_t Crc32(std::string_view bytes) {
    return static_cast<std::uint32_t>(
        crc32_z(0, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()));
}

void AppendBlock(std::string& bytes, const BlockTag& tag, std::uint32_t flags,
                 std::string_view content) {
    const std::size_t begin = bytes.size();
    bytes.append(tag.data(), tag.size());
    AppendNumber(bytes, flags);
    AppendNumber(bytes, std::uint64_t{content.size()});
    bytes.append(content);
    AppendNumber(bytes, Crc32(std::string_view(bytes).substr(begin)));
}

/// A block with its flags, and how many bytes it takes in the file.
struct FiledBlock {
    ExtensionBlock block;
    std::size_t length = 0;
};

/// The block that bytes begin with. A failure when they end before it does, or it is damaged.
Result<FiledBlock> FirstBlock(std::string_view bytes) {
    constexpr std::size_t kCrcBytes = sizeof(std::uint32_t);
    if (bytes.size() < kHeadBytes + kCrcBytes) {
        return Failure{kCutOff};
    }
    const auto count = NumberAt<std::uint64_t>(bytes, 8);
    if (count > bytes.size() - kHeadBytes - kCrcBytes) {
        return Failure{kCutOff};
    }
    const std::size_t end = kHeadBytes + static_cast<std::size_t>(count);
    if (NumberAt<std::uint32_t>(bytes, end) != Crc32(bytes.substr(0, end))) {
        return Failure{kDamaged};
    }
    FiledBlock filed;
    std::copy_n(bytes.begin(), filed.block.tag.size(), filed.block.tag.begin());
    filed.block.holdsForAnyRows = (NumberAt<std::uint32_t>(bytes, 4) & kForAnyRows) != 0;
    filed.block.bytes = bytes.substr(kHeadBytes, static_cast<std::size_t>(count));
    filed.length = end + kCrcBytes;
    return filed;
}

/// Why bytes do not begin with the mark, or nothing when they do.
std::optional<Failure> FaultOfMark(std::string_view bytes) {
    if (bytes.starts_with(kMark)) {
        return std::nullopt;
    }
    if (bytes.size() < kMark.size() && kMark.starts_with(bytes)) {
        return Failure{kCutOff};
    }
    const bool isOther = bytes.starts_with(kMark.substr(0, kMarkWithoutVersion));
    return Failure{isOther ? kOtherVersion : kNoExtension};
}

} // namespace

Result<std::vector<ExtensionBlock>> ReadExtension(std::string_view bytes) {
    std::vector<ExtensionBlock> blocks;
    if (bytes.empty()) {
        return blocks;
    }
    if (const std::optional<Failure> fault = FaultOfMark(bytes)) {
        return *fault;
    }
    bytes.remove_prefix(kMark.size());
    for (;;) {
        Result<FiledBlock> filed = FirstBlock(bytes);
        if (!filed) {
            return Failure{filed.Error()};
        }
        bytes.remove_prefix(filed->length);
        if (filed->block.tag == kEndTag) {
            break;
        }
        blocks.push_back(std::move(filed->block));
    }
    if (!bytes.empty()) {
        return Failure{kDamaged};
    }
    return blocks;
}

Result<std::string> ExtensionBytes(std::span<const ExtensionBlock> blocks) {
    std::string bytes;
    if (blocks.empty()) {
        return bytes;
    }
    bytes = kMark;
    for (const ExtensionBlock& block : blocks) {
        if (block.tag == kEndTag) {
            return Failure{"A block cannot have the tag \"END \"."};
        }
        AppendBlock(bytes, block.tag, block.holdsForAnyRows ? kForAnyRows : 0, block.bytes);
    }
    AppendBlock(bytes, kEndTag, kForAnyRows, {});
    return bytes;
}

} // namespace quandrel

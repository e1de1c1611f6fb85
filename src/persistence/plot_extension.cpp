// SPDX-License-Identifier: MIT

#include "persistence/plot_extension.h"

#include <zlib.h>

#include <algorithm>
#include <type_traits>

namespace quandrel {

namespace {

/// The mark holds a byte that no text has and line ends, so that a file that was copied as a text
/// is found out. Its last two characters are the version of the extension's form.
constexpr std::string_view kMark = "\x8fQX\r\n\x1a"
                                   "01";
constexpr std::size_t kMarkWithoutVersion = 6;
constexpr BlockHead kEnd{{'E', 'N', 'D', ' '}, true};
constexpr std::uint32_t kForAnyRows = 1; ///< the only flag
constexpr std::size_t kPlaceOfCount = 4 + 4;
constexpr std::size_t kHeadBytes = kPlaceOfCount + 8;
constexpr std::size_t kCrcBytes = 4;

constexpr const char* kCutOff = "Its extension is cut off.";
constexpr const char* kDamaged = "Its extension is damaged.";
constexpr const char* kOtherVersion = "Its extension has the form of a later version.";

template <class T>
void PutNumber(std::string& bytes, std::size_t place, T number) {
    static_assert(std::is_unsigned_v<T>);
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        bytes[place + i] = static_cast<char>(number >> (8 * i) & 0xffU);
    }
}

template <class T>
void AppendNumber(std::string& bytes, T number) {
    bytes.resize(bytes.size() + sizeof(T));
    PutNumber(bytes, bytes.size() - sizeof(T), number);
}

template <class T>
T NumberAt(std::string_view bytes, std::size_t place) {
    T number = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        number |= static_cast<T>(static_cast<unsigned char>(bytes[place + i])) << (8 * i);
    }
    return number;
}

/// A block, and how many bytes it takes in the file.
struct FiledBlock {
    BlockView block;
    std::size_t length = 0;
};

/// The block that bytes begin with. A failure when they end before it does, or it is damaged.
Result<FiledBlock> FirstBlock(std::string_view bytes) {
    if (bytes.size() < kHeadBytes + kCrcBytes) {
        return Failure{kCutOff};
    }
    const auto count = NumberAt<std::uint64_t>(bytes, kPlaceOfCount);
    if (count > bytes.size() - kHeadBytes - kCrcBytes) {
        return Failure{kCutOff};
    }
    const std::size_t end = kHeadBytes + static_cast<std::size_t>(count);
    if (NumberAt<std::uint32_t>(bytes, end) != Crc32(bytes.substr(0, end))) {
        return Failure{kDamaged};
    }
    FiledBlock filed;
    std::copy_n(bytes.begin(), filed.block.head.tag.size(), filed.block.head.tag.begin());
    filed.block.head.holdsForAnyRows = (NumberAt<std::uint32_t>(bytes, 4) & kForAnyRows) != 0;
    filed.block.bytes = bytes.substr(kHeadBytes, static_cast<std::size_t>(count));
    filed.length = end + kCrcBytes;
    return filed;
}

/// Whether bytes are an extension with a damaged mark: the last block is always the same.
bool HoldsEnd(std::string_view bytes) {
    std::string end;
    ExtensionWriter(end).Block(kEnd, [] {});
    return bytes.find(std::string_view(end).substr(kMark.size())) != std::string_view::npos;
}

/// What bytes begin with.
enum class Beginning { Mark, PartOfMark, OtherVersion, DamagedMark, Nothing };

Beginning BeginningOf(std::string_view bytes) {
    if (bytes.starts_with(kMark)) {
        return Beginning::Mark;
    }
    if (bytes.empty()) {
        return Beginning::Nothing;
    }
    if (kMark.starts_with(bytes)) {
        return Beginning::PartOfMark;
    }
    if (bytes.starts_with(kMark.substr(0, kMarkWithoutVersion))) {
        return Beginning::OtherVersion;
    }
    return HoldsEnd(bytes) ? Beginning::DamagedMark : Beginning::Nothing;
}

/// The blocks of bytes that begin with the mark.
Result<Extension> ReadBlocks(std::string_view bytes) {
    Extension extension;
    for (std::size_t place = kMark.size();;) {
        Result<FiledBlock> filed = FirstBlock(bytes.substr(place));
        if (!filed) {
            return Failure{filed.Error()};
        }
        place += filed->length;
        if (filed->block.head.tag == kEnd.tag) {
            extension.length = place;
            return extension;
        }
        extension.blocks.push_back(filed->block);
    }
}

} // namespace

std::uint32_t Crc32(std::string_view bytes, std::uint32_t former) {
    return static_cast<std::uint32_t>(
        crc32_z(former, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()));
}

Result<Extension> ReadExtension(std::string_view bytes) {
    switch (BeginningOf(bytes)) {
    case Beginning::Mark:
        return ReadBlocks(bytes);
    case Beginning::PartOfMark:
        return Failure{kCutOff};
    case Beginning::OtherVersion:
        return Failure{kOtherVersion};
    case Beginning::DamagedMark:
        return Failure{kDamaged};
    case Beginning::Nothing:
        break;
    }
    return Extension();
}

void ExtensionWriter::Begin(const BlockHead& head) {
    if (begin_ == 0) {
        bytes_ += kMark;
    }
    begin_ = bytes_.size();
    bytes_.append(head.tag.data(), head.tag.size());
    AppendNumber(bytes_, head.holdsForAnyRows ? kForAnyRows : std::uint32_t{0});
    AppendNumber(bytes_, std::uint64_t{0}); // the count, known at the end
}

void ExtensionWriter::End() {
    PutNumber(bytes_, begin_ + kPlaceOfCount, std::uint64_t{bytes_.size() - begin_ - kHeadBytes});
    AppendNumber(bytes_, Crc32(std::string_view(bytes_).substr(begin_)));
}

void ExtensionWriter::Finish() {
    if (begin_ != 0) {
        Block(kEnd, [] {});
    }
}

} // namespace quandrel

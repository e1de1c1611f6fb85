// SPDX-License-Identifier: MIT

#include "persistence/png_text.h"

#include "persistence/packed_text.h"
#include "persistence/plot_extension.h"

#include <cstdint>

namespace quandrel {

namespace {

constexpr std::size_t kNumberBytes = 4;
constexpr std::size_t kTypeBytes = 4;
constexpr std::size_t kFrameBytes = kNumberBytes + kTypeBytes + kNumberBytes;

std::uint32_t NumberAt(std::string_view bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (const char c : bytes.substr(at, kNumberBytes)) {
        number = number << 8 | static_cast<unsigned char>(c);
    }
    return number;
}

/// Takes what comes before the next zero byte; nothing without one.
std::optional<std::string_view> TakePart(std::string_view& bytes) {
    const std::size_t end = bytes.find('\0');
    if (end == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view part = bytes.substr(0, end);
    bytes.remove_prefix(end + 1);
    return part;
}

/// A text as it is stored, and whether it is compressed.
struct StoredText {
    std::string_view bytes;
    bool isPacked = false;
};

/// The text of a chunk of the type zTXt, after its keyword.
std::optional<StoredText> AfterMethod(std::string_view data) {
    if (data.empty() || data[0] != 0) {
        return std::nullopt; // no other method is defined
    }
    return StoredText{data.substr(1), true};
}

/// The text of a chunk of the type iTXt, after its keyword.
std::optional<StoredText> AfterLanguage(std::string_view data) {
    if (data.size() < 2 || data[0] < 0 || data[0] > 1 || data[1] != 0) {
        return std::nullopt;
    }
    const bool isPacked = data[0] == 1;
    data.remove_prefix(2);
    if (!TakePart(data) || !TakePart(data)) { // the language, the keyword in it
        return std::nullopt;
    }
    return StoredText{data, isPacked};
}

} // namespace

std::optional<std::string> TextOfPng(std::string_view png, std::string_view keyword,
                                     std::size_t mostLength) {
    if (!png.starts_with(kPngSignature)) {
        return std::nullopt;
    }
    png.remove_prefix(kPngSignature.size());
    while (png.size() >= kFrameBytes) {
        const std::size_t length = NumberAt(png, 0);
        if (length > png.size() - kFrameBytes) {
            return std::nullopt;
        }
        const std::string_view type = png.substr(kNumberBytes, kTypeBytes);
        std::string_view data = png.substr(kNumberBytes + kTypeBytes, length);
        const bool isWhole = Crc32(png.substr(kNumberBytes, kTypeBytes + length))
                             == NumberAt(png, kNumberBytes + kTypeBytes + length);
        png.remove_prefix(kFrameBytes + length);
        const bool isText = type == "tEXt" || type == "zTXt" || type == "iTXt";
        if (!isText || TakePart(data) != keyword) {
            continue;
        }
        const std::optional<StoredText> text = type == "tEXt"   ? StoredText{data, false}
                                               : type == "zTXt" ? AfterMethod(data)
                                                                : AfterLanguage(data);
        if (!isWhole || !text || (!text->isPacked && text->bytes.size() > mostLength)) {
            return std::nullopt;
        }
        return text->isPacked ? Unpacked(text->bytes, mostLength) : std::string(text->bytes);
    }
    return std::nullopt;
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "persistence/packed_text.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <utility>

namespace quandrel {

namespace {

constexpr std::string_view kDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::size_t kStep = std::size_t{64} << 10;
constexpr std::size_t kMostAtOnce = std::numeric_limits<uInt>::max();

/// The value of a digit, 64 and above for other characters.
std::uint32_t ValueOf(char digit) {
    static const std::array<std::uint8_t, 256> values = [] {
        std::array<std::uint8_t, 256> table{};
        table.fill(64);
        for (std::size_t i = 0; i < kDigits.size(); ++i) {
            table[static_cast<unsigned char>(kDigits[i])] = static_cast<std::uint8_t>(i);
        }
        return table;
    }();
    return values[static_cast<unsigned char>(digit)];
}

/// A stream of the library that reads from bytes.
class Inflater {
public:
    explicit Inflater(std::string_view packed)
        : left_(packed) {
        isReady_ = inflateInit(&stream_) == Z_OK;
    }

    ~Inflater() {
        if (isReady_) {
            inflateEnd(&stream_);
        }
    }

    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    enum class Outcome { More, End, Failure };

    /// Appends what comes next, at most `room` bytes.
    Outcome Append(std::string& bytes, std::size_t room) {
        if (!isReady_) {
            return Outcome::Failure;
        }
        if (stream_.avail_in == 0) {
            const std::size_t count = std::min(left_.size(), kMostAtOnce);
            // The library does not write to its input.
            stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(left_.data()));
            stream_.avail_in = static_cast<uInt>(count);
            left_.remove_prefix(count);
        }
        const std::size_t before = bytes.size();
        bytes.resize(before + room);
        stream_.next_out = reinterpret_cast<Bytef*>(bytes.data() + before);
        stream_.avail_out = static_cast<uInt>(room);
        const int outcome = inflate(&stream_, Z_NO_FLUSH);
        bytes.resize(before + room - stream_.avail_out);
        if (outcome == Z_STREAM_END) {
            return Outcome::End;
        }
        return outcome == Z_OK ? Outcome::More : Outcome::Failure;
    }

private:
    std::string_view left_;
    z_stream stream_{};
    bool isReady_ = false;
};

} // namespace

std::optional<std::string> Packed(std::string_view bytes) {
    uLongf length = compressBound(static_cast<uLong>(bytes.size()));
    std::string packed(length, '\0');
    if (compress2(reinterpret_cast<Bytef*>(packed.data()), &length,
                  reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uLong>(bytes.size()),
                  Z_DEFAULT_COMPRESSION)
        != Z_OK) {
        return std::nullopt;
    }
    packed.resize(length);
    return packed;
}

std::optional<std::string> Unpacked(std::string_view packed, std::size_t mostBytes) {
    Inflater inflater(packed);
    std::string bytes;
    while (true) {
        // One byte beyond the limit shows that there is more.
        const std::size_t room = std::min(kStep, mostBytes + 1 - bytes.size());
        switch (inflater.Append(bytes, room)) {
        case Inflater::Outcome::End:
            return bytes.size() <= mostBytes ? std::optional(std::move(bytes)) : std::nullopt;
        case Inflater::Outcome::Failure:
            return std::nullopt;
        case Inflater::Outcome::More:
            break;
        }
        if (bytes.size() > mostBytes) {
            return std::nullopt;
        }
    }
}

std::string Base64Of(std::string_view bytes) {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::string_view group = bytes.substr(at, 3);
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            bits = bits << 8 | (i < group.size() ? static_cast<unsigned char>(group[i]) : 0U);
        }
        for (std::size_t i = 0; i < 4; ++i) {
            text += i <= group.size() ? kDigits[bits >> (18 - 6 * i) & 63U] : '=';
        }
    }
    return text;
}

std::optional<std::string> BytesOfBase64(std::string_view text) {
    if (text.size() % 4 != 0) {
        return std::nullopt;
    }
    std::size_t padding = 0;
    while (padding < 2 && padding < text.size() && text[text.size() - 1 - padding] == '=') {
        ++padding;
    }
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3);
    std::uint32_t bits = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::uint32_t value = at >= text.size() - padding ? 0 : ValueOf(text[at]);
        if (value >= 64) {
            return std::nullopt;
        }
        bits = bits << 6 | value;
        if (at % 4 == 3) {
            bytes += static_cast<char>(bits >> 16 & 0xffU);
            bytes += static_cast<char>(bits >> 8 & 0xffU);
            bytes += static_cast<char>(bits & 0xffU);
            bits = 0;
        }
    }
    bytes.resize(bytes.size() - padding);
    return bytes;
}

} // namespace quandrel

// SPDX-License-Identifier: MIT

#include "persistence/binary_stream.h"

#include "input/text_encoding.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <type_traits>

namespace quandrel {

namespace {

/// Kinds of a tagged value.
enum ValueKind : std::int16_t {
    kEmptyValue = 0,
    kShortValue = 2,
    kLongValue = 3,
    kSingleValue = 4,
    kDoubleValue = 5,
    kTextValue = 8,
    kTruthValue = 11,
};

constexpr std::size_t kCodeDigits = 6;
constexpr const char* kTooShort = "It ends too early.";

/// Whether any of the doubles in these bytes is NaN. Without a branch for each, because a grid of
/// values has 46,818: with the sign removed only NaN is above the bits of infinity.
bool HoldsNan(std::string_view bytes) {
    constexpr std::uint64_t kWithoutSign = 0x7fffffffffffffff;
    constexpr std::uint64_t kCarriesNan = 0x000fffffffffffff;
    std::uint64_t carried = 0;
    for (; bytes.size() >= sizeof(double); bytes.remove_prefix(sizeof(double))) {
        std::uint64_t bits = 0;
        std::memcpy(&bits, bytes.data(), sizeof(bits));
        carried |= (bits & kWithoutSign) + kCarriesNan;
    }
    return (carried & ~kWithoutSign) != 0;
}

template <std::size_t Size>
using Bits = std::conditional_t<Size == 2, std::uint16_t,
                                std::conditional_t<Size == 4, std::uint32_t, std::uint64_t>>;

} // namespace

void BinaryReader::Refuse() {
    if (error_.empty()) {
        error_ = "It is damaged at byte " + std::to_string(position_) + ".";
    }
}

void BinaryReader::RequireRoom(std::int64_t count, std::size_t least) {
    Require(count >= 0);
    if (!HasFailed() && static_cast<std::uint64_t>(count) > Left() / least) {
        error_ = kTooShort;
    }
}

std::string_view BinaryReader::Take(std::size_t count) {
    if (HasFailed()) {
        return {};
    }
    if (count > bytes_.size() - position_) {
        error_ = kTooShort;
        return {};
    }
    const std::string_view taken = bytes_.substr(position_, count);
    position_ += count;
    return taken;
}

template <class T>
T BinaryReader::Number() {
    using Unsigned = Bits<sizeof(T)>;
    const std::string_view taken = Take(sizeof(T));
    Unsigned bits = 0;
    for (std::size_t i = 0; i < taken.size(); ++i) {
        const Unsigned byte = static_cast<unsigned char>(taken[i]);
        bits = static_cast<Unsigned>(bits | static_cast<Unsigned>(byte << (8 * i)));
    }
    return std::bit_cast<T>(bits);
}

void BinaryReader::Short(std::int16_t& value) {
    value = Number<std::int16_t>();
}

void BinaryReader::Short(std::int32_t& value) {
    value = Number<std::int16_t>();
}

void BinaryReader::Long(std::int32_t& value) {
    value = Number<std::int32_t>();
}

void BinaryReader::Single(float& value) {
    AnySingle(value);
    Require(!std::isnan(value));
}

void BinaryReader::Single(double& value) {
    float single = 0;
    Single(single);
    value = static_cast<double>(single);
}

void BinaryReader::Double(double& value) {
    value = Number<double>();
    Require(!std::isnan(value));
}

void BinaryReader::Doubles(std::span<double> values) {
    if constexpr (std::endian::native == std::endian::little) {
        const std::string_view taken = Take(values.size_bytes());
        if (taken.empty()) { // its address may be null
            std::ranges::fill(values, 0.0);
        } else {
            std::memcpy(values.data(), taken.data(), taken.size());
        }
        Require(!HoldsNan(taken));
    } else {
        std::ranges::for_each(values, [this](double& value) { Double(value); });
    }
}

void BinaryReader::AnySingle(float& value) {
    value = Number<float>();
}

void BinaryReader::Text(std::string& text) {
    text = FromFileBytes(TextBytes());
}

void BinaryReader::Fixed(std::string& text, std::size_t length) {
    text = Take(length);
}

std::string_view BinaryReader::TextBytes() {
    const auto length = Number<std::int16_t>();
    Require(length >= 0);
    return HasFailed() ? std::string_view() : Take(static_cast<std::size_t>(length));
}

void BinaryReader::Code(SymbolCode& code) {
    const std::string_view text = TextBytes();
    const std::optional<SymbolCode> read = text.empty() ? 0 : SymbolCodeFromText(text);
    Require(read.has_value());
    code = read.value_or(0);
}

void BinaryReader::Value(TaggedValue& value) {
    switch (Number<std::int16_t>()) {
    case kEmptyValue:
        value = std::monostate();
        break;
    case kShortValue:
        value = Number<std::int16_t>();
        break;
    case kLongValue:
        value = Number<std::int32_t>();
        break;
    case kSingleValue:
        Single(value.emplace<float>());
        break;
    case kDoubleValue:
        Double(value.emplace<double>());
        break;
    case kTextValue:
        Text(value.emplace<std::string>());
        break;
    case kTruthValue:
        value = Number<std::int16_t>() != 0;
        break;
    default:
        Refuse();
    }
}

void BinaryWriter::Fail(const std::string& reason) {
    if (error_.empty()) {
        error_ = reason;
    }
}

template <class T>
void BinaryWriter::Number(T value) {
    using Unsigned = Bits<sizeof(T)>;
    const auto bits = std::bit_cast<Unsigned>(value);
    std::array<char, sizeof(T)> bytes{};
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        bytes[i] = static_cast<char>(static_cast<unsigned char>(bits >> (8 * i)));
    }
    bytes_.append(bytes.data(), bytes.size());
}

void BinaryWriter::Short(std::int16_t value) {
    Number(value);
}

void BinaryWriter::Short(std::int32_t value) {
    using Limits = std::numeric_limits<std::int16_t>;
    if (value < Limits::min() || value > Limits::max()) {
        Fail("a binary plot file has no room for the number " + std::to_string(value));
    }
    Number(static_cast<std::int16_t>(value));
}

void BinaryWriter::Long(std::int32_t value) {
    Number(value);
}

void BinaryWriter::Single(float value) {
    Number(std::isnan(value) ? 0.0F : value);
}

void BinaryWriter::Single(double value) {
    using Limits = std::numeric_limits<float>;
    const bool fits = !(std::abs(value) > static_cast<double>(Limits::max()));
    Single(fits ? static_cast<float>(value)
                : std::copysign(Limits::infinity(), value < 0 ? -1.0F : 1.0F));
}

void BinaryWriter::Double(double value) {
    Number(std::isnan(value) ? 0.0 : value);
}

void BinaryWriter::Doubles(std::span<const double> values) {
    const std::string_view bytes(reinterpret_cast<const char*>(values.data()), values.size_bytes());
    if (std::endian::native == std::endian::little && !HoldsNan(bytes)) {
        bytes_ += bytes;
    } else {
        std::ranges::for_each(values, [this](double value) { Double(value); });
    }
}

void BinaryWriter::Text(std::string_view text) {
    const std::string bytes = ToFileBytes(text);
    if (bytes.size() > kLongestFileText) {
        Fail("a text of the plot has " + std::to_string(bytes.size())
             + " bytes; a binary plot file holds texts of " + std::to_string(kLongestFileText)
             + " at most");
        return;
    }
    Number(static_cast<std::int16_t>(bytes.size()));
    bytes_ += bytes;
}

void BinaryWriter::Fixed(std::string_view text) {
    bytes_ += text;
}

void BinaryWriter::Code(SymbolCode code) {
    std::array<char, kCodeDigits> digits{};
    for (std::size_t i = kCodeDigits; i-- > 0; code /= 10) {
        digits[i] = static_cast<char>('0' + code % 10);
    }
    Number(static_cast<std::int16_t>(kCodeDigits));
    bytes_.append(digits.data(), digits.size());
}

void BinaryWriter::Value(const TaggedValue& value) {
    const auto write = [this](ValueKind kind, const auto& put) {
        Number(static_cast<std::int16_t>(kind));
        put();
    };
    std::visit(
        [&](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>) {
                write(kEmptyValue, [] {});
            } else if constexpr (std::is_same_v<Held, std::int16_t>) {
                write(kShortValue, [&] { Short(held); });
            } else if constexpr (std::is_same_v<Held, std::int32_t>) {
                write(kLongValue, [&] { Long(held); });
            } else if constexpr (std::is_same_v<Held, float>) {
                write(kSingleValue, [&] { Single(held); });
            } else if constexpr (std::is_same_v<Held, double>) {
                write(kDoubleValue, [&] { Double(held); });
            } else if constexpr (std::is_same_v<Held, std::string>) {
                write(kTextValue, [&] { Text(held); });
            } else {
                write(kTruthValue, [&] { Short(held ? std::int16_t{-1} : std::int16_t{0}); });
            }
        },
        value);
}

} // namespace quandrel

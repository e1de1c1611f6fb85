// SPDX-License-Identifier: MIT
//
// Streams of little-endian fields without alignment, for the binary plot file.
//
// Reader and writer have procedures of the same names, so that one list of fields serves both. A
// field in memory may be wider than in the file. Texts in memory are UTF-8. In the file they are a
// 16-bit length and as many bytes, in Windows-1252 if that can represent them, else in UTF-8.

#pragma once

#include "core/style_tables.h"
#include "core/tagged_value.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quandrel {

/// The maximum number of bytes of a text in a file.
inline constexpr std::size_t kLongestFileText = 32767;

/// Reads fields from bytes and never beyond them. After the first fault it stays at the end: every
/// further field reads as 0 or empty, and the fault remains.
class BinaryReader {
public:
    static constexpr bool kReads = true;
    static constexpr bool kLists = false;

    /// @param bytes  must outlive the reader
    explicit BinaryReader(std::string_view bytes)
        : bytes_(bytes) {}

    /// Whether something could not be read, or was rejected.
    [[nodiscard]] bool HasFailed() const { return !error_.empty(); }

    /// The reason, for the user; empty without a fault.
    [[nodiscard]] const std::string& Error() const { return error_; }

    /// Bytes not yet read, 0 after a fault.
    [[nodiscard]] std::size_t Left() const { return HasFailed() ? 0 : bytes_.size() - position_; }

    /// Rejects the value that was read last.
    void Refuse();

    /// Rejects the value that was read last, unless a condition is true.
    void Require(bool holds) {
        if (!holds) {
            Refuse();
        }
    }

    /// Requires count >= 0 and that count * least bytes are left.
    ///
    /// @param least  the least number of bytes of each item
    void RequireRoom(std::int64_t count, std::size_t least);

    void Short(std::int16_t& value);
    void Short(std::int32_t& value);
    void Long(std::int32_t& value);
    void Single(float& value);              ///< rejects NaN
    void Single(double& value);             ///< the same
    void Double(double& value);             ///< the same
    void Doubles(std::span<double> values); ///< an array, each as Double reads it

    /// A 32-bit float with any bits.
    void AnySingle(float& value);

    void Text(std::string& text);
    void Fixed(std::string& text, std::size_t length);

    /// Skips a text and returns its bytes.
    [[nodiscard]] std::string_view TextBytes();

    /// A drawing code of six digits; an empty text is code 0.
    void Code(SymbolCode& code);

    /// A 16-bit kind and a value of that kind.
    void Value(TaggedValue& value);

private:
    [[nodiscard]] std::string_view Take(std::size_t count);

    template <class T>
    [[nodiscard]] T Number();

    std::string_view bytes_;
    std::size_t position_ = 0;
    std::string error_;
};

/// Writes fields to bytes. A value that a field cannot hold is a fault, which remains.
class BinaryWriter {
public:
    static constexpr bool kReads = false;
    static constexpr bool kLists = false;

    /// The first fault, for the user; empty without one.
    [[nodiscard]] const std::string& Error() const { return error_; }

    [[nodiscard]] std::string& Bytes() { return bytes_; }

    void Fail(const std::string& reason);

    void Short(std::int16_t value);
    void Short(std::int32_t value); ///< a fault if it does not fit
    void Long(std::int32_t value);
    void Single(float value); ///< 0 for NaN
    void Single(double value);
    void Double(double value);                    ///< 0 for NaN
    void Doubles(std::span<const double> values); ///< each as Double writes it
    void Text(std::string_view text);
    void Fixed(std::string_view text);
    void Code(SymbolCode code);
    void Value(const TaggedValue& value);

private:
    template <class T>
    void Number(T value);

    std::string bytes_;
    std::string error_;
};

} // namespace quandrel

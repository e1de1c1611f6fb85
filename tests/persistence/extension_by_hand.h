// SPDX-License-Identifier: MIT
//
// Extensions of plot files, written from their description alone.

#pragma once

#include <bit>
#include <cstdint>
#include <string>

namespace quandrel {

/// CRC-32 of ISO/IEC 13239, bit by bit.
inline std::uint32_t CrcBitByBit(const std::string& bytes) {
    std::uint32_t crc = 0xffffffffU;
    for (const char c : bytes) {
        crc ^= static_cast<unsigned char>(c);
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc & 1U) != 0 ? crc >> 1 ^ 0xedb88320U : crc >> 1;
        }
    }
    return ~crc;
}

/// The least significant bytes of a number, the lowest first.
inline std::string LittleEndian(std::uint64_t number, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        text.push_back(static_cast<char>(number >> (8 * i) & 0xffU));
    }
    return text;
}

inline std::string LongByHand(std::int32_t number) {
    return LittleEndian(static_cast<std::uint32_t>(number), 4);
}

inline std::string DoubleByHand(double number) {
    return LittleEndian(std::bit_cast<std::uint64_t>(number), 8);
}

/// A nearest whole degree and the offset from it.
inline std::string AngleByHand(int degree, float offset) {
    return LittleEndian(static_cast<std::uint16_t>(degree), 2)
           + LittleEndian(std::bit_cast<std::uint32_t>(offset), 4);
}

inline std::string BlockByHand(const std::string& tag, std::uint32_t flags,
                               const std::string& content) {
    const std::string block =
        tag + LittleEndian(flags, 4) + LittleEndian(content.size(), 8) + content;
    return block + LittleEndian(CrcBitByBit(block), 4);
}

/// An extension with blocks made by BlockByHand.
inline std::string ExtensionByHand(const std::string& blocks) {
    const std::string mark = "\x8fQX\r\n\x1a"
                             "01";
    return mark + blocks + BlockByHand("END ", 1, "");
}

} // namespace quandrel
